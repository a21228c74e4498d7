// Intervals: their times, samples and limits, and what becomes of short bodies.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/interval_body.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Step;
using test::Translation;

TEST(IntervalValues, FlagALevelAboveTheLimit) {
  struct Row {
    const char* limit;
    const char* offset;  // LevelC is 63.125 plus this
    unsigned flags;
  };
  const std::vector<Row> rows = {
      {"63", "0", 0x0400},       {"64", "0", 0},
      {"63", "-0.125", 0},  // exactly at the limit
      {"63", "-0.0625", 0x0400}, {"-1", "0", 0x0400},
      {"65535", "0", 0x0400},  // read as -1
      {"-1", "-64.125", 0},      {"-2", "-64.125", 0x0400},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.limit) + " and " + row.offset);
    DataFile file = test::General().Q(227, row.offset).Q(62, row.limit);
    Step const step = test::OneInterval(file, test::IntervalHead());
    EXPECT_EQ(Translation::Copy<QvInterval>(step).IntervalFlags, row.flags);
  }
}

struct SampleRow {
  const char* name;
  const char* offset;
  std::vector<int> file;
  std::vector<unsigned> samples;
  float flaggedPercent;
};

// A sample's low 7 bits get the whole decibels of the offset, in one byte.
const std::vector<SampleRow> kSampleRows = {
    {"none", "0", {}, {}, 0.0F},
    {"plain", "0", {1, 60, 127}, {1, 60, 127}, 0.0F},
    {"flagged", "0", {128 + 50, 60, 61, 62}, {50, 60, 61, 62}, 25.0F},
    {"a third flagged", "0", {128 + 50, 60, 61}, {50, 60, 61}, 33.333332F},
    {"all flagged", "0", {255, 129}, {127, 1}, 100.0F},
    {"offset cut to whole decibels", "10.9", {60, 128 + 61}, {70, 71}, 50.0F},
    {"negative offset cut toward zero", "-3.7", {60, 2}, {57, 255}, 0.0F},
    {"sum over 255", "200", {100, 10}, {44, 210}, 0.0F},
    {"offset over one byte", "300", {10}, {54}, 0.0F},
    {"sum of zero", "-60", {60, 61}, {0, 1}, 0.0F},
    {"zero stays zero", "10", {60, 0, 61}, {70, 0, 71}, 0.0F},
    {"flagged zero stays zero", "10", {60, 128, 61, 62}, {70, 0, 71, 72}, 25.0F},
};

TEST(IntervalValues, HoldSamples) {
  for (const SampleRow& row : kSampleRows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General().Q(227, row.offset).Q(69, "1").Q(70, "32");
    Body body = test::IntervalHead().U8(static_cast<int>(row.file.size()));
    for (int const sample : row.file) body.U8(sample);
    auto const interval = Translation::Copy<QvInterval>(test::OneInterval(file, body));
    EXPECT_EQ(interval.IntervalFlags & 0x0100, 0x0100);
    EXPECT_EQ(interval.FlaggedSamplePercent, row.flaggedPercent);
    EXPECT_EQ(interval.SampleSpacing, 1.0F);
    for (std::size_t i = 0; i < 256; ++i) {
      EXPECT_EQ(interval.Samples[i], i < row.samples.size() ? row.samples[i] : 0U) << i;
    }
  }
}

TEST(IntervalValues, HoldUpTo255Samples) {
  DataFile file = test::General().Q(69, "1").Q(70, "32");
  Step const step = test::OneInterval(file, test::IntervalHead().U8(255).Fill(255, 200));
  auto const interval = Translation::Copy<QvInterval>(step);
  for (std::size_t i = 0; i < 255; ++i) EXPECT_EQ(interval.Samples[i], 72) << i;
  EXPECT_EQ(interval.Samples[255], 0);
  EXPECT_EQ(interval.FlaggedSamplePercent, 100.0F);
  EXPECT_EQ(step.record[416], 0xEE);
}

TEST(IntervalValues, SpaceSamplesByRegister70) {
  struct Row {
    const char* value;
    float spacing;
  };
  for (const Row& row : {Row{"16", 0.5F}, {"16.8", 0.525F}, {"1", 0.03125F}, {"-32", -1.0F}}) {
    DataFile file = test::General().Q(69, "1").Q(70, row.value);
    auto const interval =
        Translation::Copy<QvInterval>(test::OneInterval(file, test::IntervalHead().U8(0)));
    EXPECT_FLOAT_EQ(interval.SampleSpacing, row.spacing) << row.value;
  }
}

TEST(IntervalValues, HaveNoSamplesUnlessTheSwitchIs1) {
  for (const char* const value : {"0", "2", "-1", "257"}) {
    DataFile file = test::General().Q(62, "120").Q(69, value).Q(70, "16");
    EXPECT_EQ(Difference(test::IntervalHeadImage(486),
                         test::OneInterval(file, test::IntervalHead().U8(2).Raw({60, 61}))),
              "")
        << value;
  }
}

struct TimeRow {
  const char* name;
  std::vector<Setting> settings;
  double duration;
  double percent;
  std::int32_t recordTime;
  std::int32_t endTime;
};

const std::vector<TimeRow> kTimeRows = {
    {"start", {}, 3600, 50, test::kNoon, test::kNoon + 1800},
    {"end by 162", {{162, "1"}}, 3600, 50, test::kNoon - 1800, test::kNoon},
    {"end by 163", {{163, "1"}}, 3600, 50, test::kNoon - 1800, test::kNoon},
    {"neither", {{162, "0"}, {163, "2"}}, 3600, 100, test::kNoon, test::kNoon + 3600},
    {"163 of 65537", {{163, "65537"}}, 3600, 100, test::kNoon, test::kNoon + 3600},
    {"start, cut", {}, 10.5, 50, test::kNoon, test::kNoon + 5},
    {"end, cut", {{162, "1"}}, 10.5, 50, test::kNoon - 6, test::kNoon},
    {"no length", {{162, "1"}}, 0, 100, test::kNoon, test::kNoon},
    {"no part", {}, 3600, 0, test::kNoon, test::kNoon},
    {"more than all", {}, 100, 150, test::kNoon, test::kNoon + 150},
    {"300 hours", {}, 1080000, 100, test::kNoon, test::kNoon + 1080000},
};

TEST(IntervalValues, ReachFromStartToEnd) {
  for (const TimeRow& row : kTimeRows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General();
    AddSettings(file, row.settings);
    Body const body = Body()
                          .Date(21, 6, 2024)
                          .Time(12, 0, 0)
                          .Duration5(row.duration)
                          .Fill(10, 1)
                          .U8(0)
                          .U8(0)
                          .Fixed16(row.percent);
    auto const interval = Translation::Copy<QvInterval>(test::OneInterval(file, body));
    EXPECT_EQ(interval.RecordTime, row.recordTime);
    EXPECT_EQ(interval.EndTime, row.endTime);
    EXPECT_EQ(interval.Duration, static_cast<float>(row.duration));
    EXPECT_EQ(interval.DurationPercent, static_cast<float>(row.percent));
  }
}

TEST(IntervalValues, RaiseTheLatestTimeByTheirStart) {
  // The settings block stands at the time of the header, which is noon.
  Body const later = Body().Date(21, 6, 2024).Time(13, 0, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  Body const earlier =
      Body().Date(21, 6, 2024).Time(12, 30, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  for (const char* const timeIsEnd : {"0", "1"}) {
    DataFile file = test::General().Q(163, timeIsEnd).Item(1, later).Item(1, earlier).EndOfData();
    Translation const run(file);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 1, 15}));
    EXPECT_EQ(run.As<QvEnd>(3).LatestRecordTime, test::kNoon + 3600 - (*timeIsEnd == '1' ? 60 : 0));
  }
}

TEST(IntervalValues, AreCounted) {
  DataFile file = test::General();
  for (int i = 0; i < 3; ++i) file.Item(1, test::IntervalHead());
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{1, 1, 1, 15}));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(run.As<QvInterval>(i).RecordIndex, i + 1);
}

TEST(IntervalValues, IgnoreWhatStandsBehindTheirLayout) {
  DataFile file = test::General().Q(62, "120");
  EXPECT_EQ(Difference(test::IntervalHeadImage(486),
                       test::OneInterval(file, test::IntervalHead().Fill(300, 0x77))),
            "");
}

struct ShortRow {
  const char* name;
  const char* firmware;
  std::vector<Setting> settings;
  Body body;
  int status;
};

// The status of a short body is that of the step that ran last: bytes that are taken one by one
// tell that they are missing, fields do not.
TEST(IntervalValues, TellAShortBodyByTheirLastStep) {
  const std::vector<ShortRow> rows = {
      {"empty", "1.1", {}, Body(), 0},
      {"cut in the levels", "1.1", {}, Body().Raw(test::IntervalHead().Bytes().substr(0, 14)), 0},
      {"cut before Byte1", "1.1", {}, Body().Raw(test::IntervalHead().Bytes().substr(0, 21)), 0},
      {"no extra level", "1.1", {{162, "2"}}, test::IntervalHead(), 0},
      {"no spans", "1.1", {{145, "1"}}, test::IntervalHead(), -313},
      {"no byte behind the spans", "1.1", {{145, "1"}}, test::IntervalHead().Fill(4, 1), -313},
      {"all of the spans", "1.1", {{145, "1"}}, test::IntervalHead().Fill(5, 1), 0},
      {"no channels", "1.1", {{71, "1"}}, test::IntervalHead(), 0},
      {"no channels of old firmware", "0.9", {{71, "1"}}, test::IntervalHead(), 0},
      {"neither spans nor channels", "1.1", {{71, "1"}, {145, "1"}}, test::IntervalHead(), 0},
      {"no table", "1.1", {{210, "16"}}, test::IntervalHead(), -313},
      {"table of 15 bytes", "1.1", {{210, "16"}}, test::IntervalHead().Fill(15, 1), -313},
      {"table of 16 bytes", "1.1", {{210, "16"}}, test::IntervalHead().Fill(16, 1), 0},
      {"neither channels nor table", "1.1", {{71, "1"}, {210, "16"}}, test::IntervalHead(), -313},
      {"no sample count", "1.1", {{69, "1"}}, test::IntervalHead(), -313},
      {"count of no samples", "1.1", {{69, "1"}}, test::IntervalHead().U8(0), 0},
      {"two of three samples", "1.1", {{69, "1"}}, test::IntervalHead().U8(3).Fill(2, 60), -313},
      {"three of three samples", "1.1", {{69, "1"}}, test::IntervalHead().U8(3).Fill(3, 60), 0},
      {"whole table, no count",
       "1.1",
       {{69, "1"}, {210, "16"}},
       test::IntervalHead().Fill(16, 1),
       -313},
      {"no channels, no count", "1.1", {{69, "1"}, {71, "1"}}, test::IntervalHead(), -313},
  };
  for (const ShortRow& row : rows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General(row.firmware).Q(62, "120");
    Translation const run(AddSettings(file, row.settings).Item(1, row.body).EndOfData());
    ASSERT_GE(run.steps.size(), 2U);
    EXPECT_EQ(run.steps[1].Code(), QV_INTERVAL);
    EXPECT_EQ(run.steps[1].status, row.status);
  }
}

TEST(IntervalValues, ReadMissingBytesAsZero) {
  DataFile file = test::General().Q(62, "998");
  Body const body = Body().Raw(test::IntervalHead().Bytes().substr(0, 15));  // to LevelB
  EXPECT_EQ(Difference(RecordImage(416)
                           .U16(0, 1)
                           .I32(4, test::kNoon)
                           .F32(88, 60)
                           .U16(96, 0x0400)
                           .F32(100, 61.5)
                           .F32(104, 999)
                           .I32(108, test::kNoon)
                           .U16(112, 486)
                           .F32(116, 999)
                           .I32(124, 1)
                           .F32(128, 62.25)
                           .F32(144, 999),
                       test::OneInterval(file, body)),
            "");
}

TEST(IntervalValues, CountMissingSamplesAsSamples) {
  DataFile file = test::General().Q(69, "1").Q(70, "32").Q(62, "120").Q(227, "10");
  Translation const run(file.Item(1, test::IntervalHead().U8(4).U8(128 + 60)).EndOfData());
  ASSERT_EQ(run.end, QV_RECORD_TOO_SHORT);
  auto const interval = Translation::Copy<QvInterval>(run.steps.back());
  EXPECT_EQ(interval.FlaggedSamplePercent, 25.0F);
  EXPECT_EQ(interval.Samples[0], 70);
  EXPECT_EQ(interval.Samples[1], 0);
}

TEST(IntervalValues, OfAShortBodyAreFollowedByTheNextItem) {
  DataFile const file = test::General()
                            .Q(69, "1")
                            .Item(1, test::IntervalHead())
                            .Item(1, test::IntervalHead().U8(0))
                            .EndOfData();
  test::TempFile const stored(test::Startable(file));
  test::Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(session.As<QvInterval>().RecordIndex, 1U);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvInterval>().RecordIndex, 2U);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

// Switches that only a setup sets on model 442: position 48 is 64 for samples and 32 for times at
// the end, 176 the spacing, 181 the level base.
TEST(IntervalValues, OfModel442TakeTheLevelBaseOfTheSetup) {
  struct Row {
    int base;
    unsigned first;
    unsigned second;
  };
  for (const Row& row : {Row{0, 60, 61}, {20, 80, 81}, {200, 4, 5}}) {
    SCOPED_TRACE(row.base);
    Body const setup =
        test::EmptySetup(2).Set(48, {64 + 32}).Set(176, {16}).Set(179, {120}).Set(181, {row.base});
    DataFile file = test::Model442("LOG").Item(test::kSetupItem, setup).Q(227, "40");
    file.Item(1, test::IntervalHead().U8(2).Raw({60, 128 + 61}));
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{53, 7, 1, 15}));
    auto const interval = run.As<QvInterval>(2);
    EXPECT_EQ(interval.Samples[0], row.first);
    EXPECT_EQ(interval.Samples[1], row.second);
    EXPECT_EQ(interval.SampleSpacing, 0.5F);
    EXPECT_EQ(interval.RecordTime, test::kNoon - 60);
    EXPECT_EQ(interval.EndTime, test::kNoon);
    EXPECT_EQ(interval.LevelA, 101.5F);
  }
}

}  // namespace
