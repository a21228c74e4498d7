#include "fields/local_time.h"

#include <ctime>
#include <limits>

namespace qvslm {

namespace {

constexpr i32 kNoTime = -1;

std::tm BrokenDown(const Calendar& calendar, i32 flag) {
  std::tm stamp{};
  stamp.tm_sec = calendar.Second;
  stamp.tm_min = calendar.Minute;
  stamp.tm_hour = calendar.Hour;
  stamp.tm_mday = calendar.Day;
  stamp.tm_mon = calendar.Month;
  stamp.tm_year = calendar.Year;
  stamp.tm_isdst = flag;
  return stamp;
}

// An instant, and its stamp as the zone has it: all fields in range, the daylight flag resolved.
struct Instant {
  i64 seconds;
  Calendar stamp;
};

Calendar FromBrokenDown(const std::tm& stamp) {
  return {stamp.tm_sec,  stamp.tm_min,  stamp.tm_hour, stamp.tm_mday, stamp.tm_mon,
          stamp.tm_year, stamp.tm_wday, stamp.tm_yday, stamp.tm_isdst};
}

Instant Convert(const Calendar& calendar, i32 flag) {
  std::tm stamp = BrokenDown(calendar, flag);
  std::time_t const seconds = std::mktime(&stamp);
  return {static_cast<i64>(seconds), FromBrokenDown(stamp)};
}

Instant Resolve(const Calendar& calendar) {
  if (calendar.DaylightFlag >= 0) return Convert(calendar, calendar.DaylightFlag);
  Instant const standard = Convert(calendar, 0);
  if (standard.stamp.DaylightFlag <= 0) return standard;
  Instant const daylight = Convert(calendar, 1);
  return daylight.stamp.DaylightFlag > 0 ? daylight : standard;
}

i32 In32Bits(i64 seconds) {
  bool const fits =
      seconds >= std::numeric_limits<i32>::min() && seconds <= std::numeric_limits<i32>::max();
  return fits ? static_cast<i32>(seconds) : kNoTime;
}

// An hour of one daylight flag, as it was asked for, and its first second.
struct Hour {
  i32 year, month, day, hour;
  bool known;
  Instant start;
};

constexpr int kHoursKept = 64;
Hour hours[3][kHoursKept];

bool InRange(const Calendar& c) {
  return c.Second >= 0 && c.Second < 60 && c.Minute >= 0 && c.Minute < 60 && c.Hour >= 0 &&
         c.Hour < 24 && c.Day >= 1 && c.Day <= 31 && c.Month >= 0 && c.Month < 12;
}

// Finds the hour of a stamp, or takes it up when its first and last second lie in one stretch.
const Instant* FindHour(const Calendar& calendar) {
  int const flag = calendar.DaylightFlag < 0 ? 0 : calendar.DaylightFlag > 0 ? 2 : 1;
  Hour& hour = hours[flag][(calendar.Day * 24 + calendar.Hour) % kHoursKept];
  if (hour.known && hour.hour == calendar.Hour && hour.day == calendar.Day &&
      hour.month == calendar.Month && hour.year == calendar.Year) {
    return &hour.start;
  }
  Calendar edge = calendar;
  edge.Minute = edge.Second = 0;
  Instant const first = Resolve(edge);
  edge.Minute = edge.Second = 59;
  Instant const last = Resolve(edge);
  bool const oneStretch =
      last.seconds - first.seconds == 3599 && first.stamp.DaylightFlag == last.stamp.DaylightFlag;
  if (!oneStretch || first.stamp.Minute != 0 || first.stamp.Second != 0) return nullptr;
  hour = {calendar.Year, calendar.Month, calendar.Day, calendar.Hour, true, first};
  return &hour.start;
}

}  // namespace

Calendar ClearedCalendar() {
  Calendar calendar{};
  calendar.DaylightFlag = -1;
  return calendar;
}

void ForgetLocalTime() {
  for (auto& flag : hours) {
    for (Hour& hour : flag) hour.known = false;
  }
}

i32 LocalSeconds(Calendar& calendar) {
  if (InRange(calendar)) {
    if (const Instant* const hour = FindHour(calendar)) {
      i32 const minute = calendar.Minute;
      i32 const second = calendar.Second;
      calendar = hour->stamp;
      calendar.Minute = minute;
      calendar.Second = second;
      return In32Bits(hour->seconds + i64{60} * minute + second);
    }
  }
  return LocalSecondsAnew(calendar);
}

i32 LocalSecondsAnew(Calendar& calendar) {
  Instant const instant = Resolve(calendar);
  calendar = instant.stamp;
  return In32Bits(instant.seconds);
}

Calendar LocalCalendar(i64 seconds) {
  auto const time = static_cast<std::time_t>(seconds);
  const std::tm* const stamp = std::localtime(&time);
  return stamp == nullptr ? ClearedCalendar() : FromBrokenDown(*stamp);
}

i32 PresentSeconds() {
  return In32Bits(static_cast<i64>(std::time(nullptr)));
}

Calendar PresentCalendar() {
  return LocalCalendar(static_cast<i64>(std::time(nullptr)));
}

}  // namespace qvslm
