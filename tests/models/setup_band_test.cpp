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

// From which firmware on a field of code 51 is filled.
enum class From { Always, Above201, Above3115, At36 };

struct BandRow {
  int Offset;
  int Position;
  From Firmware;
};

constexpr BandRow kBandBytes[] = {
    {62, 42, From::Always},     {64, 49, From::At36},       {66, 56, From::Always},
    {126, 86, From::Always},    {128, 87, From::Always},    {130, 89, From::Always},
    {132, 90, From::Always},    {134, 94, From::Above3115}, {136, 92, From::Always},
    {138, 93, From::Always},    {140, 98, From::Always},    {142, 99, From::Always},
    {160, 179, From::Above201}, {162, 124, From::Above201}, {164, 125, From::Above201},
    {166, 126, From::Above201}, {168, 47, From::Above201},  {170, 103, From::Above201},
    {172, 140, From::Above201}, {174, 141, From::Above201}, {176, 142, From::Above201},
    {178, 145, From::Always},   {180, 146, From::Always},   {182, 147, From::Always},
    {184, 148, From::Always},   {186, 153, From::Above201}, {188, 154, From::Above201},
    {190, 155, From::Above201}, {192, 156, From::Above201}, {194, 157, From::Above201},
    {196, 158, From::Above201}, {198, 159, From::Above201}, {200, 160, From::Above201},
    {202, 161, From::Above201}, {204, 162, From::Above201}, {206, 163, From::Above201},
    {208, 164, From::Above201}, {210, 165, From::Above201}, {212, 181, From::Above201},
    {214, 182, From::Above201}, {216, 184, From::Above201}, {218, 186, From::Above201},
    {222, 183, From::Above201}, {224, 185, From::Above201}, {226, 187, From::Above201},
    {228, 180, From::Above201}, {256, 104, From::Always},   {274, 138, From::At36},
};

// The packed bytes of a numbered block: position 57 is 0x39, and so on.
constexpr test::TextRow kBandTexts[] = {
    {68, "3b/3a/39"}, {80, "3e/3d/3c"}, {92, "3f:40"},     {98, "41:42"},
    {104, "43:44"},   {110, "45:46"},   {116, "47:48:49"}, {144, "100:101:102"},
};

struct FirmwareCase {
  const char* Version;
  bool Above201;
  bool Above3115;
  bool At36;
};

constexpr FirmwareCase kFirmware[] = {
    {"0.500", false, false, false},    {"2.00", false, false, false},
    {"2.01", false, false, false},      // as a float just under 2.01
    {"2.0100002", true, false, false},  // the next float
    {"2.02", true, false, false},      {"3.11", true, false, false},
    {"3.1149998", true, false, false},  // the float before 3.115
    {"3.115", true, true, false},       // as a float just above 3.115
    {"3.599", true, true, false},      {"3.5999997", true, true, false},  // the float before 3.6
    {"3.6", true, true, true},         {"3.7", true, true, true},
};

bool Reached(const FirmwareCase& firmware, From from) {
  switch (from) {
    case From::Always:
      return true;
    case From::Above201:
      return firmware.Above201;
    case From::Above3115:
      return firmware.Above3115;
    case From::At36:
      return firmware.At36;
  }
  return false;
}

RecordImage BandImage(const FirmwareCase& firmware, int model) {
  RecordImage image = NumberedSetupImage(51, model, 0);
  for (const BandRow& row : kBandBytes) {
    if (Reached(firmware, row.Firmware)) {
      image.U16(static_cast<std::size_t>(row.Offset), row.Position);
    }
  }
  PutTexts(image, kBandTexts);
  if (firmware.Above201) {
    image.F32(156, 122.48046875F);  // 122 + 123/256
    image.Floats(232, {110.43359375F, 112.44140625F, 114.44921875F, 116.45703125F, 118.46484375F,
                       120.47265625F});
  }
  if (firmware.At36) {
    image
        .F32(260, 127.501976F)  // 127 + 32897/65535
        .Chars(264, "\x82\x83\x84\x85")
        .U16(270, 34439)
        .U16(272, 34953)
        .U8(276, 139);
  }
  return image;
}

TEST(SetupBand, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const FirmwareCase& firmware : kFirmware) {
    SCOPED_TRACE(firmware.Version);
    ExpectSetup(Model442("SSA", firmware.Version), NumberedSetup(0), 51, BandImage(firmware, 442));
  }
}

TEST(SetupBand, FormIsTheSameOnGeneralModels) {
  ExpectSetup(General("3.6"), NumberedSetup(0), 51, BandImage({"3.6", true, true, true}, 486));
}

TEST(SetupBand, DatesPrintTheirThirdByteFirst) {
  auto const block = EmptySetup(0)
                         .Set(57, {0x12, 0x31, 0x99})
                         .Set(60, {0x24, 0x06, 0x21})
                         .Set(63, {0x08, 0x30})
                         .Set(71, {0x23, 0x59, 0x58})
                         .Set(100, {9, 5, 7});
  Translation const run(Model442("SSA").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupBand>(0, QV_SETUP_BAND);
  EXPECT_STREQ(record.DateA, "99/31/12");
  EXPECT_STREQ(record.DateB, "21/06/24");
  EXPECT_STREQ(record.TimeA, "08:30");
  EXPECT_STREQ(record.ClockA, "23:59:58");
  EXPECT_STREQ(record.ClockB, "09:05:07");
}

TEST(SetupBand, BadDigitsPrintAsLetters) {
  auto const block = EmptySetup(0).Set(57, {0x1A, 0xFF, 0xA1}).Set(63, {0xAB, 0x0C});
  Translation const run(Model442("SSA").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupBand>(0, QV_SETUP_BAND);
  EXPECT_STREQ(record.DateA, "a1/ff/1a");
  EXPECT_STREQ(record.TimeA, "ab:0c");
}

TEST(SetupBand, SixValuesMayBeNegative) {
  auto const block = EmptySetup(0).Set(
      110, {0xFF, 0x80, 0xC0, 0x00, 0xBF, 0x00, 0xFF, 0xFF, 0xC0, 0x01, 0x00, 0x40});
  Translation const run(Model442("SSA").Item(kSetupItem, block).EndOfData());
  auto const record = run.As<QvSetupBand>(0, QV_SETUP_BAND);
  EXPECT_EQ(record.KeptSixValues[0], -0.5F);
  EXPECT_EQ(record.KeptSixValues[1], -64.0F);
  EXPECT_EQ(record.KeptSixValues[2], 191.0F);
  EXPECT_EQ(record.KeptSixValues[3], -0.00390625F);
  EXPECT_EQ(record.KeptSixValues[4], -63.99609375F);
  EXPECT_EQ(record.KeptSixValues[5], 0.25F);
}

TEST(SetupBand, Position122IsUnsigned) {
  Translation const run(
      Model442("SSA").Item(kSetupItem, EmptySetup(0).Set(122, {0xFF, 0x80})).EndOfData());
  EXPECT_EQ(run.As<QvSetupBand>(0, QV_SETUP_BAND).SetupValue122, 255.5F);
}

// The fraction counts 65535 parts, so that all bits set make a whole.
TEST(SetupBand, WideFractionIsDividedBy65535) {
  struct Row {
    std::initializer_list<int> Bytes;
    float Value;
  };
  Row const rows[] = {{{5, 0xFF, 0xFF}, 6.0F}, {{0, 0x80, 0x00}, 0.500007630F}, {{9, 0, 0}, 9.0F}};
  for (const Row& row : rows) {
    Translation const run(
        Model442("SSA", "3.6").Item(kSetupItem, EmptySetup(0).Set(127, row.Bytes)).EndOfData());
    EXPECT_EQ(run.As<QvSetupBand>(0, QV_SETUP_BAND).SetupValue127, row.Value);
  }
}

TEST(SetupBand, UnknownPeriodUnitIsShown) {
  Translation const run(
      Model442("SSA").Item(kSetupItem, EmptySetup(0).Set(141, {9, 4})).EndOfData());
  auto const record = run.As<QvSetupBand>(0, QV_SETUP_BAND);
  EXPECT_EQ(record.PeriodValue, 9);
  EXPECT_EQ(record.PeriodUnit, 4);
}

constexpr test::ByteRow kBand431Bytes[] = {
    {62, 42},  {64, 56},  {124, 86}, {126, 87},  {128, 88},  {130, 89},  {132, 90},
    {134, 91}, {136, 98}, {138, 99}, {216, 145}, {218, 146}, {220, 147}, {222, 148},
};

constexpr test::TextRow kBand431Texts[] = {
    {66, "3b/3a/39"}, {78, "3e/3d/3c"}, {90, "3f:40"},     {96, "41:42"},
    {102, "43:44"},   {108, "45:46"},   {114, "47:48:49"}, {140, "64:65:66"},
};

TEST(SetupBand431, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  RecordImage image = NumberedSetupImage(33, 431, 0);
  PutBytes(image, kBand431Bytes);
  PutTexts(image, kBand431Texts);
  for (std::size_t i = 0; i < 33; ++i) {
    image.U16(150 + 2 * i, static_cast<int>(110 + i));
    image.U16(224 + 2 * i, static_cast<int>(153 + i));
  }
  for (const FirmwareCase& firmware : kFirmware) {
    SCOPED_TRACE(firmware.Version);
    ExpectSetup(Model431("OBA ", firmware.Version), NumberedSetup(0, kSetupSize431), 33, image);
  }
}

TEST(SetupBand431, SecondClockIsPackedToo) {
  Translation const run(
      Model431("OBA ")
          .Item(kSetupItem, EmptySetup(0, kSetupSize431).Set(100, {0x23, 0x59, 9}))
          .EndOfData());
  EXPECT_STREQ(run.As<QvSetupBand431>(0, QV_SETUP_BAND_431).ClockB, "23:59:09");
}

}  // namespace
