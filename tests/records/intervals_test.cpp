// Intervals: item 1 in every mode but that of the band analyser.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/interval_body.h"
#include "support/record_image.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Setting;
using test::Translation;

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
      Body body = test::IntervalHead();
      for (int const byte : layout.block) body.U8(byte);
      if (samples) body.U8(3).Raw({33, 34, 35});
      Translation const run(file.Item(1, body).EndOfData());

      RecordImage image = test::IntervalHeadImage(layout.model);
      image.U16(96, layout.flags | (samples ? 0x0100 : 0));
      if (samples) image.F32(136, 0.5).U8(160, 33).U8(161, 34).U8(162, 35);
      layout.expect(image);
      ASSERT_EQ(run.Records(QV_INTERVAL).size(), 1U);
      EXPECT_EQ(Difference(image, run.Records(QV_INTERVAL)[0]), "");
      EXPECT_EQ(run.end, QV_END_OF_DATA);
    }
  }
}

TEST(Intervals, WithoutAnySettingHoldTheHeadAlone) {
  // The limit level is 0 and lies below LevelC; there is no threshold yet.
  EXPECT_EQ(Difference(test::IntervalHeadImage(486).U16(96, 0x0400),
                       test::OneInterval(test::General(), test::IntervalHead())),
            "");
}

TEST(Intervals, CarrySiteAndThreshold) {
  DataFile file = test::General().Q(157, "513").Q(61, "70.5").Q(62, "120");
  EXPECT_EQ(Difference(test::IntervalHeadImage(486).U16(2, 513).F32(92, 70.5),
                       test::OneInterval(file, test::IntervalHead())),
            "");
}

TEST(Intervals, AddTheLevelOffsetToEveryLevel) {
  DataFile file = test::General().Q(227, "1.5").Q(61, "70.5").Q(162, "2").Q(62, "120");
  EXPECT_EQ(Difference(test::IntervalHeadImage(486)
                           .U16(96, 0x1000)
                           .F32(92, 72)
                           .F32(100, 63)
                           .F32(104, 64.625)
                           .F32(116, 66.25)
                           .F32(128, 63.75)
                           .F32(144, 66.5625),
                       test::OneInterval(file, test::IntervalHead().Level(70.5))),
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
  EXPECT_EQ(Difference(test::IntervalHeadImage(486)
                           .U16(96, 0x0400)
                           .F32(100, 999)
                           .F32(104, 999)
                           .F32(116, 999)
                           .F32(128, 999)
                           .F32(144, 999),
                       test::OneInterval(file, body)),
            "");
}

}  // namespace
