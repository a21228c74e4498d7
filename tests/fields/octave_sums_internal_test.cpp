// Octave levels from third-octave bands: sums of powers. Internal: records hold them beside the
// bands that they were read with.
#include <gtest/gtest.h>

#include <cmath>

#include "fields/levels.h"
#include "fields/octave_sums.h"

namespace {

using qvslm::kNoLevel;
using qvslm::OctaveSum;

float Sum(float a, float b, float c) {
  const float thirds[] = {a, b, c};
  return OctaveSum(thirds);
}

TEST(OctaveSum, AddsPowers) {
  // Three times the power is 10 log10(3) dB more, ten times 10 dB.
  EXPECT_EQ(Sum(60, 60, 60), static_cast<float>(60 + 4.771212547196624));
  EXPECT_EQ(Sum(0, 0, 0), 4.771212547196624F);
  EXPECT_EQ(Sum(-10, -10, -10), static_cast<float>(-10 + 4.771212547196624));
  // 10^6 + 10^5 + 10^4 is 1,110,000.
  EXPECT_EQ(Sum(60, 50, 40), 60.45322978786657F);
  EXPECT_EQ(Sum(40, 60, 50), 60.45322978786657F);
  // A level far below the others adds nothing that can be seen.
  EXPECT_EQ(Sum(100, -200, -200), 100.0F);
}

TEST(OctaveSum, HasNoValueWhereABandHasNone) {
  EXPECT_EQ(Sum(kNoLevel, 60, 60), kNoLevel);
  EXPECT_EQ(Sum(60, kNoLevel, 60), kNoLevel);
  EXPECT_EQ(Sum(60, 60, kNoLevel), kNoLevel);
  EXPECT_EQ(Sum(kNoLevel, kNoLevel, kNoLevel), kNoLevel);
}

TEST(OctaveSum, OfPowersBeyondDoublesIsInfinite) {
  EXPECT_TRUE(std::isinf(Sum(3.0e38F, 60, 60)));
  EXPECT_EQ(Sum(-3.0e38F, 60, 50), 60.413926851582251F);
}

TEST(SumOctaves, TakeThreeBandsEach) {
  const float thirds[] = {60, 60, 60, 40, 60, 50, 60, kNoLevel, 60, 70, 70, 70};
  float octaves[] = {1, 2, 3, 4};
  qvslm::SumOctaves(thirds, octaves, 3);
  EXPECT_EQ(octaves[0], static_cast<float>(60 + 4.771212547196624));
  EXPECT_EQ(octaves[1], 60.45322978786657F);
  EXPECT_EQ(octaves[2], kNoLevel);
  EXPECT_EQ(octaves[3], 4.0F);
  qvslm::SumOctaves(thirds, octaves, 0);
  EXPECT_EQ(octaves[0], static_cast<float>(60 + 4.771212547196624));
}

}  // namespace
