// Summaries of a day: item 3. The distribution at their end has tests of its own.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/record_image.h"
#include "tests/support/settings_lines.h"
#include "tests/support/setup_block.h"
#include "tests/support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Translation;

constexpr std::int32_t kMidnight = 1718928000;  // 21 June 2024, 00:00:00 UTC

// Hours as the instruments store them: whole decibels, then 1/256 decibels whose last two bits are
// flags (2: positive, 1: there is a value).
Body Hours(int first) {
  Body body;
  for (int hour = 0; hour < 24; ++hour) body.U8(first + hour).U8(0x80 + hour % 4);
  return body;
}

// Hours 0 and 2 of four have no value, 1 is negative, 3 positive.
void ExpectHours(RecordImage& image, std::size_t offset, int first, bool signs) {
  for (int hour = 0; hour < 24; ++hour) {
    if (hour % 2 == 0) continue;
    float const value =
        static_cast<float>(first + hour) + (hour % 4 == 1 ? 0.50390625F : 0.51171875F);
    image.F32(offset + 4 * static_cast<std::size_t>(hour), signs && hour % 4 == 1 ? -value : value);
  }
}

Body Head() {
  return Body()
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

RecordImage HeadImage(int model) {
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
Body Distribution() {
  Body body;
  body.Fill(3);
  for (int i = 3; i < 440; ++i) body.U8(i % 251);
  return body;
}

void ExpectDistribution(RecordImage& image) {
  image.U8(576, 1);
  for (int i = 3; i < 440; ++i) image.U8(577 + static_cast<std::size_t>(i), i % 251);
}

Body Counters() {
  Body body;
  for (int hour = 0; hour < 24; ++hour) body.U16(0x1000 + hour);
  return body;
}

void ExpectCounters(RecordImage& image, std::size_t offset) {
  for (int hour = 0; hour < 24; ++hour) {
    image.U16(offset + 2 * static_cast<std::size_t>(hour), 0x1000 + hour);
  }
}

const Body kHourTables = Body(Hours(70)).Raw(Hours(100).Bytes());
const Body kExtra = Body()
                        .U16(0x8000)
                        .U16(0x4000)
                        .U8(0x5A)
                        .Time(23, 59, 59)
                        .U16(0xABCD)
                        .U8(0x6B)
                        .Raw({1, 2, 3, 4, 5, 6, 7, 255});
const Body kTotals = Body().U16(0x1122).U16(0x3344).Raw(Counters().Bytes());
const Body kPairs = [] {
  Body body;
  for (int hour = 0; hour < 24; ++hour) body.U8(200 + hour).Packed(75 + hour);
  return body;
}();
const Body kLevels = Body().Level(81.5).Level(82.5).Level(83.5).Level(84.5).Level(85.5).NoLevel();
const Body kPercentiles = Body(kLevels).Raw({1, 5, 10, 50, 90, 255});
const Body kWidePercentiles = Body(kLevels)
                                  .SignedFixed16(1.5)
                                  .SignedFixed16(-0.5)
                                  .SignedFixed16(10)
                                  .SignedFixed16(191.5)
                                  .SignedFixed16(-64)
                                  .SignedFixed16(99.25);

void ExpectHourTables(RecordImage& image) {
  ExpectHours(image, 336, 70, false);
  ExpectHours(image, 240, 100, false);
}
void ExpectExtra(RecordImage& image) {
  image.F32(108, 6239).F32(132, 3119.5).U16(112, 0xABCD).U16(130, 0x5A);
  image.I32(136, 86399).U16(140, 0x6B);
  for (int i = 0; i < 7; ++i) image.U16(114 + 2 * static_cast<std::size_t>(i), i + 1);
  image.U16(128, 255);
}
void ExpectTotals(RecordImage& image) {
  image.U16(92, 0x1122).U16(94, 0x3344);
  ExpectCounters(image, 432);
}
void ExpectPairs(RecordImage& image) {
  for (int hour = 0; hour < 24; ++hour) {
    std::size_t const step = 2 * static_cast<std::size_t>(hour);
    image.U16(480 + step, 200 + hour).U16(528 + step, 75 + hour);
  }
}
void ExpectPercentiles(RecordImage& image) {
  image.Floats(36, {81.5, 82.5, 83.5, 84.5, 85.5, 999}).Floats(64, {1, 5, 10, 50, 90, 255});
}
void ExpectWidePercentiles(RecordImage& image) {
  image.Floats(36, {81.5, 82.5, 83.5, 84.5, 85.5, 999});
  image.Floats(64, {1.5, -0.5, 10, 191.5, -64, 99.25});
}
void ExpectTotalsAndPairs(RecordImage& image) {
  ExpectTotals(image);
  ExpectPairs(image);
}
void ExpectTotalsAndCounters(RecordImage& image) {
  ExpectTotals(image);
  ExpectCounters(image, 480);
}

// Model 500 has neither the hour tables nor a distribution, model 480 at firmware 1.0 neither, but
// the switches of new firmware.
struct Layout {
  const char* name = "";
  int model = 500;
  const char* firmware = "1.100";
  std::vector<Setting> settings = {};
  std::vector<const Body*> blocks = {};
  int flags = 0;
  std::vector<void (*)(RecordImage&)> expect = {};
};

const Body kCountersOnly = Counters();

const std::vector<Layout> kLayouts = {
    {.name = "no block"},
    {.name = "hour tables of model 486 above firmware 0.9",
     .model = 486,
     .firmware = "0.91",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 486 at firmware 0.9", .model = 486, .firmware = "0.9"},
    {.name = "no hour tables of model 480 at firmware 1.099", .model = 480, .firmware = "1.099"},
    {.name = "hour tables of model 480 above firmware 1.099",
     .model = 480,
     .firmware = "1.1",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 431 at firmware 1.099", .model = 431, .firmware = "1.099"},
    {.name = "hour tables of model 431 above firmware 1.099",
     .model = 431,
     .firmware = "1.1",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 442 at firmware 1.099", .model = 442, .firmware = "1.099"},
    {.name = "hour tables of model 442",
     .model = 442,
     .firmware = "3.6",
     .blocks = {&kHourTables},
     .expect = {ExpectHourTables}},
    {.name = "no hour tables of model 487", .model = 487},

    {.name = "extra block",
     .settings = {{145, "1"}},
     .blocks = {&kExtra},
     .flags = 0x0008,
     .expect = {ExpectExtra}},
    {.name = "extra block of model 431 behind the hour tables",
     .model = 431,
     .firmware = "1.1",
     .settings = {{145, "1"}},
     .blocks = {&kHourTables, &kExtra},
     .flags = 0x0008,
     .expect = {ExpectHourTables, ExpectExtra}},
    {.name = "extra block of model 442 with both spans",
     .model = 442,
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .blocks = {&kHourTables, &kExtra},
     .flags = 0x0008,
     .expect = {ExpectHourTables, ExpectExtra,
                [](RecordImage& image) { image.F32(108, 32768).F32(132, 16384); }}},
    {.name = "extra block switched by 2", .settings = {{145, "2"}}},

    {.name = "counters by register 118",
     .settings = {{118, "1"}},
     .blocks = {&kTotals, &kCountersOnly},
     .flags = 0x0080,
     .expect = {ExpectTotalsAndCounters}},
    {.name = "counters by register 118 of 7",
     .settings = {{118, "7"}},
     .blocks = {&kTotals, &kCountersOnly},
     .flags = 0x0080,
     .expect = {ExpectTotalsAndCounters}},
    {.name = "packed counters by register 120",
     .settings = {{120, "1"}},
     .blocks = {&kTotals, &kPairs},
     .flags = 0x0040,
     .expect = {ExpectTotalsAndPairs}},
    {.name = "packed counters by both",
     .settings = {{118, "2"}, {120, "3"}},
     .blocks = {&kTotals, &kPairs},
     .flags = 0x00C0,
     .expect = {ExpectTotalsAndPairs}},
    {.name = "no counters of firmware 0.9",
     .firmware = "0.9",
     .settings = {{118, "1"}, {120, "1"}}},

    {.name = "percentiles",
     .settings = {{206, "1"}},
     .blocks = {&kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectPercentiles}},
    {.name = "percentiles switched by 2", .settings = {{206, "2"}}},
    {.name = "no percentiles by the switch of summaries", .settings = {{77, "1"}}},
    {.name = "no percentiles of firmware 0.9", .firmware = "0.9", .settings = {{206, "1"}}},
    {.name = "percentiles of model 480 at firmware 1.0",
     .model = 480,
     .firmware = "1.0",
     .settings = {{206, "1"}},
     .blocks = {&kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectPercentiles}},
    {.name = "percentiles of model 431",
     .model = 431,
     .firmware = "1.0",
     .settings = {{206, "1"}},
     .blocks = {&kWidePercentiles},
     .flags = 0x0200,
     .expect = {ExpectWidePercentiles}},
    {.name = "percentiles of model 442 at firmware 3.116",
     .model = 442,
     .firmware = "3.116",
     .settings = {{206, "1"}},
     .blocks = {&kHourTables, &kPercentiles},
     .flags = 0x0200,
     .expect = {ExpectHourTables, ExpectPercentiles}},
    {.name = "percentiles of model 442 above firmware 3.116",
     .model = 442,
     .firmware = "3.117",
     .settings = {{206, "1"}},
     .blocks = {&kHourTables, &kWidePercentiles},
     .flags = 0x0200,
     .expect = {ExpectHourTables, ExpectWidePercentiles}},

    {.name = "everything",
     .model = 486,
     .settings = {{118, "1"}, {120, "1"}, {145, "1"}, {206, "1"}},
     .blocks = {&kHourTables, &kExtra, &kTotals, &kPairs, &kPercentiles},
     .flags = 0x02C8,
     .expect = {ExpectHourTables, ExpectExtra, ExpectTotalsAndPairs, ExpectPercentiles}},
};

Body BodyOf(const Layout& layout) {
  Body body = Head();
  for (const Body* const block : layout.blocks) body.Raw(block->Bytes());
  return body;
}

RecordImage ImageOf(const Layout& layout) {
  RecordImage image = HeadImage(layout.model);
  image.U16(16, layout.flags);
  for (auto* const expect : layout.expect) expect(image);
  return image;
}

// Bytes behind the layout would show in the fields behind it if it were read too far.
TEST(DaySummaries, HoldTheBlocksThatTheSettingsAnnounce) {
  for (const Layout& layout : kLayouts) {
    SCOPED_TRACE(layout.name);
    DataFile file = test::LoggingFile(layout.model, layout.firmware).Q(9, "1");
    AddSettings(file, layout.settings);
    Translation const run(file.Item(3, BodyOf(layout).Fill(500, 0x77)).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    EXPECT_EQ(run.steps[1].status, QV_OK);
    EXPECT_EQ(Difference(ImageOf(layout), run.Records()[1]), "");
  }
}

// A distribution behind the blocks proves where they ended.
TEST(DaySummaries, HoldADistributionBehindTheirBlocks) {
  for (const Layout& layout : kLayouts) {
    bool const hasDistribution = layout.model == 486 && std::string(layout.firmware) != "0.9";
    if (!hasDistribution) continue;
    SCOPED_TRACE(layout.name);
    DataFile file = test::LoggingFile(layout.model, layout.firmware).Q(210, "16");
    AddSettings(file, layout.settings);
    Body const body = BodyOf(layout).Raw(Distribution().Bytes());
    Translation const run(file.Item(3, body).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    RecordImage image = ImageOf(layout).U16(16, layout.flags | 0x0100);
    ExpectDistribution(image);
    EXPECT_EQ(Difference(image, run.Records()[1]), "");
  }
}

TEST(DaySummaries, AddTheLevelOffsetAndCarryTheSite) {
  DataFile file = test::LoggingFile(500, "1.1").Q(157, "513").Q(227, "1.5").Q(206, "1");
  Translation const run(file.Item(3, Head().Raw(kPercentiles.Bytes())).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
  auto const day = run.As<QvDaySummary>(1);
  EXPECT_EQ(day.SiteNumber, 513);
  EXPECT_EQ(day.DayLevelA, 63.0F);
  EXPECT_EQ(day.DayLevelB, 63.75F);
  EXPECT_EQ(day.DayLevelC, 64.625F);
  EXPECT_EQ(day.DayLevelD, 66.25F);
  EXPECT_EQ(day.DayLevelE, 66.5625F);
  EXPECT_EQ(day.DayLevelF, 67.515625F);
  EXPECT_EQ(day.DayLevelG, 68.5078125F);
  EXPECT_EQ(day.PercentileLevels[0], 83.0F);
  EXPECT_EQ(day.PercentileLevels[5], 999.0F);
  EXPECT_EQ(day.HourLevels[1], -43.00390625F);
  EXPECT_EQ(day.HourLevels[2], 0.0F);
  EXPECT_EQ(day.HourLevels[3], 45.01171875F);
}

TEST(DaySummaries, ReadHoursByTheirFlags) {
  struct Row {
    int hi;
    int lo;
    float value;
  };
  // With a level offset of 1.5, which a zero does not get.
  const std::vector<Row> rows = {
      {60, 0x03, 61.51171875F},   // positive
      {60, 0x01, -61.50390625F},  // negative
      {60, 0x02, 0.0F},           // no value
      {60, 0x00, 0.0F},           {60, 0xFF, 62.49609375F}, {60, 0xFD, -62.48828125F},
      {0, 0x03, 1.51171875F},     {0, 0x01, -1.50390625F},  {0, 0x00, 0.0F},
      {255, 0xFF, 257.49609375F},
  };
  Body hours;
  for (const Row& row : rows) hours.U8(row.hi).U8(row.lo);
  hours.PadTo(48);
  Body const body = Body()
                        .U8(0)
                        .Date(21, 6, 2024)
                        .Fill(6)
                        .Raw(hours.Bytes())
                        .Fill(13)
                        .Raw(hours.Bytes() + hours.Bytes());
  Translation const run(test::General().Q(227, "1.5").Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
  auto const day = run.As<QvDaySummary>(1);
  for (std::size_t i = 0; i < 24; ++i) {
    float const value = i < rows.size() ? rows[i].value : 0.0F;
    EXPECT_EQ(day.HourLevels[i], value) << i;
    EXPECT_EQ(day.HourLevelsB[i], value < 0 ? -value : value) << i;
    EXPECT_EQ(day.HourLevelsC[i], value < 0 ? -value : value) << i;
  }
}

TEST(DaySummaries, ReadPackedDigitsAsFarAsTheyAreDigits) {
  struct Row {
    int byte;
    int value;
  };
  const std::vector<Row> rows = {{0x45, 45}, {0x4A, 4}, {0xA4, 0}, {0x99, 99},
                                 {0x00, 0},  {0x09, 9}, {0xFF, 0}, {0x0A, 0}};
  Body pairs;
  for (const Row& row : rows) pairs.U8(0xEE).U8(row.byte);
  pairs.PadTo(48);
  DataFile file = test::LoggingFile(500, "1.1").Q(120, "1");
  Body const body = Head().Raw(kTotals.Bytes()).Raw(pairs.Bytes());
  Translation const run(file.Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
  auto const day = run.As<QvDaySummary>(1);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(day.HourValues[i], 0xEE) << i;
    EXPECT_EQ(day.HourBcd[i], rows[i].value) << i;
  }
}

TEST(DaySummaries, StandAtMidnightWhateverTimeTheyHold) {
  struct Row {
    Body time;
    std::int32_t seconds;
  };
  const std::vector<Row> rows = {{Body().Time(0, 0, 0), 0},
                                 {Body().Time(23, 59, 59), 86399},
                                 {Body().Time(1, 2, 3), 3723},
                                 {Body().Time(99, 99, 99), 362439},
                                 {Body().Raw({0x1A, 0xA5, 0x30}), 3630}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.seconds);
    Body const body = Head().Fill(5).Raw(row.time.Bytes()).Fill(11);
    DataFile file = test::LoggingFile(500, "1.1").Q(145, "1").Item(3, body).EndOfData();
    Translation const run(file);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    EXPECT_EQ(run.As<QvDaySummary>(1).DayTimeSeconds, row.seconds);
    EXPECT_EQ(run.As<QvDaySummary>(1).RecordTime, kMidnight);
  }
}

TEST(DaySummaries, AreCountedAndRaiseTheLatestTime) {
  DataFile file = test::LoggingFile(500, "1.1");
  for (int const day : {20, 22, 21}) file.Item(3, Body().U8(0).Date(day, 6, 2024));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{3, 3, 3, 15}));
  EXPECT_EQ(run.As<QvDaySummary>(0).RecordTime, kMidnight - 86400);
  EXPECT_EQ(run.As<QvDaySummary>(1).RecordTime, kMidnight + 86400);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(run.As<QvDaySummary>(i).RecordIndex, i + 1);
  EXPECT_EQ(run.As<QvEnd>(3).LatestRecordTime, kMidnight + 86400);
}

struct ShortRow {
  const char* name;
  int model;
  const char* firmware;
  std::vector<Setting> settings;
  Body body;
  int status;
};

// Only bytes that are taken one by one tell that they are missing, and only when they came last.
TEST(DaySummaries, TellAShortBodyByTheirLastStep) {
  const std::vector<ShortRow> rows = {
      {"empty", 500, "1.1", {}, Body(), 0},
      {"no duration", 500, "1.1", {}, Body().Raw(Head().Bytes().substr(0, 66)), 0},
      {"no hour tables", 486, "1.1", {}, Head(), 0},
      {"no extra block", 500, "1.1", {{145, "1"}}, Head(), -313},
      {"extra block short by one", 500, "1.1", {{145, "1"}}, Head().Fill(18, 1), -313},
      {"whole extra block", 500, "1.1", {{145, "1"}}, Head().Fill(19, 1), 0},
      {"no counters", 500, "1.1", {{118, "1"}}, Head(), 0},
      {"packed counters short by one", 500, "1.1", {{120, "1"}}, Head().Fill(99, 1), -313},
      {"whole packed counters", 500, "1.1", {{120, "1"}}, Head().Fill(100, 1), 0},
      {"no wide percentiles", 431, "1.0", {{206, "1"}}, Head(), 0},
      {"no distribution", 431, "1.0", {{210, "16"}}, Head(), -313},
      {"distribution of 439 bytes", 431, "1.0", {{210, "16"}}, Head().Fill(439, 1), -313},
      {"distribution of 440 bytes", 431, "1.0", {{210, "16"}}, Head().Fill(440, 1), 0},
      {"long distribution short by one", 486, "0.9", {{206, "1"}}, Head().Fill(3111, 1), -313},
      {"whole long distribution", 486, "0.9", {{206, "1"}}, Head().Fill(3112, 1), 0},
  };
  for (const ShortRow& row : rows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::LoggingFile(row.model, row.firmware).Q(9, "1");
    Translation const run(AddSettings(file, row.settings).Item(3, row.body).EndOfData());
    ASSERT_GE(run.steps.size(), 2U);
    EXPECT_EQ(run.steps[1].Code(), QV_DAY_SUMMARY);
    EXPECT_EQ(run.steps[1].status, row.status);
  }
}

TEST(DaySummaries, ReadMissingBytesAsZero) {
  Body const body = Body().Raw(Head().Bytes().substr(0, 6));  // to DayLevelA
  Translation const run(test::General().Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{3, 15}));
  RecordImage image(1020);
  image.U16(0, 3).I32(4, kMidnight).F32(12, 999).F32(20, 61.5).F32(24, 999).F32(28, 999);
  image.F32(32, 999).U16(60, 486).F32(88, 999).I32(96, 1).F32(104, 999);
  EXPECT_EQ(Difference(image, run.Records()[0]), "");
}

// What only a setup sets: position 47 of a logging setup is 128 for percentiles and 32 for the
// distribution, position 49 is 64 for the extra block.
TEST(DaySummaries, TakeTheirBlocksFromALoggingSetupToo) {
  Body const setup = test::EmptySetup(2).Set(47, {128 + 32}).Set(49, {64});
  DataFile file = test::Model442("LOG", "3.6").Item(test::kSetupItem, setup);
  Body const body = Head()
                        .Raw(kHourTables.Bytes())
                        .Raw(kExtra.Bytes())
                        .Raw(kWidePercentiles.Bytes())
                        .Raw(Distribution().Bytes());
  Translation const run(file.Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{53, 3, 15}));
  RecordImage image = HeadImage(442).U16(16, 0x0308);
  ExpectHourTables(image);
  ExpectExtra(image);
  image.F32(108, 32768).F32(132, 16384);
  ExpectWidePercentiles(image);
  ExpectDistribution(image);
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
}

}  // namespace
