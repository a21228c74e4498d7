// A table of the system's tzdata answers as the C library does with the same zone: for every hour
// of 58 years in both directions, and more closely around each change of the clock. Internal: no
// export takes a table.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "fields/local_stamp.h"
#include "fields/local_time.h"
#include "fields/local_years.h"
#include "support/fresh_zone.h"
#include "support/given_zone.h"

namespace test {
namespace {

using qvslm::Calendar;
using qvslm::i32;
using qvslm::i64;
using qvslm::StampOf;

constexpr i64 kHour = 3600;
constexpr i64 kDay = 24 * kHour;
constexpr int kFirstYear = 1980;
constexpr int kBehindYear = 2038;

constexpr i64 StartOfYear(int year) {
  return qvslm::DaysBeforeYear(year - 1900) * kDay;
}

struct Answer {
  i64 seconds;
  Calendar stamp;

  friend bool operator==(const Answer& a, const Answer& b) {
    return a.seconds == b.seconds && std::memcmp(&a.stamp, &b.stamp, sizeof a.stamp) == 0;
  }
  friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    const Calendar& c = answer.stamp;
    return out << answer.seconds << " for " << c.Year + 1900 << '-' << c.Month + 1 << '-' << c.Day
               << ' ' << c.Hour << ':' << c.Minute << ':' << c.Second << " (day " << c.WeekDay
               << ", " << c.YearDay << ", flag " << c.DaylightFlag << ')';
  }
};

class ZoneByTable : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override { ASSERT_FALSE(changes.empty()) << "no tzdata of " << GetParam(); }

  // What the questions give, of the C library and of the table; both have answered nothing before.
  template <class Ask>
  void Compare(const Ask& ask) {
    auto fromLibrary = [&] {
      FreshZone const zone(GetParam());
      qvslm::ForgetLocalTime();
      return ask();
    }();
    ScopedZone const elsewhere("Pacific/Marquesas");
    GivenZone const zone(changes);
    auto const fromTable = ask();
    ASSERT_EQ(fromTable.size(), fromLibrary.size());
    auto const [given, expected] =
        std::mismatch(fromTable.begin(), fromTable.end(), fromLibrary.begin());
    if (given == fromTable.end()) return;
    FAIL() << "question " << given - fromTable.begin() << ": " << *given << ", not " << *expected;
  }

  std::vector<QvZoneChange> const changes = SystemZone(GetParam());
};

// Both halves of the Earth; half hours ahead, and changes by half an hour; zones that gave up
// daylight time, that have their daylight time in winter, that left out a day, or moved their
// standard time by half an hour back.
INSTANTIATE_TEST_SUITE_P(Zones, ZoneByTable,
                         testing::Values("Africa/Casablanca", "America/Caracas", "America/New_York",
                                         "America/Sao_Paulo", "Asia/Kolkata", "Asia/Tehran",
                                         "Australia/Lord_Howe", "Etc/UTC", "Europe/Berlin",
                                         "Europe/Dublin", "Europe/Moscow", "Pacific/Apia",
                                         "Pacific/Auckland"));

// Every second hour a second earlier.
TEST_P(ZoneByTable, ShowsInstants) {
  Compare([] {
    std::vector<Answer> answers;
    for (i64 at = StartOfYear(kFirstYear); at < StartOfYear(kBehindYear); at += kHour) {
      i64 const seconds = at - at / kHour % 2;
      answers.push_back({seconds, qvslm::LocalCalendar(seconds)});
    }
    return answers;
  });
}

// Of every hour, by all daylight flags: by way of what is remembered of days and of years.
TEST_P(ZoneByTable, ReadsStamps) {
  constexpr int kYears = 10;
  for (int year = kFirstYear; year < kBehindYear; year += kYears) {
    SCOPED_TRACE(year);
    i64 const until = StartOfYear(std::min(year + kYears, kBehindYear));
    Compare([&] {
      std::vector<Answer> answers;
      answers.reserve(static_cast<size_t>(3 * (until - StartOfYear(year)) / kHour));
      for (i64 local = StartOfYear(year); local < until; local += kDay) {
        Calendar const midnight = StampOf(local, -1);
        for (i32 question = 0; question < 24 * 3; ++question) {
          Calendar stamp = midnight;
          stamp.Hour = question / 3;
          stamp.DaylightFlag = question % 3 - 1;
          i32 const seconds = qvslm::LocalSeconds(stamp);
          answers.push_back({seconds, stamp});
        }
      }
      return answers;
    });
    if (HasFatalFailure()) return;
  }
}

// What the zone itself is asked: every half hour of the day around each change, some stamps of quiet
// days, from long before the first change on to the end of the tables.
TEST_P(ZoneByTable, AnswersEachQuestion) {
  std::vector<i64> locals;
  for (i64 local = StartOfYear(1850); local < StartOfYear(2101); local += 97 * kDay + kHour) {
    locals.push_back(local);
  }
  for (const QvZoneChange& change : changes) {
    if (change.From < StartOfYear(1850)) continue;
    i64 const local = change.From + change.Offset;
    for (i64 at = local - 12 * kHour; at < local + 12 * kHour; at += kHour / 2) {
      locals.push_back(at);
      locals.push_back(at - 1);
    }
  }
  Compare([&] {
    std::vector<Answer> answers;
    for (i64 const local : locals) {
      for (i32 const flag : {0, 1}) {
        Answer answer{0, StampOf(local, -1)};
        // Seconds, too, that are carried over.
        if (local % 5 == 0) answer.stamp.Second -= 4000;
        if (local % 7 == 0) answer.stamp.Second += 70;
        qvslm::AskZone(answer.stamp, flag, answer.seconds);
        answers.push_back(answer);
      }
    }
    return answers;
  });
}

}  // namespace
}  // namespace test
