// Seconds since 1970-01-01 00:00 UTC of a date and time in UTC.
#pragma once

#include <chrono>
#include <cstdint>

namespace test {

constexpr std::int32_t Utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                           int second = 0) {
  using namespace std::chrono;
  sys_days const midnight =
      year_month_day(std::chrono::year(year), std::chrono::month(month), std::chrono::day(day));
  auto const stamp = midnight + hours(hour) + minutes(minute) + seconds(second);
  return static_cast<std::int32_t>(stamp.time_since_epoch().count());
}
static_assert(Utc(1970, 1, 1) == 0);
static_assert(Utc(2001, 9, 9, 1, 46, 40) == 1000000000);

}  // namespace test
