// The value forms of 'Q' blocks, and their dates.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/settings_block.h"
#include "support/translation.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::EmptySettings;
using test::Settings;
using test::SettingsStep;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC, as in the header

TEST(QBlockForms, NumbersTakeTheLow16BitsOfWholeNumbers) {
  struct Row {
    const char* value;
    int expected;
  };
  const std::vector<Row> rows = {
      {"0", 0},
      {"65535", 65535},
      {"65536", 0},
      {"70000", 4464},
      {"-1", 65535},
      {"-32768", 32768},
      {"12.9", 12},
      {"12abc", 12},
      {"abc", 0},
      {"", 0},
      {"   7", 7},
      {"+7", 7},
      {"0x10", 0},
      {"010", 10},
      {"4294967297", 1},
      {"1e3", 1},
      {"-4294967295", 1},
      {"99999999999999999999", 65535},
      {"-99999999999999999999", 0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Settings(test::General().Q(9, row.value)).SettingQ9, row.expected) << row.value;
  }
}

TEST(QBlockForms, RealNumbersArePlainDecimals) {
  struct Row {
    const char* value;
    float expected;
  };
  const std::vector<Row> rows = {
      {"2.5", 2.5F},
      {"-2.5", -2.5F},
      {" - 2.5", -2.5F},
      {"+2.5x", 2.5F},
      {".5", 0.5F},
      {"7.", 7.0F},
      {".", 0.0F},
      {"1e3", 1.0F},
      {"0.1", 0.1F},
      {"\t3", 3.0F},
      {"16777217", 16777216.0F},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Settings(test::General().Q(35, row.value)).SettingQ35, row.expected) << row.value;
  }
}

TEST(QBlockForms, TextsKeepTheirBlanks) {
  EXPECT_EQ(Difference(EmptySettings().Chars(86, "  a b  "),
                       SettingsStep(test::General().Q(4, "  a b  "))),
            "");
}

TEST(QBlockForms, TextsEndAtTheTerminatorOfALaterLine) {
  auto const settings = Settings(test::General().Q(4, "a longer text").Q(4, "short"));
  EXPECT_STREQ(settings.SettingQ4, "short");
}

TEST(QBlockForms, DayNamesBecomeNumbers) {
  struct Row {
    const char* value;
    int expected;
  };
  const std::vector<Row> rows = {{"Sun", 0}, {"Mon", 1}, {"Tue", 2},       {"Wed", 3}, {"Thu", 4},
                                 {"Fri", 5}, {"Sat", 6}, {"Wednesday", 3}, {"wed", 0}, {"WED", 0},
                                 {"Xyz", 0}, {"", 0},    {" Wed", 0},      {"We", 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(Settings(test::General().Q(8, row.value)).SettingQ8, row.expected) << row.value;
  }
  EXPECT_EQ(Settings(test::General().Q(8, "Wed").Q(8, "none")).SettingQ8, 0);
}

TEST(QBlockForms, ShortDatesShowMonthDayAndYear) {
  struct Row {
    const char* value;
    const char* expected;
  };
  const std::vector<Row> rows = {
      {"05Jan1999", "01/05/99"}, {"05Feb1999", "02/05/99"}, {"05Mar1999", "03/05/99"},
      {"05Apr1999", "04/05/99"}, {"05May1999", "05/05/99"}, {"05Jun1999", "06/05/99"},
      {"05Jul1999", "07/05/99"}, {"05Aug1999", "08/05/99"}, {"05Sep1999", "09/05/99"},
      {"05Oct1999", "10/05/99"}, {"05Nov1999", "11/05/99"}, {"05Dec1999", "12/05/99"},
      {"05dec1999", "00/05/99"}, {"05???1999", "00/05/99"}, {"31Dec2000", "12/31/100"},
      {"31Dec2001", "12/31/01"}, {"00Mar1905", "03/00/05"}, {"31Dec1900", "12/31/00"},
  };
  for (const Row& row : rows) {
    for (int const number : {22, 23}) {
      std::size_t const offset = number == 22 ? 202 : 212;
      EXPECT_EQ(Difference(EmptySettings().Chars(offset, row.expected),
                           SettingsStep(test::General().Q(number, row.value))),
                "")
          << row.value;
    }
  }
}

TEST(QBlockForms, ThresholdIs65WhenALineHasNone) {
  struct Row {
    const char* value;
    float expected;
  };
  for (const Row& row :
       {Row{"70.5", 70.5F}, {"abc", 65.0F}, {"", 65.0F}, {"0", 0.0F}, {".", 0.0F}}) {
    EXPECT_EQ(Settings(test::General().Q(61, row.value)).SettingQ61, row.expected) << row.value;
    EXPECT_EQ(Settings(test::General().Q(61, "50").Q(61, row.value)).SettingQ61, row.expected)
        << row.value;
  }
}

TEST(QBlockForms, SampleSpacingIsShownAsAWholeNumber) {
  struct Row {
    const char* value;
    int expected;
  };
  for (const Row& row : {Row{"16", 16},
                         {"16.9", 16},
                         {"70000.5", 4464},
                         {"-1.5", 65535},
                         {"-0.5", 0},
                         {"abc", 0},
                         {"99999999999", 65535}}) {
    EXPECT_EQ(Settings(test::General().Q(70, row.value)).SettingQ70, row.expected) << row.value;
  }
  EXPECT_EQ(Settings(test::General().Q(70, "16.9").Q(70, "abc")).SettingQ70, 16);
}

TEST(QBlockForms, SampleSpacingOfAnEarlierBlockIsShownBehindALineWithoutANumber) {
  DataFile file = test::General().Q(70, "16.9").EndLines("", "").Q(70, "abc").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 7, 15}));
  EXPECT_EQ(run.As<QvSettings>(1).SettingQ70, 16);
}

TEST(QBlockForms, BlockTimeIsThatOfTheHeader) {
  EXPECT_EQ(Difference(EmptySettings().I32(4, kNoon).Chars(160, "15Mar1999"),
                       SettingsStep(test::General().Q(7, "15Mar1999"))),
            "");
  EXPECT_EQ(Settings(test::General().Q(6, "01:02:03")).BlockTime, 0);
}

struct TimeRow {
  const char* name;
  std::vector<test::Setting> lines;
  std::int32_t time;
};

TEST(QBlockForms, BlockTimeWithoutAHeaderIsThatOfTheBlock) {
  const std::vector<TimeRow> rows = {
      {"midnight", {{7, "15Mar1999"}}, 921456000},
      {"time of day", {{6, "12:34:56"}, {7, "15Mar1999"}}, 921456000 + 45296},
      {"time too late", {{7, "15Mar1999"}, {6, "12:34:56"}}, 921456000},
      {"time for the second date",
       {{7, "15Mar1999"}, {6, "12:34:56"}, {7, "15Mar1999"}},
       921456000 + 45296},
      {"unknown month", {{7, "15xyz1999"}}, 916358400},
      {"month in small letters", {{7, "15mar1999"}}, 916358400},
      {"unknown month behind a known one", {{7, "15Mar1999"}, {7, "15xyz1999"}}, 916358400},
      {"29 February", {{7, "29Feb2024"}}, 1709164800},
      {"30 February", {{7, "30Feb2024"}}, 1709251200},
      {"December", {{7, "31Dec2023"}}, 1703980800},
      {"no date", {{6, "12:34:56"}}, 0},
  };
  for (const TimeRow& row : rows) {
    SCOPED_TRACE(row.name);
    DataFile file;
    // The line with 9 opens the file: it is of no importance.
    Translation const run(AddSettings(file.Q(9, "1"), row.lines).EndOfData());
    ASSERT_EQ(run.start, QV_NO_TEXT_HEADER);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
    EXPECT_EQ(run.As<QvSettings>(0).BlockTime, row.time);
    EXPECT_EQ(run.As<QvEnd>(1).BlockTime, row.time);
    EXPECT_EQ(run.As<QvEnd>(1).LatestRecordTime, row.time);
  }
}

}  // namespace
