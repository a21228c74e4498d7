// 'Q' blocks: the record of the settings, register by register.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/register_rows.h"
#include "support/settings_block.h"
#include "support/translation.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::EmptySettings;
using test::RecordImage;
using test::RegisterRow;
using test::Settings;
using test::SettingsStep;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC, as in the header

// Every register that fills one field and nothing else in the record. Q7 and Q157 have tests of
// their own.
const std::vector<RegisterRow> kRows = {
    {2, "second title", 22, 32, "second title"},
    {3, "third title", 54, 32, "third title"},
    {4, "fourth text", 86, 32, "fourth text"},
    {5, "first title", 118, 32, "first title"},
    {6, "12:34:56", 150, 10, "12:34:56"},
    {8, "Wed", 172, 4, 3},
    {9, "1009", 176, 2, 1009},
    {10, "1010", 178, 2, 1010},
    {11, "1011", 180, 2, 1011},
    {12, "1012", 182, 2, 1012},
    {13, "1013", 184, 2, 1013},
    {14, "1014", 186, 2, 1014},
    {15, "1015", 188, 2, 1015},
    {16, "1016", 190, 2, 1016},
    {17, "1017", 192, 2, 1017},
    {18, "1018", 194, 2, 1018},
    {19, "1019", 196, 2, 1019},
    {20, "1020", 198, 2, 1020},
    {21, "1021", 200, 2, 1021},
    {22, "05Mar1999", 202, 10, "03/05/99"},
    {23, "31Dec2024", 212, 10, "12/31/24"},
    {24, "text 24", 222, 10, "text 24"},
    {25, "text 25", 232, 10, "text 25"},
    {26, "text 26", 242, 10, "text 26"},
    {27, "text 27", 252, 10, "text 27"},
    {28, "text 28", 262, 10, "text 28"},
    {29, "1029", 272, 2, 1029},
    {30, "1030", 274, 2, 1030},
    {31, "1031", 276, 2, 1031},
    {32, "1032", 278, 2, 1032},
    {33, "1033", 280, 2, 1033},
    {34, "1034", 282, 2, 1034},
    {35, "35.5", 284, 4, 35.5F},
    {36, "text 36", 288, 10, "text 36"},
    {37, "1037", 298, 2, 1037},
    {38, "tx 38", 300, 6, "tx 38"},
    {39, "1039", 306, 2, 1039},
    {40, "1040", 308, 2, 1040},
    {41, "1041", 310, 2, 1041},
    {42, "1042", 312, 2, 1042},
    {43, "1043", 314, 2, 1043},
    {44, "44.5", 316, 4, 44.5F},
    {45, "1045", 320, 2, 1045},
    {46, "1046", 322, 2, 1046},
    {47, "1047", 324, 2, 1047},
    {48, "1048", 326, 2, 1048},
    {49, "1049", 328, 2, 1049},
    {50, "1050", 330, 2, 1050},
    {51, "1051", 332, 2, 1051},
    {52, "1052", 334, 2, 1052},
    {53, "1053", 336, 2, 1053},
    {54, "1054", 338, 2, 1054},
    {55, "1055", 340, 2, 1055},
    {56, "1056", 342, 2, 1056},
    {57, "1057", 344, 2, 1057},
    {58, "1058", 346, 2, 1058},
    {59, "1059", 348, 2, 1059},
    {60, "1060", 350, 2, 1060},
    {61, "61.5", 352, 4, 61.5F},
    {62, "1062", 356, 2, 1062},
    {63, "1063", 358, 2, 1063},
    {64, "1064", 360, 2, 1064},
    {65, "1065", 362, 2, 1065},
    {66, "1066", 364, 2, 1066},
    {67, "1067", 366, 2, 1067},
    {68, "1068", 368, 2, 1068},
    {69, "1069", 370, 2, 1069},
    {70, "1070.75", 372, 2, 1070},
    {71, "1071", 374, 2, 1071},
    {72, "1072", 376, 2, 1072},
    {73, "1073", 378, 2, 1073},
    {74, "1074", 380, 2, 1074},
    {75, "tx 75", 382, 6, "tx 75"},
    {76, "1076", 388, 2, 1076},
    {77, "1077", 390, 2, 1077},
    {78, "1078", 392, 2, 1078},
    {79, "1079", 394, 2, 1079},
    {80, "1080", 396, 2, 1080},
    {81, "1081", 398, 2, 1081},
    {82, "1082", 400, 2, 1082},
    {83, "1083", 402, 2, 1083},
    {84, "1084", 404, 2, 1084},
    {87, "1087", 406, 2, 1087},
    {88, "1088", 408, 2, 1088},
    {118, "1118", 410, 2, 1118},
    {119, "1119", 412, 2, 1119},
    {120, "1120", 414, 2, 1120},
    {121, "name 1", 416, 10, "name 1"},
    {122, "122.5", 448, 4, 122.5F},
    {123, "123.5", 460, 4, 123.5F},
    {124, "unit1", 472, 6, "unit1"},
    {125, "125.5", 492, 4, 125.5F},
    {126, "1126", 504, 2, 1126},
    {127, "1127", 510, 2, 1127},
    {128, "1128", 516, 2, 1128},
    {129, "name 2", 426, 10, "name 2"},
    {130, "130.5", 452, 4, 130.5F},
    {131, "131.5", 464, 4, 131.5F},
    {132, "unit2", 478, 6, "unit2"},
    {133, "133.5", 496, 4, 133.5F},
    {134, "1134", 506, 2, 1134},
    {135, "1135", 512, 2, 1135},
    {136, "1136", 518, 2, 1136},
    {137, "name 3", 436, 10, "name 3"},
    {138, "138.5", 456, 4, 138.5F},
    {139, "139.5", 468, 4, 139.5F},
    {140, "unit3", 484, 6, "unit3"},
    {141, "141.5", 500, 4, 141.5F},
    {142, "1142", 508, 2, 1142},
    {143, "1143", 514, 2, 1143},
    {144, "1144", 520, 2, 1144},
    {145, "1145", 522, 2, 1145},
    {146, "1146", 524, 2, 1146},
    {147, "147.5", 528, 4, 147.5F},
    {148, "148.5", 532, 4, 148.5F},
    {149, "149.5", 536, 4, 149.5F},
    {150, "1150", 540, 2, 1150},
    {153, "1153", 542, 2, 1153},
    {154, "1154", 544, 2, 1154},
    {155, "1155", 546, 2, 1155},
    {156, "text 156", 548, 32, "text 156"},
    {158, "text 158", 582, 32, "text 158"},
    {159, "1159", 614, 2, 1159},
    {160, "160.5", 616, 4, 160.5F},
    {161, "tx161", 620, 6, "tx161"},
    {162, "1162", 626, 2, 1162},
    {163, "1163", 628, 2, 1163},
    {164, "1164", 630, 2, 1164},
    {165, "1165", 632, 2, 1165},
    {206, "1206", 634, 2, 1206},
    {209, "1209", 636, 2, 1209},
    {210, "1210", 638, 2, 1210},
};

TEST(QBlock, EachRegisterFillsItsField) {
  for (const RegisterRow& row : kRows) {
    RecordImage image = EmptySettings();
    Expect(image, row);
    EXPECT_EQ(Difference(image, SettingsStep(test::General().Q(row.number, row.value))), "")
        << "register " << row.number;
  }
}

TEST(QBlock, AllRegistersStandSideBySide) {
  DataFile file = test::General();
  RecordImage image = EmptySettings();
  for (const RegisterRow& row : kRows) {
    file.Q(row.number, row.value);
    Expect(image, row);
  }
  file.Q(7, "15Mar1999").Q(157, "513");
  image.U16(2, 513).I32(4, kNoon).Chars(160, "15Mar1999").U16(580, 513);
  EXPECT_EQ(Difference(image, SettingsStep(file)), "");
}

TEST(QBlock, OtherNumbersFillNothing) {
  DataFile file = test::General();
  for (int number = 0; number < 1000; ++number) {
    bool handled = number == 7 || number == 157 || number == 227;
    for (const RegisterRow& row : kRows) handled = handled || row.number == number;
    if (!handled) file.Q(number, "77");
  }
  EXPECT_EQ(Difference(EmptySettings(), SettingsStep(file)), "");
}

TEST(QBlock, Register227FillsNothing) {
  EXPECT_EQ(Difference(EmptySettings(), SettingsStep(test::General().Q(227, "1.5"))), "");
}

TEST(QBlock, RealNumbersKeepWhatTheyHadWhenALineHasNone) {
  for (const RegisterRow& row : kRows) {
    if (!std::holds_alternative<float>(row.expected) || row.number == 61) continue;
    DataFile file = test::General().Q(row.number, "2.5").Q(row.number, "abc").Q(row.number, "");
    EXPECT_EQ(Difference(EmptySettings().F32(row.offset, 2.5F), SettingsStep(file)), "")
        << row.number;
    EXPECT_EQ(Difference(EmptySettings(), SettingsStep(test::General().Q(row.number, "abc"))), "")
        << row.number;
  }
}

TEST(QBlock, TextsAreCutToTheirFields) {
  const std::string longText = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0";
  for (const RegisterRow& row : kRows) {
    if (!IsText(row) || row.number == 22 || row.number == 23) continue;
    RecordImage image = EmptySettings().Chars(row.offset, longText.substr(0, row.width - 1));
    EXPECT_EQ(Difference(image, SettingsStep(test::General().Q(row.number, longText))), "")
        << row.number;
  }
}

TEST(QBlock, ThreeSwitchesAreZeroUpToFirmware0Point9) {
  for (const char* const firmware : {"0.9", "0.5", "0"}) {
    DataFile file = test::General(firmware).Q(118, "1").Q(119, "2").Q(120, "3").Q(206, "4");
    EXPECT_EQ(Difference(EmptySettings(), SettingsStep(file)), "") << firmware;
  }
  for (const char* const firmware : {"0.91", "1", "3.6"}) {
    DataFile file = test::General(firmware).Q(118, "1").Q(119, "2").Q(120, "3").Q(206, "4");
    RecordImage image = EmptySettings().U16(410, 1).U16(412, 2).U16(414, 3).U16(634, 4);
    EXPECT_EQ(Difference(image, SettingsStep(file)), "") << firmware;
  }
}

TEST(QBlock, OfModel442HasTextsForRegisters161To165) {
  struct Row {
    int number;
    std::size_t offset;
  };
  for (const Row& row : {Row{161, 640}, {162, 649}, {163, 658}, {164, 667}, {165, 676}}) {
    SCOPED_TRACE(row.number);
    EXPECT_EQ(Difference(EmptySettings(442).Chars(row.offset, "abc"),
                         SettingsStep(test::Model442("SSA").Q(row.number, "abc"))),
              "");
    EXPECT_EQ(Difference(EmptySettings(442).Chars(row.offset, "abcdefgh"),
                         SettingsStep(test::Model442("SSA").Q(row.number, "abcdefgh"))),
              "");
    EXPECT_EQ(Difference(EmptySettings(442).Chars(row.offset, "abcdefgh"),
                         SettingsStep(test::Model442("SSA").Q(row.number, "abcdefghijkl"))),
              "");
  }
}

TEST(QBlock, OfModels431And442HasTheOtherFieldsToo) {
  for (int const model : {431, 442}) {
    DataFile file = test::LoggingFile(model, "1.1");
    RecordImage image = EmptySettings(model);
    for (const RegisterRow& row : kRows) {
      if (model == 442 && row.number >= 161 && row.number <= 165) continue;
      file.Q(row.number, row.value);
      Expect(image, row);
    }
    EXPECT_EQ(Difference(image, SettingsStep(file)), "") << model;
  }
}

TEST(QBlock, CarriesTheSite) {
  EXPECT_EQ(Difference(EmptySettings().U16(2, 513).U16(580, 513),
                       SettingsStep(test::General().Q(157, "513"))),
            "");
  // The site number of a block stays with its record alone: the next block has none of its own.
  DataFile file = test::General().Q(157, "513").EndLines("", "").Q(9, "1").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 15}));
  EXPECT_EQ(run.As<QvSettings>(0).SiteNumber, 513);
  EXPECT_EQ(run.As<QvSettings>(1).SiteNumber, 0);
}

}  // namespace
