/** Several files at once, for front ends that build the library with QVSLM_READERS.
 *
 * Behind the twelve exports there is one library in a process, for one thread and one file at a time.
 * A front end that reads files side by side gives each a reader: all that the library keeps beside the
 * context, the daylight span and the zone of QvUseZone included. A thread takes a reader in hand, makes
 * calls for one file, and lays it down again; another thread may take it then. Threads with readers of
 * their own do not disturb each other.
 *
 *   QvReader* reader = QvNewReader();
 *   QvTakeReader(reader);
 *   QvWalkOpen(&walk, path, context, record, &census);
 *   QvLayDownReader(reader);
 *
 * Without a reader in hand no other call of the library may be made. The zone of the C library is one
 * for all readers, and its functions are not made for threads: who reads in several gives each reader
 * a zone.
 *
 * This header is for what is built with the library from one tree. It is not installed.
 */
#ifndef QVSLM_READER_H
#define QVSLM_READER_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct QvReader QvReader;

/** A reader as the library is before its first call. Null without memory for it, about a megabyte. */
QvReader* QvNewReader(void);

/** From here on the calls of this thread are those of the reader. It must be in no other hand, and the
 * thread must have none. */
void QvTakeReader(QvReader* reader);

/** Lays down the reader that the thread has in hand. */
void QvLayDownReader(QvReader* reader);

/** Frees a reader that is in no hand. It does not close a file: QV_StopTranslate does. */
void QvFreeReader(QvReader* reader);

#ifdef __cplusplus
}
#endif

#endif
