// The forms of single lines of model 442's results block, and where its lines begin and end.
#include <gtest/gtest.h>

#include "support/record_image.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::Model442;
using test::RecordImage;
using test::Translation;

DataFile Start() {
  return Model442("LOG");
}

RecordImage Results() {
  RecordImage image(5316);
  return image.U16(0, 55).U16(620, 442);
}

QvResults442 OneBlock(const DataFile& file) {
  Translation const run(DataFile(file).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{55, 15}));
  return run.As<QvResults442>(0);
}

TEST(RBlock442Forms, RepeatingRegistersTakeTheNumberBefore) {
  auto const first = OneBlock(Start().R(48, "4").R(50, "5").R(51, "6"));
  EXPECT_EQ(first.SettingR48, 0.0F);
  EXPECT_EQ(first.SettingR50, 0.0F);
  EXPECT_EQ(first.SettingR51, 0.0F);

  RecordImage image = Results();
  image.F32(320, 47.25F).F32(564, 47.25F).F32(572, 49.25F).F32(584, 49.25F).F32(576, 49.25F);
  Translation const run(
      Start().R(47, "47.25").R(48, "1").R(49, "49.25").R(50, "2").R(51, "3").EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock442Forms, LastNumberMayComeFromAList) {
  auto const record = OneBlock(
      Start().R(9, "1.5,2.5,3.5").R(48, "").R(60, "1,60.5p").R(50, "").R(5, "01:00:00").R(51, ""));
  EXPECT_EQ(record.SettingR48, 3.5F);
  EXPECT_EQ(record.SettingR50, 60.5F) << "before its sign";
  EXPECT_EQ(record.SettingR51, 60.5F) << "lengths of time do not count";
}

TEST(RBlock442Forms, LastNumberIsForgottenBetweenBlocks) {
  Translation const run(Start().R(47, "47.25").Q(1, "").R(48, "").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 7, 55, 15}));
  EXPECT_EQ(run.As<QvResults442>(2).SettingR48, 0.0F);
}

TEST(RBlock442Forms, Register53LooksForTheLetterN) {
  RecordImage image = Results();
  Translation const without(Start().R(53, "Yes").EndOfData());
  EXPECT_EQ(Difference(image, without.steps.at(0)), "");
  image.I32(568, 1);
  Translation const with(Start().R(53, "on").EndOfData());
  EXPECT_EQ(Difference(image, with.steps.at(0)), "");
}

TEST(RBlock442Forms, Register60FillsThePlaceThatItNames) {
  struct Row {
    const char* Value;
    int Index;  // -1: none
    float Stored;
  };
  constexpr Row kRows[] = {{"0,1.5", 0, 1.5F}, {"23,3.5", 23, 3.5F}, {"3,5.5p", 3, -5.5F},
                           {"4", -1, 0.0F},    {"24,9.5", -1, 0.0F}, {"-1,9.5", -1, 0.0F}};
  for (const Row& row : kRows) {
    RecordImage image = Results();
    if (row.Index >= 0) image.F32(456 + 4 * static_cast<std::size_t>(row.Index), row.Stored);
    Translation const run(Start().R(60, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
}

TEST(RBlock442Forms, Register98ReadsEightCellsOnce) {
  RecordImage image = Results();
  int const cells[] = {12, 7, 1, 200, 1, 255, 3, 4};
  for (std::size_t i = 0; i < 8; ++i) image.U8(428 + i, cells[i]);
  Translation const run(Start()
                            .R(98, "A 12B  7C  0D200E256F255G 03H  4")
                            .R(98, "A 99B 99C 99D 99E 99F 99G 99H 99")
                            .EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

constexpr const char* kCompass[] = {"  N", "NNE", " NE", "ENE", "  E", "ESE", " SE", "SSE",
                                    "  S", "SSW", " SW", "WSW", "  W", "WNW", " NW", "NNW"};

TEST(RBlock442Forms, Register120IsAPointOfTheCompass) {
  for (int i = 0; i < 16; ++i) {
    RecordImage image = Results();
    image.U16(3664, i);
    Translation const run(Start().R(120, kCompass[i]).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << kCompass[i];
  }
}

TEST(RBlock442Forms, UnknownPointOfTheCompassIs15) {
  for (const char* const none : {"N", "E  ", "nne", "XYZ", ""}) {
    EXPECT_EQ(OneBlock(Start().R(120, none)).SettingR120, 15) << none;
  }
  EXPECT_EQ(OneBlock(Start().R(119, "1")).SettingR120, 0) << "without a line";
}

TEST(RBlock442Forms, Register120SearchesAfreshForEachLine) {
  EXPECT_EQ(OneBlock(Start().R(120, " SW").R(120, "NNE")).SettingR120, 1);
  EXPECT_EQ(OneBlock(Start().R(120, " SW").R(120, " SW")).SettingR120, 10);
  EXPECT_EQ(OneBlock(Start().R(120, "XYZ").R(120, "  N")).SettingR120, 0);
}

TEST(RBlock442Forms, Register124HoldsEightIntegers) {
  struct Row {
    const char* Value;
    std::int32_t Stored[8];
  };
  constexpr Row kRows[] = {
      {"abc1,abc-2,abc3,abc44,abc5,abc6,abc7,abc8", {1, -2, 3, 44, 5, 6, 7, 8}},
      {"  1 11,  2 12,  3 13,  4 14,  5 15,  6 16,  7 17,  8 18,  9 19",
       {11, 12, 13, 14, 15, 16, 17, 18}},
      {"abc1,abc2", {1, 2, 0, 0, 0, 0, 0, 0}},
      {"abc9", {9, 0, 0, 0, 0, 0, 0, 0}},
      {"", {0, 0, 0, 0, 0, 0, 0, 0}},
  };
  for (const Row& row : kRows) {
    RecordImage image = Results();
    image.Words(3628, {std::begin(row.Stored), std::end(row.Stored)});
    Translation const run(Start().R(124, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
}

TEST(RBlock442Forms, EmptyRegister124ChangesNothing) {
  auto const record = OneBlock(Start().R(124, "abc1,abc2").R(124, ""));
  EXPECT_EQ(record.SettingR124[0], 1);
  EXPECT_EQ(record.SettingR124[1], 2);
}

TEST(RBlock442Forms, Register170IsAVoltageOfAnExternalSupply) {
  auto const record = OneBlock(Start().R(86, "before").R(87, "E").R(170, "12.36"));
  EXPECT_STREQ(record.SettingR86, "12.4V");
  EXPECT_STREQ(record.SettingR87, "E");
  EXPECT_STREQ(OneBlock(Start().R(86, "before").R(87, "I").R(170, "9")).SettingR86, "before");
  EXPECT_STREQ(OneBlock(Start().R(86, "before").R(170, "9").R(87, "E")).SettingR86, "before");
}

TEST(RBlock442Forms, Register203HoldsAWholeSpectrum) {
  std::string value = "1";
  std::vector<float> bands = {1.0F};
  for (int i = 1; i < 401; ++i) {
    value.append(",").append(std::to_string(i % 90)).append(".5");
    bands.push_back(static_cast<float>(i % 90) + 0.5F);
  }
  RecordImage image = Results();
  image.Floats(3708, bands);
  Translation const whole(Start().R(203, value).EndOfData());
  EXPECT_EQ(Difference(image, whole.steps.at(0)), "");
  Translation const longer(Start().R(203, value + ",1,2,3").EndOfData());
  EXPECT_EQ(Difference(image, longer.steps.at(0)), "");
}

TEST(RBlock442Forms, Register203IsReadAsTheCLibraryDoes) {
  auto const record = OneBlock(Start().R(203, "-1.5, 2.25,,1e1,x,   -"));
  float const expected[] = {-1.5F, 2.25F, 0.0F, 10.0F, 0.0F, 0.0F, 0.0F};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(record.SettingR203[i], expected[i]) << i;
}

constexpr const char* kNames[] = {"name one, 21 letters.", "name two, 21 letters.",
                                  "the third of 21 chars", "the fourth, 21 chars.",
                                  "the fifth of 21 chars", "the sixth of 21 chars",
                                  "the seventh, 21 chars"};

std::string SevenNames() {
  std::string value = " N  ";
  for (int i = 0; i < 7; ++i) value.append(i == 6 ? "," : "").append(kNames[i]);
  return value;
}

TEST(RBlock442Forms, Register218HoldsSevenNames) {
  RecordImage image = Results();
  for (std::size_t i = 0; i < 7; ++i) image.Chars(2496 + 22 * i, kNames[i]);
  Translation const run(Start().R(218, SevenNames() + "and more").EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock442Forms, Register218WithoutAnNHasNoNames) {
  for (const char* const value : {"", "N", "xn  abcdef", "N   abcdef", " Yes"}) {
    Translation const run(Start().R(218, value).EndOfData());
    EXPECT_EQ(Difference(Results(), run.steps.at(0)), "") << value;
  }
  auto const record = OneBlock(Start().R(218, SevenNames()).R(218, " Y"));
  EXPECT_EQ(record.SettingR218[0][0], '\0');
  EXPECT_EQ(record.SettingR218[0][1], 'a') << "only the first letter is taken away";
  EXPECT_STREQ(record.SettingR218[1], kNames[1]);
}

TEST(RBlock442Forms, MissingNamesAreEmpty) {
  RecordImage image = Results();
  image.Chars(2496, kNames[0]).Chars(2518, "two");
  Translation const run(
      Start().R(218, SevenNames()).R(218, " N  " + std::string(kNames[0]) + "two").EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock442Forms, Register220IsScaledByItsLastLetter) {
  struct Row {
    const char* Value;
    float Stored;
  };
  constexpr Row kRows[] = {
      {"8K", 8192.0F},     {"1.5M", 1572864.0F}, {"7", 7.0F},      {"8k", 8.0F}, {"8K ", 8.0F},
      {"2 M", 2097152.0F}, {"K", 0.0F},          {"1e3", 1000.0F}, {"8G", 8.0F}, {"", 0.0F}};
  for (const Row& row : kRows) {
    RecordImage image = Results();
    image.F32(2488, row.Stored);
    Translation const run(Start().R(220, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
}

TEST(RBlock442Forms, LongTextsAreCutToTheirFields) {
  std::string const sixty = "123456789-123456789-123456789-123456789-123456789-123456789-";
  RecordImage image = Results();
  image.Chars(3488, sixty.substr(0, 50)).Chars(1360, "abcd").Chars(1164, "ABCD");
  image.Chars(2650, "vwxyz").Chars(2294, "54321").Chars(116, "abcdefg").Chars(880, "1234567");
  Translation const run(Start()
                            .R(3, sixty)
                            .R(209, "abcdef")
                            .R(212, "ABCDE")
                            .R(215, "vwxyz1")
                            .R(225, "543210")
                            .R(86, "abcdefgh")
                            .R(10, " 12345678")
                            .EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

// A line of 2998 characters is read whole; the next character opens a line of its own.
TEST(RBlock442Forms, LongLineGoesOnInALineOfItsOwn) {
  Translation const run(
      Start().Line("R  2," + std::string(2993, 'x') + "R 72,7.5").R(77, "1").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 15}));
  EXPECT_EQ(run.As<QvResults442>(0).SettingR72, 7.5F);
  EXPECT_EQ(run.As<QvResults442>(0).SettingR77, 1.0F);
}

TEST(RBlock442Forms, RestOfALongLineEndsTheBlock) {
  Translation const run(
      Start().Line("R  2," + std::string(2992, 'x') + "R 72,7.5").R(77, "1").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55}));
  EXPECT_EQ(run.As<QvResults442>(0).SettingR72, 0.0F);
  EXPECT_EQ(run.end, QV_BAD_LENGTH) << "the rest opens with a blank, which is no item of this size";
}

TEST(RBlock442Forms, LineWithoutAValueSeesTheLineBefore) {
  Translation const run(Start().Raw("R 72,1.5\nR65\n").Q(1, "").Raw("R77\nR 65,2\n").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 7, 55, 15}));
  EXPECT_EQ(run.As<QvResults442>(0).SettingR65, 1.5F);
  EXPECT_EQ(run.As<QvResults442>(2).SettingR77, 0.0F) << "each block starts afresh";
}

TEST(RBlock442Forms, SettingsLineEndsTheBlock) {
  Translation const run(Start().R(72, "1").Q(157, "9").R(72, "2").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 7, 55, 15}));
  EXPECT_EQ(run.As<QvResults442>(2).SiteNumber, 9);
  EXPECT_EQ(run.As<QvResults442>(2).SettingR72, 2.0F);
}

}  // namespace
