// The forms of single lines, and where a line of a results block of model 431 begins and ends.
#include <gtest/gtest.h>

#include "support/record_image.h"
#include "support/temp_file.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::Model431;
using test::RecordImage;
using test::Translation;

DataFile Start() {
  return Model431("iSLM");
}

RecordImage Results() {
  RecordImage image(1088);
  return image.U16(0, 37).U16(392, 431);
}

QvResults431 OneBlock(const DataFile& file) {
  Translation const run(DataFile(file).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  return run.As<QvResults431>(0);
}

TEST(RBlock431Forms, RepeatingRegistersTakeTheNumberBefore) {
  auto const first = OneBlock(Start().R(48, "4").R(50, "5").R(51, "6"));
  EXPECT_EQ(first.SettingR48, 0.0F);
  EXPECT_EQ(first.SettingR50, 0.0F);
  EXPECT_EQ(first.SettingR51, 0.0F);

  auto const record = OneBlock(
      Start().R(47, "47.25").R(48, "1").R(49, "49.25").R(50, "2").R(51, "3").R(57, "57.25"));
  EXPECT_EQ(record.SettingR48, 47.25F);
  EXPECT_EQ(record.SettingR50, 49.25F);
  EXPECT_EQ(record.SettingR51, 49.25F);

  // Lengths of time and whole numbers do not count; signs and wraps come after the number.
  auto const others = OneBlock(Start()
                                   .R(47, "47.25")
                                   .R(5, "01:00:00")
                                   .R(31, "31")
                                   .R(48, "")
                                   .R(60, "1,60.5 p")
                                   .R(50, "")
                                   .R(106, "200")
                                   .R(51, ""));
  EXPECT_EQ(others.SettingR48, 47.25F);
  EXPECT_EQ(others.SettingR50, 60.5F);
  EXPECT_EQ(others.SettingR51, 200.0F);
}

TEST(RBlock431Forms, LastNumberIsForgottenBetweenBlocks) {
  Translation const run(Start().R(47, "47.25").Q(1, "").R(48, "").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 7, 37, 15}));
  EXPECT_EQ(run.As<QvResults431>(2).SettingR48, 0.0F);
}

TEST(RBlock431Forms, Register53LooksForTheLetterN) {
  struct Row {
    const char* Value;
    int Stored;
  };
  constexpr Row kRows[] = {{"no", 1}, {"   on", 1}, {"No", 0}, {"yes", 0}, {"", 0}};
  for (const Row& row : kRows) {
    RecordImage image = Results();
    image.I32(300, row.Stored);
    Translation const run(Start().R(53, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
  EXPECT_EQ(OneBlock(Start().R(53, "no").R(53, "yes")).SettingR53, 1);
}

TEST(RBlock431Forms, Register60FillsThePlaceThatItNames) {
  struct Row {
    const char* Value;
    int Index;  // -1: none
    float Stored;
  };
  constexpr Row kRows[] = {{"0,1.5", 0, 1.5F},     {"5,2.5", 5, 2.5F},   {"23,3.5", 23, 3.5F},
                           {" 7 , 4.5", 7, 4.5F},  {"3,5.5p", 3, -5.5F}, {"p3,6.5", 0, -6.5F},
                           {"3,-7.5 dp", 3, 7.5F}, {"3,8.5P", 3, 8.5F},  {"4", -1, 0.0F},
                           {"24,9.5", -1, 0.0F},   {"-1,9.5", -1, 0.0F}, {"9,x", 9, 0.0F}};
  for (const Row& row : kRows) {
    RecordImage image = Results();
    if (row.Index >= 0) image.F32(188 + 4 * static_cast<std::size_t>(row.Index), row.Stored);
    Translation const run(Start().R(60, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
}

TEST(RBlock431Forms, Register98ReadsEightCells) {
  RecordImage image = Results();
  int const cells[] = {12, 7, 1, 200, 1, 255, 3, 4};
  for (std::size_t i = 0; i < 8; ++i) image.U8(160 + i, cells[i]);
  Translation const run(Start()
                            .R(98, "A 12B  7C  0D200E256F255G 03H  4")
                            .R(98, "A 99B 99C 99D 99E 99F 99G 99H 99")
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "only the first line counts";
}

TEST(RBlock431Forms, Register98CountsAnewInTheNextBlock) {
  Translation const run(Start()
                            .R(98, "A 12B  7C  0D200E256F255G 03H  4")
                            .Q(1, "")
                            .R(98, "A 99B 99C 99D 99E 99F 99G 99H 99")
                            .EndOfData());
  EXPECT_EQ(run.As<QvResults431>(2).SettingR98[0], 99);
}

TEST(RBlock431Forms, MissingCellsOfRegister98AreOne) {
  auto const record = OneBlock(Start().R(98, "A 12B  7"));
  int const expected[] = {12, 7, 1, 1, 1, 1, 1, 1};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(record.SettingR98[i], expected[i]) << i;
}

constexpr const char* kCompass[] = {"  N", "NNE", " NE", "ENE", "  E", "ESE", " SE", "SSE",
                                    "  S", "SSW", " SW", "WSW", "  W", "WNW", " NW", "NNW"};

TEST(RBlock431Forms, Register120IsAPointOfTheCompass) {
  for (int i = 0; i < 16; ++i) {
    RecordImage image = Results();
    image.U16(1068, i);
    Translation const run(Start().R(120, kCompass[i]).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << kCompass[i];
  }
  for (const char* const none : {"N", "E  ", "nne", "XYZ", ""}) {
    EXPECT_EQ(OneBlock(Start().R(120, none)).SettingR120, 0) << none;
  }
  EXPECT_EQ(OneBlock(Start().R(120, "ESE, strong")).SettingR120, 5);
}

// The search of a later line goes on behind the point that was found.
TEST(RBlock431Forms, Register120SearchesOnwardsWithinABlock) {
  EXPECT_EQ(OneBlock(Start().R(120, "NNE").R(120, " SW")).SettingR120, 10);
  EXPECT_EQ(OneBlock(Start().R(120, " SW").R(120, "NNE")).SettingR120, 0);
  EXPECT_EQ(OneBlock(Start().R(120, " SW").R(120, " SW")).SettingR120, 0);
  EXPECT_EQ(OneBlock(Start().R(120, "XYZ").R(120, "NNW")).SettingR120, 0);
  Translation const run(Start().R(120, " SW").Q(1, "").R(120, "NNE").EndOfData());
  EXPECT_EQ(run.As<QvResults431>(2).SettingR120, 1);
}

TEST(RBlock431Forms, Register124FillsThePlaceThatItNames) {
  struct Row {
    const char* Value;
    int Index;  // -1: none
    int Stored;
  };
  constexpr Row kRows[] = {{"1,abc42", 0, 42},   {"8,  N1234", 7, 1234}, {"3,123456", 2, 456},
                           {"5,abc-7 x", 4, -7}, {"2", -1, 0},           {"0,abc9", -1, 0},
                           {"9,abc9", -1, 0},    {"-1,abc9", -1, 0}};
  for (const Row& row : kRows) {
    RecordImage image = Results();
    if (row.Index >= 0) image.I32(1032 + 4 * static_cast<std::size_t>(row.Index), row.Stored);
    Translation const run(Start().R(124, row.Value).EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << row.Value;
  }
}

TEST(RBlock431Forms, Register170IsAVoltageOfAnExternalSupply) {
  struct Row {
    const char* Source;  // register 87
    const char* Value;
    const char* Stored;  // register 86 behind it
  };
  constexpr Row kRows[] = {{"E", "12.36", "12.4V"}, {"xE", "9", "9.0V"},  {"E", "-1.25x", "-1.2V"},
                           {"E", "none", "0.0V"},   {"e", "9", "before"}, {"I", "9", "before"},
                           {"", "9", "before"}};
  for (const Row& row : kRows) {
    auto const record = OneBlock(Start().R(86, "before").R(87, row.Source).R(170, row.Value));
    EXPECT_STREQ(record.SettingR86, row.Stored) << row.Source << " " << row.Value;
    EXPECT_STREQ(record.SettingR87, row.Source);
  }
  EXPECT_STREQ(OneBlock(Start().R(86, "before").R(170, "9").R(87, "E")).SettingR86, "before");
}

TEST(RBlock431Forms, LongVoltageStaysWithinItsField) {
  auto const record = OneBlock(Start().R(87, "E").R(170, "123456789"));
  EXPECT_EQ(std::string(record.SettingR86, 7), "1234567");
  EXPECT_EQ(record.SettingR86[7], '\0');
  EXPECT_STREQ(record.SettingR87, "E");
}

TEST(RBlock431Forms, StampWithoutATimeIsMidnight) {
  auto const record = OneBlock(Start().R(8, "15Mar2024").R(16, "15Mar2024 ").R(18, "x"));
  EXPECT_EQ(record.SettingR8, 1710460800);
  EXPECT_EQ(record.SettingR16, 1710460800);
}

TEST(RBlock431Forms, LengthsOfTimeHaveTwoForms) {
  auto const record = OneBlock(Start().R(5, "1:30.5").R(7, "01:00:10").R(37, "90").R(69, "x"));
  EXPECT_EQ(record.SettingR5, 90.5F);
  EXPECT_EQ(record.SettingR7, 3610.0F);
  EXPECT_EQ(record.SettingR37, 0.0F);
  EXPECT_EQ(record.SettingR69, 0.0F);
}

TEST(RBlock431Forms, BadRealStoresZero) {
  auto const record = OneBlock(Start().R(72, "5.5").R(72, "abc").R(77, "7.5x").R(82, "- 8.5"));
  EXPECT_EQ(record.SettingR72, 0.0F);
  EXPECT_EQ(record.SettingR77, 7.5F);
  EXPECT_EQ(record.SettingR82, -8.5F);
}

TEST(RBlock431Forms, WholeNumbersKeepTheirLow32Bits) {
  auto const record =
      OneBlock(Start().R(31, "4294967297").R(32, "-5").R(33, "12abc").R(34, "x").R(35, " +7"));
  EXPECT_EQ(record.SettingR31, 1);
  EXPECT_EQ(record.SettingR32, -5);
  EXPECT_EQ(record.SettingR33, 12);
  EXPECT_EQ(record.SettingR34, 0);
  EXPECT_EQ(record.SettingR35, 7);
}

TEST(RBlock431Forms, LongTextsAreCutToTheirFields) {
  std::string const sixty = "123456789-123456789-123456789-123456789-123456789-123456789-";
  RecordImage image = Results();
  image.Chars(912, sixty.substr(0, 50)).Chars(116, "abcdefg").Chars(124, "ABC");
  image.Chars(288, "54321").Chars(632 + 360, "1234567");
  Translation const run(Start()
                            .R(3, sixty)
                            .R(86, "abcdefghij")
                            .R(87, "ABCDEF")
                            .R(180, "5432167")
                            .R(10, "   1234567890")
                            .EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

// A line of 319 characters is read whole; the next character opens a line of its own.
TEST(RBlock431Forms, LongLineGoesOnInALineOfItsOwn) {
  Translation const run(
      Start().Line("R  2," + std::string(314, 'x') + "R 72,7.5").R(77, "1").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  EXPECT_EQ(run.As<QvResults431>(0).SettingR72, 7.5F);
  EXPECT_EQ(run.As<QvResults431>(0).SettingR77, 1.0F);
}

TEST(RBlock431Forms, RestOfALongLineEndsTheBlock) {
  Translation const run(
      Start().Line("R  2," + std::string(313, 'x') + "R 72,7.5").R(77, "1").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37}));
  EXPECT_EQ(run.As<QvResults431>(0).SettingR72, 0.0F);
  EXPECT_EQ(run.As<QvResults431>(0).SettingR77, 0.0F);
  EXPECT_EQ(run.end, QV_BAD_LENGTH) << "the rest opens with a blank, which is no item of this size";
}

// What stands behind the end of a short line is the tail of the line before.
TEST(RBlock431Forms, LineWithoutAValueSeesTheLineBefore) {
  Translation const run(Start().Raw("R 72,1.5\nR65\n").Q(1, "").Raw("R77\nR 65,2\n").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 7, 37, 15}));
  EXPECT_EQ(run.As<QvResults431>(0).SettingR65, 1.5F);
  EXPECT_EQ(run.As<QvResults431>(2).SettingR77, 0.0F) << "each block starts afresh";
  EXPECT_EQ(run.As<QvResults431>(2).SettingR65, 2.0F);
}

TEST(RBlock431Forms, ValueBeginsBehindTheFifthCharacterWhateverTheNumber) {
  auto const record = OneBlock(Start().Line("R72,11.5").Line("R 77;12.5").Line("R082,13.5"));
  EXPECT_EQ(record.SettingR72, 1.5F);
  EXPECT_EQ(record.SettingR77, 12.5F);
  EXPECT_EQ(record.SettingR82, 13.5F);
}

TEST(RBlock431Forms, SettingsLineEndsTheBlock) {
  Translation const run(Start().R(72, "1").Q(157, "9").R(72, "2").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 7, 37, 15}));
  EXPECT_EQ(run.As<QvResults431>(0).SiteNumber, 0);
  EXPECT_EQ(run.As<QvResults431>(2).SiteNumber, 9);
  EXPECT_EQ(run.As<QvResults431>(2).SettingR72, 2.0F);
}

TEST(RBlock431Forms, ValueEndsAtACarriageReturnAndKeepsItsBlanks) {
  auto const record = OneBlock(Start().Line("R 86,ab\rcd").Line("R 89,xy  ").Line("R180, z"));
  EXPECT_STREQ(record.SettingR86, "ab");
  EXPECT_STREQ(record.SettingR89, "xy  ");
  EXPECT_STREQ(record.SettingR180, " z");
}

TEST(RBlock431Forms, BlockMayEndWithTheFile) {
  test::TempFile const file(
      Start().Item(9, samples::Body().Fill(2000)).R(72, "1").Raw("R 77,2").Bytes());
  Translation const run(file.Path());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37}));
  EXPECT_EQ(run.As<QvResults431>(0).SettingR72, 1.0F);
  EXPECT_EQ(run.As<QvResults431>(0).SettingR77, 2.0F);
  EXPECT_EQ(run.end, QV_BAD_LENGTH);
}

}  // namespace
