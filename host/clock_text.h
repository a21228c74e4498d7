// Times as the clock of the measurement showed them, for many records: what the zone said of a
// quarter of an hour is remembered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace host {

class ClockText {
 public:
  static constexpr std::size_t kMost = 32;

  // Writes what LocalTimeText gives, with milliseconds if asked for, and gives the end of it;
  // nothing for no time.
  char* Put(char* at, std::int32_t seconds);
  char* PutWithMilliseconds(char* at, double seconds);

  // Seconds to add to UTC for the clock's time; nothing for no time.
  std::optional<std::int32_t> Offset(std::int32_t seconds);

 private:
  struct Quarter {
    std::int32_t number = -1;
    std::int32_t offset = 0;
    char offsetText[8] = {};
  };
  // What holds throughout the quarter of an hour; null where the zone changes within it.
  const Quarter* QuarterOf(std::int32_t seconds);

  Quarter quarter_;
};

}  // namespace host
