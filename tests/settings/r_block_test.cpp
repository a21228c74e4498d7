// 'R' blocks of general models: the record of the stored results, register by register.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/register_rows.h"
#include "support/results_block.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::EmptyResults;
using test::RecordImage;
using test::RegisterRow;
using test::Results;
using test::ResultsStep;
using test::Setting;
using test::Step;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC, as in the header

// Every register that fills one field by its own line; the numbers without a field of their own,
// R6, the indexed ones and those of model 431 have tests of their own. R38 to R43 also set a flag.
const std::vector<RegisterRow> kRows = {
    {3, "text 3", 552, 51, "text 3"},
    {5, "01:00:05", 516, 4, 3605.0F},
    {7, "01:00:07", 520, 4, 3607.0F},
    {8, "21Jun2024 12:00:08", 548, 4, kNoon + 8},
    {9, "9.5", 624, 4, 9.5F},
    {10, "  text 10", 632, 8, "text 10"},
    {11, "11.5", 628, 4, 11.5F},
    {12, "text 12", 640, 8, "text 12"},
    {13, "13.5", 524, 4, 13.5F},
    {14, "14.5", 528, 4, 14.5F},
    {15, "15.5", 376, 4, 15.5F},
    {16, "21Jun2024 12:00:16", 384, 4, kNoon + 16},
    {17, "17.5", 380, 4, 17.5F},
    {18, "21Jun2024 12:00:18", 388, 4, kNoon + 18},
    {19, "19.5", 360, 4, 19.5F},
    {20, "21Jun2024 12:00:20", 368, 4, kNoon + 20},
    {21, "21.5", 364, 4, 21.5F},
    {22, "21Jun2024 12:00:22", 372, 4, kNoon + 22},
    {23, "23.5", 432, 4, 23.5F},
    {24, "21Jun2024 12:00:24", 444, 4, kNoon + 24},
    {25, "25.5", 436, 4, 25.5F},
    {26, "21Jun2024 12:00:26", 448, 4, kNoon + 26},
    {27, "27.5", 648, 4, 27.5F},
    {28, "21Jun2024 12:00:28", 660, 4, kNoon + 28},
    {29, "29.5", 652, 4, 29.5F},
    {30, "21Jun2024 12:00:30", 664, 4, kNoon + 30},
    {31, "100031", 504, 4, 100031},
    {32, "100032", 508, 4, 100032},
    {33, "100033", 440, 4, 100033},
    {34, "100034", 656, 4, 100034},
    {35, "100035", 420, 4, 100035},
    {36, "100036", 424, 4, 100036},
    {37, "01:00:37", 428, 4, 3637.0F},
    {38, "38.5", 336, 4, 38.5F},
    {39, "39.5", 340, 4, 39.5F},
    {40, "40.5", 344, 4, 40.5F},
    {41, "41.5", 348, 4, 41.5F},
    {42, "42.5", 352, 4, 42.5F},
    {43, "43.5", 356, 4, 43.5F},
    {44, "44.5", 152, 4, 44.5F},
    {45, "45.5", 156, 4, 45.5F},
    {46, "46.5", 456, 4, 46.5F},
    {47, "47.5", 460, 4, 47.5F},
    {49, "49.5", 304, 4, 49.5F},
    {52, " text 52", 320, 8, "text 52"},
    {53, "on", 300, 4, 1},
    {57, "57.5", 332, 4, 57.5F},
    {62, "62.5", 328, 4, 62.5F},
    {65, "65.5", 144, 4, 65.5F},
    {68, "68.5", 172, 4, 68.5F},
    {69, "01:01:09", 176, 4, 3669.0F},
    {70, "70.5", 108, 4, 70.5F},
    {72, "72.5", 12, 4, 72.5F},
    {73, "73.5", 36, 4, 73.5F},
    {74, "74.5", 48, 4, 74.5F},
    {75, "100075", 24, 4, 100075},
    {77, "77.5", 16, 4, 77.5F},
    {78, "78.5", 40, 4, 78.5F},
    {79, "79.5", 52, 4, 79.5F},
    {80, "100080", 28, 4, 100080},
    {82, "82.5", 20, 4, 82.5F},
    {83, "83.5", 44, 4, 83.5F},
    {84, "84.5", 56, 4, 84.5F},
    {85, "100085", 32, 4, 100085},
    {86, "text 86", 116, 8, "text 86"},
    {87, "t87", 124, 4, "t87"},
    {88, "88.5", 612, 4, 88.5F},
    {89, "text 89", 532, 8, "text 89"},
    {90, "90.5", 180, 4, 90.5F},
    {91, "100091", 184, 4, 100091},
    {92, "100092", 500, 4, 100092},
    {93, "100093", 484, 4, 100093},
    {94, "100094", 492, 4, 100094},
    {95, "100095", 488, 4, 100095},
    {96, "100096", 476, 4, 100096},
    {97, "100097", 472, 4, 100097},
    {104, "21Jun2024 12:01:44", 128, 4, kNoon + 104},
    {105, "21Jun2024 12:01:45", 132, 4, kNoon + 105},
    {106, "106.5", 140, 4, 106.5F},
    {107, "107.5", 136, 4, 107.5F},
    {118, "118.5", 668, 4, 118.5F},
    {119, "119.5", 704, 4, 119.5F},
    {120, " SW", 708, 2, 10},
    {121, "21Jun2024 12:02:01", 712, 4, kNoon + 121},
    {123, "123.5", 720, 4, 123.5F},
    {150, "100150", 512, 4, 100150},
    {151, "151", 452, 4, "151"},
    {156, "01:02:36", 112, 4, 3756.0F},
    {158, "100158", 620, 4, 100158},
    {161, "100161", 496, 4, 100161},
    {162, "162.5", 540, 4, 162.5F},
    {163, "163.5", 604, 4, 163.5F},
    {164, "164.5", 608, 4, 164.5F},
    {170, "100170", 464, 4, 100170},
    {171, "100171", 468, 4, 100171},
};

// Numbers that the tests of their own are about.
const std::vector<int> kOtherNumbers = {1, 6, 48, 50, 51, 60, 98, 124};

void ExpectRow(RecordImage& image, const RegisterRow& row) {
  Expect(image, row);
  if (row.number >= 38 && row.number <= 43) image.U16(10, 0x0200);
}

TEST(RBlock, EachRegisterFillsItsField) {
  for (const RegisterRow& row : kRows) {
    RecordImage image = EmptyResults();
    ExpectRow(image, row);
    EXPECT_EQ(Difference(image, ResultsStep({{row.number, row.value}})), "")
        << "register " << row.number;
  }
}

TEST(RBlock, AllRegistersStandSideBySide) {
  DataFile file = test::General();
  RecordImage image = EmptyResults();
  for (const RegisterRow& row : kRows) {
    file.R(row.number, row.value);
    ExpectRow(image, row);
    // Registers that repeat the number before them.
    if (row.number == 47) file.R(48, "1");
    if (row.number == 49) file.R(50, "1").R(51, "1");
  }
  image.F32(296, 47.5).F32(316, 49.5).F32(308, 49.5);
  file.R(6, "21Jun2024 12:00:06");
  image.I32(4, kNoon + 6).I32(544, kNoon + 6);
  for (int i = 0; i < 24; ++i) {
    file.R(60, std::to_string(i) + "," + std::to_string(i + 60) + ".5");
    image.F32(188 + 4 * static_cast<std::size_t>(i), static_cast<float>(i) + 60.5F);
  }
  file.R(98, "A11 B12 C13 D14 E15 F16 G17 H18");
  for (int i = 0; i < 8; ++i) {
    file.R(124, std::to_string(i + 1) + ",abc" + std::to_string(i + 124));
    image.U8(160 + static_cast<std::size_t>(i), i + 11);
    image.I32(672 + 4 * static_cast<std::size_t>(i), i + 124);
  }
  EXPECT_EQ(Difference(image, ResultsStep(file)), "");
}

TEST(RBlock, OtherNumbersFillNothing) {
  DataFile file = test::General();
  for (int number = 0; number < 1000; ++number) {
    bool handled = false;
    for (const RegisterRow& row : kRows) handled = handled || row.number == number;
    for (int const other : kOtherNumbers) handled = handled || other == number;
    if (!handled) file.R(number, "77");
  }
  EXPECT_EQ(Difference(EmptyResults(), ResultsStep(file)), "");
}

TEST(RBlock, WholeNumbersTakeTheirLow32Bits) {
  struct Row {
    const char* value;
    std::int32_t expected;
  };
  const std::vector<Row> rows = {
      {"-5", -5},
      {"2147483647", 2147483647},
      {"2147483648", -2147483647 - 1},
      {"4294967301", 5},
      {"99999999999999999999", -1},
      {"-99999999999999999999", 0},
      {"12.9", 12},
      {" 7x", 7},
      {"abc", 0},
      {"", 0},
  };
  for (const Row& row : rows) EXPECT_EQ(Results({{31, row.value}}).SettingR31, row.expected);
}

TEST(RBlock, RealNumbersAreZeroWhenALineHasNone) {
  for (const RegisterRow& row : kRows) {
    if (!std::holds_alternative<float>(row.expected)) continue;
    RecordImage image = EmptyResults();
    if (row.number >= 38 && row.number <= 43) image.U16(10, 0x0200);
    EXPECT_EQ(Difference(image, ResultsStep({{row.number, row.value}, {row.number, "abc"}})), "")
        << row.number;
  }
}

TEST(RBlock, LengthsAreHoursOrMinutes) {
  struct Row {
    const char* value;
    float seconds;
  };
  const std::vector<Row> rows = {
      {"01:00:10", 3610.0F},
      {"1:30.5", 90.5F},
      {"100:00:00", 360000.0F},
      {"90", 0.0F},
      {"90.5", 0.0F},
      {"1:30", 0.0F},
      {"x:30.5", 0.0F},
      {"01:00:10.25", 3610.25F},
      {"", 0.0F},
  };
  for (const Row& row : rows) EXPECT_EQ(Results({{5, row.value}}).SettingR5, row.seconds);
}

TEST(RBlock, StampsHoldADateAndATime) {
  struct Row {
    const char* value;
    std::int32_t seconds;
  };
  const std::vector<Row> rows = {
      {"21Jun2024 12:30:45", 1718973045}, {"21Jun2024,12:30:45", 1718973045},
      {"21jun2024x12:30:45", 1718973045}, {"21Jun2024 12:30:45.99", 1718973045},
      {"21Jun2024", 1718928000},          {"21Jun2024 ", 1718928000},
      {"21Xyz2024 00:00:00", 1705795200}, {"21Jun 24  12:30:45", 1718973045},
  };
  for (const Row& row : rows)
    EXPECT_EQ(Results({{8, row.value}}).SettingR8, row.seconds) << row.value;
}

TEST(RBlock, TextsAreCutToTheirFields) {
  const std::string longText = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  for (const RegisterRow& row : kRows) {
    if (!IsText(row)) continue;
    RecordImage image = EmptyResults().Chars(row.offset, longText.substr(0, row.width - 1));
    EXPECT_EQ(Difference(image, ResultsStep({{row.number, longText}})), "") << row.number;
  }
}

TEST(RBlock, ThreeTextsLoseTheirLeadingBlanks) {
  for (int const number : {10, 12, 52}) {
    std::size_t const offset = number == 10 ? 632 : number == 12 ? 640 : 320;
    EXPECT_EQ(Difference(EmptyResults().Chars(offset, "a b "), ResultsStep({{number, "    a b "}})),
              "");
    EXPECT_EQ(Difference(EmptyResults(), ResultsStep({{number, "    "}})), "");
    EXPECT_EQ(Difference(EmptyResults().Chars(offset, "\ta"), ResultsStep({{number, " \ta"}})), "");
    // Blanks do not count for the width.
    EXPECT_EQ(
        Difference(EmptyResults().Chars(offset, "1234567"), ResultsStep({{number, "   12345678"}})),
        "");
  }
  EXPECT_STREQ(Results({{86, "  a"}}).SettingR86, "  a");
}

TEST(RBlock, StopTimeReachesTheEndRecordAndTheBlocksBehind) {
  DataFile file = test::General().R(6, "21Jun2024 13:00:00").Item(8, Body()).EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 9, 15}));
  EXPECT_EQ(
      Difference(EmptyResults().I32(4, kNoon + 3600).I32(544, kNoon + 3600), run.Records()[0]), "");
  EXPECT_EQ(run.As<QvBlockImage>(1).RecordTime, kNoon + 3600);
  EXPECT_EQ(run.As<QvEnd>(2).EndRecordStopTime, kNoon + 3600);
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, kNoon + 3600);
}

TEST(RBlock, WithoutAStopTimeRaisesNothing) {
  Translation const run(test::General().R(8, "21Jun2024 13:00:00").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 15}));
  EXPECT_EQ(run.As<QvResults>(0).StopTime, 0);
  EXPECT_EQ(run.As<QvEnd>(1).EndRecordStopTime, 0);
  EXPECT_EQ(run.As<QvEnd>(1).LatestRecordTime, 0);
}

TEST(RBlock, SixRegistersSetAFlag) {
  for (int number = 37; number <= 44; ++number) {
    for (const char* const value : {"1.5", "abc", ""}) {
      EXPECT_EQ(Results({{number, value}}).ResultFlags, number > 37 && number < 44 ? 0x0200 : 0)
          << number;
    }
  }
}

}  // namespace
