// Items 2 of model 431 in modes 0 and 1: types 31 and 32.
#include <gtest/gtest.h>

#include "support/autumn_run.h"
#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/scoped_zone.h"
#include "support/setup_block.h"
#include "support/steps.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kThirdsFlag = 8;

// Positions 0 to 11: a stamp, 258:03:04.5 as duration, and a byte.
Body BandsHead(int month = 3, int day = 5) {
  return Body().Date(day, month, 2024).Time(6, 7, 8).Raw({1, 2, 3, 4, 128}).U8(11);
}

TEST(Bands431, TenBandsInEveryThirdElement) {
  Body body = BandsHead();
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
  Body body = BandsHead();
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
  Body body = BandsHead();
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
                            .Item(2, BandsHead().PadTo(32))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{34, 31, 15}));
}

TEST(Bands431, LevelsWithoutSecondByteHaveNoValue) {
  Translation const run(Model431("OBA ")
                            .Q(227, "1.5")
                            .Item(2, BandsHead().Raw({75, 0, 0, 128}).PadTo(32))
                            .EndOfData());
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
      Model431("OBA ").Item(2, BandsHead().PadTo(200)).Item(2, BandsHead().PadTo(32)).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{31, 31, 15}));
}

// The summary
// --------------------------------------------------------------------------------------

constexpr std::size_t kSummarySize = 38;
constexpr std::int32_t kNovember = 1731147072;  // 9 November 2024 10:11:12 in Greenwich

Body WithTwoStamps(Body body) {
  return body.Set(0, {0x05, 0x03, 0x24, 0x06, 0x07, 0x08})
      .Set(6, {0x09, 0x11, 0x24, 0x10, 0x11, 0x12});
}

TEST(Summary431, EveryPositionHasItsField) {
  Translation const run(Model431("sSLM")
                            .Q(157, "7")
                            .Q(227, "1.5")
                            .Item(2, WithTwoStamps(CountingBody(kSummarySize)))
                            .EndOfData());
  RecordImage expected(72);
  expected.U16(0, 32).U16(2, 7).I32(4, kMarch);
  // Hours 12 * 256 + 13, minutes 14, seconds 15 and 16 / 256.
  expected.F32(12, static_cast<float>(3085 * 3600 + 14 * 60 + 15.0625));
  expected.U16(18, 33).I32(20, kNovember).U16(24, 32).U16(26, 35);
  expected.F32(28, 17 + 18 / 256.0f).F32(32, 23 + 24 / 256.0f).F32(36, 21 + 22 / 256.0f);
  expected.U16(40, 431).U16(42, 31).F32(44, 25 + 26 / 256.0f).U16(48, 36).U16(50, 37);
  expected.I32(52, 1).F32(56, 19 + 20 / 256.0f).F32(60, 29 + 30 / 256.0f);
  expected.F32(64, 27 + 28 / 256.0f).U16(68, 34);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 32, 15}));
  EXPECT_EQ(run.Records(32)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(32)[0]), "");
}

TEST(Summary431, FormsOfHighBytes) {
  Translation const run(Model431("sSLM").Q(227, "1.5").Item(2, HighBody(kSummarySize)).EndOfData());
  RecordImage expected(72);
  expected.U16(0, 32).I32(4, kFirstOfJanuary2000).I32(20, kFirstOfJanuary2000);
  // Hours 51400, minutes 200, seconds 200.78125.
  expected.F32(12, static_cast<float>(51400.0 * 3600 + 12000 + 200.78125));
  for (std::size_t const offset : {28u, 32u, 36u, 44u, 56u, 60u, 64u}) {
    expected.F32(offset, -55.21875f);
  }
  for (std::size_t const offset : {18u, 24u, 26u, 42u, 48u, 50u, 68u}) expected.U16(offset, 200);
  expected.U16(40, 431).I32(52, 1);
  ASSERT_EQ(run.Records(32).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(32)[0]), "");
}

TEST(Summary431, ShortBodyIsDeliveredWithItsStatus) {
  for (std::size_t const size : {0u, 37u}) {
    SCOPED_TRACE(size);
    auto const steps = TakeSteps(
        Model431("sSLM").Item(2, Body().Fill(size)).Item(2, Body().Fill(kSummarySize)), 2);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].status, QV_RECORD_TOO_SHORT);
    RecordImage expected(72);
    expected.U16(0, 32).I32(4, kFirstOfJanuary2000).I32(20, kFirstOfJanuary2000);
    expected.U16(40, 431).I32(52, 1);
    EXPECT_EQ(Difference(expected, steps[0]), "");
    // The next call meets the next item.
    EXPECT_EQ(steps[1].status, 0);
    EXPECT_EQ(Difference(expected.I32(52, 2), steps[1]), "");
  }
}

TEST(Summary431, LongBodyIsPassedOver) {
  Translation const run(Model431("sSLM")
                            .Item(2, CountingBody(100))
                            .Item(kSetupItem, EmptySetup(0, kSetupSize431))
                            .Item(2, CountingBody(kSummarySize))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{32, 33, 32, 15}));
  EXPECT_EQ(run.As<QvSummary431>(2).RecordIndex, 2u);
}

TEST(Summary431, RaisesTheLatestTimeByTheFirstStampAndNeverLowersIt) {
  auto const body = [](int month, int day, int secondMonth) {
    return Body()
        .Date(day, month, 2024)
        .Time(6, 7, 8)
        .Date(9, secondMonth, 2024)
        .Time(10, 11, 12)
        .PadTo(kSummarySize);
  };
  Translation const run(
      Model431("sSLM").Item(2, body(7, 9, 11)).Item(2, body(3, 5, 11)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{32, 32, 15}));
  EXPECT_EQ(run.As<QvSummary431>(0).RecordTime, kJuly);
  EXPECT_EQ(run.As<QvSummary431>(1).RecordTime, kMarch);
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, kJuly);
}

TEST(Summary431, TimesCarryTheZoneOfTheHost) {
  for (const ZoneTimes& expected : kZoneTimes) {
    SCOPED_TRACE(expected.zone);
    ScopedZone const zone(expected.zone);
    // The calendar starts anew for the second stamp: winter, then summer, and the other way round.
    Body const rising = Body().Date(5, 3, 2024).Time(6, 7, 8).Date(9, 7, 2024).Time(6, 7, 8);
    Body const falling = Body().Date(9, 7, 2024).Time(6, 7, 8).Date(5, 3, 2024).Time(6, 7, 8);
    Translation const run(Model431("sSLM")
                              .Item(2, Body(rising).PadTo(kSummarySize))
                              .Item(2, Body(falling).PadTo(kSummarySize))
                              .EndOfData());
    ASSERT_EQ(run.Records(32).size(), 2u);
    EXPECT_EQ(run.As<QvSummary431>(0).RecordTime, expected.march);
    EXPECT_EQ(run.As<QvSummary431>(0).SecondTime, expected.july);
    EXPECT_EQ(run.As<QvSummary431>(1).RecordTime, expected.july);
    EXPECT_EQ(run.As<QvSummary431>(1).SecondTime, expected.march);
  }
}

TEST(Summary431, TimesDoNotFollowTheSpanOfTheRun) {
  ScopedZone const zone("Europe/Berlin");
  Body const stamps = Body()
                          .Date(27, 10, 2024)
                          .Time(2, 30, 0)
                          .Date(27, 10, 2024)
                          .Time(2, 30, 0)
                          .PadTo(kSummarySize);
  DataFile file = Model431("sSLM");
  AddAutumnRun(file).Item(2, stamps).EndOfData();
  Translation const run(file, {.census = true});
  ASSERT_EQ(run.Records(32).size(), 1u);
  EXPECT_EQ(run.As<QvSummary431>(0, 32).RecordTime, kSunday0130Utc);
  EXPECT_EQ(run.As<QvSummary431>(0, 32).SecondTime, kSunday0130Utc);
}

}  // namespace
}  // namespace test
