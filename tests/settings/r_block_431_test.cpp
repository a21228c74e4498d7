#include <gtest/gtest.h>

#include <set>

#include "support/results_rows.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::Model431;
using test::RecordImage;
using test::ResultsRow;
using test::StoreResultsRow;
using test::Translation;

constexpr std::size_t kSize = 1088;

// Values tell their register: the number with a quarter, its 1001-fold, its text; seconds count
// from one o'clock, stamps from the start of 2024.
constexpr ResultsRow kRegisters[] = {
    {5, "01:00:05", 876, 3605.0F},
    {6, "01Jan2024 00:00:06", 904, 1704067206},
    {7, "01:00:07", 880, 3607.0F},
    {8, "01Jan2024 00:00:08", 908, 1704067208},
    {9, "9.25", 984, 9.25F},
    {10, "  value10", 992, "value10"},
    {11, "11.25", 988, 11.25F},
    {12, "  value12", 1000, "value12"},
    {13, "13.25", 884, 13.25F},
    {14, "14.25", 888, 14.25F},
    {15, "15.25", 376, 15.25F},
    {16, "01Jan2024 00:00:16", 384, 1704067216},
    {17, "17.25", 380, 17.25F},
    {18, "01Jan2024 00:00:18", 388, 1704067218},
    {19, "19.25", 360, 19.25F},
    {20, "01Jan2024 00:00:20", 368, 1704067220},
    {21, "21.25", 364, 21.25F},
    {22, "01Jan2024 00:00:22", 372, 1704067222},
    {23, "23.25", 792, 23.25F},
    {24, "01Jan2024 00:00:24", 804, 1704067224},
    {25, "25.25", 796, 25.25F},
    {26, "01Jan2024 00:00:26", 808, 1704067226},
    {27, "27.25", 1008, 27.25F},
    {28, "01Jan2024 00:00:28", 1020, 1704067228},
    {29, "29.25", 1012, 29.25F},
    {30, "01Jan2024 00:00:30", 1024, 1704067230},
    {31, "31031", 864, 31031},
    {32, "32032", 868, 32032},
    {33, "33033", 800, 33033},
    {34, "34034", 1016, 34034},
    {35, "35035", 780, 35035},
    {36, "36036", 784, 36036},
    {37, "01:00:37", 788, 3637.0F},
    {38, "38.25", 336, 38.25F},
    {39, "39.25", 340, 39.25F},
    {40, "40.25", 344, 40.25F},
    {41, "41.25", 348, 41.25F},
    {42, "42.25", 352, 42.25F},
    {43, "43.25", 356, 43.25F},
    {44, "44.25", 152, 44.25F},
    {45, "45.25", 156, 45.25F},
    {46, "46.25", 816, 46.25F},
    {47, "47.25", 820, 47.25F},
    {49, "49.25", 304, 49.25F},
    {52, "  value52", 320, "value52"},
    {57, "57.25", 332, 57.25F},
    {62, "62.25", 328, 62.25F},
    {65, "65.25", 144, 65.25F},
    {68, "68.25", 172, 68.25F},
    {69, "01:01:09", 176, 3669.0F},
    {70, "70.25", 108, 70.25F},
    {72, "72.25", 12, 72.25F},
    {73, "73.25", 36, 73.25F},
    {74, "74.25", 48, 74.25F},
    {75, "75075", 24, 75075},
    {77, "77.25", 16, 77.25F},
    {78, "78.25", 40, 78.25F},
    {79, "79.25", 52, 79.25F},
    {80, "80080", 28, 80080},
    {82, "82.25", 20, 82.25F},
    {83, "83.25", 44, 83.25F},
    {84, "84.25", 56, 84.25F},
    {85, "85085", 32, 85085},
    {86, "value86", 116, "value86"},
    {87, "t87", 124, "t87"},
    {88, "88.25", 972, 88.25F},
    {89, "value89", 892, "value89"},
    {90, "90.25", 180, 90.25F},
    {91, "91091", 184, 91091},
    {92, "92092", 860, 92092},
    {93, "93093", 844, 93093},
    {94, "94094", 852, 94094},
    {95, "95095", 848, 95095},
    {96, "96096", 836, 96096},
    {97, "97097", 832, 97097},
    {104, "01Jan2024 00:01:44", 128, 1704067304},
    {105, "01Jan2024 00:01:45", 132, 1704067305},
    {106, "106.25", 140, 106.25F},
    {107, "107.25", 136, 107.25F},
    {118, "118.25", 1028, 118.25F},
    {119, "119.25", 1064, 119.25F},
    {121, "01Jan2024 00:02:01", 1072, 1704067321},
    {123, "123.25", 1080, 123.25F},
    {150, "150150", 872, 150150},
    {151, "t51", 812, "t51"},
    {156, "01:02:36", 112, 3756.0F},
    {158, "158158", 980, 158158},
    {161, "161161", 856, 161161},
    {162, "162.25", 900, 162.25F},
    {163, "163.25", 964, 163.25F},
    {164, "164.25", 968, 164.25F},
    {179, "179179", 284, 179179},
    {180, "t180", 288, "t180"},
    {181, "181181", 840, 181181},
    {3, "site text", 912, "site text"},
};

DataFile Start() {
  return Model431("iSLM");
}

RecordImage Results() {
  RecordImage image(kSize);
  return image.U16(0, 37).U16(392, 431);
}

QvResults431 OneBlock(const DataFile& file) {
  Translation const run(DataFile(file).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  return run.As<QvResults431>(0);
}

// What a line changes beside its own field.
void StoreSideEffects(RecordImage& image, const ResultsRow& row) {
  if (row.Number == 6) image.I32(4, std::get<std::int32_t>(row.Stored));
  if (row.Number >= 38 && row.Number <= 43) image.U16(10, 0x0200);
}

TEST(RBlock431, EachRegisterFillsItsFieldAndNoOther) {
  for (const ResultsRow& row : kRegisters) {
    RecordImage image = Results();
    StoreResultsRow(image, row);
    StoreSideEffects(image, row);
    Translation const run(Start().R(row.Number, row.Value).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{37, 15})) << "register " << row.Number;
    EXPECT_EQ(run.steps.at(0).status, 0);
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock431, AllRegistersTogetherFillTheRecord) {
  RecordImage image = Results();
  DataFile file = Start();
  for (const ResultsRow& row : kRegisters) {
    StoreResultsRow(image, row);
    StoreSideEffects(image, row);
    file.R(row.Number, row.Value);
  }
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock431, NumbersThatTheBlockDoesNotKnowAreIgnored) {
  std::set<int> known = {1, 48, 50, 51, 53, 60, 98, 120, 124, 170, 171, 172, 173};
  for (const ResultsRow& row : kRegisters) known.insert(row.Number);
  DataFile file = Start();
  for (int number = 0; number < 300; ++number) {
    if (!known.contains(number)) file.R(number, "12.5,34n E");
  }
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 15}));
  EXPECT_EQ(Difference(Results(), run.steps.at(0)), "");
}

TEST(RBlock431, SettingsOfTheBlocksBeforeComeAlong) {
  DataFile file = Start();
  file.Q(46, "461").Q(47, "471").Q(49, "491").Q(50, "501").Q(53, "531").Q(54, "541");
  file.Q(55, "-3").Q(56, "56").Q(57, "57").Q(58, "58").Q(59, "59").Q(60, "60");
  file.Q(121, "ninechars").Q(124, "units").Q(129, "second").Q(132, "u2").Q(137, "third");
  file.Q(140, "u3").Q(146, "3").Q(147, "14.75").Q(157, "7");
  RecordImage image = Results();
  image.U16(2, 7).Chars(60, "ninechars").Chars(70, "second").Chars(80, "third");
  image.Chars(90, "units").Chars(96, "u2").Chars(102, "u3");
  image.U16(148, 501).U16(150, 471).U16(294, 541).U16(312, 531);
  image.Floats(396, {-3.0F, 56.0F, 57.0F, 58.0F, 59.0F, 60.0F});
  image.U16(976, 491).U16(978, 461).U16(1076, 3).F32(1084, 14.75F);
  Translation const run(file.R(2, "nothing").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 37, 15}));
  EXPECT_EQ(Difference(image, run.steps.at(1)), "");
}

struct ListRow {
  int Number;
  std::size_t Offset;
};

constexpr ListRow kLists[] = {{171, 540}, {172, 420}, {173, 660}};

TEST(RBlock431, ListWithoutACommaFillsItsFirstPlace) {
  for (const ListRow& row : kLists) {
    RecordImage image = Results();
    image.F32(row.Offset, 61.5F);
    Translation const run(Start().R(row.Number, "61.5").EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock431, ListFillsItsThirtyPlacesAndNoMore) {
  std::string value;
  std::vector<float> numbers;
  for (int i = 0; i < 30; ++i) {
    value.append(i == 0 ? "" : ",").append(std::to_string(40 + i)).append(".5");
    numbers.push_back(static_cast<float>(40 + i) + 0.5F);
  }
  for (const ListRow& row : kLists) {
    RecordImage image = Results();
    image.Floats(row.Offset, numbers);
    Translation const whole(Start().R(row.Number, value).EndOfData());
    EXPECT_EQ(Difference(image, whole.steps.at(0)), "") << "register " << row.Number;
    Translation const longer(Start().R(row.Number, value + ",1,2,3,4,5").EndOfData());
    EXPECT_EQ(Difference(image, longer.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock431, ListNumbersAreReadAsTheCLibraryDoes) {
  auto const record = OneBlock(Start().R(172, "-1.5, 2.25,,1e1,x,6"));
  float const expected[] = {-1.5F, 2.25F, 0.0F, 10.0F, 0.0F, 6.0F, 0.0F};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(record.SettingR172[i], expected[i]) << i;
}

TEST(RBlock431, ShorterListLeavesTheTailOfTheListBefore) {
  auto const record = OneBlock(Start().R(171, "1,2,3").R(171, "9"));
  EXPECT_EQ(record.SettingR171[0], 9.0F);
  EXPECT_EQ(record.SettingR171[1], 2.0F);
  EXPECT_EQ(record.SettingR171[2], 3.0F);
}

struct OffsetRow {
  const char* Value;
  float Stored;
};

// From 128 on the number stands for one below zero.
constexpr OffsetRow kLevelOffsets[] = {
    {"0", 0.0F},     {"127", 127.0F},  {"127.75", 127.75F}, {"128", -128.0F},
    {"200", -56.0F}, {"255.5", -0.5F}, {"256", 0.0F},       {"300", 44.0F},
    {"-3.5", -3.5F}, {"none", 0.0F},   {"", 0.0F},
};

TEST(RBlock431, Register106BecomesTheLevelOffset) {
  Body const mark = Body().U8(0).Date(21, 6, 2024).Time(12, 0, 0).Level(60.5).U8(0);
  for (const OffsetRow& row : kLevelOffsets) {
    Translation const run(
        Start().Q(227, "10").Item(5, mark).R(106, row.Value).Item(5, mark).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 5, 37, 5, 15})) << row.Value;
    EXPECT_EQ(run.As<QvLevelMark>(1).Level, 70.5F) << row.Value;
    EXPECT_EQ(run.As<QvResults431>(2).SettingR106, row.Stored) << row.Value;
    EXPECT_EQ(run.As<QvLevelMark>(3).Level, 60.5F + row.Stored) << row.Value;
  }
}

// The whole numbers that general models keep in these two lines have no place here.
TEST(RBlock431, WholeNumbersOfGeneralModelsStayZero) {
  auto const record = OneBlock(Start().R(170, "170").R(171, "171"));
  for (std::uint8_t const byte : record.Reserved824) EXPECT_EQ(byte, 0);
}

TEST(RBlock431, StopTimeReachesTheEndRecordAndTheBlocksBehind) {
  Translation const run(Start()
                            .Item(8, Body().Fill(1))
                            .R(6, "15Mar2024,12:34:56")
                            .Item(8, Body().Fill(1))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{9, 37, 9, 15}));
  EXPECT_EQ(run.As<QvResults431>(1).StopTime, 1710506096);
  EXPECT_EQ(run.As<QvResults431>(1).SettingR6, 1710506096);
  EXPECT_EQ(run.As<QvBlockImage>(2).RecordTime, 1710506096);
  EXPECT_EQ(run.As<QvEnd>(3).EndRecordStopTime, 1710506096);
}

TEST(RBlock431, StopTimeRaisesTheLatestTime) {
  Translation const none(Start().R(72, "1").EndOfData());
  EXPECT_EQ(none.As<QvResults431>(0).StopTime, 0);
  EXPECT_EQ(none.As<QvEnd>(1).LatestRecordTime, 0);
  Translation const rising(
      Start().R(6, "15Mar2024 12:34:56").Q(1, "").R(6, "14Mar2024 12:34:56").EndOfData());
  EXPECT_EQ(rising.As<QvEnd>(3).LatestRecordTime, 1710506096);
  EXPECT_EQ(rising.As<QvEnd>(3).EndRecordStopTime, 1710419696);
}

TEST(RBlock431, ModelLineChoosesTheNextParser) {
  Translation const run(
      Start().R(1, "Hedrom-Pulke Model 486").R(179, "5").Q(1, "").R(179, "5").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{37, 7, 8, 15}));
  EXPECT_EQ(run.As<QvResults431>(0).Model, 486);
  EXPECT_EQ(run.As<QvResults431>(0).SettingR179, 5) << "whatever the model line says";
  EXPECT_EQ(run.As<QvResults>(2).SettingR179, 0) << "general models have no register 179";
  EXPECT_EQ(run.As<QvEnd>(3).Model, 486);
}

TEST(RBlock431, ModelLineWithoutItsWordKeepsTheModel) {
  Translation const run(Start().R(1, "model 486").EndOfData());
  EXPECT_EQ(run.As<QvResults431>(0).Model, 431);
  EXPECT_EQ(run.As<QvEnd>(1).Model, 431);
}

}  // namespace
