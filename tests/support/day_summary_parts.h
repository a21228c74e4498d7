// The parts of a day summary, and what they leave in the record.
#pragma once

#include "support/record_image.h"
#include "support/translation.h"

namespace test::day {

inline constexpr std::int32_t kMidnight = 1718928000;  // 21 June 2024, 00:00:00 UTC

// Hours as the instruments store them: whole decibels, then 1/256 decibels whose last two bits are
// flags (2: positive, 1: there is a value).
inline samples::Body Hours(int first) {
  samples::Body body;
  for (int hour = 0; hour < 24; ++hour) body.U8(first + hour).U8(0x80 + hour % 4);
  return body;
}

// Hours 0 and 2 of four have no value, 1 is negative, 3 positive.
inline void ExpectHours(RecordImage& image, std::size_t offset, int first, bool signs) {
  for (int hour = 0; hour < 24; ++hour) {
    if (hour % 2 == 0) continue;
    float const value =
        static_cast<float>(first + hour) + (hour % 4 == 1 ? 0.50390625F : 0.51171875F);
    image.F32(offset + 4 * static_cast<std::size_t>(hour), signs && hour % 4 == 1 ? -value : value);
  }
}

inline samples::Body Head() {
  return samples::Body()
      .U8(0x77)  // dropped
      .Date(21, 6, 2024)
      .Level(61.5)    // A
      .Level(62.25)   // B
      .Level(63.125)  // C
      .Raw(Hours(40).Bytes())
      .Level(64.75)       // D
      .Level(65.0625)     // E
      .Level(66.015625)   // F
      .Level(67.0078125)  // G
      .Duration5(86400);
}

inline RecordImage HeadImage(int model) {
  RecordImage image(1020);
  image.U16(0, 3)
      .I32(4, kMidnight)
      .F32(12, 63.125)
      .F32(20, 61.5)
      .F32(24, 62.25)
      .F32(28, 65.0625)
      .F32(32, 64.75)
      .U16(60, model)
      .F32(88, 66.015625)
      .I32(96, 1)
      .F32(100, 86400)
      .F32(104, 67.0078125);
  ExpectHours(image, 144, 40, true);
  return image;
}

// A distribution in the short form, with its base bytes zero.
inline samples::Body Distribution() {
  samples::Body body;
  body.Fill(3);
  for (int i = 3; i < 440; ++i) body.U8(i % 251);
  return body;
}

inline void ExpectDistribution(RecordImage& image) {
  image.U8(576, 1);
  for (int i = 3; i < 440; ++i) image.U8(577 + static_cast<std::size_t>(i), i % 251);
}

inline samples::Body Counters() {
  samples::Body body;
  for (int hour = 0; hour < 24; ++hour) body.U16(0x1000 + hour);
  return body;
}

inline void ExpectCounters(RecordImage& image, std::size_t offset) {
  for (int hour = 0; hour < 24; ++hour) {
    image.U16(offset + 2 * static_cast<std::size_t>(hour), 0x1000 + hour);
  }
}

inline const samples::Body kHourTables = samples::Body(Hours(70)).Raw(Hours(100).Bytes());
inline const samples::Body kExtra = samples::Body()
                                        .U16(0x8000)
                                        .U16(0x4000)
                                        .U8(0x5A)
                                        .Time(23, 59, 59)
                                        .U16(0xABCD)
                                        .U8(0x6B)
                                        .Raw({1, 2, 3, 4, 5, 6, 7, 255});
inline const samples::Body kTotals =
    samples::Body().U16(0x1122).U16(0x3344).Raw(Counters().Bytes());
inline const samples::Body kPairs = [] {
  samples::Body body;
  for (int hour = 0; hour < 24; ++hour) body.U8(200 + hour).Packed(75 + hour);
  return body;
}();
inline const samples::Body kLevels =
    samples::Body().Level(81.5).Level(82.5).Level(83.5).Level(84.5).Level(85.5).NoLevel();
inline const samples::Body kPercentiles = samples::Body(kLevels).Raw({1, 5, 10, 50, 90, 255});
inline const samples::Body kWidePercentiles = samples::Body(kLevels)
                                                  .SignedFixed16(1.5)
                                                  .SignedFixed16(-0.5)
                                                  .SignedFixed16(10)
                                                  .SignedFixed16(191.5)
                                                  .SignedFixed16(-64)
                                                  .SignedFixed16(99.25);

inline void ExpectHourTables(RecordImage& image) {
  ExpectHours(image, 336, 70, false);
  ExpectHours(image, 240, 100, false);
}
inline void ExpectExtra(RecordImage& image) {
  image.F32(108, 6239).F32(132, 3119.5).U16(112, 0xABCD).U16(130, 0x5A);
  image.I32(136, 86399).U16(140, 0x6B);
  for (int i = 0; i < 7; ++i) image.U16(114 + 2 * static_cast<std::size_t>(i), i + 1);
  image.U16(128, 255);
}
inline void ExpectTotals(RecordImage& image) {
  image.U16(92, 0x1122).U16(94, 0x3344);
  ExpectCounters(image, 432);
}
inline void ExpectPairs(RecordImage& image) {
  for (int hour = 0; hour < 24; ++hour) {
    std::size_t const step = 2 * static_cast<std::size_t>(hour);
    image.U16(480 + step, 200 + hour).U16(528 + step, 75 + hour);
  }
}
inline void ExpectPercentiles(RecordImage& image) {
  image.Floats(36, {81.5, 82.5, 83.5, 84.5, 85.5, 999}).Floats(64, {1, 5, 10, 50, 90, 255});
}
inline void ExpectWidePercentiles(RecordImage& image) {
  image.Floats(36, {81.5, 82.5, 83.5, 84.5, 85.5, 999});
  image.Floats(64, {1.5, -0.5, 10, 191.5, -64, 99.25});
}
inline void ExpectTotalsAndPairs(RecordImage& image) {
  ExpectTotals(image);
  ExpectPairs(image);
}
inline void ExpectTotalsAndCounters(RecordImage& image) {
  ExpectTotals(image);
  ExpectCounters(image, 480);
}

}  // namespace test::day
