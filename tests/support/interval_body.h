// The head of an interval, and what it leaves in the record.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/record_image.h"
#include "support/translation.h"

namespace test {

inline constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// The part that every interval has: noon, one minute.
inline samples::Body IntervalHead() {
  return samples::Body()
      .Date(21, 6, 2024)
      .Time(12, 0, 0)
      .Duration5(60)
      .Level(61.5)     // A
      .Level(62.25)    // B
      .Level(63.125)   // C
      .Level(64.75)    // D
      .Level(65.0625)  // E
      .U8(0x91)
      .U8(0xA2)
      .Fixed16(100);
}

// What a head alone leaves, with a limit level that LevelC does not reach.
inline RecordImage IntervalHeadImage(int model) {
  return RecordImage(416)
      .U16(0, 1)
      .I32(4, kNoon)
      .F32(88, 60)
      .F32(100, 61.5)
      .F32(104, 63.125)
      .I32(108, kNoon + 60)
      .U16(112, model)
      .U16(114, 0xA2)
      .F32(116, 64.75)
      .U16(120, 0x91)
      .I32(124, 1)
      .F32(128, 62.25)
      .F32(132, 100)
      .F32(144, 65.0625);
}

// The record of the only interval of a file.
inline Step OneInterval(samples::DataFile file, const samples::Body& body) {
  Translation const run(file.Item(1, body).EndOfData());
  if (run.Records(QV_INTERVAL).size() != 1) {
    ADD_FAILURE() << run.Records(QV_INTERVAL).size() << " intervals";
    return {0, std::vector<std::uint8_t>(QV_OUTPUT_RECORD_SIZE)};
  }
  return run.Records(QV_INTERVAL)[0];
}

}  // namespace test
