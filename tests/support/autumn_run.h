// A run that crosses the autumn clock change of Europe/Berlin: it starts on Saturday, 26 October
// 2024, at 22:00 in summer time and ends on Sunday at 08:00 in standard time.
//
// After a census the span of the run reaches from 26 October 20:00 UTC to 27 October 06:00 UTC (the
// last stamp read in summer time), and times in it are read in summer time. Beyond it:
//
//   08:10 on Sunday is 07:10 UTC. 07:50 on Sunday is 05:50 UTC as long as no later time of its
//   family was seen; behind 08:10 of the same family it is 06:50 UTC, because it would run
//   backwards.
#pragma once

#include <cstdint>

#include "data_file_writer.h"
#include "support/item_bodies.h"

namespace test {

// Seconds of 27 October 2024 by the clock of Greenwich.
inline constexpr std::int32_t kSunday0030Utc = 1729989000;
inline constexpr std::int32_t kSunday0130Utc = 1729992600;
inline constexpr std::int32_t kSunday0550Utc = 1730008200;
inline constexpr std::int32_t kSunday0650Utc = 1730011800;
inline constexpr std::int32_t kSunday0710Utc = 1730013000;

inline samples::DataFile& AddAutumnRun(samples::DataFile& file) {
  return file.Item(4, Event(64, 26, 10, 2024, 22)).Item(4, Event(0, 27, 10, 2024, 8));
}

}  // namespace test
