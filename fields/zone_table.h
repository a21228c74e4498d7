// A zone by a table of its changes, as a front end hands it in (QvUseZone): the second source of
// local time beside the C library, for fields/local_time alone. Its answers are those that the GNU C
// library gives of the same zone, odd ones included, so that one file has the same times everywhere.
#pragma once

#include "fields/local_time.h"

namespace qvslm {

bool ZoneIsTable();

// As AskZone and LocalCalendar.
//
// An hour that comes twice without a change of the flag is read by the answer before, as the GNU C
// library does; ForgetLastAnswer makes the next question the first.
void ForgetLastAnswer();
bool AskTable(Calendar& calendar, i32 flag, i64& seconds);
Calendar TableCalendar(i64 seconds);

}  // namespace qvslm
