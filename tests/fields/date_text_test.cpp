// Seconds of date and time texts.
#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <string>

#include "qvslmtranslate.h"
#include "support/guarded_buffer.h"
#include "support/scoped_zone.h"
#include "support/utc.h"

namespace {

using test::GuardedBuffer;
using test::ScopedZone;
using test::Utc;

// A text whose terminator is the last byte that can be read.
class TextAtTheEdge {
 public:
  explicit TextAtTheEdge(const char* text) : buffer_(std::strlen(text) + 1) {
    std::memcpy(buffer_.Data(), text, buffer_.Size());
  }
  const char* Get() const { return reinterpret_cast<const char*>(buffer_.Data()); }

 private:
  GuardedBuffer buffer_;
};

uint32_t Seconds(const char* date, const char* time, int16_t format) {
  return TX_DateToSecs(TextAtTheEdge(date).Get(), TextAtTheEdge(time).Get(), format);
}

struct Row {
  const char* date;
  int16_t format;
  uint32_t seconds;  // at midnight, in UTC
};

void ExpectRows(const Row* rows, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const Row& row = rows[i];
    EXPECT_EQ(Seconds(row.date, "00:00:00", row.format), row.seconds)
        << '\'' << row.date << "' format " << row.format;
    EXPECT_EQ(TX_DateToSecs(row.date, nullptr, row.format), row.seconds)
        << '\'' << row.date << "' format " << row.format << ", no time";
  }
}

TEST(DateText, MonthNameForm) {
  constexpr Row kRows[] = {
      {"15Mar1999", 0, 921456000},
      {"15Mar1999", 1, 921456000},
      {"15mar 99", 0, 921456000},
      {"15mar 99", 1, 921456000},
      {"15MAR1999", 0, 921456000},
      {"15mAr  99", 0, 921456000},
      {"15Mar1999 and more", 0, 921456000},
      {" 3Jan2000", 0, 946857600},
      {"29Feb2024", 0, 1709164800},
      // Every month name, in 2005.
      {"09Jan2005", 0, 1105228800},
      {"09Feb2005", 0, 1107907200},
      {"09Mar2005", 0, 1110326400},
      {"09Apr2005", 0, 1113004800},
      {"09May2005", 0, 1115596800},
      {"09Jun2005", 0, 1118275200},
      {"09Jul2005", 0, 1120867200},
      {"09Aug2005", 0, 1123545600},
      {"09Sep2005", 0, 1126224000},
      {"09Oct2005", 0, 1128816000},
      {"09Nov2005", 0, 1131494400},
      {"09Dec2005", 0, 1134086400},
      // No month name, and the name of no month, are January.
      {"15Xxx1999", 0, 916358400},
      {"15???1999", 0, 916358400},
      // A day below 1 makes the month February, whatever it says: day 0 is 31 January.
      {"00Mar1999", 0, 917740800},
      {"xxDec1999", 0, 917740800},
      {"-5Mar1999", 0, 917308800},
      // A day that the month does not have is carried over.
      {"31Feb1999", 0, 920419200},
  };
  ExpectRows(kRows, std::size(kRows));
}

// The month may stand behind blanks, but the year is always read from column 5.
TEST(DateText, BlanksBehindTheDayDoNotMoveTheYear) {
  constexpr Row kRows[] = {
      {"15 Mar99", 0, 953078400},      // column 5 is the 'r': year 0, which is 2000
      {"15 Mar1999", 0, 953078400},    // likewise
      {"15       Mar", 0, 953078400},  // nothing but blanks to read a year from before the name
      {"15   1999", 0, 916358400},     // "199" is no month name: January 1999
  };
  ExpectRows(kRows, std::size(kRows));
}

TEST(DateText, YearOfTheMonthNameForm) {
  constexpr Row kRows[] = {
      {"01Jan70", 0, 0},           // 1970
      {"15Mar70", 0, 6307200},     // 1970
      {"01Jan37", 0, 2114380800},  // 2037
      {"01Jan69", 0, 0},           // 2069, which 32 bits do not hold
      {"15Mar00", 0, 953078400},   // 2000
      {"15Mar 24", 0, 1710460800},
      {"15Mar124", 0, 1710460800},  // years since 1900
      {"15Mar2024", 0, 1710460800},
      {"15Mar1901", 0, 984614400},  // above 1900: 1, and so 2001
      {"15Mar1900", 0, 0},          // not above 1900: 1900 years after 1900
      {"15Mar1970", 0, 6307200},
      {"15Mar", 0, 953078400},  // no year is 0, 2000
  };
  ExpectRows(kRows, std::size(kRows));
}

TEST(DateText, NumberForms) {
  constexpr Row kRows[] = {
      {"03/15/99", 2, 921456000},
      {"03-15-1999", 4, 921456000},
      {"03-15-1999", 2, 921456000},
      {"03/15/99", 4, 921456000},
      {"03.15.99", 2, 921456000},
      {"03x15y99", 4, 921456000},
      {"15/03/99", 3, 921456000},
      {"15-03-1999", 3, 921456000},
      {" 3/15/99", 2, 921456000},
      {"3 /15/99", 2, 921456000},
      {"03/15/1999", 2, 921456000},
      {"02/29/2024", 2, 1709164800},
      {"29/02/24", 3, 1709164800},
      // Numbers out of range are carried over: month 13, month 0, day 0.
      {"13/15/99", 2, 947894400},
      {"00/15/99", 2, 913680000},
      {"03/00/99", 2, 920160000},
      {"15/13/99", 3, 947894400},
      {"15/00/99", 3, 913680000},
      {"00/03/99", 3, 920160000},
  };
  ExpectRows(kRows, std::size(kRows));
}

TEST(DateText, YearOfTheNumberForms) {
  constexpr Row kRows[] = {
      {"03/15/00", 2, 953078400},   {"03/15/2000", 2, 953078400},  {"03/15/100", 2, 953078400},
      {"03/15/70", 2, 6307200},     {"03/15/1970", 2, 6307200},    {"01/01/37", 2, 2114380800},
      {"03/15/69", 2, 0},            // 2069
      {"03/15/1901", 2, 984614400},  // 2001
      {"03/15/1900", 2, 0},          // stands as it is
      {"03-15-24", 4, 1710460800},  {"03-15-2024", 4, 1710460800}, {"03-15-69", 4, 0},
      {"03-15-1901", 4, 984614400}, {"15/03/24", 3, 1710460800},   {"15/03/2024", 3, 1710460800},
      {"15/03/1901", 3, 984614400}, {"15/03/1900", 3, 0},          {"15/03/69", 3, 0},
  };
  ExpectRows(kRows, std::size(kRows));
}

TEST(DateText, ShortDatesReadAsEmptyColumns) {
  constexpr Row kRows[] =
      {
          {"", 0, 949276800},    // day 0, so February 2000: 31 January
          {"3", 0, 946857600},   // 3 January 2000
          {"15", 0, 947894400},  // 15 January 2000
          {"15Ma", 0, 947894400},  {"", 1, 949276800},
          {"", 2, 943920000},  // month 0, day 0 of 2000: 30 November 1999
          {"", 3, 943920000},      {"", 4, 943920000},
          {"03/15", 2, 953078400}, {"15/03", 3, 953078400},
      };
  ExpectRows(kRows, std::size(kRows));
}

TEST(DateText, ANullDateIsAnEmptyText) {
  EXPECT_EQ(TX_DateToSecs(nullptr, nullptr, 0), 949276800u);
  EXPECT_EQ(TX_DateToSecs(nullptr, "00:00:07", 0), 949276807u);
  EXPECT_EQ(TX_DateToSecs(nullptr, nullptr, 2), 943920000u);
  EXPECT_EQ(TX_DateToSecs(nullptr, nullptr, 3), 943920000u);
}

TEST(DateText, OtherFormatsGiveZero) {
  constexpr int16_t kFormats[] = {-32768, -1, 6, 7, 32767};
  for (int16_t const format : kFormats) {
    EXPECT_EQ(TX_DateToSecs("15Mar1999", "12:00:00", format), 0u) << format;
    EXPECT_EQ(TX_DateToSecs(nullptr, nullptr, format), 0u) << format;
  }
}

TEST(DateText, TimeOfDay) {
  struct TimeRow {
    const char* time;
    uint32_t seconds;
  };
  constexpr TimeRow kRows[] = {
      {"00:00:00", 0},      {"12:00:00", 43200},   {"23:59:59", 86399},
      {"12-34-56", 45296},  {" 1: 2: 3", 3723},    {"25:00:00", 90000},
      {"99:99:99", 362439}, {"12:34:56.9", 45296}, {"", 0},
      {"12", 43200},        {"12:3", 43380},       {"12:34:", 45240},
      {"1", 3600},          {"12:34:5", 45245},    {"ab:cd:ef", 0},
      {"aa:01:ff", 60},
  };
  for (const TimeRow& row : kRows) {
    EXPECT_EQ(Seconds("15Mar1999", row.time, 0), 921456000u + row.seconds) << row.time;
    EXPECT_EQ(Seconds("03/15/99", row.time, 2), 921456000u + row.seconds) << row.time;
    EXPECT_EQ(Seconds("15/03/99", row.time, 3), 921456000u + row.seconds) << row.time;
  }
}

TEST(DateText, TheRangeIsThatOfSigned32Bits) {
  EXPECT_EQ(Seconds("19Jan2038", "03:14:07", 0), 2147483647u);
  EXPECT_EQ(Seconds("19Jan2038", "03:14:08", 0), 0u);
  EXPECT_EQ(Seconds("01Jan2040", "00:00:00", 0), 0u);
  EXPECT_EQ(Seconds("01Jan1970", "00:00:00", 0), 0u);
  EXPECT_EQ(Seconds("01Jan1970", "00:00:01", 0), 1u);
  EXPECT_EQ(Seconds("01Jan999999999", "00:00:00", 0), 0u);
}

// A date without a year is the most recent past one, by months: the current month is this year's.
TEST(DateText, WithoutAYearItIsTheLatestPastMonth) {
  constexpr const char* kMonths[] = {"Jan", "feb", "MAR", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 0; month < 12; ++month) {
    std::string const date = std::string("09") + kMonths[month];
    std::time_t const before = std::time(nullptr);
    uint32_t const seconds = Seconds(date.c_str(), "10:20:30", 5);
    std::time_t const after = std::time(nullptr);
    // A month may begin while the call runs: either answer is right then.
    bool right = false;
    for (std::time_t const now : {before, after}) {
      std::tm const today = *std::localtime(&now);
      int const year = 1900 + (today.tm_mon < month ? today.tm_year - 1 : today.tm_year);
      auto const expected = Utc(year, static_cast<unsigned>(month) + 1, 9, 10, 20, 30);
      right = right || seconds == static_cast<uint32_t>(expected);
    }
    EXPECT_TRUE(right) << date << " is " << seconds;
  }
}

// Day 0 is read as February, which gives 31 January; the year follows the month so read.
TEST(DateText, WithoutAYearADayBelowOneIsTheEndOfJanuary) {
  std::time_t const now = std::time(nullptr);
  std::tm const today = *std::localtime(&now);
  int const year = 1900 + (today.tm_mon < 1 ? today.tm_year - 1 : today.tm_year);
  auto const expected = static_cast<uint32_t>(Utc(year, 1, 31));
  EXPECT_EQ(TX_DateToSecs("00Jan", nullptr, 5), expected);
  EXPECT_EQ(TX_DateToSecs(nullptr, nullptr, 5), expected);
}

struct ZoneRow {
  const char* date;
  const char* time;
  uint32_t seconds;
};

TEST(DateText, Berlin) {
  ScopedZone const zone("Europe/Berlin");
  constexpr ZoneRow kRows[] = {
      {"21Jun2024", "12:34:56", 1718966096},
      {"21Dec2024", "12:34:56", 1734780896},
      // The hour that the autumn change repeats is standard time.
      {"27Oct2024", "01:59:59", 1729987199},
      {"27Oct2024", "02:00:00", 1729990800},
      {"27Oct2024", "02:30:00", 1729992600},
      {"27Oct2024", "02:59:59", 1729994399},
      {"27Oct2024", "03:00:00", 1729994400},
      // The hour that the spring change skips is read in standard time.
      {"31Mar2024", "01:59:59", 1711846799},
      {"31Mar2024", "02:00:00", 1711846800},
      {"31Mar2024", "02:30:00", 1711848600},
      {"31Mar2024", "02:59:59", 1711850399},
      {"31Mar2024", "03:00:00", 1711846800},
      // Before the epoch.
      {"01Jan1970", "00:59:59", 0},
      {"01Jan1970", "01:00:00", 0},
      {"01Jan1970", "01:00:01", 1},
  };
  for (const ZoneRow& row : kRows) {
    EXPECT_EQ(Seconds(row.date, row.time, 0), row.seconds) << row.date << ' ' << row.time;
  }
}

TEST(DateText, NewYork) {
  ScopedZone const zone("America/New_York");
  constexpr ZoneRow kRows[] = {
      {"21Jun2024", "12:34:56", 1718987696}, {"21Dec2024", "12:34:56", 1734802496},
      {"03Nov2024", "00:59:59", 1730609999}, {"03Nov2024", "01:00:00", 1730613600},
      {"03Nov2024", "01:30:00", 1730615400}, {"03Nov2024", "01:59:59", 1730617199},
      {"03Nov2024", "02:00:00", 1730617200}, {"10Mar2024", "01:59:59", 1710053999},
      {"10Mar2024", "02:00:00", 1710054000}, {"10Mar2024", "02:30:00", 1710055800},
      {"10Mar2024", "03:00:00", 1710054000},
  };
  for (const ZoneRow& row : kRows) {
    EXPECT_EQ(Seconds(row.date, row.time, 0), row.seconds) << row.date << ' ' << row.time;
  }
}

// The answer for a stamp in a repeated or skipped hour does not depend on what was asked before.
TEST(DateText, TheSameStampAlwaysGivesTheSameSeconds) {
  ScopedZone const zone("Europe/Berlin");
  for (const char* const before : {"21Jun2024", "21Dec2024", "27Oct2024", "31Mar2024"}) {
    Seconds(before, "00:30:00", 0);
    EXPECT_EQ(Seconds("27Oct2024", "02:30:00", 0), 1729992600u) << "after " << before;
    Seconds(before, "00:30:00", 0);
    EXPECT_EQ(Seconds("31Mar2024", "02:30:00", 0), 1711848600u) << "after " << before;
  }
}

TEST(DateText, AZoneSetBetweenTwoCallsCounts) {
  EXPECT_EQ(Seconds("21Jun2024", "12:34:56", 0), 1718973296u);
  {
    ScopedZone const zone("Europe/Berlin");
    EXPECT_EQ(Seconds("21Jun2024", "12:34:56", 0), 1718966096u);
  }
  {
    ScopedZone const zone("America/New_York");
    EXPECT_EQ(Seconds("21Jun2024", "12:34:56", 0), 1718987696u);
  }
  EXPECT_EQ(Seconds("21Jun2024", "12:34:56", 0), 1718973296u);
}

}  // namespace
