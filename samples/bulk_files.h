// Large files for measurements of speed, written piece by piece with little memory.
#pragma once

#include <cstdint>
#include <string>

#include "clock.h"

namespace samples {

// A file of model 486 of about the given size, below 2 GiB: months of a noise monitoring station
// from `start` on by its clock, with settings, one-minute intervals with all blocks, events, level
// marks, time histories, summaries and day summaries as such a station writes them. Throws
// std::runtime_error when it cannot be written.
void WriteMixedFile(const std::string& path, std::int64_t bytes, Clock start = At(2020, 1, 1));

enum class Family {
  kEvents,
  kLevelMarks,
  kIntervals,      // plain
  kFullIntervals,  // with all blocks
  kBandIntervals,  // model 442, mode 4
  kStreamOneByte,
  kStreamOneByteSecond,  // with second levels
  kStreamTwoByte,
  kStreamTwoByteSecond,
  kSummaries,
  kDaySummaries,
  kBandsNear,  // each item 129 behind its interval
  kBandsFar,   // all intervals, then all items 129
  kSetups,     // model 442, mode 2
  kSpectra,    // lists 21 of model 442
  kFields,     // lists 27 of model 442
  kResults,    // results blocks of model 486
};
inline constexpr Family kFamilies[] = {
    Family::kEvents,
    Family::kLevelMarks,
    Family::kIntervals,
    Family::kFullIntervals,
    Family::kBandIntervals,
    Family::kStreamOneByte,
    Family::kStreamOneByteSecond,
    Family::kStreamTwoByte,
    Family::kStreamTwoByteSecond,
    Family::kSummaries,
    Family::kDaySummaries,
    Family::kBandsNear,
    Family::kBandsFar,
    Family::kSetups,
    Family::kSpectra,
    Family::kFields,
    Family::kResults,
};
const char* FamilyName(Family family);

// A file of one family, with what it needs around it. `records` counts the family's items: samples
// of streams, blocks of lists, items 129 of bands. Items of general models begin at `start` by the
// instrument's clock and stand a minute apart, days a day.
void WriteFamilyFile(const std::string& path, Family family, int records,
                     Clock start = At(2020, 1, 1));

}  // namespace samples
