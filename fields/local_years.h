// What the zone makes of the stamps of whole years, for files with stamps of many days: learned
// once for each year and daylight flag, by a number of questions to the zone that no file can
// raise.
//
// A year is taken apart into stretches in which local time and seconds go alike. Between changes of
// the zone a few stamps a year are asked for; around them whole days where their first and last
// second go alike, else hours, minutes, seconds. ForgetLocalTime empties the memory.
#pragma once

#include "api/context.h"

namespace qvslm {

// Years since 1900. Later ones are alike in pairs of 400 years distance: the calendar repeats, and
// zones that go on changing do so by a rule on weekdays.
inline constexpr i32 kYearsKept = 656;

// An instant as the zone has it. Where it has none, seconds are -1 and the flag is the one asked
// for.
struct LocalInstant {
  i64 seconds;
  i32 flag;  // resolved
  bool found;
  i32 moved;  // by so many seconds its stamp lies behind the one that was asked for
  i32 ahead;  // all this holds for so many seconds more
};

// Of a second of a kept year, as a daylight flag of 0 or 1 reads it. False where the memory has no
// room.
bool FindInYear(i32 year, i32 secondOfYear, i32 flag, LocalInstant& result);

void ForgetLocalYears();

// Days from 1970-01-01 to the first of January of a year since 1900.
constexpr i64 DaysBeforeYear(i64 year) {
  i64 const last = year + 1899;
  return last * 365 + last / 4 - last / 100 + last / 400 - 719162;
}
constexpr bool IsLeapYear(i64 year) {
  return DaysBeforeYear(year + 1) - DaysBeforeYear(year) == 366;
}
static_assert(DaysBeforeYear(70) == 0 && DaysBeforeYear(71) == 365 && DaysBeforeYear(0) == -25567);
static_assert(IsLeapYear(100) && !IsLeapYear(200) && !IsLeapYear(0) && IsLeapYear(124));

}  // namespace qvslm
