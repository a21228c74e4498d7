// Summaries of a day: single fields, times, and what becomes of short bodies.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/day_summary_parts.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace {

using namespace test::day;

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Translation;

TEST(DaySummaryValues, AddTheLevelOffsetAndCarryTheSite) {
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

TEST(DaySummaryValues, ReadHoursByTheirFlags) {
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

TEST(DaySummaryValues, ReadPackedDigitsAsFarAsTheyAreDigits) {
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

TEST(DaySummaryValues, StandAtMidnightWhateverTimeTheyHold) {
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

TEST(DaySummaryValues, AreCountedAndRaiseTheLatestTime) {
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
TEST(DaySummaryValues, TellAShortBodyByTheirLastStep) {
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

TEST(DaySummaryValues, ReadMissingBytesAsZero) {
  Body const body = Body().Raw(Head().Bytes().substr(0, 6));  // to DayLevelA
  Translation const run(test::General().Item(3, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{3, 15}));
  RecordImage image(1020);
  image.U16(0, 3).I32(4, kMidnight).F32(12, 999).F32(20, 61.5).F32(24, 999).F32(28, 999);
  image.F32(32, 999).U16(60, 486).F32(88, 999).I32(96, 1).F32(104, 999);
  EXPECT_EQ(Difference(image, run.Records()[0]), "");
}

}  // namespace
