#include "fields/local_time.h"

#include <algorithm>
#include <ctime>
#include <limits>

#include "fields/local_stamp.h"
#include "fields/local_years.h"
#include "fields/zone_table.h"

namespace qvslm {

namespace {

constexpr i32 kNoTime = -1;

// Whether mktime resolves the daylight flag. Emscripten's leaves it as it was asked for; there it is
// read off the stamp of the seconds.
#ifdef __EMSCRIPTEN__
constexpr bool kTellsFlag = false;
#else
constexpr bool kTellsFlag = true;
#endif

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

// How often the zone is asked for single stamps. A file with stamps of more days goes by whole
// years.
constexpr int kMostAsked = 1200;
int asked = 0;

Instant AskForInstant(const Calendar& calendar, i32 flag) {
  Calendar stamp = calendar;
  i64 seconds = 0;
  AskZone(stamp, flag, seconds);
  return {seconds, stamp};
}

// Fields out of range are carried over as the C library does it: seconds are added when the rest is
// converted.
Instant FindInstant(const Calendar& calendar, i32 flag) {
  constexpr i64 kDaysOf400Years = 146097;
  i64 const moreSeconds = i64{calendar.Second} - std::clamp(calendar.Second, 0, 59);
  i64 const local = LocalCount(calendar) - moreSeconds;
  i64 const day = FloorOf(local, kSecondsOfDay);
  auto const [year, yearDay] = YearOfDay(day);
  if (year < 0) return AskForInstant(calendar, flag);
  i64 const turns = year < kYearsKept ? 0 : (year - kYearsKept) / 400 + 1;
  auto const secondOfYear = static_cast<i32>(yearDay * kSecondsOfDay + local - day * kSecondsOfDay);
  LocalInstant found{};
  if (!FindInYear(static_cast<i32>(year - turns * 400), secondOfYear, flag > 0 ? 1 : 0, found)) {
    return AskForInstant(calendar, flag);
  }
  if (!found.found) {
    Calendar stamp = calendar;
    stamp.WeekDay = stamp.YearDay = 0;
    stamp.DaylightFlag = flag;
    return {kNoTime, stamp};
  }
  i64 const seconds = found.seconds + turns * kDaysOf400Years * kSecondsOfDay + moreSeconds;
  bool const sameStretch = moreSeconds >= 0 && moreSeconds <= found.ahead;
  if (!sameStretch) return {seconds, LocalCalendar(seconds)};
  return {seconds, StampOf(local + found.moved + moreSeconds, found.flag)};
}

Instant Convert(const Calendar& calendar, i32 flag) {
  if (asked >= kMostAsked) return FindInstant(calendar, flag);
  ++asked;
  return AskForInstant(calendar, flag);
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

// A civil day or hour as one daylight flag reads it.
struct Stretch {
  bool known = false;
  bool whole = false;  // checked to lie in one stretch of the zone
  bool plain = false;  // its first and last second have the stamps that were asked for
  Instant start{};
};

// By daylight flag: not known, standard, daylight.
constexpr int kFlags = 3;

struct Remembered {
  i64 key = kNoKey;
  Stretch byFlag[kFlags];
  static constexpr i64 kNoKey = -1;
};

constexpr int kDaysKept = 32;
constexpr int kHoursKept = 24;
Remembered days[kDaysKept];
Remembered hours[kHoursKept];  // of the days on which the clock changes

// Whether a number lies from 0 up to below an end.
bool IsBelow(i32 number, u32 end) {
  return static_cast<u32>(number) < end;
}

bool InRange(const Calendar& c) {
  return IsBelow(c.Second, 60) && IsBelow(c.Minute, 60) && IsBelow(c.Hour, 24) && c.Day > 0 &&
         IsBelow(c.Day, 32) && IsBelow(c.Month, 12) && IsBelow(c.Year, 10000);
}

bool IsClockOf(const Calendar& a, const Calendar& b) {
  return a.Hour == b.Hour && a.Minute == b.Minute && a.Second == b.Second;
}

// Takes up a stretch, and whether its first and last second lie as far apart as they should.
void TakeUp(Stretch& stretch, Calendar first, Calendar last, i32 flag, i32 length) {
  first.DaylightFlag = last.DaylightFlag = flag;
  Instant const end = Resolve(last);
  stretch.known = true;
  stretch.start = Resolve(first);
  const Calendar& stamp = stretch.start.stamp;
  stretch.whole = end.seconds - stretch.start.seconds == length - 1 &&
                  end.stamp.DaylightFlag == stamp.DaylightFlag;
  stretch.plain = IsClockOf(stamp, first) && IsClockOf(end.stamp, last);
}

Remembered& Recall(Remembered& memory, i64 key) {
  if (memory.key != key) {
    memory.key = key;
    for (Stretch& stretch : memory.byFlag) stretch.known = false;
  }
  return memory;
}

Remembered& RecallDay(const Calendar& calendar) {
  i64 const key = (i64{calendar.Year} * 12 + calendar.Month) * 32 + calendar.Day;
  return Recall(days[calendar.Day % kDaysKept], key);
}

const Stretch& StretchOfDay(Remembered& day, const Calendar& calendar, i32 flag) {
  Stretch& stretch = day.byFlag[flag + 1];
  if (!stretch.known) {
    Calendar first = calendar;
    Calendar last = calendar;
    first.Hour = first.Minute = first.Second = 0;
    last.Hour = 23;
    last.Minute = last.Second = 59;
    TakeUp(stretch, first, last, flag, kSecondsOfDay);
  }
  return stretch;
}

const Stretch& StretchOfHour(i64 dayKey, const Calendar& calendar, i32 flag) {
  Remembered& hour = Recall(hours[calendar.Hour], dayKey);
  Stretch& stretch = hour.byFlag[flag + 1];
  if (!stretch.known) {
    Calendar first = calendar;
    Calendar last = calendar;
    first.Minute = first.Second = 0;
    last.Minute = last.Second = 59;
    TakeUp(stretch, first, last, flag, kSecondsOfHour);
  }
  return stretch;
}

struct Place {
  const Stretch* stretch = nullptr;  // null: the stamp must be converted
  i32 offset = 0;                    // seconds behind its start
};

// Where a stamp in range lies in what is remembered.
Place FindPlace(Remembered& day, const Calendar& calendar, i32 flag) {
  i32 const behindHour = calendar.Minute * 60 + calendar.Second;
  const Stretch& whole = StretchOfDay(day, calendar, flag);
  if (whole.whole) [[likely]]
    return {&whole, calendar.Hour * kSecondsOfHour + behindHour};
  const Stretch& hour = StretchOfHour(day.key, calendar, flag);
  if (hour.whole) return {&hour, behindHour};
  return {};
}

i32 ConvertAnew(Calendar& calendar) {
  Instant const instant = Resolve(calendar);
  calendar = instant.stamp;
  return In32Bits(instant.seconds);
}

i32 KnownFlag(i32 flag) {
  return flag < 0 ? -1 : flag > 0 ? 1 : 0;
}

i32 SecondsAnew(const Calendar& calendar, i32 flag) {
  Calendar copy = calendar;
  copy.DaylightFlag = flag;
  return ConvertAnew(copy);
}

i32 SecondsOnDay(Remembered& day, const Calendar& calendar, i32 flag) {
  Place const place = FindPlace(day, calendar, KnownFlag(flag));
  if (place.stretch == nullptr) return SecondsAnew(calendar, flag);
  return In32Bits(place.stretch->start.seconds + place.offset);
}

}  // namespace

bool AskZone(Calendar& calendar, i32 flag, i64& seconds) {
  if (ZoneIsTable()) return AskTable(calendar, flag, seconds);
  constexpr int kNoWeekDay = -1;
  std::tm stamp = BrokenDown(calendar, flag);
  stamp.tm_wday = kNoWeekDay;
  seconds = static_cast<i64>(std::mktime(&stamp));
  bool const found = stamp.tm_wday != kNoWeekDay;
  if (!found) stamp.tm_wday = 0;
  calendar = found && !kTellsFlag ? LocalCalendar(seconds) : FromBrokenDown(stamp);
  return found;
}

void ForgetLocalTime() {
  asked = 0;
  ForgetLocalYears();
  ForgetLastAnswer();
  for (Remembered& day : days) day.key = Remembered::kNoKey;
  for (Remembered& hour : hours) hour.key = Remembered::kNoKey;
}

TwoReadings LocalSecondsByTwoFlags(const Calendar& calendar, i32 first, i32 second) {
  if (!InRange(calendar)) return {SecondsAnew(calendar, first), SecondsAnew(calendar, second)};
  Remembered& day = RecallDay(calendar);
  return {SecondsOnDay(day, calendar, first), SecondsOnDay(day, calendar, second)};
}

i32 LocalSeconds(Calendar& calendar) {
  if (!InRange(calendar)) return ConvertAnew(calendar);
  Place const place = FindPlace(RecallDay(calendar), calendar, KnownFlag(calendar.DaylightFlag));
  if (place.stretch == nullptr || !place.stretch->plain) return ConvertAnew(calendar);
  Calendar const stamp = calendar;
  calendar = place.stretch->start.stamp;
  calendar.Hour = stamp.Hour;
  calendar.Minute = stamp.Minute;
  calendar.Second = stamp.Second;
  return In32Bits(place.stretch->start.seconds + place.offset);
}

Calendar LocalCalendar(i64 seconds) {
  if (ZoneIsTable()) return TableCalendar(seconds);
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
