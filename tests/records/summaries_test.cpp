// Summaries of a run: item 2 of general models, and of models 431 and 442 in modes 2 and 3.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Step;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// The part that every summary has: noon, 25 hours, 2 minutes and 3.5 seconds.
Body Head() {
  return Body()
      .Date(21, 6, 2024)
      .Time(12, 0, 0)
      .Duration5(90123.5)
      .Level(61.5)       // A
      .Level(62.25)      // B
      .Level(63.125)     // C
      .Level(64.75)      // D
      .Level(65.0625)    // E
      .Level(66.015625)  // F
      .Raw({0x91, 0xA2, 0xB3, 0xC4});
}

RecordImage HeadImage(int model) {
  return RecordImage(812)
      .U16(0, 2)
      .I32(4, kNoon)
      .F32(48, 90123.5)
      .F32(56, 61.5)
      .F32(60, 64.75)
      .F32(64, 63.125)
      .U16(92, model)
      .U16(120, 0xC4)
      .F32(124, 65.0625)
      .U16(128, 0xA2)
      .U16(130, 0x91)
      .I32(132, 1)
      .F32(136, 62.25)
      .F32(140, 66.015625)
      .U16(144, 0xB3);
}

// Scales of the auxiliary channels: b / 2 - 10, b, and 2 * b + 100.
const std::vector<Setting> kScales = {{122, "-10"}, {123, "118"}, {130, "0"},
                                      {131, "256"}, {138, "100"}, {139, "612"}};

// A distribution of 384 bytes: three of base level, then counts that tell their place.
Body Distribution() {
  Body body;
  body.Raw({7, 8, 9});
  for (int i = 3; i < 384; ++i) body.U8(i % 251);
  return body;
}

// Without a level offset, models other than 442 have a base level of 0.
void ExpectDistribution(RecordImage& image, bool baseOfFile) {
  image.U8(160, 1);
  if (baseOfFile) image.U8(161, 7).U8(162, 8).U8(163, 9);
  for (int i = 3; i < 384; ++i) image.U8(161 + static_cast<std::size_t>(i), i % 251);
}

struct Layout {
  const char* name = "";
  int model = 486;
  const char* firmware = "1.100";
  std::vector<Setting> settings = {};
  Body block = {};  // between Byte4 and the distribution
  int flags = 0;
  void (*expect)(RecordImage&) = [](RecordImage&) {};
};

const Body kLevels = Body().Level(81.5).Level(82.5).Level(83.5).Level(84.5).Level(85.5).NoLevel();
const Body kPercentiles = Body(kLevels).Raw({1, 5, 10, 50, 90, 255});
const Body kWidePercentiles = Body(kLevels)
                                  .SignedFixed16(1.5)
                                  .SignedFixed16(-0.5)
                                  .SignedFixed16(10)
                                  .SignedFixed16(191.5)
                                  .SignedFixed16(-64)
                                  .SignedFixed16(99.25);
const Body kSpans = Body().U16(0x8000).U16(0x4000).U8(0x5A);
const Body kAllChannels = Body().Raw({22, 24, 26, 1, 2, 3, 10, 20, 30});
const Body kLastTwoChannels = Body().Raw({1, 2, 3, 10, 20, 30});

constexpr auto kExpectPercentiles = [](RecordImage& image) {
  image.Floats(68, {81.5, 82.5, 83.5, 84.5, 85.5, 999}).Floats(96, {1, 5, 10, 50, 90, 255});
};
constexpr auto kExpectWidePercentiles = [](RecordImage& image) {
  image.Floats(68, {81.5, 82.5, 83.5, 84.5, 85.5, 999});
  image.Floats(96, {1.5, -0.5, 10, 191.5, -64, 99.25});
};
constexpr auto kExpectSpans = [](RecordImage& image) {
  image.F32(148, 6239).F32(156, 3119.5).U16(152, 0x5A);
};
constexpr auto kExpectSpans442 = [](RecordImage& image) {
  image.F32(148, 32768).F32(156, 16384).U16(152, 0x5A);
};
// Value by value, each with its three channels.
constexpr auto kExpectAllChannels = [](RecordImage& image) {
  image.Floats(12, {1, 1, 120, 2, 2, 140, 3, 3, 160});
};
constexpr auto kExpectLastTwoChannels = [](RecordImage& image) {
  image.Floats(12, {0, 1, 120, 0, 2, 140, 0, 3, 160});
};

const std::vector<Layout> kLayouts = {
    {.name = "no block"},
    {.name = "percentiles",
     .settings = {{77, "1"}},
     .block = kPercentiles,
     .flags = 0x0200,
     .expect = kExpectPercentiles},
    {.name = "percentiles of firmware 0.9",
     .firmware = "0.9",
     .settings = {{77, "1"}},
     .block = kPercentiles,
     .flags = 0x0200,
     .expect = kExpectPercentiles},
    {.name = "percentiles of model 480",
     .model = 480,
     .settings = {{77, "1"}},
     .block = kPercentiles,
     .flags = 0x0200,
     .expect = kExpectPercentiles},
    {.name = "percentiles switched by 2", .settings = {{77, "2"}}},
    {.name = "percentiles of model 431",
     .model = 431,
     .settings = {{77, "1"}},
     .block = kWidePercentiles,
     .flags = 0x0200,
     .expect = kExpectWidePercentiles},
    {.name = "percentiles of model 442 at firmware 3.116",
     .model = 442,
     .firmware = "3.116",
     .settings = {{77, "1"}},
     .block = kWidePercentiles,
     .flags = 0x0200,
     .expect = kExpectWidePercentiles},
    {.name = "percentiles of model 442 at firmware 1.0",
     .model = 442,
     .firmware = "1.0",
     .settings = {{77, "1"}},
     .block = kWidePercentiles,
     .flags = 0x0200,
     .expect = kExpectWidePercentiles},

    {.name = "channels",
     .settings = {{78, "1"}},
     .block = kAllChannels,
     .flags = 0x0004,
     .expect = kExpectAllChannels},
    {.name = "channels with the second one enabled",
     .settings = {{78, "1"}, {119, "2"}},
     .block = kAllChannels,
     .flags = 0x0014,
     .expect = kExpectAllChannels},
    {.name = "second channel enabled without channels", .settings = {{119, "1"}}},
    {.name = "channels switched by 2", .settings = {{78, "2"}, {119, "1"}}},
    {.name = "channels of intervals", .settings = {{71, "1"}, {119, "1"}}},
    {.name = "channels of firmware 0.9",
     .firmware = "0.9",
     .settings = {{78, "1"}, {119, "1"}},
     .block = kAllChannels,
     .flags = 0x0004,
     .expect = kExpectAllChannels},
    {.name = "channels of firmware 0.9 with spans",
     .firmware = "0.9",
     .settings = {{78, "1"}, {145, "1"}},
     .block = Body(kSpans).Raw(kLastTwoChannels.Bytes()),
     .flags = 0x000C,
     .expect =
         [](RecordImage& image) {
           kExpectSpans(image);
           kExpectLastTwoChannels(image);
         }},
    {.name = "channels of firmware 0.9, spans switched by 2",
     .firmware = "0.9",
     .settings = {{78, "1"}, {145, "2"}},
     .block = kLastTwoChannels,
     .flags = 0x0004,
     .expect = kExpectLastTwoChannels},
    {.name = "channels of new firmware with spans",
     .settings = {{78, "1"}, {145, "1"}},
     .block = Body(kSpans).Raw(kAllChannels.Bytes()),
     .flags = 0x000C,
     .expect =
         [](RecordImage& image) {
           kExpectSpans(image);
           kExpectAllChannels(image);
         }},
    {.name = "channels of new firmware, spans switched by 2",
     .settings = {{78, "1"}, {145, "2"}},
     .block = kAllChannels,
     .flags = 0x0004,
     .expect = kExpectAllChannels},

    {.name = "spans",
     .settings = {{145, "1"}},
     .block = kSpans,
     .flags = 0x0008,
     .expect = kExpectSpans},
    {.name = "spans switched by 2", .settings = {{145, "2"}}},
    {.name = "spans of model 431",
     .model = 431,
     .settings = {{145, "1"}},
     .block = kSpans,
     .flags = 0x0008,
     .expect = kExpectSpans},
    {.name = "both spans of model 442 at firmware 3.6",
     .model = 442,
     .firmware = "3.6",
     .settings = {{145, "1"}},
     .block = kSpans,
     .flags = 0x0008,
     .expect = kExpectSpans442},

    {.name = "everything",
     .settings = {{77, "1"}, {78, "1"}, {119, "1"}, {145, "1"}},
     .block = Body(kPercentiles).Raw(kSpans.Bytes()).Raw(kAllChannels.Bytes()),
     .flags = 0x021C,
     .expect =
         [](RecordImage& image) {
           kExpectPercentiles(image);
           kExpectSpans(image);
           kExpectAllChannels(image);
         }},
    {.name = "everything of model 442",
     .model = 442,
     .firmware = "3.6",
     .settings = {{77, "1"}, {78, "1"}, {119, "1"}, {145, "1"}},
     .block = Body(kWidePercentiles).Raw(kSpans.Bytes()).Raw(kAllChannels.Bytes()),
     .flags = 0x021C,
     .expect =
         [](RecordImage& image) {
           kExpectWidePercentiles(image);
           kExpectSpans442(image);
           kExpectAllChannels(image);
         }},
};

// Every layout is read twice: alone, and with a distribution behind it, which proves where it
// ended.
TEST(Summaries, HoldTheBlocksThatTheSettingsAnnounce) {
  for (const Layout& layout : kLayouts) {
    for (bool const distribution : {false, true}) {
      SCOPED_TRACE(std::string(layout.name) + (distribution ? ", distribution" : ""));
      DataFile file = test::LoggingFile(layout.model, layout.firmware);
      AddSettings(file, kScales).Q(210, distribution ? "1" : "0");
      AddSettings(file, layout.settings);
      Body body = Head().Raw(layout.block.Bytes());
      if (distribution) body.Raw(Distribution().Bytes());
      Translation const run(file.Item(2, body).EndOfData());

      RecordImage image = HeadImage(layout.model);
      image.U16(52, layout.flags | (distribution ? 0x0100 : 0));
      if (distribution) ExpectDistribution(image, layout.model == 442);
      layout.expect(image);
      ASSERT_EQ(run.Records(QV_SUMMARY).size(), 1U);
      EXPECT_EQ(Difference(image, run.Records(QV_SUMMARY)[0]), "");
      EXPECT_EQ(run.end, QV_END_OF_DATA);
    }
  }
}

TEST(Summaries, ServeModes2And3OfModels431And442) {
  for (const char* const tag : {"iSLM", "ENV "}) {
    SCOPED_TRACE(tag);
    Translation const run(test::Model431(tag).Item(2, Head()).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{2, 15}));
    EXPECT_EQ(Difference(HeadImage(431), run.Records()[0]), "");
  }
  for (const char* const tag : {"LOG", "ENV"}) {
    SCOPED_TRACE(tag);
    Translation const run(test::Model442(tag).Item(2, Head()).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{2, 15}));
    EXPECT_EQ(Difference(HeadImage(442), run.Records()[0]), "");
  }
}

TEST(Summaries, HoldADistributionByBit0OfRegister210) {
  struct Row {
    const char* value;
    bool present;
  };
  for (const Row& row : {Row{"0", false},
                         {"1", true},
                         {"2", false},
                         {"16", false},
                         {"17", true},
                         {"255", true},
                         {"254", false},
                         {"65536", false},
                         {"65537", true}}) {
    SCOPED_TRACE(row.value);
    DataFile file = test::General().Q(206, "1").Q(210, row.value);
    Translation const run(file.Item(2, Head().Raw(Distribution().Bytes())).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
    RecordImage image = HeadImage(486);
    if (row.present) {
      image.U16(52, 0x0100);
      ExpectDistribution(image, false);
    }
    EXPECT_EQ(Difference(image, run.Records()[1]), "");
  }
}

TEST(Summaries, OfFirmware0Point9HoldADistributionToo) {
  DataFile file = test::General("0.9").Q(206, "0").Q(210, "1");
  Translation const run(file.Item(2, Head().Raw(Distribution().Bytes())).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
  RecordImage image = HeadImage(486).U16(52, 0x0100);
  ExpectDistribution(image, false);
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
}

TEST(Summaries, AddTheLevelOffsetToEveryLevelAndCarryTheSite) {
  DataFile file = test::General().Q(157, "513").Q(227, "1.5").Q(77, "1");
  Translation const run(file.Item(2, Head().Raw(kPercentiles.Bytes())).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
  RecordImage image = HeadImage(486).U16(2, 513).U16(52, 0x0200).F32(56, 63).F32(60, 66.25);
  image.F32(64, 64.625).F32(124, 66.5625).F32(136, 63.75).F32(140, 67.515625);
  image.Floats(68, {83, 84, 85, 86, 87, 999}).Floats(96, {1, 5, 10, 50, 90, 255});
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
}

TEST(Summaries, MarkLevelsWithoutAValue) {
  Body const body = Body()
                        .Date(21, 6, 2024)
                        .Time(12, 0, 0)
                        .Duration5(0)
                        .Raw({60, 0, 61, 0, 62, 0, 63, 0, 64, 0, 65, 0, 0, 0, 0, 0});
  Translation const run(test::General().Q(227, "1.5").Item(2, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
  auto const summary = run.As<QvSummary>(1);
  for (float const level : {summary.LevelA, summary.LevelB, summary.LevelC, summary.LevelD,
                            summary.LevelE, summary.LevelF}) {
    EXPECT_EQ(level, 999.0F);
  }
}

TEST(Summaries, AreCountedAndRaiseTheLatestTime) {
  Body const later = Body().Date(22, 6, 2024).Time(0, 0, 0);
  DataFile file = test::General().Item(2, Head()).Item(2, later).Item(2, Head()).EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{2, 2, 2, 15}));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(run.As<QvSummary>(i).RecordIndex, i + 1);
  EXPECT_EQ(run.As<QvEnd>(3).LatestRecordTime, kNoon + 12 * 3600);
}

TEST(Summaries, NeverTellAShortBody) {
  struct Row {
    const char* name;
    std::vector<Setting> settings;
    Body body;
  };
  const std::vector<Row> rows = {
      {"empty", {}, Body()},
      {"no Byte4", {}, Body().Raw(Head().Bytes().substr(0, 26))},
      {"no percentiles", {{77, "1"}}, Head()},
      {"no byte behind the spans", {{145, "1"}}, Head().Fill(4, 1)},
      {"no channels", {{78, "1"}}, Head()},
      {"distribution cut", {{210, "1"}}, Head().Fill(100, 1)},
      {"no distribution", {{210, "1"}}, Head()},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    DataFile file = test::General().Q(9, "1");
    Translation const run(AddSettings(file, row.settings).Item(2, row.body).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
    EXPECT_EQ(run.steps[1].status, QV_OK);
  }
}

TEST(Summaries, ReadMissingBytesAsZero) {
  Body const body = Body().Raw(Head().Bytes().substr(0, 13));  // to LevelA
  DataFile file = test::General().Q(77, "1").Item(2, body).EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 2, 15}));
  RecordImage image(812);
  image.U16(0, 2).I32(4, kNoon).F32(48, 90123.5).U16(52, 0x0200).U16(92, 486).I32(132, 1);
  image.F32(56, 61.5).F32(60, 999).F32(64, 999).F32(124, 999).F32(136, 999).F32(140, 999);
  image.Floats(68, {999, 999, 999, 999, 999, 999});
  EXPECT_EQ(Difference(image, run.Records()[1]), "");
}

// What only a setup sets: position 42 of a logging setup is 64 for percentiles and 1 for the
// distribution, position 49 is 64 for spans; channels are off.
TEST(Summaries, TakeTheirBlocksFromALoggingSetupToo) {
  Body const setup = test::EmptySetup(2).Set(42, {64 + 1}).Set(49, {64});
  DataFile file = test::Model442("LOG").Q(78, "1").Item(test::kSetupItem, setup);
  Body const body =
      Head().Raw(kWidePercentiles.Bytes()).Raw(kSpans.Bytes()).Raw(Distribution().Bytes());
  Translation const run(file.Item(2, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 53, 2, 15}));
  RecordImage image = HeadImage(442).U16(52, 0x0308);
  kExpectWidePercentiles(image);
  kExpectSpans442(image);
  ExpectDistribution(image, true);
  EXPECT_EQ(Difference(image, run.Records()[2]), "");
}

}  // namespace
