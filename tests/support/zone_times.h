// One stamp of winter and one of summer, as the zone of the host reads them.
#pragma once

#include <cstdint>

namespace test {

inline constexpr std::int32_t kMarch = 1709618828;  // 5 March 2024 06:07:08 in Greenwich
inline constexpr std::int32_t kJuly = 1720505228;   // 9 July 2024 06:07:08 in Greenwich

struct ZoneTimes {
  const char* zone;
  std::int32_t march, july;
};
inline constexpr ZoneTimes kZoneTimes[] = {
    {"Europe/Berlin", kMarch - 3600, kJuly - 7200},
    {"America/New_York", kMarch + 18000, kJuly + 14400},
};

}  // namespace test
