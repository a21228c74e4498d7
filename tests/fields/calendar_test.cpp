// Date and time texts of seconds.
#include <gtest/gtest.h>

#include <string>

#include "qvslmtranslate.h"
#include "support/guarded_buffer.h"
#include "support/scoped_zone.h"

namespace {

using test::GuardedBuffer;
using test::ScopedZone;

// The two texts, written into buffers that end where the header promises.
class Texts {
 public:
  Texts(int32_t seconds, int16_t format) {
    TX_SecsToDate(&seconds, reinterpret_cast<char*>(date_.Data()),
                  reinterpret_cast<char*>(time_.Data()), format);
  }
  std::string Date() const { return Text(date_); }
  std::string Time() const { return Text(time_); }

 private:
  static std::string Text(const GuardedBuffer& buffer) {
    std::string const bytes(buffer.Data(), buffer.Data() + buffer.Size());
    std::size_t const end = bytes.find('\0');
    return end == std::string::npos ? bytes + " without an end" : bytes.substr(0, end);
  }
  GuardedBuffer date_{16, 0xEE};
  GuardedBuffer time_{9, 0xEE};
};

TEST(SecsToDate, EveryFormat) {
  struct Row {
    int16_t format;
    const char* first;   // of 0 seconds
    const char* summer;  // of 21 June 2024
    const char* young;   // of 9 March 2005
  };
  constexpr Row kRows[] = {
      {0, "01Jan1970", "21Jun2024", "09Mar2005"},
      {1, "01Jan 70", "21Jun 24", "09Mar 05"},
      {2, "01/01/70", "06/21/24", "03/09/05"},
      {3, "01/01/70", "21/06/24", "09/03/05"},
      {4, "01-01-1970", "06-21-2024", "03-09-2005"},
      {5, "1970-01-01", "2024-06-21", "2005-03-09"},
      {6, "Thu, 01/01/1970", "Fri, 06/21/2024", "Wed, 03/09/2005"},
      // Every other format counts as 5.
      {7, "1970-01-01", "2024-06-21", "2005-03-09"},
      {-1, "1970-01-01", "2024-06-21", "2005-03-09"},
      {32767, "1970-01-01", "2024-06-21", "2005-03-09"},
      {-32768, "1970-01-01", "2024-06-21", "2005-03-09"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Texts(0, row.format).Date(), row.first) << row.format;
    EXPECT_EQ(Texts(0, row.format).Time(), "00:00:00") << row.format;
    EXPECT_EQ(Texts(1718973296, row.format).Date(), row.summer) << row.format;
    EXPECT_EQ(Texts(1718973296, row.format).Time(), "12:34:56") << row.format;
    EXPECT_EQ(Texts(1110326400 + 3661, row.format).Date(), row.young) << row.format;
    EXPECT_EQ(Texts(1110326400 + 3661, row.format).Time(), "01:01:01") << row.format;
  }
}

TEST(SecsToDate, MonthAndDayNames) {
  struct Row {
    int32_t seconds;  // the 9th of each month of 2005
    const char* format0;
    const char* format6;
  };
  constexpr Row kRows[] = {
      {1105228800, "09Jan2005", "Sun, 01/09/2005"}, {1107907200, "09Feb2005", "Wed, 02/09/2005"},
      {1110326400, "09Mar2005", "Wed, 03/09/2005"}, {1113004800, "09Apr2005", "Sat, 04/09/2005"},
      {1115596800, "09May2005", "Mon, 05/09/2005"}, {1118275200, "09Jun2005", "Thu, 06/09/2005"},
      {1120867200, "09Jul2005", "Sat, 07/09/2005"}, {1123545600, "09Aug2005", "Tue, 08/09/2005"},
      {1126224000, "09Sep2005", "Fri, 09/09/2005"}, {1128816000, "09Oct2005", "Sun, 10/09/2005"},
      {1131494400, "09Nov2005", "Wed, 11/09/2005"}, {1134086400, "09Dec2005", "Fri, 12/09/2005"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Texts(row.seconds, 0).Date(), row.format0);
    EXPECT_EQ(Texts(row.seconds, 6).Date(), row.format6);
  }
}

TEST(SecsToDate, TwoDigitYears) {
  EXPECT_EQ(Texts(946684799, 1).Date(), "31Dec 99");
  EXPECT_EQ(Texts(946684799, 2).Date(), "12/31/99");
  EXPECT_EQ(Texts(946684800, 1).Date(), "01Jan 00");
  EXPECT_EQ(Texts(946684800, 2).Date(), "01/01/00");
  EXPECT_EQ(Texts(946684800, 3).Date(), "01/01/00");
}

TEST(SecsToDate, TheLastSecondThatFits) {
  EXPECT_EQ(Texts(2147483647, 6).Date(), "Tue, 01/19/2038");
  EXPECT_EQ(Texts(2147483647, 6).Time(), "03:14:07");
}

TEST(SecsToDate, NegativeSecondsCountAsZero) {
  for (int32_t const seconds : {-1, -86400, -2147483647 - 1}) {
    EXPECT_EQ(Texts(seconds, 5).Date(), "1970-01-01");
    EXPECT_EQ(Texts(seconds, 5).Time(), "00:00:00");
  }
}

struct ZoneRow {
  int32_t seconds;
  const char* date;
  const char* time;
};

template <std::size_t Count>
void ExpectInZone(const char* name, const ZoneRow (&rows)[Count]) {
  ScopedZone const zone(name);
  for (const ZoneRow& row : rows) {
    EXPECT_EQ(Texts(row.seconds, 0).Date(), row.date) << name << ' ' << row.seconds;
    EXPECT_EQ(Texts(row.seconds, 0).Time(), row.time) << name << ' ' << row.seconds;
  }
}

// Summer values show standard time: the hour less one.
TEST(SecsToDate, SummerShowsStandardTime) {
  constexpr ZoneRow kBerlin[] = {
      {1734780896, "21Dec2024", "12:34:56"},
      {1718966096, "21Jun2024", "11:34:56"},  // 12:34:56 by the summer clock
      {1718922600, "20Jun2024", "23:30:00"},  // 21 June, 00:30 by the summer clock
      {1719786600, "30Jun2024", "23:30:00"},  // 1 July, 00:30 by the summer clock
  };
  ExpectInZone("Europe/Berlin", kBerlin);
  constexpr ZoneRow kNewYork[] = {
      {1734802496, "21Dec2024", "12:34:56"},
      {1718987696, "21Jun2024", "11:34:56"},
  };
  ExpectInZone("America/New_York", kNewYork);
}

// The hour less one is shown as the clock of that hour showed it, with no second look at its flag.
TEST(SecsToDate, AtTheChangesTheHourBeforeIsShownAsItsOwnClockHadIt) {
  constexpr ZoneRow kBerlin[] = {
      {1711846799, "31Mar2024", "01:59:59"},  // the last second of winter
      {1711846800, "31Mar2024", "01:00:00"},  // 03:00 summer; an hour earlier it was 01:00 winter
      {1711848600, "31Mar2024", "01:30:00"},
      {1711850400, "31Mar2024", "03:00:00"},  // 04:00 summer; an hour earlier 03:00 summer
      {1729989000, "27Oct2024", "01:30:00"},  // 02:30 summer
      {1729990799, "27Oct2024", "01:59:59"},  // the last second of summer
      {1729990800, "27Oct2024", "02:00:00"},  // 02:00 winter
      {1729992600, "27Oct2024", "02:30:00"},
  };
  ExpectInZone("Europe/Berlin", kBerlin);
  constexpr ZoneRow kNewYork[] = {
      {1710053999, "10Mar2024", "01:59:59"},
      {1710054000, "10Mar2024", "01:00:00"},
      {1730611800, "03Nov2024", "00:30:00"},  // 01:30 summer
      {1730615400, "03Nov2024", "01:30:00"},  // 01:30 winter
  };
  ExpectInZone("America/New_York", kNewYork);
}

// South of the equator the epoch lies in summer, and its standard hour before the epoch.
TEST(SecsToDate, TheEpochInSummer) {
  constexpr ZoneRow kRows[] = {
      {0, "31Dec1969", "20:00:00"},
      {-5, "31Dec1969", "20:00:00"},
      {3600, "31Dec1969", "21:00:00"},
  };
  ExpectInZone("America/Santiago", kRows);
}

TEST(SecsToDate, NullTextsArePassedOver) {
  int32_t const seconds = 1718973296;
  GuardedBuffer date(16, 0xEE);
  GuardedBuffer time(9, 0xEE);
  TX_SecsToDate(&seconds, reinterpret_cast<char*>(date.Data()), nullptr, 0);
  EXPECT_STREQ(reinterpret_cast<char*>(date.Data()), "21Jun2024");
  TX_SecsToDate(&seconds, nullptr, reinterpret_cast<char*>(time.Data()), 0);
  EXPECT_STREQ(reinterpret_cast<char*>(time.Data()), "12:34:56");
  TX_SecsToDate(&seconds, nullptr, nullptr, 0);
}

TEST(SecsToDate, NullSecondsDoNothing) {
  GuardedBuffer date(16, 0xEE);
  GuardedBuffer time(9, 0xEE);
  TX_SecsToDate(nullptr, reinterpret_cast<char*>(date.Data()), reinterpret_cast<char*>(time.Data()),
                0);
  EXPECT_EQ(std::string(date.Data(), date.Data() + 16), std::string(16, '\xEE'));
  EXPECT_EQ(std::string(time.Data(), time.Data() + 9), std::string(9, '\xEE'));
}

// What was written can be read back, in every form that holds the whole date.
TEST(SecsToDate, TextsReadBack) {
  constexpr int16_t kFormats[] = {0, 4};
  for (int32_t const seconds : {1, 86399, 951782400, 1718973296, 2147483647}) {
    for (int16_t const format : kFormats) {
      Texts const texts(seconds, format);
      EXPECT_EQ(TX_DateToSecs(texts.Date().c_str(), texts.Time().c_str(), format),
                static_cast<uint32_t>(seconds))
          << seconds << " format " << format;
    }
  }
}

}  // namespace
