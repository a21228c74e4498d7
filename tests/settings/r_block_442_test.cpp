// The register table of model 442's results block: single fields and lists. Band lists and the
// forms of single lines have tests of their own.
#include <gtest/gtest.h>

#include <set>

#include "support/results_rows.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::Model442;
using test::RecordImage;
using test::ResultsRow;
using test::StoreResultsRow;
using test::Translation;

// Values tell their register: the number with a quarter, its 1001-fold, its text; seconds count
// from one o'clock, stamps from the start of 2024.
constexpr ResultsRow kRegisters[] = {
    {5, "01:00:05", 844, 3605.0F},
    {6, "01Jan2024 00:00:06", 860, 1704067206},
    {7, "01:00:07", 324, 3607.0F},
    {8, "01Jan2024 00:00:08", 376, 1704067208},
    {10, "  value10", 880, "value10"},
    {12, "  value12", 396, "value12"},
    {31, "31031", 964, 31031},
    {32, "32032", 968, 32032},
    {33, "33033", 924, 33033},
    {34, "34034", 3620, 34034},
    {35, "35035", 912, 35035},
    {36, "36036", 916, 36036},
    {37, "01:00:37", 920, 3637.0F},
    {38, "38.25", 596, 38.25F},
    {39, "39.25", 600, 39.25F},
    {40, "40.25", 604, 40.25F},
    {41, "41.25", 608, 41.25F},
    {42, "42.25", 612, 42.25F},
    {43, "43.25", 616, 43.25F},
    {44, "44.25", 656, 44.25F},
    {45, "45.25", 148, 45.25F},
    {46, "46.25", 840, 46.25F},
    {47, "47.25", 320, 47.25F},
    {49, "49.25", 572, 49.25F},
    {52, "  value52", 588, "value52"},
    {57, "57.25", 668, 57.25F},
    {62, "62.25", 664, 62.25F},
    {65, "65.25", 648, 65.25F},
    {68, "68.25", 440, 68.25F},
    {69, "01:01:09", 444, 3669.0F},
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
    {88, "88.25", 3612, 88.25F},
    {89, "value89", 2660, "value89"},
    {90, "90.25", 448, 90.25F},
    {91, "91091", 452, 91091},
    {92, "92092", 960, 92092},
    {93, "93093", 944, 93093},
    {94, "94094", 952, 94094},
    {95, "95095", 948, 95095},
    {96, "96096", 936, 96096},
    {97, "97097", 932, 97097},
    {104, "01Jan2024 00:01:44", 128, 1704067304},
    {105, "01Jan2024 00:01:45", 136, 1704067305},
    {106, "106.25", 140, 106.25F},
    {107, "107.25", 132, 107.25F},
    {118, "118.25", 3624, 118.25F},
    {119, "119.25", 3660, 119.25F},
    {121, "01Jan2024 00:02:01", 3668, 1704067321},
    {122, "122122", 3680, 122122},
    {123, "123.25", 3676, 123.25F},
    {139, "01:02:19", 972, 3739.0F},
    {150, "150150", 2656, 150150},
    {151, "t51", 928, "t51"},
    {156, "01:02:36", 112, 3756.0F},
    {158, "158158", 3616, 158158},
    {161, "161161", 956, 161161},
    {162, "162.25", 2668, 162.25F},
    {175, "01Jan2024 00:02:55", 660, 1704067375},
    {176, "01Jan2024 00:02:56", 5312, 1704067376},
    {179, "179179", 552, 179179},
    {180, "t180", 556, "t180"},
    {181, "181181", 940, 181181},
    {208, "208.25", 1356, 208.25F},
    {211, "211.25", 1160, 211.25F},
    {217, "217217", 2492, 217217},
    {223, "223.25", 2300, 223.25F},
    {225, "t225", 2294, "t225"},
    {227, "227227", 3684, 227227},
    {228, "228228", 3688, 228228},
    {229, "229.25", 3692, 229.25F},
    {230, "230.25", 3696, 230.25F},
    {232, "232.25", 3700, 232.25F},
    {233, "01:03:53", 3704, 3833.0F},
    {3, "site text", 3488, "site text"},
    {209, "t209", 1360, "t209"},
    {212, "t212", 1164, "t212"},
    {215, "tx215", 2650, "tx215"},
};

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

// What a line changes beside its own field.
void StoreSideEffects(RecordImage& image, const ResultsRow& row) {
  if (row.Number == 6) image.I32(4, std::get<std::int32_t>(row.Stored));
  if (row.Number >= 38 && row.Number <= 43) image.U16(10, 0x0200);
}

TEST(RBlock442, EachRegisterFillsItsFieldAndNoOther) {
  for (const ResultsRow& row : kRegisters) {
    RecordImage image = Results();
    StoreResultsRow(image, row);
    StoreSideEffects(image, row);
    Translation const run(Start().R(row.Number, row.Value).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{55, 15})) << "register " << row.Number;
    EXPECT_EQ(run.steps.at(0).status, 0);
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

struct ListRow {
  int Number;
  std::size_t Offset;
  std::size_t Room;
};

constexpr ListRow kRealLists[] = {
    {4, 340, 9},     {9, 868, 3},     {11, 384, 3},    {13, 848, 3},    {14, 328, 3},
    {15, 744, 9},    {17, 224, 9},    {19, 672, 9},    {21, 152, 9},    {23, 816, 3},
    {25, 296, 3},    {27, 888, 3},    {29, 404, 3},    {163, 3540, 9},  {164, 3576, 9},
    {234, 2672, 33}, {235, 2804, 33}, {236, 2936, 33}, {237, 3068, 33}, {238, 3200, 33},
    {239, 3332, 33}, {240, 3464, 6},
};

constexpr ListRow kStampLists[] = {
    {16, 780, 9}, {18, 260, 9}, {20, 708, 9}, {22, 188, 9},
    {24, 828, 3}, {26, 308, 3}, {28, 900, 3}, {30, 416, 3},
};

// "1.5,2.5,3.5" and so on.
std::string RealList(std::size_t count) {
  std::string value = "1.5";
  for (std::size_t i = 1; i < count; ++i)
    value.append(",").append(std::to_string(i + 1)).append(".5");
  return value;
}

std::vector<float> Reals(std::size_t count) {
  std::vector<float> values;
  for (std::size_t i = 0; i < count; ++i) values.push_back(static_cast<float>(i) + 1.5F);
  return values;
}

// The first days of 2024 at one second past midnight.
std::string StampList(std::size_t count) {
  std::string value = "01Jan2024 00:00:01";
  for (std::size_t i = 1; i < count; ++i) {
    value += (i + 1 < 10 ? ",0" : ",") + std::to_string(i + 1) + "Jan2024 00:00:01";
  }
  return value;
}

std::vector<std::int32_t> Stamps(std::size_t count) {
  std::vector<std::int32_t> values;
  for (std::size_t i = 0; i < count; ++i) {
    values.push_back(1704067201 + 86400 * static_cast<std::int32_t>(i));
  }
  return values;
}

TEST(RBlock442, RealListFillsItsRoomAndNoMore) {
  for (const ListRow& row : kRealLists) {
    RecordImage image = Results();
    image.Floats(row.Offset, Reals(row.Room));
    Translation const whole(Start().R(row.Number, RealList(row.Room)).EndOfData());
    EXPECT_EQ(Difference(image, whole.steps.at(0)), "") << "register " << row.Number;
    Translation const longer(Start().R(row.Number, RealList(row.Room + 4)).EndOfData());
    EXPECT_EQ(Difference(image, longer.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442, RealListWithoutACommaFillsItsFirstPlace) {
  for (const ListRow& row : kRealLists) {
    RecordImage image = Results();
    image.F32(row.Offset, 61.5F);
    Translation const run(Start().R(row.Number, "61.5").EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442, RealListStoresZeroForWhatIsNoNumber) {
  auto const record = OneBlock(Start().R(4, "9,9,9,9,9,9,9,9").R(4, " - 1.50x,,abc, 4 ,.5,1e1,"));
  float const expected[] = {-1.5F, 0.0F, 0.0F, 4.0F, 0.5F, 1.0F, 0.0F, 9.0F, 0.0F};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(record.SettingR4[i], expected[i]) << i;
}

TEST(RBlock442, StampListFillsItsRoomAndNoMore) {
  for (const ListRow& row : kStampLists) {
    RecordImage image = Results();
    image.Words(row.Offset, Stamps(row.Room));
    Translation const whole(Start().R(row.Number, StampList(row.Room)).EndOfData());
    EXPECT_EQ(Difference(image, whole.steps.at(0)), "") << "register " << row.Number;
    Translation const longer(Start().R(row.Number, StampList(row.Room + 2)).EndOfData());
    EXPECT_EQ(Difference(image, longer.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442, StampListIsSplitAtBlanksAndCommas) {
  struct Row {
    const char* Value;
    std::int32_t Stored[3];
  };
  constexpr Row kRows[] = {
      {"01Jan2024,00:00:01,02Jan2024,00:00:02", {1704067201, 1704153602, 0}},
      {"  01Jan2024 , 00:00:01 ,,02Jan2024  00:00:02,03Jan2024 00:00:03",
       {1704067201, 1704153602, 1704240003}},
      {"01Jan2024 01:00:00 02Jan2024", {1704070800, 1704157200, 0}},  // the time before it
      {"01Jan2024", {1704067200, 0, 0}},                              // midnight
      {"", {0, 0, 0}},
      {" , ,", {0, 0, 0}},
  };
  for (const Row& row : kRows) {
    auto const record = OneBlock(Start().R(24, row.Value));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(record.SettingR24[i], row.Stored[i]) << row.Value;
  }
}

// A line of the list before has no time to lend.
TEST(RBlock442, StampWithoutATimeDoesNotTakeThatOfAnotherLine) {
  auto const record = OneBlock(Start().R(24, "01Jan2024 01:00:00").R(26, "02Jan2024"));
  EXPECT_EQ(record.SettingR26[0], 1704153600);
}

TEST(RBlock442, AllRegistersTogetherFillTheRecord) {
  RecordImage image = Results();
  DataFile file = Start();
  for (const ResultsRow& row : kRegisters) {
    StoreResultsRow(image, row);
    StoreSideEffects(image, row);
    file.R(row.Number, row.Value);
  }
  for (const ListRow& row : kRealLists) {
    image.Floats(row.Offset, Reals(row.Room));
    file.R(row.Number, RealList(row.Room));
  }
  for (const ListRow& row : kStampLists) {
    image.Words(row.Offset, Stamps(row.Room));
    file.R(row.Number, StampList(row.Room));
  }
  image.U16(1920, 216).U16(2292, 224);
  file.R(216, "216").R(224, "224");
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 15}));
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock442, NumbersThatTheBlockDoesNotKnowAreIgnored) {
  std::set<int> known = {1,   48,  50,  51,  53,  60,  98,  120, 124, 170, 171, 172, 173, 188,
                         203, 206, 207, 210, 213, 214, 216, 218, 219, 220, 221, 222, 224};
  for (const ResultsRow& row : kRegisters) known.insert(row.Number);
  for (const ListRow& row : kRealLists) known.insert(row.Number);
  for (const ListRow& row : kStampLists) known.insert(row.Number);
  DataFile file = Start();
  for (int number = 0; number < 300; ++number) {
    if (!known.contains(number)) file.R(number, "12.5,34n E");
  }
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 15}));
  EXPECT_EQ(Difference(Results(), run.steps.at(0)), "");
}

TEST(RBlock442, SettingsOfTheBlocksBeforeComeAlong) {
  DataFile file = Start();
  file.Q(46, "461").Q(47, "471").Q(49, "491").Q(50, "501").Q(53, "531").Q(54, "541");
  file.Q(55, "-3").Q(56, "56").Q(57, "57").Q(58, "58").Q(59, "59").Q(60, "60");
  file.Q(121, "ninechars").Q(124, "units").Q(129, "second").Q(132, "u2").Q(137, "third");
  file.Q(140, "u3").Q(146, "3").Q(147, "14.75").Q(157, "7");
  RecordImage image = Results();
  image.U16(2, 7).Chars(60, "ninechars").Chars(70, "second").Chars(80, "third");
  image.Chars(90, "units").Chars(96, "u2").Chars(102, "u3");
  image.U16(144, 471).U16(380, 461).U16(562, 541).U16(580, 531).U16(652, 501).U16(864, 491);
  image.Floats(624, {-3.0F, 56.0F, 57.0F, 58.0F, 59.0F, 60.0F}).U16(3672, 3);
  Translation const run(file.R(2, "nothing").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 55, 15}));
  EXPECT_EQ(Difference(image, run.steps.at(1)), "");
}

TEST(RBlock442, SixValuesOutliveASettingsBlock) {
  Translation const run(Start().Q(55, "5").Q(60, "6").R(2, "").Q(157, "1").R(2, "").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 55, 7, 55, 15}));
  EXPECT_EQ(run.As<QvResults442>(3).KeptSixValues[0], 5.0F);
  EXPECT_EQ(run.As<QvResults442>(3).KeptSixValues[5], 6.0F);
}

TEST(RBlock442, SmallNumbersKeepTheirLow16Bits) {
  auto const record = OneBlock(Start().R(216, "70000").R(224, "-1").R(225, "text"));
  EXPECT_EQ(record.SettingR216, 4464);
  EXPECT_EQ(record.SettingR224, 65535);
  EXPECT_STREQ(record.SettingR225, "text");
}

TEST(RBlock442, WholeNumbersKeepTheirLow32Bits) {
  auto const record =
      OneBlock(Start().R(31, "4294967297").R(217, "-5").R(227, "12abc").R(228, "x").R(34, " +7"));
  EXPECT_EQ(record.SettingR31, 1);
  EXPECT_EQ(record.SettingR217, -5);
  EXPECT_EQ(record.SettingR227, 12);
  EXPECT_EQ(record.SettingR228, 0);
  EXPECT_EQ(record.SettingR34, 7);
}

TEST(RBlock442, LevelOffsetStaysThatOfTheFilesEnd) {
  Body const mark = Body().U8(0).Date(21, 6, 2024).Time(12, 0, 0).Level(60.5).U8(0);
  Translation const run(Start().R(106, "200").Item(5, mark).EndOfData(), {.levelOffset442 = "2.5"});
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 5, 15}));
  EXPECT_EQ(run.As<QvResults442>(0).SettingR106, 200.0F) << "nothing is taken off here";
  EXPECT_EQ(run.As<QvLevelMark>(1).Level, 63.0F);
}

TEST(RBlock442, StopTimeReachesTheEndRecordAndTheBlocksBehind) {
  Translation const run(Start().R(6, "15Mar2024,12:34:56").Item(8, Body().Fill(1)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 9, 15}));
  EXPECT_EQ(run.As<QvResults442>(0).StopTime, 1710506096);
  EXPECT_EQ(run.As<QvResults442>(0).SettingR6, 1710506096);
  EXPECT_EQ(run.As<QvBlockImage>(1).RecordTime, 1710506096);
  EXPECT_EQ(run.As<QvEnd>(2).EndRecordStopTime, 1710506096);
}

TEST(RBlock442, StopTimeRaisesTheLatestTime) {
  Translation const none(Start().R(72, "1").EndOfData());
  EXPECT_EQ(none.As<QvResults442>(0).StopTime, 0);
  EXPECT_EQ(none.As<QvEnd>(1).LatestRecordTime, 0);
  Translation const rising(
      Start().R(6, "15Mar2024 12:34:56").Q(1, "").R(6, "14Mar2024 12:34:56").EndOfData());
  EXPECT_EQ(rising.As<QvEnd>(3).LatestRecordTime, 1710506096);
  EXPECT_EQ(rising.As<QvEnd>(3).EndRecordStopTime, 1710419696);
}

TEST(RBlock442, ModelLineChoosesTheNextParser) {
  Translation const run(Start().R(1, "Hedrom-Pulke Model 431").Q(1, "").R(72, "5").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{55, 7, 37, 15}));
  EXPECT_EQ(run.As<QvResults442>(0).Model, 431);
  EXPECT_EQ(run.As<QvEnd>(3).Model, 431);
}

TEST(RBlock442, ModelLineWithoutItsWordKeepsTheModel) {
  Translation const run(Start().R(1, "model 486").EndOfData());
  EXPECT_EQ(run.As<QvResults442>(0).Model, 442);
  EXPECT_EQ(run.As<QvEnd>(1).Model, 442);
}

}  // namespace
