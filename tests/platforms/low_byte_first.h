/* Records in one order of bytes, so that the hashes of two machines can be compared. */
#ifndef LOW_BYTE_FIRST_H
#define LOW_BYTE_FIRST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Turns the numbers of a record so that their low byte comes first; on most machines it does. The
 * mode tells the two records of code 1 apart. */
void PutLowByteFirst(void* record, uint16_t code, int32_t mode);

/* The same of QvFileHeaderInfo and QvRecordCensus, which have no code. */
void PutLowByteFirstIn(void* info, const char* structName);

#ifdef __cplusplus
}
#endif

#endif
