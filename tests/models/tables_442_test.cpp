// Items 2 of model 442 in modes 4 and 5: types 72 and 69.
#include <gtest/gtest.h>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;

constexpr std::size_t kSizeOf11 = 40;
constexpr std::size_t kSizeOf33 = 84;
constexpr int kSpectrumMode = 4;

Body Stamped(std::size_t size, int month = 3, int day = 5) {
  return CountingBody(size).Set(0, {day, month, 0x24, 0x06, 0x07, 0x08});
}

Body BandSetup(int flags) {
  return EmptySetup(kSpectrumMode).Set(41, {flags});
}

// A record of 33 or 11 bands, with a level offset of 1.5 dB.
RecordImage Image(int bands, int index) {
  RecordImage image(164);
  image.U16(0, 72).I32(4, index).I32(8, kMarch).U16(12, 6 * 256 + 7);
  for (int i = 0; i < 8; ++i) image.U8(static_cast<std::size_t>(14 + i), 8 + i);
  image.F32(24, 17.5f + 17 / 256.0f);
  for (int i = 0; i < bands; ++i) {
    float const hi = static_cast<float>(18 + 2 * i);
    image.F32(static_cast<std::size_t>(28 + 4 * i), hi + 1.5f + (hi + 1) / 256.0f);
  }
  return image.U16(160, bands == 33 ? 128 : 0);
}

TEST(BandTable, ElevenBandsWithoutTheFlag) {
  for (int const flags : {0, 127}) {
    SCOPED_TRACE(flags);
    Translation const run(Model442("RTA")
                              .Q(157, "7")
                              .Q(227, "1.5")
                              .Item(kSetupItem, BandSetup(flags))
                              .Item(2, Stamped(kSizeOf33))
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 70, 72, 15}));
    EXPECT_EQ(run.Records(72)[0].status, 0);
    EXPECT_EQ(Difference(Image(11, 1), run.Records(72)[0]), "");
  }
}

TEST(BandTable, ThirtyThreeBandsWithTheFlag) {
  for (int const flags : {128, 255}) {
    SCOPED_TRACE(flags);
    Translation const run(Model442("RTA")
                              .Q(227, "1.5")
                              .Item(kSetupItem, BandSetup(flags))
                              .Item(2, Stamped(kSizeOf33))
                              .EndOfData());
    ASSERT_EQ(run.Records(72).size(), 1u);
    EXPECT_EQ(Difference(Image(33, 1), run.Records(72)[0]), "");
  }
}

TEST(BandTable, TheFlagComesFromTheLastSetupOfItsOwnMode) {
  Translation const run(Model442("RTA")
                            .Q(227, "1.5")
                            .Item(2, Stamped(kSizeOf11))
                            .Item(kSetupItem, FlagsOnlySetup(128))
                            .Item(2, Stamped(kSizeOf11))
                            .Item(kSetupItem, BandSetup(128))
                            .Item(2, Stamped(kSizeOf33))
                            .Item(kSetupItem, FlagsOnlySetup(0))
                            .Item(kSetupItem, EmptySetup(0))
                            .Item(2, Stamped(kSizeOf33))
                            .Item(kSetupItem, BandSetup(0))
                            .Item(2, Stamped(kSizeOf33))
                            .EndOfData());
  int const bands[] = {11, 11, 33, 33, 11};
  ASSERT_EQ(run.Records(72).size(), 5u);
  for (int i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    std::size_t const index = static_cast<std::size_t>(i);
    EXPECT_EQ(Difference(Image(bands[index], i + 1), run.Records(72)[index]), "");
  }
}

TEST(BandTable, TextIsEndedBehindEightCharacters) {
  Translation const run(
      Model442("RTA")
          .Item(2, Body(Stamped(8)).Text("ABCDEFGH", 8).Raw({60, 128}).PadTo(kSizeOf11))
          .Item(2, Body(Stamped(8)).Text("AB", 8).Raw({60, 128}).PadTo(kSizeOf11))
          .EndOfData());
  ASSERT_EQ(run.Records(72).size(), 2u);
  EXPECT_STREQ(run.As<QvBandTable>(0).Text8, "ABCDEFGH");
  EXPECT_STREQ(run.As<QvBandTable>(1).Text8, "AB");
}

TEST(BandTable, LevelsWithoutSecondByteHaveNoValue) {
  Body const body = Body(Stamped(16)).Raw({75, 0, 75, 0, 75, 128}).PadTo(kSizeOf11);
  Translation const run(Model442("RTA").Q(227, "1.5").Item(2, body).EndOfData());
  ASSERT_EQ(run.Records(72).size(), 1u);
  EXPECT_EQ(run.As<QvBandTable>(0, 72).Level16, 999.0f);
  EXPECT_EQ(run.As<QvBandTable>(0, 72).Bands[0], 999.0f);
  EXPECT_EQ(run.As<QvBandTable>(0, 72).Bands[1], 77.0f);
}

TEST(BandTable, ShortBodyReadsAsZerosWithStatusZero) {
  for (std::size_t const size : {0u, 17u}) {
    SCOPED_TRACE(size);
    Translation const run(Model442("RTA").Item(2, Body().Fill(size)).EndOfData());
    RecordImage expected(164);
    expected.U16(0, 72).I32(4, 1).I32(8, kFirstOfJanuary2000);
    expected.Floats(24, std::vector<float>(12, 999.0f));
    ASSERT_EQ(run.Codes(), (std::vector<int>{72, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

// The narrow table
// ---------------------------------------------------------------------------------

constexpr std::size_t kNarrowSize = 813;
constexpr std::size_t kNarrowBands = 401;

Body NarrowHead(int month = 3, int day = 5) {
  return CountingBody(11).Set(0, {day, month, 0x24, 0x06, 0x07, 0x08});
}

TEST(NarrowTable, EveryPositionHasItsField) {
  // Level i is i / 2 whole decibels and one of 1 and 2 parts.
  Body body = NarrowHead();
  for (int i = 0; i < 401; ++i) body.U8(i / 2).U8(1 + i % 2);
  ASSERT_EQ(body.Size(), kNarrowSize);
  Translation const run(Model442("FFT").Q(157, "7").Q(227, "1.5").Item(2, body).EndOfData());
  RecordImage expected(1624);
  expected.U16(0, 69).I32(4, 1).I32(8, kMarch).U16(12, 6 * 256 + 7).U16(14, 8);
  expected.F32(16, 10.5f + 10 / 256.0f);
  for (int i = 0; i < 401; ++i) {
    expected.F32(static_cast<std::size_t>(20 + 4 * i),
                 static_cast<float>(i / 2) + 1.5f + static_cast<float>(1 + i % 2) / 256);
  }
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 69, 15}));
  EXPECT_EQ(run.Records(69)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(69)[0]), "");
}

TEST(NarrowTable, LevelsWithoutSecondByteHaveNoValue) {
  Translation const run(Model442("FFT")
                            .Q(227, "1.5")
                            .Item(2, NarrowHead().Set(9, {75, 0, 75, 0, 0, 128}).PadTo(kNarrowSize))
                            .EndOfData());
  ASSERT_EQ(run.Records(69).size(), 1u);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Level9, 999.0f);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Levels[0], 999.0f);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Levels[1], 2.0f);
}

TEST(NarrowTable, FormsOfHighBytes) {
  Translation const run(Model442("FFT").Q(227, "1.5").Item(2, HighBody(kNarrowSize)).EndOfData());
  RecordImage expected(1624);
  expected.U16(0, 69).I32(4, 1).I32(8, kFirstOfJanuary2000).U16(12, 51400).U16(14, 200);
  expected.Floats(16, std::vector<float>(1 + kNarrowBands, 202.28125f));
  ASSERT_EQ(run.Records(69).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(69)[0]), "");
}

TEST(NarrowTable, ShortBodyReadsAsZerosWithStatusZero) {
  for (std::size_t const size : {0u, 812u}) {
    SCOPED_TRACE(size);
    Translation const run(Model442("FFT").Item(2, Body().Fill(size)).EndOfData());
    RecordImage expected(1624);
    expected.U16(0, 69).I32(4, 1).I32(8, kFirstOfJanuary2000);
    expected.Floats(16, std::vector<float>(1 + kNarrowBands, 999.0f));
    ASSERT_EQ(run.Codes(), (std::vector<int>{69, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(NarrowTable, LongBodyAndSetupsOfOtherModesAreOfNoRegard) {
  Translation const run(Model442("FFT")
                            .Item(2, NarrowHead().PadTo(900))
                            .Item(kSetupItem, EmptySetup(0).Set(41, {255}))
                            .Item(2, NarrowHead().PadTo(kNarrowSize))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{69, 51, 69, 15}));
  EXPECT_EQ(run.As<QvNarrowTable>(0).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvNarrowTable>(2).RecordIndex, 2u);
}

}  // namespace
}  // namespace test
