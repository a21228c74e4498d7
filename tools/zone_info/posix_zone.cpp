#include "posix_zone.h"

#include <algorithm>

namespace zone_info {

namespace {

constexpr std::int32_t kHour = 3600;
constexpr std::int32_t kDay = 24 * kHour;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Takes a text apart from its start. What does not fit leaves `good` false for good.
struct Reader {
  std::string_view rest;
  bool good = true;

  bool Next(char c) {
    if (rest.empty() || rest.front() != c) return false;
    rest.remove_prefix(1);
    return true;
  }
  void Need(char c) { good = Next(c) && good; }

  int Number(int least, int most) {
    constexpr std::size_t kMostDigits = 3;
    int number = 0;
    std::size_t digits = 0;
    for (; digits < rest.size() && IsDigit(rest[digits]) && digits < kMostDigits; ++digits) {
      number = number * 10 + (rest[digits] - '0');
    }
    rest.remove_prefix(digits);
    good = good && digits > 0 && number >= least && number <= most;
    return good ? number : least;
  }

  // CET, or any letters, digits and signs in <>.
  void Name() {
    constexpr std::size_t kLeast = 3;
    std::size_t length = 0;
    if (Next('<')) {
      while (length < rest.size() && rest[length] != '>') ++length;
      good = good && length >= kLeast;
      rest.remove_prefix(length);
      Need('>');
      return;
    }
    while (length < rest.size() && IsLetter(rest[length])) ++length;
    good = good && length >= kLeast;
    rest.remove_prefix(length);
  }

  std::int32_t Time(int mostHours) {
    bool const negative = Next('-');
    if (!negative) Next('+');
    std::int32_t time = Number(0, mostHours) * kHour;
    if (Next(':')) time += Number(0, 59) * 60;
    if (Next(':')) time += Number(0, 59);
    return negative ? -time : time;
  }

  // POSIX counts west of Greenwich.
  std::int32_t Offset() { return -Time(24); }

  DayRule Rule() {
    DayRule rule;
    if (Next('M')) {
      rule.month = Number(1, 12);
      Need('.');
      rule.week = Number(1, 5);
      Need('.');
      rule.weekday = Number(0, 6);
    } else if (Next('J')) {
      rule.form = DayRule::Form::DayWithoutLeap;
      rule.day = Number(1, 365);
    } else {
      rule.form = DayRule::Form::Day;
      rule.day = Number(0, 365);
    }
    if (Next('/')) rule.time = Time(167);
    return rule;
  }
};

bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysBeforeMonth(int month, bool leap) {
  constexpr int kDays[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
  return kDays[month - 1] + (month > 2 && leap ? 1 : 0);
}

// From 0.
int DayOfYear(const DayRule& rule, int year) {
  bool const leap = IsLeapYear(year);
  if (rule.form == DayRule::Form::Day) return rule.day;
  constexpr int kDaysToMarch = 59;
  if (rule.form == DayRule::Form::DayWithoutLeap)
    return rule.day - 1 + (leap && rule.day > kDaysToMarch ? 1 : 0);
  int const first = DaysBeforeMonth(rule.month, leap);
  int const next = DaysBeforeMonth(rule.month + 1, leap);
  std::int64_t const dayAfterSunday = StartOfYear(year) / kDay + first + 4;  // 1970: a Thursday
  auto const weekday = static_cast<int>((dayAfterSunday % 7 + 7) % 7);
  int day = first + (rule.weekday - weekday + 7) % 7 + (rule.week - 1) * 7;
  while (day >= next) day -= 7;
  return day;
}

std::int64_t InstantOf(const DayRule& rule, int year, std::int32_t offset) {
  return StartOfYear(year) + std::int64_t{DayOfYear(rule, year)} * kDay + rule.time - offset;
}

}  // namespace

std::optional<PosixZone> ParsePosixZone(std::string_view text) {
  Reader reader{text};
  PosixZone zone;
  reader.Name();
  zone.offset = reader.Offset();
  zone.hasDaylight = reader.good && !reader.rest.empty();
  if (zone.hasDaylight) {
    reader.Name();
    bool const hasOffset = !reader.rest.empty() && reader.rest.front() != ',';
    zone.daylightOffset = hasOffset ? reader.Offset() : zone.offset + kHour;
    reader.Need(',');
    zone.start = reader.Rule();
    reader.Need(',');
    zone.end = reader.Rule();
  }
  if (!reader.good || !reader.rest.empty()) return {};
  return zone;
}

std::vector<QvZoneChange> ChangesOfYears(const PosixZone& zone, int first, int last) {
  if (!zone.hasDaylight) return {{StartOfYear(first), zone.offset, 0}};
  std::vector<QvZoneChange> changes;
  for (int year = first; year <= last; ++year) {
    changes.push_back({InstantOf(zone.start, year, zone.offset), zone.daylightOffset, 1});
    changes.push_back({InstantOf(zone.end, year, zone.daylightOffset), zone.offset, 0});
  }
  // Daylight time that never ends begins anew where that of the year before ends.
  std::stable_sort(changes.begin(), changes.end(),
                   [](const QvZoneChange& a, const QvZoneChange& b) { return a.From < b.From; });
  return changes;
}

std::int64_t StartOfYear(int year) {
  std::int64_t const before = year - 1;
  std::int64_t const days = before * 365 + before / 4 - before / 100 + before / 400 - 719162;
  return days * kDay;
}

}  // namespace zone_info
