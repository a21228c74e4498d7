// The rule of a zone as POSIX writes it for TZ, such as CET-1CEST,M3.5.0,M10.5.0/3, with the hours
// from -167 to 167 that TZif allows.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "qvslm_zone.h"

namespace zone_info {

struct DayRule {
  enum class Form { Weekday, DayWithoutLeap, Day };
  Form form = Form::Weekday;
  int month = 0;             // Weekday: 1 to 12
  int week = 0;              // 1 to 5, the last one
  int weekday = 0;           // 0 for Sunday
  int day = 0;               // DayWithoutLeap: 1 to 365; Day: 0 to 365
  std::int32_t time = 7200;  // by the clock that the change ends
};

struct PosixZone {
  std::int32_t offset = 0;
  bool hasDaylight = false;
  std::int32_t daylightOffset = 0;
  DayRule start;  // of daylight time
  DayRule end;
};

std::optional<PosixZone> ParsePosixZone(std::string_view text);

// What the rule says of whole years: the changes of each, in the order of time; of a zone that has
// none, one at the start of the first.
std::vector<QvZoneChange> ChangesOfYears(const PosixZone& zone, int first, int last);

// Seconds from 1970 to the start of a year by UTC.
std::int64_t StartOfYear(int year);

}  // namespace zone_info
