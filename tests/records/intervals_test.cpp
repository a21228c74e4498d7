// Intervals: item 1 in every mode but that of the band analyser.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/record_image.h"
#include "tests/support/settings_lines.h"
#include "tests/support/setup_block.h"
#include "tests/support/temp_file.h"
#include "tests/support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Step;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// The part that every interval has: noon, one minute.
Body Head() {
  return Body()
      .Date(21, 6, 2024)
      .Time(12, 0, 0)
      .Duration5(60)
      .Level(61.5)     // A
      .Level(62.25)    // B
      .Level(63.125)   // C
      .Level(64.75)    // D
      .Level(65.0625)  // E
      .U8(0x91)
      .U8(0xA2)
      .Fixed16(100);
}

// What a head alone leaves, with a limit level that LevelC does not reach.
RecordImage HeadImage(int model) {
  return RecordImage(416)
      .U16(0, 1)
      .I32(4, kNoon)
      .F32(88, 60)
      .F32(100, 61.5)
      .F32(104, 63.125)
      .I32(108, kNoon + 60)
      .U16(112, model)
      .U16(114, 0xA2)
      .F32(116, 64.75)
      .U16(120, 0x91)
      .I32(124, 1)
      .F32(128, 62.25)
      .F32(132, 100)
      .F32(144, 65.0625);
}

// Scales of the auxiliary channels: b / 2 - 10, b, and 2 * b + 100.
const std::vector<Setting> kScales = {{122, "-10"}, {123, "118"}, {130, "0"},
                                      {131, "256"}, {138, "100"}, {139, "612"}};

const std::vector<int> kTable = {1, 2, 3, 4, 5, 6, 7, 8, 249, 250, 251, 252, 253, 254, 255, 0};

void ExpectTable(RecordImage& image) {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    image.U8(24 + i, kTable[i]);
  }
}

struct Layout {
  const char* name = "";
  int model = 486;
  const char* firmware = "1.100";
  std::vector<Setting> settings = {};
  std::vector<int> block = {};  // bytes between DurationPercent and the sample count
  int flags = 0;
  void (*expect)(RecordImage&) = [](RecordImage&) {};
};

constexpr auto kExpectSpansAndByte = [](RecordImage& image) {
  image.F32(148, 6239).F32(156, 3119.5).U16(152, 0x5A);
};
constexpr auto kExpectAux1And2 = [](RecordImage& image) { image.F32(16, 30).F32(20, 180); };
constexpr auto kExpectAux = [](RecordImage& image) { image.F32(12, 2).F32(16, 30).F32(20, 180); };

// 0x8000 and 0x4000 as spans are 6239 and 3119.5, but on model 442 32768 and 16384.
const std::vector<Layout> kLayouts = {
    {.name = "no block"},
    {.name = "level in the record",
     .settings = {{162, "2"}},
     .block = {70, 0x80},
     .flags = 0x1000,
     .expect = [](RecordImage& image) { image.F32(92, 70.5); }},
    {.name = "level in the record, without a value",
     .settings = {{162, "2"}},
     .block = {70, 0},
     .flags = 0x1000,
     .expect = [](RecordImage& image) { image.F32(92, 999); }},
    {.name = "register 162 of model 442 switches nothing",
     .model = 442,
     .firmware = "3.600",
     .settings = {{162, "2"}, {163, "1"}}},

    {.name = "channels of new firmware",
     .settings = {{71, "1"}},
     .block = {24, 30, 40},
     .flags = 0x0004,
     .expect = kExpectAux},
    {.name = "channels of firmware 0.91",
     .firmware = "0.91",
     .settings = {{71, "1"}},
     .block = {24, 30, 40},
     .flags = 0x0004,
     .expect = kExpectAux},
    {.name = "channels with the second one enabled",
     .settings = {{71, "1"}, {119, "1"}},
     .block = {24, 30, 40},
     .flags = 0x0014,
     .expect = kExpectAux},
    {.name = "channels with the second one enabled by 256",
     .settings = {{71, "1"}, {119, "256"}},
     .block = {24, 30, 40},
     .flags = 0x0014,
     .expect = kExpectAux},
    {.name = "second channel enabled without channels", .settings = {{119, "1"}}},
    {.name = "channels switched by 2", .settings = {{71, "2"}, {119, "1"}}},
    {.name = "channels switched by -1", .settings = {{71, "-1"}}},
    {.name = "channels of firmware 0.9",
     .firmware = "0.9",
     .settings = {{71, "1"}, {119, "1"}},
     .block = {24, 99, 30, 98, 40, 97},
     .flags = 0x0004,
     .expect = kExpectAux},
    {.name = "channels of firmware 0.9 with spans",
     .firmware = "0.9",
     .settings = {{71, "1"}, {145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A, 30, 98, 40, 97},
     .flags = 0x000C,
     .expect =
         [](RecordImage& image) {
           kExpectSpansAndByte(image);
           kExpectAux1And2(image);
         }},
    {.name = "channels of firmware 0.9, spans switched by 2",
     .firmware = "0.9",
     .settings = {{71, "1"}, {145, "2"}},
     .block = {30, 98, 40, 97},
     .flags = 0x0004,
     .expect = kExpectAux1And2},
    {.name = "channels of new firmware, spans switched by 2",
     .settings = {{71, "1"}, {145, "2"}},
     .block = {24, 30, 40},
     .flags = 0x0004,
     .expect = kExpectAux},

    {.name = "spans",
     .settings = {{145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = kExpectSpansAndByte},
    {.name = "spans switched by 2", .settings = {{145, "2"}}},
    {.name = "spans and channels of new firmware",
     .settings = {{71, "1"}, {145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A, 24, 30, 40},
     .flags = 0x000C,
     .expect =
         [](RecordImage& image) {
           kExpectSpansAndByte(image);
           kExpectAux(image);
         }},
    {.name = "spans of model 486 at firmware 3.6",
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = kExpectSpansAndByte},
    {.name = "spans of model 431 at firmware 3.6",
     .model = 431,
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = kExpectSpansAndByte},
    {.name = "spans of model 442 below firmware 3.6",
     .model = 442,
     .firmware = "3.59",
     .settings = {{145, "1"}},
     .block = {0x80, 0, 0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = [](RecordImage& image) { image.F32(148, 32768).F32(156, 16384).U16(152, 0x5A); }},
    {.name = "one span of model 442 at firmware 3.6",
     .model = 442,
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .block = {0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = [](RecordImage& image) { image.F32(156, 16384).U16(152, 0x5A); }},
    {.name = "one span of model 442 above firmware 3.6",
     .model = 442,
     .firmware = "3.61",
     .settings = {{145, "1"}},
     .block = {0x40, 0, 0x5A},
     .flags = 0x0008,
     .expect = [](RecordImage& image) { image.F32(156, 16384).U16(152, 0x5A); }},

    {.name = "table of model 486 above firmware 0.9",
     .firmware = "0.91",
     .settings = {{210, "16"}},
     .block = kTable,
     .flags = 0x0800,
     .expect = ExpectTable},
    {.name = "table switched by one bit of many",
     .settings = {{210, "31"}},
     .block = kTable,
     .flags = 0x0800,
     .expect = ExpectTable},
    {.name = "no table by the other bits", .settings = {{210, "65519"}}},
    {.name = "no table by register 206 in new firmware", .settings = {{206, "1"}}},
    {.name = "no table of model 486 at firmware 0.9",
     .firmware = "0.9",
     .settings = {{206, "1"}, {210, "16"}}},
    {.name = "no table of model 480 at firmware 0.9",
     .model = 480,
     .firmware = "0.9",
     .settings = {{206, "1"}}},
    {.name = "no table of model 480 at firmware 1.099",
     .model = 480,
     .firmware = "1.099",
     .settings = {{210, "16"}}},
    {.name = "table of model 480 above firmware 1.099",
     .model = 480,
     .firmware = "1.1",
     .settings = {{210, "16"}},
     .block = kTable,
     .flags = 0x0800,
     .expect = ExpectTable},
    {.name = "no table of model 431 at firmware 1.099",
     .model = 431,
     .firmware = "1.099",
     .settings = {{210, "16"}}},
    {.name = "table of model 431 above firmware 1.099",
     .model = 431,
     .firmware = "1.1",
     .settings = {{210, "16"}},
     .block = kTable,
     .flags = 0x0800,
     .expect = ExpectTable},
    {.name = "no table of model 442 at firmware 1.099",
     .model = 442,
     .firmware = "1.099",
     .settings = {{210, "16"}}},
    {.name = "table of model 442",
     .model = 442,
     .firmware = "3.6",
     .settings = {{210, "16"}},
     .block = kTable,
     .flags = 0x0800,
     .expect = ExpectTable},
    {.name = "no table of model 487", .model = 487, .settings = {{206, "1"}, {210, "16"}}},

    {.name = "everything in new firmware",
     .settings = {{71, "1"}, {119, "1"}, {145, "1"}, {162, "2"}, {210, "16"}},
     .block = {70, 0x80, 0x80, 0, 0x40, 0,   0x5A, 24,  30,  40,  1,   2,   3,
               4,  5,    6,    7, 8,    249, 250,  251, 252, 253, 254, 255, 0},
     .flags = 0x181C,
     .expect =
         [](RecordImage& image) {
           image.F32(92, 70.5);
           kExpectSpansAndByte(image);
           kExpectAux(image);
           ExpectTable(image);
         }},
    {.name = "everything in old firmware",
     .firmware = "0.9",
     .settings = {{71, "1"}, {145, "1"}, {162, "2"}},
     .block = {70, 0x80, 0x80, 0, 0x40, 0, 0x5A, 30, 98, 40, 97},
     .flags = 0x100C,
     .expect =
         [](RecordImage& image) {
           image.F32(92, 70.5);
           kExpectSpansAndByte(image);
           kExpectAux1And2(image);
         }},
};

// Every layout is read twice: alone, and with samples behind it, which prove where it ended.
TEST(Intervals, HoldTheBlocksThatTheSettingsAnnounce) {
  for (const Layout& layout : kLayouts) {
    for (bool const samples : {false, true}) {
      SCOPED_TRACE(std::string(layout.name) + (samples ? ", samples" : ""));
      DataFile file = test::LoggingFile(layout.model, layout.firmware);
      AddSettings(file, kScales).Q(62, "120").Q(69, samples ? "1" : "0").Q(70, "16");
      AddSettings(file, layout.settings);
      Body body = Head();
      for (int const byte : layout.block) body.U8(byte);
      if (samples) body.U8(3).Raw({33, 34, 35});
      Translation const run(file.Item(1, body).EndOfData());

      RecordImage image = HeadImage(layout.model);
      image.U16(96, layout.flags | (samples ? 0x0100 : 0));
      if (samples) image.F32(136, 0.5).U8(160, 33).U8(161, 34).U8(162, 35);
      layout.expect(image);
      ASSERT_EQ(run.Records(QV_INTERVAL).size(), 1U);
      EXPECT_EQ(Difference(image, run.Records(QV_INTERVAL)[0]), "");
      EXPECT_EQ(run.end, QV_END_OF_DATA);
    }
  }
}

Step OneInterval(DataFile file, const Body& body) {
  Translation const run(file.Item(1, body).EndOfData());
  if (run.Records(QV_INTERVAL).size() != 1) {
    ADD_FAILURE() << run.Records(QV_INTERVAL).size() << " intervals";
    return {0, std::vector<std::uint8_t>(QV_OUTPUT_RECORD_SIZE)};
  }
  return run.Records(QV_INTERVAL)[0];
}

TEST(Intervals, WithoutAnySettingHoldTheHeadAlone) {
  // The limit level is 0 and lies below LevelC; there is no threshold yet.
  EXPECT_EQ(Difference(HeadImage(486).U16(96, 0x0400), OneInterval(test::General(), Head())), "");
}

TEST(Intervals, CarrySiteAndThreshold) {
  DataFile file = test::General().Q(157, "513").Q(61, "70.5").Q(62, "120");
  EXPECT_EQ(Difference(HeadImage(486).U16(2, 513).F32(92, 70.5), OneInterval(file, Head())), "");
}

TEST(Intervals, AddTheLevelOffsetToEveryLevel) {
  DataFile file = test::General().Q(227, "1.5").Q(61, "70.5").Q(162, "2").Q(62, "120");
  EXPECT_EQ(Difference(HeadImage(486)
                           .U16(96, 0x1000)
                           .F32(92, 72)
                           .F32(100, 63)
                           .F32(104, 64.625)
                           .F32(116, 66.25)
                           .F32(128, 63.75)
                           .F32(144, 66.5625),
                       OneInterval(file, Head().Level(70.5))),
            "");
}

TEST(Intervals, MarkLevelsWithoutAValue) {
  Body const body = Body()
                        .Date(21, 6, 2024)
                        .Time(12, 0, 0)
                        .Duration5(60)
                        .NoLevel()
                        .NoLevel()
                        .NoLevel()
                        .NoLevel()
                        .NoLevel()
                        .U8(0x91)
                        .U8(0xA2)
                        .Fixed16(100);
  DataFile file = test::General().Q(227, "1.5").Q(62, "998");
  // LevelC at 999.0 lies above any limit.
  EXPECT_EQ(Difference(HeadImage(486)
                           .U16(96, 0x0400)
                           .F32(100, 999)
                           .F32(104, 999)
                           .F32(116, 999)
                           .F32(128, 999)
                           .F32(144, 999),
                       OneInterval(file, body)),
            "");
}

TEST(Intervals, FlagALevelAboveTheLimit) {
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
    Step const step = OneInterval(file, Head());
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

TEST(Intervals, HoldSamples) {
  for (const SampleRow& row : kSampleRows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General().Q(227, row.offset).Q(69, "1").Q(70, "32");
    Body body = Head().U8(static_cast<int>(row.file.size()));
    for (int const sample : row.file) body.U8(sample);
    auto const interval = Translation::Copy<QvInterval>(OneInterval(file, body));
    EXPECT_EQ(interval.IntervalFlags & 0x0100, 0x0100);
    EXPECT_EQ(interval.FlaggedSamplePercent, row.flaggedPercent);
    EXPECT_EQ(interval.SampleSpacing, 1.0F);
    for (std::size_t i = 0; i < 256; ++i) {
      EXPECT_EQ(interval.Samples[i], i < row.samples.size() ? row.samples[i] : 0U) << i;
    }
  }
}

TEST(Intervals, HoldUpTo255Samples) {
  DataFile file = test::General().Q(69, "1").Q(70, "32");
  Step const step = OneInterval(file, Head().U8(255).Fill(255, 200));
  auto const interval = Translation::Copy<QvInterval>(step);
  for (std::size_t i = 0; i < 255; ++i) EXPECT_EQ(interval.Samples[i], 72) << i;
  EXPECT_EQ(interval.Samples[255], 0);
  EXPECT_EQ(interval.FlaggedSamplePercent, 100.0F);
  EXPECT_EQ(step.record[416], 0xEE);
}

TEST(Intervals, SpaceSamplesByRegister70) {
  struct Row {
    const char* value;
    float spacing;
  };
  for (const Row& row : {Row{"16", 0.5F}, {"16.8", 0.525F}, {"1", 0.03125F}, {"-32", -1.0F}}) {
    DataFile file = test::General().Q(69, "1").Q(70, row.value);
    auto const interval = Translation::Copy<QvInterval>(OneInterval(file, Head().U8(0)));
    EXPECT_FLOAT_EQ(interval.SampleSpacing, row.spacing) << row.value;
  }
}

TEST(Intervals, HaveNoSamplesUnlessTheSwitchIs1) {
  for (const char* const value : {"0", "2", "-1", "257"}) {
    DataFile file = test::General().Q(62, "120").Q(69, value).Q(70, "16");
    EXPECT_EQ(Difference(HeadImage(486), OneInterval(file, Head().U8(2).Raw({60, 61}))), "")
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
    {"start", {}, 3600, 50, kNoon, kNoon + 1800},
    {"end by 162", {{162, "1"}}, 3600, 50, kNoon - 1800, kNoon},
    {"end by 163", {{163, "1"}}, 3600, 50, kNoon - 1800, kNoon},
    {"neither", {{162, "0"}, {163, "2"}}, 3600, 100, kNoon, kNoon + 3600},
    {"163 of 65537", {{163, "65537"}}, 3600, 100, kNoon, kNoon + 3600},
    {"start, cut", {}, 10.5, 50, kNoon, kNoon + 5},
    {"end, cut", {{162, "1"}}, 10.5, 50, kNoon - 6, kNoon},
    {"no length", {{162, "1"}}, 0, 100, kNoon, kNoon},
    {"no part", {}, 3600, 0, kNoon, kNoon},
    {"more than all", {}, 100, 150, kNoon, kNoon + 150},
    {"300 hours", {}, 1080000, 100, kNoon, kNoon + 1080000},
};

TEST(Intervals, ReachFromStartToEnd) {
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
    auto const interval = Translation::Copy<QvInterval>(OneInterval(file, body));
    EXPECT_EQ(interval.RecordTime, row.recordTime);
    EXPECT_EQ(interval.EndTime, row.endTime);
    EXPECT_EQ(interval.Duration, static_cast<float>(row.duration));
    EXPECT_EQ(interval.DurationPercent, static_cast<float>(row.percent));
  }
}

TEST(Intervals, RaiseTheLatestTimeByTheirStart) {
  // The settings block stands at the time of the header, which is noon.
  Body const later = Body().Date(21, 6, 2024).Time(13, 0, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  Body const earlier =
      Body().Date(21, 6, 2024).Time(12, 30, 0).Duration5(60).Fill(12, 1).Fixed16(100);
  for (const char* const timeIsEnd : {"0", "1"}) {
    DataFile file = test::General().Q(163, timeIsEnd).Item(1, later).Item(1, earlier).EndOfData();
    Translation const run(file);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 1, 15}));
    EXPECT_EQ(run.As<QvEnd>(3).LatestRecordTime, kNoon + 3600 - (*timeIsEnd == '1' ? 60 : 0));
  }
}

TEST(Intervals, AreCounted) {
  DataFile file = test::General();
  for (int i = 0; i < 3; ++i) file.Item(1, Head());
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{1, 1, 1, 15}));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(run.As<QvInterval>(i).RecordIndex, i + 1);
}

TEST(Intervals, IgnoreWhatStandsBehindTheirLayout) {
  DataFile file = test::General().Q(62, "120");
  EXPECT_EQ(Difference(HeadImage(486), OneInterval(file, Head().Fill(300, 0x77))), "");
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
TEST(Intervals, TellAShortBodyByTheirLastStep) {
  const std::vector<ShortRow> rows = {
      {"empty", "1.1", {}, Body(), 0},
      {"cut in the levels", "1.1", {}, Body().Raw(Head().Bytes().substr(0, 14)), 0},
      {"cut before Byte1", "1.1", {}, Body().Raw(Head().Bytes().substr(0, 21)), 0},
      {"no extra level", "1.1", {{162, "2"}}, Head(), 0},
      {"no spans", "1.1", {{145, "1"}}, Head(), -313},
      {"no byte behind the spans", "1.1", {{145, "1"}}, Head().Fill(4, 1), -313},
      {"all of the spans", "1.1", {{145, "1"}}, Head().Fill(5, 1), 0},
      {"no channels", "1.1", {{71, "1"}}, Head(), 0},
      {"no channels of old firmware", "0.9", {{71, "1"}}, Head(), 0},
      {"neither spans nor channels", "1.1", {{71, "1"}, {145, "1"}}, Head(), 0},
      {"no table", "1.1", {{210, "16"}}, Head(), -313},
      {"table of 15 bytes", "1.1", {{210, "16"}}, Head().Fill(15, 1), -313},
      {"table of 16 bytes", "1.1", {{210, "16"}}, Head().Fill(16, 1), 0},
      {"neither channels nor table", "1.1", {{71, "1"}, {210, "16"}}, Head(), -313},
      {"no sample count", "1.1", {{69, "1"}}, Head(), -313},
      {"count of no samples", "1.1", {{69, "1"}}, Head().U8(0), 0},
      {"two of three samples", "1.1", {{69, "1"}}, Head().U8(3).Fill(2, 60), -313},
      {"three of three samples", "1.1", {{69, "1"}}, Head().U8(3).Fill(3, 60), 0},
      {"whole table, no count", "1.1", {{69, "1"}, {210, "16"}}, Head().Fill(16, 1), -313},
      {"no channels, no count", "1.1", {{69, "1"}, {71, "1"}}, Head(), -313},
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

TEST(Intervals, ReadMissingBytesAsZero) {
  DataFile file = test::General().Q(62, "998");
  Body const body = Body().Raw(Head().Bytes().substr(0, 15));  // to LevelB
  EXPECT_EQ(Difference(RecordImage(416)
                           .U16(0, 1)
                           .I32(4, kNoon)
                           .F32(88, 60)
                           .U16(96, 0x0400)
                           .F32(100, 61.5)
                           .F32(104, 999)
                           .I32(108, kNoon)
                           .U16(112, 486)
                           .F32(116, 999)
                           .I32(124, 1)
                           .F32(128, 62.25)
                           .F32(144, 999),
                       OneInterval(file, body)),
            "");
}

TEST(Intervals, CountMissingSamplesAsSamples) {
  DataFile file = test::General().Q(69, "1").Q(70, "32").Q(62, "120").Q(227, "10");
  Translation const run(file.Item(1, Head().U8(4).U8(128 + 60)).EndOfData());
  ASSERT_EQ(run.end, QV_RECORD_TOO_SHORT);
  auto const interval = Translation::Copy<QvInterval>(run.steps.back());
  EXPECT_EQ(interval.FlaggedSamplePercent, 25.0F);
  EXPECT_EQ(interval.Samples[0], 70);
  EXPECT_EQ(interval.Samples[1], 0);
}

TEST(Intervals, OfAShortBodyAreFollowedByTheNextItem) {
  DataFile const file =
      test::General().Q(69, "1").Item(1, Head()).Item(1, Head().U8(0)).EndOfData();
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
TEST(Intervals, OfModel442TakeTheLevelBaseOfTheSetup) {
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
    file.Item(1, Head().U8(2).Raw({60, 128 + 61}));
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{53, 7, 1, 15}));
    auto const interval = run.As<QvInterval>(2);
    EXPECT_EQ(interval.Samples[0], row.first);
    EXPECT_EQ(interval.Samples[1], row.second);
    EXPECT_EQ(interval.SampleSpacing, 0.5F);
    EXPECT_EQ(interval.RecordTime, kNoon - 60);
    EXPECT_EQ(interval.EndTime, kNoon);
    EXPECT_EQ(interval.LevelA, 101.5F);
  }
}

}  // namespace
