#include <gtest/gtest.h>

#include "support/setup_block.h"

namespace {

using test::EmptySetup;
using test::ExpectSetup;
using test::General;
using test::kSetupItem;
using test::kSetupSize431;
using test::Model431;
using test::Model442;
using test::NumberedSetup;
using test::NumberedSetupImage;
using test::RecordImage;
using test::Translation;

constexpr test::ByteRow kLoggingBytes[] = {
    {62, 42},   {64, 46},   {66, 47},   {68, 48},   {70, 49},   {72, 56},   {132, 74},  {134, 75},
    {136, 76},  {138, 77},  {140, 78},  {142, 79},  {144, 80},  {146, 81},  {148, 82},  {150, 83},
    {156, 86},  {158, 87},  {160, 89},  {162, 90},  {164, 91},  {166, 92},  {168, 98},  {170, 99},
    {212, 124}, {214, 125}, {216, 126}, {236, 140}, {238, 141}, {240, 142}, {242, 145}, {244, 146},
    {246, 147}, {248, 148}, {250, 153}, {252, 154}, {254, 155}, {256, 156}, {258, 157}, {260, 158},
    {262, 159}, {264, 160}, {266, 161}, {268, 162}, {270, 163}, {272, 164}, {274, 165}, {276, 166},
    {278, 167}, {280, 173}, {282, 174}, {284, 176}, {292, 179}, {294, 180}, {296, 181}, {298, 182},
    {308, 185},
};

// The packed bytes of a numbered block: position 57 is 0x39, and so on.
constexpr test::TextRow kLoggingTexts[] = {
    {74, "3b/3a/39"}, {86, "3e/3d/3c"},  {98, "3f:40"},        {104, "41:42"}, {110, "43:44"},
    {116, "45:46"},   {122, "47:48:49"}, {172, "100:101:102"}, {286, "b1:b2"},
};

constexpr float kNumberedSix[] = {110.43359375F, 112.44140625F, 114.44921875F,
                                  116.45703125F, 118.46484375F, 120.47265625F};

struct FirmwareCase {
  const char* Version;
  bool Above201;
  bool At36;
};

constexpr FirmwareCase kFirmware[] = {
    {"0.500", false, false}, {"2.00", false, false},
    {"2.01", false, false},  {"2.0100002", true, false},  // the float behind 2.01
    {"2.02", true, false},   {"3.115", true, false},
    {"3.599", true, false},  {"3.5999997", true, false},  // the float before 3.6
    {"3.6", true, true},     {"3.7", true, true},
};

RecordImage LoggingImage(const FirmwareCase& firmware, int model, int mode) {
  RecordImage image = NumberedSetupImage(53, model, mode, 316);
  PutBytes(image, kLoggingBytes);
  PutTexts(image, kLoggingTexts);
  image.F32(152, 84.33203125F)
      .Floats(184, {std::begin(kNumberedSix), std::end(kNumberedSix)})
      .F32(208, 122.48046875F)
      .F32(220, 127.501976F)
      .Chars(224, "\x82\x83\x84\x85")
      .U16(230, 34439)
      .U16(232, 34953)
      .Untouched(304, 2)
      .Untouched(313, 3);
  if (firmware.At36) {
    image.U16(234, 138).U8(312, 139);
  } else {
    image.U16(234, 35467).U8(312, 0);
  }
  if (firmware.Above201) {
    image.U16(300, 184).U16(302, 186).U16(306, 183).U16(310, 187);
  } else {
    image.U16(300, 183).U16(302, 184).Untouched(306, 2).Untouched(310, 2);
  }
  return image;
}

TEST(SetupLogging, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const FirmwareCase& firmware : kFirmware) {
    for (int const mode : {2, 3}) {
      SCOPED_TRACE(std::string(firmware.Version) + " mode " + std::to_string(mode));
      ExpectSetup(Model442("LOG", firmware.Version), NumberedSetup(mode), 53,
                  LoggingImage(firmware, 442, mode));
    }
  }
}

TEST(SetupLogging, FormIsTheSameOnGeneralModels) {
  ExpectSetup(General("3.6"), NumberedSetup(3), 53, LoggingImage({"3.6", true, true}, 486, 3));
}

TEST(SetupLogging, Position138IsAHighByteBelowFirmware36) {
  auto const block = EmptySetup(2).Set(138, {0x12, 0x34});
  Translation const before(Model442("LOG", "3.59").Item(kSetupItem, block).EndOfData());
  EXPECT_EQ(before.As<QvSetupLogging>(0, QV_SETUP_LOGGING).SetupWord138, 0x1234);
  EXPECT_EQ(before.As<QvSetupLogging>(0, QV_SETUP_LOGGING).SetupByte139, 0);
  Translation const since(Model442("LOG", "3.6").Item(kSetupItem, block).EndOfData());
  EXPECT_EQ(since.As<QvSetupLogging>(0, QV_SETUP_LOGGING).SetupWord138, 0x12);
  EXPECT_EQ(since.As<QvSetupLogging>(0, QV_SETUP_LOGGING).SetupByte139, 0x34);
}

TEST(SetupLogging, OldFirmwareIgnoresPositions186And187) {
  Translation const run(Model442("LOG", "2.01")
                            .Item(kSetupItem, EmptySetup(2).Set(183, {1, 2, 3, 255, 255}))
                            .EndOfData());
  auto const record = run.As<QvSetupLogging>(0, QV_SETUP_LOGGING);
  EXPECT_EQ(record.StreamMaskB, 1);
  EXPECT_EQ(record.StreamMaskC, 2);
  EXPECT_EQ(record.StreamMaskE, 3);
  EXPECT_EQ(record.StreamMaskD, 0xEEEE) << "the host's own bytes";
  EXPECT_EQ(record.StreamMaskF, 0xEEEE) << "the host's own bytes";
}

TEST(SetupLogging, Position175IsDropped) {
  Translation const run(
      Model442("LOG").Item(kSetupItem, EmptySetup(2).Set(174, {0, 255, 17})).EndOfData());
  EXPECT_EQ(run.As<QvSetupLogging>(0, QV_SETUP_LOGGING).IntervalSamplePeriod, 17);
}

TEST(SetupLogging, LevelTakesTheOffsetAndTheMarker) {
  Translation const run(General("3.6")
                            .Q(227, "1.5")
                            .Item(kSetupItem, EmptySetup(2).Set(84, {0x4B, 0x80}))
                            .Item(kSetupItem, EmptySetup(2).Set(84, {0x4B, 0x00}))
                            .EndOfData());
  EXPECT_EQ(run.As<QvSetupLogging>(0, QV_SETUP_LOGGING).SetupLevel84, 77.0F);
  EXPECT_EQ(run.As<QvSetupLogging>(1, QV_SETUP_LOGGING).SetupLevel84, 999.0F);
}

TEST(SetupLogging, OnlyTheSixValuesAreSigned) {
  auto const block =
      EmptySetup(2).Set(110, {0xFF, 0x80}).Set(120, {0xC0, 0}).Set(122, {0xFF, 0x80});
  Translation const run(Model442("LOG").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupLogging>(0, QV_SETUP_LOGGING);
  EXPECT_EQ(record.KeptSixValues[0], -0.5F);
  EXPECT_EQ(record.KeptSixValues[5], -64.0F);
  EXPECT_EQ(record.SetupValue122, 255.5F);
}

TEST(SetupLogging, FirstClockIsPackedSecondIsNot) {
  auto const block =
      EmptySetup(2).Set(71, {0x23, 0x59, 0x58}).Set(100, {23, 59, 58}).Set(177, {0x07, 0x45});
  Translation const run(Model442("LOG").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupLogging>(0, QV_SETUP_LOGGING);
  EXPECT_STREQ(record.ClockA, "23:59:58");
  EXPECT_STREQ(record.ClockB, "23:59:58");
  EXPECT_STREQ(record.ClockC, "07:45");
}

constexpr test::ByteRow kLogging431Bytes[] = {
    {62, 42},   {64, 46},   {66, 47},   {68, 48},   {70, 49},   {72, 50},   {74, 56},   {134, 74},
    {136, 75},  {138, 76},  {140, 77},  {142, 78},  {144, 79},  {146, 80},  {148, 81},  {150, 82},
    {152, 83},  {160, 86},  {162, 87},  {164, 88},  {166, 89},  {168, 90},  {170, 91},  {172, 98},
    {174, 99},  {216, 124}, {218, 125}, {220, 126}, {240, 140}, {242, 141}, {244, 142}, {246, 145},
    {248, 146}, {250, 147}, {252, 148}, {254, 153}, {256, 154}, {258, 155}, {260, 156}, {262, 157},
    {264, 158}, {266, 159}, {268, 160}, {270, 161}, {272, 162}, {274, 163}, {276, 164}, {278, 165},
    {280, 166}, {282, 167}, {284, 173}, {286, 174}, {288, 176}, {296, 179}, {298, 180},
};

constexpr test::TextRow kLogging431Texts[] = {
    {76, "3b/3a/39"}, {88, "3e/3d/3c"},  {100, "3f:40"},       {106, "41:42"}, {112, "43:44"},
    {118, "45:46"},   {124, "47:48:49"}, {176, "100:101:102"}, {290, "b1:b2"},
};

TEST(SetupLogging431, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const FirmwareCase& firmware : kFirmware) {
    for (int const mode : {2, 3}) {
      SCOPED_TRACE(std::string(firmware.Version) + " mode " + std::to_string(mode));
      RecordImage image = NumberedSetupImage(35, 431, mode);
      PutBytes(image, kLogging431Bytes);
      PutTexts(image, kLogging431Texts);
      image.F32(156, 84.33203125F)
          .Floats(188, {std::begin(kNumberedSix), std::end(kNumberedSix)})
          .F32(212, 122.48046875F)
          .F32(224, 127.501976F)
          .Chars(228, "\x82\x83\x84\x85")
          .U16(234, 34439)
          .U16(236, 34953)
          .U16(238, 35467);
      ExpectSetup(Model431("iSLM", firmware.Version), NumberedSetup(mode, kSetupSize431), 35,
                  image);
    }
  }
}

TEST(SetupLogging431, Position122IsSigned) {
  auto const block =
      EmptySetup(2, kSetupSize431).Set(110, {0xFF, 0x80}).Set(122, {0xFF, 0x80, 0, 0, 0});
  Translation const run(Model431("iSLM").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupLogging431>(0, QV_SETUP_LOGGING_431);
  EXPECT_EQ(record.KeptSixValues[0], -0.5F);
  EXPECT_EQ(record.SetupValue122, -0.5F);
}

TEST(SetupLogging431, LevelTakesTheOffsetAndTheMarker) {
  Translation const run(Model431("iSLM")
                            .Q(227, "1.5")
                            .Item(kSetupItem, EmptySetup(2, kSetupSize431).Set(84, {0x4B, 0x80}))
                            .Item(kSetupItem, EmptySetup(2, kSetupSize431).Set(84, {0x4B, 0x00}))
                            .EndOfData());
  EXPECT_EQ(run.As<QvSetupLogging431>(0, QV_SETUP_LOGGING_431).SetupLevel84, 77.0F);
  EXPECT_EQ(run.As<QvSetupLogging431>(1, QV_SETUP_LOGGING_431).SetupLevel84, 999.0F);
}

TEST(SetupLogging431, FirstClockIsPackedSecondIsNot) {
  auto const block =
      EmptySetup(2, kSetupSize431).Set(71, {0x23, 0x59, 0x58}).Set(100, {255, 255, 255});
  Translation const run(Model431("iSLM").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupLogging431>(0, QV_SETUP_LOGGING_431);
  EXPECT_STREQ(record.ClockA, "23:59:58");
  EXPECT_STREQ(record.ClockB, "255:255:255");
}

}  // namespace
