// Stamps as numbers: the seconds that a clock of local time has counted since it showed 1970-01-01
// 00:00, and back. What the zone says of them is not asked here.
#pragma once

#include "fields/local_time.h"

namespace qvslm {

inline constexpr i32 kSecondsOfHour = 3600;
inline constexpr i32 kSecondsOfDay = 24 * kSecondsOfHour;

constexpr i64 FloorOf(i64 number, i64 unit) {
  return number >= 0 ? number / unit : -((unit - 1 - number) / unit);
}

// A day since 1970 as a day of a year since 1900.
struct YearAndDay {
  i64 year;
  i64 day;  // from 0
};
YearAndDay YearOfDay(i64 day);

// Fields out of range are carried over.
i64 LocalCount(const Calendar& calendar);

// For years that 32 bits hold.
Calendar StampOf(i64 local, i32 flag);

}  // namespace qvslm
