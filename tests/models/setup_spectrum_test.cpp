#include <gtest/gtest.h>

#include "support/setup_block.h"

namespace {

using samples::Body;
using test::Difference;
using test::EmptySetup;
using test::ExpectSetup;
using test::General;
using test::kSetupItem;
using test::Model442;
using test::NumberedSetup;
using test::NumberedSetupImage;
using test::RecordImage;
using test::Translation;

template <class Record>
Record OneSetup(const char* firmware, int code, const Body& block) {
  Translation const run(Model442("SSA", firmware).Item(kSetupItem, block).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{code, 15}));
  return run.As<Record>(0);
}

RecordImage SpectrumImage(int model) {
  RecordImage image = NumberedSetupImage(70, model, 4);
  image.U8(60, 41).U8(61, 42).U8(62, 48);
  image.F32(64, 74.29412F);  // 74 + 19276/65536, five decimals
  image.U8(68, 77).U16(70, 20047).U16(72, 20561).U8(74, 93).U8(75, 94);
  image.U8(76, 95).U8(77, 103).U8(78, 111);
  image.Floats(80, {104.41015625F, 96.37890625F, 112.44140625F});
  image.Floats(92, {106.41961669921875F, 98.38824462890625F, 114.45098876953125F});
  image.U16(104, 28014).U16(106, 25958).U16(108, 30070);
  image.U8(110, 119).U8(111, 120).U8(112, 121).U8(113, 130);
  return image.Chars(114, "\x7a\x7b\x7c\x7d\x7e\x7f\x80\x81");
}

TEST(SetupSpectrum, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const char* const firmware : {"0.500", "2.01", "2.02", "3.111", "3.112", "3.6"}) {
    SCOPED_TRACE(firmware);
    ExpectSetup(Model442("RTA", firmware), NumberedSetup(4), 70, SpectrumImage(442));
  }
}

TEST(SetupSpectrum, FormIsTheSameOnGeneralModels) {
  ExpectSetup(General(), NumberedSetup(4), 70, SpectrumImage(486));
}

TEST(SetupSpectrum, FlagsAreTwoSingleBytes) {
  auto const record =
      OneSetup<QvSetupSpectrum>("3.6", 70, EmptySetup(4).Set(41, {0xFF}).Set(42, {0xA5}));
  EXPECT_EQ(record.SetupFlagsByte, 0xFF);
  EXPECT_EQ(record.FlagsA, 0xA5);
}

// Five decimals are kept; a fifth decimal of 5 or more raises the fourth and stays.
TEST(SetupSpectrum, FifthDecimalRaisesTheFourth) {
  struct Row {
    int Whole;
    int Fraction;  // of 65536
    float Value;
  };
  constexpr Row kRows[] = {
      {1, 15372, 1.23465F},     // 1.234558
      {1, 15371, 1.23454F},     // 1.234542
      {0, 0, 0.0F},             //
      {0, 1, 0.00001F},         // 0.0000152
      {0, 4, 0.00016F},         // 0.0000610: 6 becomes 16
      {60, 32768, 60.5F},       // 60.50000
      {255, 65535, 256.00008F}  // 255.99998: 8 becomes 18
  };
  for (const Row& row : kRows) {
    auto const record = OneSetup<QvSetupSpectrum>(
        "3.6", 70, EmptySetup(4).Set(74, {row.Whole, row.Fraction >> 8, row.Fraction & 0xFF}));
    EXPECT_EQ(record.SetupValue74, row.Value) << row.Whole << " + " << row.Fraction << "/65536";
  }
}

// Only the values of the groups are signed; the long fixed fields are not.
TEST(SetupSpectrum, GroupValuesMayBeNegative) {
  auto const record = OneSetup<QvSetupSpectrum>("3.6", 70,
                                                EmptySetup(4)
                                                    .Set(96, {0xFF, 0x80, 0xFF, 0x80, 0x00})
                                                    .Set(104, {0xC0, 0x00, 0xFE, 0, 0})
                                                    .Set(112, {0xBF, 0x40, 0xFD, 0, 0}));
  EXPECT_EQ(record.GroupValues[0], -64.0F);
  EXPECT_EQ(record.GroupValues[1], -0.5F);
  EXPECT_EQ(record.GroupValues[2], 191.25F);
  EXPECT_EQ(record.GroupFixed[0], 254.0F);
  EXPECT_EQ(record.GroupFixed[1], 255.5F);
  EXPECT_EQ(record.GroupFixed[2], 253.0F);
}

TEST(SetupSpectrum, CodeOfPosition130IsTranslatedInOldFirmware) {
  struct Row {
    const char* Firmware;
    int Code;
    int Shown;
  };
  constexpr Row kRows[] =
      {
          {"2.01", 2, 3},      {"3.11", 0, 0},     {"3.11", 1, 1},
          {"3.11", 2, 3},      {"3.11", 3, 5},     {"3.11", 4, 4},
          {"3.11", 5, 5},      {"3.11", 255, 255}, {"3.1119998", 2, 3},  // the float before 3.112
          {"3.1119998", 3, 5}, {"3.112", 2, 2},    {"3.112", 3, 3},
          {"3.6", 2, 2},       {"3.6", 3, 3},
      };
  for (const Row& row : kRows) {
    auto const record =
        OneSetup<QvSetupSpectrum>(row.Firmware, 70, EmptySetup(4).Set(130, {row.Code}));
    EXPECT_EQ(record.SetupByte130, row.Shown) << row.Firmware << " code " << row.Code;
  }
}

TEST(SetupSpectrum, TextOfEightCharactersIsTerminated) {
  auto const record = OneSetup<QvSetupSpectrum>(
      "3.6", 70, EmptySetup(4).Set(122, {'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I'}));
  EXPECT_STREQ(record.SetupText122, "ABCDEFGH");
}

struct NarrowFirmware {
  const char* Version;
  bool Above3115;
};

constexpr NarrowFirmware kNarrowFirmware[] = {
    {"0.500", false}, {"2.01", false},
    {"3.11", false},  {"3.1149998", false},  // the float before 3.115
    {"3.115", true},  {"3.6", true},
};

TEST(SetupNarrow, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const NarrowFirmware& firmware : kNarrowFirmware) {
    SCOPED_TRACE(firmware.Version);
    RecordImage image = NumberedSetupImage(63, 442, 5);
    image.U16(60, 75).U16(62, 93).U16(64, firmware.Above3115 ? 78 : 128).U16(66, 64).U16(68, 19533);
    Translation const run(Model442("FFT", firmware.Version)
                              .Q(157, "7")
                              .Item(kSetupItem, NumberedSetup(5).Set(47, {0xFF}))
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 63, 15}));
    EXPECT_EQ(run.Records(63).at(0).status, 0);
    EXPECT_EQ(Difference(image, run.Records(63).at(0)), "");
  }
}

TEST(SetupNarrow, FormIsTheSameOnGeneralModels) {
  RecordImage image = NumberedSetupImage(63, 486, 5);
  image.U16(60, 75).U16(62, 93).U16(64, 0).U16(66, 0).U16(68, 19533);
  ExpectSetup(General(), NumberedSetup(5), 63, image);
}

TEST(SetupNarrow, BitsOfPosition47AreKeptAsTheyStand) {
  struct Row {
    int Byte;
    int Bit128;
    int Bit64;
  };
  constexpr Row kRows[] = {{0x80, 128, 0}, {0x40, 0, 64}, {0xC0, 128, 64}, {0x3F, 0, 0}};
  for (const Row& row : kRows) {
    auto const block = EmptySetup(5).Set(47, {row.Byte}).Set(78, {0xC8});
    auto const old = OneSetup<QvSetupNarrow>("3.11", 63, block);
    EXPECT_EQ(old.SetupByte47Or78, row.Bit128) << row.Byte;
    EXPECT_EQ(old.SetupByte47Bit64, row.Bit64) << row.Byte;
    auto const recent = OneSetup<QvSetupNarrow>("3.115", 63, block);
    EXPECT_EQ(recent.SetupByte47Or78, 0xC8) << row.Byte;
    EXPECT_EQ(recent.SetupByte47Bit64, row.Bit64) << row.Byte;
  }
}

struct TallyRow {
  int Offset;
  int Position;
  bool Above201;
};

constexpr TallyRow kTallyBytes[] = {
    {72, 86, false},  {74, 87, false},  {76, 93, false},  {88, 47, true},   {90, 140, true},
    {92, 141, true},  {94, 142, true},  {96, 181, true},  {98, 182, true},  {100, 184, true},
    {102, 186, true}, {106, 183, true}, {108, 185, true}, {110, 187, true},
};

struct TallyFirmware {
  const char* Version;
  bool Above201;
};

constexpr TallyFirmware kTallyFirmware[] = {
    {"0.500", false},    {"2.00", false}, {"2.01", false},
    {"2.0100002", true},  // the float behind 2.01
    {"2.02", true},      {"3.115", true}, {"3.6", true},
};

RecordImage TallyImage(const TallyFirmware& firmware, int model) {
  RecordImage image = NumberedSetupImage(60, model, 7);
  image.Chars(62, "71:72:73").Chars(78, "100:101:1");  // cut to the field
  for (const TallyRow& row : kTallyBytes) {
    if (firmware.Above201 || !row.Above201) {
      image.U16(static_cast<std::size_t>(row.Offset), row.Position);
    }
  }
  if (firmware.Above201) {
    image.Floats(112, {110.43359375F, 112.44140625F, 114.44921875F, 116.45703125F, 118.46484375F,
                       120.47265625F});
    image.U8(136, 188).U8(137, 189);
  }
  return image;
}

TEST(SetupTally, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  for (const TallyFirmware& firmware : kTallyFirmware) {
    SCOPED_TRACE(firmware.Version);
    ExpectSetup(Model442("TAL", firmware.Version), NumberedSetup(7), 60, TallyImage(firmware, 442));
  }
}

TEST(SetupTally, FormIsTheSameOnGeneralModels) {
  ExpectSetup(General("3.6"), NumberedSetup(7), 60, TallyImage({"3.6", true}, 486));
}

TEST(SetupTally, ClocksArePlainNumbers) {
  auto const record = OneSetup<QvSetupTally>(
      "3.6", 60, EmptySetup(7).Set(71, {23, 5, 58}).Set(100, {255, 255, 255}));
  EXPECT_STREQ(record.ClockA, "23:05:58");
  EXPECT_STREQ(record.ClockB, "255:255:2");
}

TEST(SetupTally, SixValuesMayBeNegative) {
  auto const record =
      OneSetup<QvSetupTally>("3.6", 60, EmptySetup(7).Set(110, {0xFF, 0x80}).Set(120, {0xC0, 0}));
  EXPECT_EQ(record.KeptSixValues[0], -0.5F);
  EXPECT_EQ(record.KeptSixValues[5], -64.0F);
}

}  // namespace
