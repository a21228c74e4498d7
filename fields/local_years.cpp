#include "fields/local_years.h"

#include <algorithm>
#include <iterator>

#include "fields/local_stamp.h"
#include "fields/local_time.h"

namespace qvslm {

namespace {

constexpr u32 kMostStretches = 8192;
constexpr i32 kDaysBetweenAsked = 30;
constexpr i32 kMostDaysOfYear = 366;

// Up to the next one of the year.
struct Stretch {
  i32 from;  // second of the year
  i32 back;  // what seconds since 1970 lie behind local time
  i8 flag;
  bool found;
  i32 moved;

  bool IsLike(const Stretch& other) const {
    return back == other.back && flag == other.flag && found == other.found && moved == other.moved;
  }
};

struct Year {
  u16 first;
  u16 count;  // 0: not learned
};

Stretch stretches[kMostStretches];
u32 stretchCount = 0;
Year years[kYearsKept][2];

// The year that is learned.
struct Lesson {
  i32 year;
  i32 flag;
  u32 first;
  bool hasRoom = true;

  i64 Start() const { return DaysBeforeYear(year) * kSecondsOfDay; }
};

// A stamp in range as seconds of local time.
i64 LocalSecondsIn(const Calendar& stamp) {
  i64 const day = DaysBeforeYear(stamp.Year) + stamp.YearDay;
  return ((day * 24 + stamp.Hour) * 60 + stamp.Minute) * 60 + stamp.Second;
}

Stretch Ask(const Lesson& lesson, i32 second) {
  Calendar stamp = ClearedCalendar();
  stamp.Year = lesson.year;
  stamp.Day = second / kSecondsOfDay + 1;
  stamp.Hour = second / 3600 % 24;
  stamp.Minute = second / 60 % 60;
  stamp.Second = second % 60;
  i64 seconds = 0;
  if (!AskZone(stamp, lesson.flag, seconds))
    return {second, 0, static_cast<i8>(lesson.flag), false, 0};
  i64 const asked = lesson.Start() + second;
  auto const back = static_cast<i32>(asked - seconds);
  auto const moved = static_cast<i32>(LocalSecondsIn(stamp) - asked);
  return {second, back, static_cast<i8>(stamp.DaylightFlag), true, moved};
}

void Add(Lesson& lesson, const Stretch& stretch) {
  if (stretchCount > lesson.first && stretches[stretchCount - 1].IsLike(stretch)) return;
  lesson.hasRoom = lesson.hasRoom && stretchCount < kMostStretches;
  if (lesson.hasRoom) stretches[stretchCount++] = stretch;
}

// A day, hour, minute or second.
void LearnUnit(Lesson& lesson, i32 from, i32 length) {
  Stretch const start = Ask(lesson, from);
  if (length == 1 || Ask(lesson, from + length - 1).IsLike(start)) return Add(lesson, start);
  i32 const part = length == kSecondsOfDay ? 3600 : length / 60;
  for (i32 at = 0; at < length; at += part) LearnUnit(lesson, from + at, part);
}

// Days far from a change of the zone. Stamps read against the zone's flag go by the time next to
// them that has it, which may be another one for later days.
void LearnQuietDays(Lesson& lesson, i32 from, i32 until) {
  Stretch const start = Ask(lesson, from * kSecondsOfDay);
  bool alike = Ask(lesson, until * kSecondsOfDay - 1).IsLike(start);
  for (i32 day = from; alike && day < until; day += kDaysBetweenAsked) {
    alike = Ask(lesson, day * kSecondsOfDay).IsLike(start);
  }
  if (alike) return Add(lesson, start);
  for (i32 day = from; day < until; ++day) LearnUnit(lesson, day * kSecondsOfDay, kSecondsOfDay);
}

// What the zone is at the start of each day by UTC, from some days before the year on.
struct DayReadings {
  static constexpr i32 kBefore = 2;
  static constexpr i32 kBehind = 3;
  i64 offset[kBefore + kMostDaysOfYear + kBehind];
  i32 flag[kBefore + kMostDaysOfYear + kBehind];

  DayReadings(i64 start, i32 days) {
    for (i32 at = 0; at < kBefore + days + kBehind; ++at) {
      i64 const seconds = start + i64{at - kBefore} * kSecondsOfDay;
      Calendar const stamp = LocalCalendar(seconds);
      offset[at] = LocalSecondsIn(stamp) - seconds;
      flag[at] = stamp.DaylightFlag;
    }
  }

  // Whether nothing changes from two days before a day to two behind it.
  bool IsQuiet(i32 day) const {
    for (i32 at = day + 1; at <= day + kBefore + kBehind - 1; ++at) {
      if (offset[at] != offset[day] || flag[at] != flag[day]) return false;
    }
    return true;
  }
};

void Learn(Lesson& lesson) {
  i32 const days = IsLeapYear(lesson.year) ? 366 : 365;
  DayReadings const readings(lesson.Start(), days);
  for (i32 day = 0; day < days;) {
    i32 until = day;
    while (until < days && readings.IsQuiet(until)) ++until;
    if (until > day) {
      LearnQuietDays(lesson, day, until);
    } else {
      LearnUnit(lesson, day * kSecondsOfDay, kSecondsOfDay);
      until = day + 1;
    }
    day = until;
  }
}

}  // namespace

bool FindInYear(i32 year, i32 secondOfYear, i32 flag, LocalInstant& result) {
  Year& kept = years[year][flag];
  if (kept.count == 0) {
    Lesson lesson{year, flag, stretchCount};
    Learn(lesson);
    if (!lesson.hasRoom) {
      stretchCount = lesson.first;
      return false;
    }
    kept = {static_cast<u16>(lesson.first), static_cast<u16>(stretchCount - lesson.first)};
  }
  const Stretch* const first = stretches + kept.first;
  const Stretch* const end = first + kept.count;
  const Stretch* const next =
      std::upper_bound(first, end, secondOfYear,
                       [](i32 second, const Stretch& stretch) { return second < stretch.from; });
  const Stretch& stretch = *(next - 1);
  i32 const until = next == end ? (IsLeapYear(year) ? 366 : 365) * kSecondsOfDay : next->from;
  i64 const seconds = DaysBeforeYear(year) * kSecondsOfDay + secondOfYear - stretch.back;
  result = {stretch.found ? seconds : -1, stretch.flag, stretch.found, stretch.moved,
            until - secondOfYear - 1};
  return true;
}

void ForgetLocalYears() {
  if (stretchCount == 0) return;
  stretchCount = 0;
  for (auto& year : years) std::fill(std::begin(year), std::end(year), Year{});
}

}  // namespace qvslm
