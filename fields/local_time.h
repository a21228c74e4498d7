// The host's clock and time zone: the only door to them. The zone is the C library's, or one that a
// front end has handed in (fields/zone_table).
//
// Conversions repeat for thousands of stamps of one day, so LocalSeconds remembers days whose first
// and last second it has found to lie in one stretch of the zone, and adds hours, minutes and
// seconds; on the days on which the clock changes it does so by the hour. ForgetLocalTime empties
// that memory. The census, the start, the header reader and TX_DateToSecs do so first, so that a
// host may change its zone between files.
#pragma once

#include "api/context.h"

namespace qvslm {

// The fields of the standard library's broken-down time, in its order.
struct Calendar {
  i32 Second;
  i32 Minute;
  i32 Hour;
  i32 Day;      // of the month, from 1
  i32 Month;    // 0 to 11
  i32 Year;     // since 1900
  i32 WeekDay;  // 0 for Sunday
  i32 YearDay;
  i32 DaylightFlag;  // 0 standard time, above 0 daylight time, below 0 not known
};

// All zero, the daylight flag not known.
inline Calendar ClearedCalendar() {
  Calendar calendar{};
  calendar.DaylightFlag = -1;
  return calendar;
}

void ForgetLocalTime();

// The zone's own answer, by a daylight flag of 0 or 1: seconds since 1970 and the stamp they have
// there, fields in range. False where it has none; seconds are -1 and the stamp stays then, with
// the flag.
bool AskZone(Calendar& calendar, i32 flag, i64& seconds);

// Seconds since 1970-01-01 00:00 UTC of a local stamp, or -1 where 32 bits do not hold them; fields
// out of range are carried over. The calendar is brought into range and its daylight flag resolved.
// With the flag below 0 a stamp of the hour that the autumn change repeats is standard time, and a
// stamp of the hour that the spring change skips is read in standard time; the C library alone
// would answer by the calls made before.
i32 LocalSeconds(Calendar& calendar);

// The same by two daylight flags at once; the calendar stays as it is.
struct TwoReadings {
  i32 first;
  i32 second;
};
TwoReadings LocalSecondsByTwoFlags(const Calendar& calendar, i32 first, i32 second);

// The local stamp of seconds since 1970.
Calendar LocalCalendar(i64 seconds);

// The present time, in seconds and as a local stamp.
i32 PresentSeconds();
Calendar PresentCalendar();

}  // namespace qvslm
