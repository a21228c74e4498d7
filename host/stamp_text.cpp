#include "stamp_text.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "platform.h"

namespace host {

std::string LocalTimeText(std::int32_t seconds) {
  if (seconds <= 0) return "";
  std::tm const clock = LocalTime(seconds);
  int const minutes = UtcOffset(seconds) / 60;
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02d:%02d",
                clock.tm_year + 1900, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour, clock.tm_min,
                clock.tm_sec, minutes < 0 ? '-' : '+', std::abs(minutes) / 60,
                std::abs(minutes) % 60);
  return text.data();
}

}  // namespace host
