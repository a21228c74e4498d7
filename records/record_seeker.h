// Fetches the n-th record of a family: a forward cursor per family, for the band records, which
// have no time of their own.
#pragma once

#include "api/context.h"

namespace qvslm {

// Families are the type bytes 1 to 6 and 129 to 131; wanted counts from 1. Returns RecordLength
// when the record's body is in RecordBuffer, else
//   QV_NOT_FOUND         the family has no first record, or the data ended before the wanted one;
//   QV_BAD_LENGTH        the walk met an item that it cannot pass, or the end of the file;
//   QV_TAIL_SEEK_FAILED  the seek to the cursor failed (raised);
//   QV_RECORD_TOO_SHORT  the file ended within a stream on the way;
//   QV_NO_TEXT_HEADER    the cursor stands behind the wanted record already.
// After the first two the family answers QV_NOT_FOUND until a 'Q' item or its next record sets the
// cursor anew.
i32 SeekRecord(u32 family, u32 wanted);

}  // namespace qvslm
