// Item 2 of model 442 in mode 5: type 69.
#include <gtest/gtest.h>

#include "support/autumn_run.h"
#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/scoped_zone.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr std::int32_t kMarch = 1709618828;  // 5 March 2024 06:07:08 in Greenwich
constexpr std::int32_t kJuly = 1720505228;   // 9 July 2024 06:07:08 in Greenwich
constexpr std::size_t kSize = 813;
constexpr std::size_t kBands = 401;

Body Head(int month = 3, int day = 5) {
  return CountingBody(11).Set(0, {day, month, 0x24, 0x06, 0x07, 0x08});
}

TEST(NarrowTable, EveryPositionHasItsField) {
  // Level i is i / 2 whole decibels and one of 1 and 2 parts.
  Body body = Head();
  for (int i = 0; i < 401; ++i) body.U8(i / 2).U8(1 + i % 2);
  ASSERT_EQ(body.Size(), kSize);
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
                            .Item(2, Head().Set(9, {75, 0, 75, 0, 0, 128}).PadTo(kSize))
                            .EndOfData());
  ASSERT_EQ(run.Records(69).size(), 1u);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Level9, 999.0f);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Levels[0], 999.0f);
  EXPECT_EQ(run.As<QvNarrowTable>(0, 69).Levels[1], 2.0f);
}

TEST(NarrowTable, FormsOfHighBytes) {
  Translation const run(Model442("FFT").Q(227, "1.5").Item(2, HighBody(kSize)).EndOfData());
  RecordImage expected(1624);
  expected.U16(0, 69).I32(4, 1).I32(8, kFirstOfJanuary2000).U16(12, 51400).U16(14, 200);
  expected.Floats(16, std::vector<float>(1 + kBands, 202.28125f));
  ASSERT_EQ(run.Records(69).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(69)[0]), "");
}

TEST(NarrowTable, ShortBodyReadsAsZerosWithStatusZero) {
  for (std::size_t const size : {0u, 812u}) {
    SCOPED_TRACE(size);
    Translation const run(Model442("FFT").Item(2, Body().Fill(size)).EndOfData());
    RecordImage expected(1624);
    expected.U16(0, 69).I32(4, 1).I32(8, kFirstOfJanuary2000);
    expected.Floats(16, std::vector<float>(1 + kBands, 999.0f));
    ASSERT_EQ(run.Codes(), (std::vector<int>{69, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(NarrowTable, LongBodyAndSetupsOfOtherModesAreOfNoRegard) {
  Translation const run(Model442("FFT")
                            .Item(2, Head().PadTo(900))
                            .Item(kSetupItem, EmptySetup(0).Set(41, {255}))
                            .Item(2, Head().PadTo(kSize))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{69, 51, 69, 15}));
  EXPECT_EQ(run.As<QvNarrowTable>(0).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvNarrowTable>(2).RecordIndex, 2u);
}

TEST(NarrowTable, RaisesNoLatestTime) {
  Translation const run(Model442("FFT").Item(2, Head().PadTo(kSize)).EndOfData());
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, 0);
}

TEST(NarrowTable, TimeCarriesTheZoneOfTheHost) {
  struct {
    const char* zone;
    std::int32_t march, july;
  } constexpr kZones[] = {
      {"Europe/Berlin", kMarch - 3600, kJuly - 7200},
      {"America/New_York", kMarch + 18000, kJuly + 14400},
  };
  for (auto const& expected : kZones) {
    SCOPED_TRACE(expected.zone);
    ScopedZone const zone(expected.zone);
    Translation const run(Model442("FFT")
                              .Item(2, Head(3, 5).PadTo(kSize))
                              .Item(2, Head(7, 9).PadTo(kSize))
                              .EndOfData());
    ASSERT_EQ(run.Records(69).size(), 2u);
    EXPECT_EQ(run.As<QvNarrowTable>(0).RecordTime, expected.march);
    EXPECT_EQ(run.As<QvNarrowTable>(1).RecordTime, expected.july);
  }
}

TEST(NarrowTable, TimeFollowsTheSpanOfTheRun) {
  ScopedZone const zone("Europe/Berlin");
  DataFile file = Model442("FFT");
  Translation const run(AddSundayItems(AddAutumnRun(file), kSize).EndOfData(), {.census = true});
  ASSERT_EQ(run.Records(69).size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(run.As<QvNarrowTable>(i, 69).RecordTime, kSundayTimes[i]) << i;
  }
}

}  // namespace
}  // namespace test
