// What a 'Q' block leaves for the items behind it, seen through their records. The switches of
// intervals, summaries and day summaries, and what results show of settings, are seen in the tests
// of those.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Setting;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC, as in the header

Body LevelMark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60.5).U8(0);
}

TEST(QBlockEffects, Register227IsTheLevelOffset) {
  struct Row {
    std::vector<Setting> lines;
    float offset;
  };
  const std::vector<Row> rows = {
      {{{9, "1"}}, 0.0F},         {{{227, "1.5"}}, 1.5F},
      {{{227, "-2.25"}}, -2.25F}, {{{227, "1.5"}, {227, "abc"}}, 1.5F},
      {{{227, "abc"}}, 0.0F},     {{{227, "1.5"}, {227, "."}}, 0.0F},
  };
  for (const Row& row : rows) {
    DataFile file = test::General();
    Translation const run(AddSettings(file, row.lines).Item(5, LevelMark()).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 5, 15}));
    EXPECT_EQ(run.As<QvLevelMark>(1).LevelOffset, row.offset);
    EXPECT_EQ(run.As<QvLevelMark>(1).Level, 60.5F + row.offset);
  }
}

TEST(QBlockEffects, Register157IsTheSiteOfAllThatFollows) {
  DataFile file = test::General().Q(157, "513").Item(5, LevelMark()).Q(9, "1");
  Translation const run(file.Item(5, LevelMark()).R(2, "").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 5, 7, 5, 8, 15}));
  EXPECT_EQ(run.As<QvLevelMark>(1).SiteNumber, 513);
  EXPECT_EQ(run.As<QvLevelMark>(3).SiteNumber, 513);
  EXPECT_EQ(run.As<QvResults>(4).SiteNumber, 513);
  EXPECT_EQ(run.As<QvEnd>(5).SiteNumber, 513);
}

float StreamPeriodAfter(const std::vector<Setting>& lines) {
  DataFile file = test::General().Q(81, "1").Q(82, "0");
  Translation const run(AddSettings(file, lines).Stream(6, Body().Raw({60, 61})).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{7, 16, 15}));
  return run.As<QvTimeHistory>(0, QV_TIME_HISTORY).StreamPeriod;
}

TEST(QBlockEffects, Registers83And84AreThePeriodOfStreams) {
  EXPECT_EQ(StreamPeriodAfter({}), 0.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}}), 10.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10.9"}}), 10.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "70000"}}), 70000.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "-3"}}), -3.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "0"}}), 0.3125F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "1"}}), 10.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "2"}}), 100.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "3"}}), 600.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "4"}}), 10.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "-1"}}), 10.0F);
}

TEST(QBlockEffects, Register84ScalesOnceForEachLine) {
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "2"}, {84, "2"}}), 1000.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "64"}, {84, "0"}, {84, "3"}}), 120.0F);
  // Ahead of register 83 there is nothing to scale.
  EXPECT_EQ(StreamPeriodAfter({{84, "2"}, {83, "10"}}), 10.0F);
  // The scale is the number as its field holds it: 65538 is 2, and text is 0.
  EXPECT_EQ(StreamPeriodAfter({{83, "10"}, {84, "65538"}}), 100.0F);
  EXPECT_EQ(StreamPeriodAfter({{83, "64"}, {84, "abc"}}), 2.0F);
}

TEST(QBlockEffects, Register81MakesStreamsOfWholeDecibels) {
  struct Row {
    const char* value;
    Body entries;
  };
  for (const Row& row : {Row{"0", Body().Raw({60, 64, 61, 64})}, Row{"1", Body().Raw({60, 61})},
                         Row{"65535", Body().Raw({60, 61})}}) {
    SCOPED_TRACE(row.value);
    DataFile file = test::General().Q(81, row.value).Stream(6, row.entries).EndOfData();
    Translation const run(file);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 16, 15}));
    auto const history = run.As<QvTimeHistory>(1);
    float const fraction = *row.value == '0' ? 0.5F : 0.0F;
    EXPECT_EQ(history.EntryCount, 2);
    EXPECT_EQ(history.FirstLevels[0], 60 + fraction);
    EXPECT_EQ(history.FirstLevels[1], 61 + fraction);
  }
}

TEST(QBlockEffects, Register82IsTheKindOfTheSecondLevel) {
  struct Row {
    const char* value;
    int flags;
  };
  for (const Row& row : {Row{"1", 0x0100}, {"2", 0x0200}, {"3", 0x0400}, {"4", 0x0800}}) {
    SCOPED_TRACE(row.value);
    DataFile file = test::General().Q(81, "1").Q(82, row.value);
    Translation const run(file.Stream(6, Body().Raw({60, 70, 61, 71})).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 16, 15}));
    EXPECT_EQ(run.As<QvTimeHistory>(1).EntryCount, 2);
    EXPECT_EQ(run.As<QvTimeHistory>(1).StreamFlags, row.flags);
  }
}

TEST(QBlockEffects, BadScaleLinesKeepTheScale) {
  DataFile file = test::General().Q(71, "1");
  file.Q(122, "10").Q(122, "abc").Q(123, "266").Q(123, "");
  file.Q(130, "20").Q(130, "-").Q(131, "276").Q(131, "x");
  file.Q(138, "30").Q(138, " ").Q(139, "286").Q(139, "e");
  Body const body =
      Body().Date(21, 6, 2024).Time(12, 0, 0).Duration5(60).Fill(14, 1).Raw({1, 2, 3});
  Translation const run(file.Item(1, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 15}));
  EXPECT_EQ(run.As<QvInterval>(1).Aux0, 11.0F);
  EXPECT_EQ(run.As<QvInterval>(1).Aux1, 22.0F);
  EXPECT_EQ(run.As<QvInterval>(1).Aux2, 33.0F);
}

TEST(QBlockEffects, SettingsLastUntilALaterBlockNamesThem) {
  Body const head = Body().Date(21, 6, 2024).Time(12, 0, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  DataFile file = test::General().Q(61, "70").Q(162, "2").Q(145, "1").Q(227, "1.5");
  file.Item(1, Body(head).Level(60.5).U16(0).U16(0).U8(5));
  file.Q(145, "0").Item(1, Body(head).Level(60.5));
  file.Q(162, "1").Item(1, head);
  file.Q(162, "0").Item(1, head);
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 7, 1, 7, 1, 7, 1, 15}));

  EXPECT_EQ(run.As<QvInterval>(1).IntervalFlags, 0x1408);
  EXPECT_EQ(run.As<QvInterval>(1).ThresholdOrLevel, 62.0F);
  EXPECT_EQ(run.As<QvInterval>(1).Byte3, 5);
  EXPECT_EQ(run.As<QvInterval>(3).IntervalFlags, 0x1400);
  EXPECT_EQ(run.As<QvInterval>(3).ThresholdOrLevel, 62.0F);
  EXPECT_EQ(run.As<QvInterval>(3).RecordTime, kNoon);
  EXPECT_EQ(run.As<QvInterval>(5).IntervalFlags, 0x0400);
  EXPECT_EQ(run.As<QvInterval>(5).ThresholdOrLevel, 70.0F);
  EXPECT_EQ(run.As<QvInterval>(5).RecordTime, kNoon - 60);
  // Times once at the end stay there.
  EXPECT_EQ(run.As<QvInterval>(7).RecordTime, kNoon - 60);
}

// Register 163 says nothing of what a day summary holds, on firmware of either kind.
TEST(QBlockEffects, Register163LeavesDaySummariesAlone) {
  for (const char* const firmware : {"0.9", "1.1"}) {
    SCOPED_TRACE(firmware);
    DataFile file = test::LoggingFile(486, firmware).Q(163, "1");
    Translation const run(file.Item(3, Body().U8(0).Date(21, 6, 2024).PadTo(4000)).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 3, 15}));
    EXPECT_EQ(run.As<QvDaySummary>(1).DayFlags, 0);
    EXPECT_EQ(run.As<QvDaySummary>(1).DistributionPresent, 0);
  }
}

TEST(QBlockEffects, Register162ComparesTheNumberAsRead) {
  Body const head = Body().Date(21, 6, 2024).Time(12, 0, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  for (const char* const value : {"65537", "65538"}) {
    SCOPED_TRACE(value);
    DataFile file = test::General().Q(62, "9").Q(162, value).Item(1, head).EndOfData();
    Translation const run(file);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 15}));
    EXPECT_EQ(run.As<QvInterval>(1).IntervalFlags, 0);
    EXPECT_EQ(run.As<QvInterval>(1).RecordTime, kNoon);
  }
}

TEST(QBlockEffects, TitlesReachTheEndRecord) {
  DataFile file = test::General().Q(2, "second").Q(3, "third").Q(5, "first").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_STREQ(run.As<QvEnd>(1).Title1, "first");
  EXPECT_STREQ(run.As<QvEnd>(1).Title2, "second");
  EXPECT_STREQ(run.As<QvEnd>(1).Title3, "third");
}

TEST(QBlockEffects, TitlesKeep51Characters) {
  const std::string text = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0";
  DataFile file = test::General().Q(2, text).Q(3, text).Q(5, text).EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_EQ(run.As<QvEnd>(1).Title1, text.substr(0, 51));
  EXPECT_EQ(run.As<QvEnd>(1).Title2, text.substr(0, 51));
  EXPECT_EQ(run.As<QvEnd>(1).Title3, text.substr(0, 51));
}

TEST(QBlockEffects, TitlesKeepTheirFirstWriter) {
  DataFile file = test::General().Q(2, "").Q(2, "second").Q(2, "later").Q(5, "first");
  Translation const run(file.EndLines("", "").Q(5, "other").Q(3, "third").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 15}));
  EXPECT_STREQ(run.As<QvEnd>(2).Title1, "first");
  EXPECT_STREQ(run.As<QvEnd>(2).Title2, "second");
  EXPECT_STREQ(run.As<QvEnd>(2).Title3, "third");
}

TEST(QBlockEffects, TitlesOfTheHeaderStay) {
  DataFile file;
  file.Titles("one", "two", "three").Header({});
  Translation const run(file.Q(2, "second").Q(3, "third").Q(5, "first").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_STREQ(run.As<QvEnd>(1).Title1, " one");
  EXPECT_STREQ(run.As<QvEnd>(1).Title2, " two");
  EXPECT_STREQ(run.As<QvEnd>(1).Title3, " three");
}

TEST(QBlockEffects, BlockTimeReachesTheEndRecord) {
  Translation const run(test::General().Q(7, "15Mar1999").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_EQ(run.As<QvEnd>(1).BlockTime, kNoon);
  EXPECT_EQ(run.As<QvEnd>(1).LatestRecordTime, kNoon);
}

TEST(QBlockEffects, BlockWithoutADateKeepsTheTimeOfTheEndRecord) {
  DataFile file = test::General().Q(7, "15Mar1999").EndLines("", "").Q(9, "1").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 15}));
  EXPECT_EQ(run.As<QvSettings>(1).BlockTime, 0);
  EXPECT_EQ(run.As<QvEnd>(2).BlockTime, kNoon);
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, kNoon);
}

TEST(QBlockEffects, ModelReachesTheEndRecord) {
  for (int const model : {431, 442, 486, 500}) {
    Translation const run(test::LoggingFile(model, "2.0").Q(9, "1").EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
    EXPECT_EQ(run.As<QvEnd>(1).Model, model);
  }
  Translation const without(test::General().EndOfData());
  ASSERT_EQ(without.Codes(), (std::vector<int>{15}));
  EXPECT_EQ(without.As<QvEnd>(0).Model, 0);
}

struct KeptRow {
  const char* name;
  std::vector<Setting> lines;
  std::vector<float> kept;
};

TEST(QBlockEffects, ResultsShowSixKeptValues) {
  const std::vector<KeptRow> rows = {
      {"none", {{9, "1"}}, {0, 0, 0, 0, 0, 0}},
      {"all",
       {{55, "1"}, {56, "2"}, {57, "-3"}, {58, "70000"}, {59, "5.9"}, {60, "x"}},
       {1, 2, -3, 70000, 5, 0}},
      {"the first alone", {{55, "7"}}, {7, -1, -1, -1, -1, -1}},
      {"all but the first", {{56, "2"}, {57, "3"}, {58, "4"}}, {0, 0, 0, 0, 0, 0}},
      {"the first is -1", {{55, "-1"}, {56, "2"}, {57, "3"}}, {0, 0, 0, 0, 0, 0}},
      {"the first reads like -1 in 16 bits", {{55, "65535"}}, {65535, -1, -1, -1, -1, -1}},
  };
  for (const KeptRow& row : rows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General();
    Translation const run(AddSettings(file, row.lines).R(2, "").EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 8, 15}));
    for (std::size_t i = 0; i < 6; ++i) {
      EXPECT_EQ(run.As<QvResults>(1).KeptSixValues[i], row.kept[i]) << i;
    }
  }
}

TEST(QBlockEffects, ABlockForgetsTheSixValuesOfTheOneBefore) {
  DataFile file = test::General().Q(55, "1").Q(60, "6").EndLines("", "").Q(9, "1").R(2, "");
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 8, 15}));
  EXPECT_EQ(run.As<QvResults>(2).KeptSixValues[0], 0.0F);
  EXPECT_EQ(run.As<QvResults>(2).KeptSixValues[5], 0.0F);
}

TEST(QBlockEffects, ABlockOfModel442KeepsTheSixValuesOfTheOneBefore) {
  DataFile file = test::Model442("SSA").Q(55, "1").Q(60, "6").EndLines("", "").Q(56, "2");
  Translation const run(file.R(2, "").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 55, 15}));
  auto const results = run.As<QvResults442>(2);
  EXPECT_EQ(results.KeptSixValues[0], 1.0F);
  EXPECT_EQ(results.KeptSixValues[1], 2.0F);
  EXPECT_EQ(results.KeptSixValues[2], 0.0F);
  EXPECT_EQ(results.KeptSixValues[5], 6.0F);
}

}  // namespace
