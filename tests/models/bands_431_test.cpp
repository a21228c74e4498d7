// Item 2 of model 431 in mode 0: type 31.
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
constexpr int kThirdsFlag = 8;

// Positions 0 to 11: a stamp, 258:03:04.5 as duration, and a byte.
Body Head(int month = 3, int day = 5) {
  return Body().Date(day, month, 2024).Time(6, 7, 8).Raw({1, 2, 3, 4, 128}).U8(11);
}

TEST(Bands431, TenBandsInEveryThirdElement) {
  Body body = Head();
  for (int i = 0; i < 10; ++i) body.U8(50 + i).U8(64);
  Translation const run(Model431("OBA ").Q(157, "7").Q(227, "1.5").Item(2, body).EndOfData());
  RecordImage expected(148);
  expected.U16(0, 31).U16(2, 7).I32(4, kMarch).F32(12, 928984.5f).U16(16, 0);
  constexpr std::size_t kOffsets[] = {24, 36, 48, 60, 72, 84, 96, 108, 120, 132};
  float level = 51.75f;
  for (std::size_t const offset : kOffsets) {
    expected.F32(offset, level);
    level += 1;
  }
  expected.U16(140, 431).U16(142, 11).I32(144, 1);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 31, 15}));
  EXPECT_EQ(run.Records(31)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(31)[0]), "");
}

TEST(Bands431, ThirtyBandsWithTheFlag) {
  Body body = Head();
  for (int i = 0; i < 30; ++i) body.U8(50 + i).U8(64);
  Translation const run(Model431("OBA ")
                            .Q(227, "1.5")
                            .Item(kSetupItem, FlagsOnlySetup431(kThirdsFlag))
                            .Item(2, body)
                            .EndOfData());
  RecordImage expected(148);
  expected.U16(0, 31).I32(4, kMarch).F32(12, 928984.5f).U16(16, 2);
  for (int i = 0; i < 30; ++i) {
    expected.F32(static_cast<std::size_t>(20 + 4 * i), 51.75f + static_cast<float>(i));
  }
  expected.U16(140, 431).U16(142, 11).I32(144, 1);
  ASSERT_EQ(run.Records(31).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(31)[0]), "");
}

TEST(Bands431, OnlyTheFlagOfTheLastSetupDecides) {
  Body body = Head();
  for (int i = 0; i < 30; ++i) body.U8(50 + i).U8(64);
  Translation const run(Model431("OBA ")
                            .Item(kSetupItem, FlagsOnlySetup431(0xF7))
                            .Item(2, body)
                            .Item(kSetupItem, EmptySetup(0, kSetupSize431).Set(41, {0xFF}))
                            .Item(2, body)
                            .Item(kSetupItem, FlagsOnlySetup431(0))
                            .Item(2, body)
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{31, 33, 31, 31, 15}));
  int const flags[] = {0, 2, 0};
  float const firstBands[] = {0.0f, 50.25f, 0.0f};
  float const secondBands[] = {50.25f, 51.25f, 50.25f};
  for (std::size_t i = 0; i < 3; ++i) {
    auto const record = run.As<QvBands431>(i, 31);
    EXPECT_EQ(record.BandFlags, flags[i]);
    EXPECT_EQ(record.Bands[0], firstBands[i]);
    EXPECT_EQ(record.Bands[1], secondBands[i]);
    EXPECT_EQ(record.RecordIndex, i + 1);
  }
}

TEST(Bands431, TheModeOfTheSetupIsOfNoRegard) {
  Translation const run(Model431("OBA ")
                            .Item(kSetupItem, EmptySetup(1, kSetupSize431))
                            .Item(2, Head().PadTo(32))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{34, 31, 15}));
}

TEST(Bands431, LevelsWithoutSecondByteHaveNoValue) {
  Translation const run(
      Model431("OBA ").Q(227, "1.5").Item(2, Head().Raw({75, 0, 0, 128}).PadTo(32)).EndOfData());
  ASSERT_EQ(run.Records(31).size(), 1u);
  EXPECT_EQ(run.As<QvBands431>(0, 31).Bands[1], 999.0f);
  EXPECT_EQ(run.As<QvBands431>(0, 31).Bands[4], 2.0f);
}

TEST(Bands431, ShortBodyReadsAsZerosWithStatusZero) {
  for (std::size_t const size : {0u, 1u}) {
    SCOPED_TRACE(size);
    Translation const run(Model431("OBA ").Item(2, Body().Fill(size)).EndOfData());
    RecordImage expected(148);
    expected.U16(0, 31).I32(4, kFirstOfJanuary2000);
    for (std::size_t offset = 24; offset <= 132; offset += 12) expected.F32(offset, 999);
    expected.U16(140, 431).I32(144, 1);
    ASSERT_EQ(run.Codes(), (std::vector<int>{31, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(Bands431, LongBodyIsPassedOver) {
  Translation const run(
      Model431("OBA ").Item(2, Head().PadTo(200)).Item(2, Head().PadTo(32)).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{31, 31, 15}));
}

TEST(Bands431, RaisesTheLatestTimeAndNeverLowersIt) {
  Translation const run(
      Model431("OBA ").Item(2, Head(7, 9).PadTo(32)).Item(2, Head(3, 5).PadTo(32)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{31, 31, 15}));
  EXPECT_EQ(run.As<QvBands431>(0).RecordTime, kJuly);
  EXPECT_EQ(run.As<QvBands431>(1).RecordTime, kMarch);
  EXPECT_EQ(run.As<QvBands431>(1).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, kJuly);
}

TEST(Bands431, TimeCarriesTheZoneOfTheHost) {
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
    Translation const run(
        Model431("OBA ").Item(2, Head(3, 5).PadTo(32)).Item(2, Head(7, 9).PadTo(32)).EndOfData());
    ASSERT_EQ(run.Records(31).size(), 2u);
    EXPECT_EQ(run.As<QvBands431>(0).RecordTime, expected.march);
    EXPECT_EQ(run.As<QvBands431>(1).RecordTime, expected.july);
  }
}

TEST(Bands431, TimeDoesNotFollowTheSpanOfTheRun) {
  ScopedZone const zone("Europe/Berlin");
  DataFile file = Model431("OBA ");
  AddAutumnRun(file).Item(2, Body().Date(27, 10, 2024).Time(2, 30, 0).PadTo(32)).EndOfData();
  Translation const run(file, {.census = true});
  ASSERT_EQ(run.Records(31).size(), 1u);
  EXPECT_EQ(run.As<QvBands431>(0, 31).RecordTime, kSunday0130Utc);
}

}  // namespace
}  // namespace test
