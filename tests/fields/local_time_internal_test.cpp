// The host's zone: stamps to seconds and back, in zones whose clocks change, and beyond what 32
// bits or the calendar hold. Internal: records show times that were put together from several
// readings.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "fields/local_time.h"
#include "support/calendar_at.h"
#include "support/scoped_zone.h"
#include "support/utc.h"

namespace {

using qvslm::Calendar;
using qvslm::i32;
using qvslm::i64;
using qvslm::LocalCalendar;
using qvslm::LocalSeconds;
using qvslm::LocalSecondsByTwoFlags;
using test::At;
using test::Utc;

constexpr i32 kHour = 3600;
constexpr i32 kHighest = std::numeric_limits<i32>::max();

// A zone that the memory of the one before knows nothing of.
class Zone {
 public:
  explicit Zone(const std::string& name) : zone_(name) { qvslm::ForgetLocalTime(); }
  ~Zone() { qvslm::ForgetLocalTime(); }

 private:
  test::ScopedZone const zone_;
};

i32 Seconds(Calendar calendar) {
  return LocalSeconds(calendar);
}

std::vector<int> Fields(const Calendar& c) {
  return {c.Year + 1900, c.Month + 1, c.Day, c.Hour, c.Minute, c.Second, c.DaylightFlag};
}

// The stamp as the calendar has it, once it is brought into range.
std::vector<int> InRange(Calendar calendar) {
  LocalSeconds(calendar);
  return Fields(calendar);
}

TEST(ClearedCalendar, KnowsNoDaylight) {
  Calendar const calendar = qvslm::ClearedCalendar();
  EXPECT_EQ(Fields(calendar), (std::vector{1900, 1, 0, 0, 0, 0, -1}));
}

TEST(LocalSeconds, CarryWhatIsOutOfRange) {
  Zone const zone("UTC");
  struct {
    Calendar stamp;
    i32 seconds;
    std::vector<int> inRange;
  } const rows[] = {
      {At(2024, 6, 21, 12), Utc(2024, 6, 21, 12), {2024, 6, 21, 12, 0, 0, 0}},
      {At(2024, 6, 21, 23, 59, 60), Utc(2024, 6, 22), {2024, 6, 22, 0, 0, 0, 0}},
      {At(2024, 6, 21, 23, 60), Utc(2024, 6, 22), {2024, 6, 22, 0, 0, 0, 0}},
      {At(2024, 6, 21, 24), Utc(2024, 6, 22), {2024, 6, 22, 0, 0, 0, 0}},
      {At(2024, 6, 21, 99, 99, 99), Utc(2024, 6, 25, 4, 40, 39), {2024, 6, 25, 4, 40, 39, 0}},
      {At(2024, 6, 21, 0, 0, -1), Utc(2024, 6, 20, 23, 59, 59), {2024, 6, 20, 23, 59, 59, 0}},
      {At(2024, 6, 21, -25), Utc(2024, 6, 19, 23), {2024, 6, 19, 23, 0, 0, 0}},
      {At(2024, 6, 31), Utc(2024, 7, 1), {2024, 7, 1, 0, 0, 0, 0}},
      {At(2024, 6, 32), Utc(2024, 7, 2), {2024, 7, 2, 0, 0, 0, 0}},
      {At(2024, 6, 99), Utc(2024, 9, 7), {2024, 9, 7, 0, 0, 0, 0}},
      {At(2024, 3, 0), Utc(2024, 2, 29), {2024, 2, 29, 0, 0, 0, 0}},
      {At(2023, 2, 29), Utc(2023, 3, 1), {2023, 3, 1, 0, 0, 0, 0}},
      {At(2024, 13, 1), Utc(2025, 1, 1), {2025, 1, 1, 0, 0, 0, 0}},
      {At(2024, 0, 1), Utc(2023, 12, 1), {2023, 12, 1, 0, 0, 0, 0}},
      {At(2024, -99, 1), Utc(2015, 9, 1), {2015, 9, 1, 0, 0, 0, 0}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Seconds(row.stamp), row.seconds);
    EXPECT_EQ(InRange(row.stamp), row.inRange);
  }
}

TEST(LocalSeconds, TellTheDaysOfWeekAndYear) {
  Zone const zone("UTC");
  for (int round = 0; round < 2; ++round) {  // converted, then remembered
    for (int const hour : {0, 12, 23}) {
      Calendar friday = At(2024, 6, 21, hour);
      LocalSeconds(friday);
      EXPECT_EQ(friday.WeekDay, 5);
      EXPECT_EQ(friday.YearDay, 172);
    }
    Calendar last = At(2024, 12, 31);
    LocalSeconds(last);
    EXPECT_EQ(last.WeekDay, 2);
    EXPECT_EQ(last.YearDay, 365);
  }
}

// -1 stands for what 32 bits do not hold, and for itself.
TEST(LocalSeconds, EndWith32Bits) {
  Zone const zone("UTC");
  EXPECT_EQ(Seconds(At(2038, 1, 19, 3, 14, 7)), kHighest);
  EXPECT_EQ(Seconds(At(2038, 1, 19, 3, 14, 8)), -1);
  EXPECT_EQ(Seconds(At(2038, 1, 19, 4)), -1);
  EXPECT_EQ(Seconds(At(2038, 1, 20)), -1);
  EXPECT_EQ(Seconds(At(1901, 12, 13, 20, 45, 52)), -kHighest - 1);
  EXPECT_EQ(Seconds(At(1901, 12, 13, 20, 45, 51)), -1);
  EXPECT_EQ(Seconds(At(1901, 12, 12)), -1);
  EXPECT_EQ(Seconds(At(1970, 1, 1)), 0);
  EXPECT_EQ(Seconds(At(1969, 12, 31, 23, 59, 59)), -1);
  EXPECT_EQ(Seconds(At(1969, 12, 31, 23, 59, 58)), -2);
}

TEST(LocalSeconds, OfYearsFarOff) {
  for (const char* const name : {"UTC", "Europe/Berlin"}) {
    Zone const zone(name);
    for (int const year : {1900, 1899, 1, 0, -1, -4713, 2039, 2100, 2400, 9999, 10000, 11899, 11900,
                           30000, 1000000, kHighest}) {
      EXPECT_EQ(Seconds(At(year, 6, 21, 12)), -1) << year;
    }
    Calendar lowest = At(1900, 1, 1);
    lowest.Year = -kHighest - 1;
    EXPECT_EQ(Seconds(lowest), -1);
    // Far years are in the calendar, though not in 32 bits.
    EXPECT_EQ(InRange(At(2100, 2, 29, 12)), (std::vector{2100, 3, 1, 12, 0, 0, 0}));
    // Fields that lead far off, and back again.
    EXPECT_EQ(Seconds(At(2024, 6, kHighest)), -1);
    Calendar wide = At(2024, 6, 21);
    wide.Month = kHighest;
    EXPECT_EQ(Seconds(wide), -1);
  }
  Zone const zone("UTC");
  EXPECT_EQ(Seconds(At(2124, 6 - 1200, 21, 12)), Utc(2024, 6, 21, 12));
}

struct Reading {
  Calendar stamp;
  i32 standard;  // by a flag of 0, or below 0
  i32 daylight;  // by a flag above 0
};

void ExpectReadings(const std::vector<Reading>& readings) {
  for (const Reading& reading : readings) {
    SCOPED_TRACE(testing::PrintToString(Fields(reading.stamp)));
    for (int const flag : {-1, -7}) {
      Calendar const stamp = reading.stamp;
      EXPECT_EQ(LocalSecondsByTwoFlags(stamp, flag, 1).second, reading.daylight);
    }
    auto const by = [&](int flag) {
      Calendar stamp = reading.stamp;
      stamp.DaylightFlag = flag;
      return LocalSeconds(stamp);
    };
    EXPECT_EQ(by(0), reading.standard);
    EXPECT_EQ(by(1), reading.daylight);
    EXPECT_EQ(by(7), reading.daylight);
    auto const [first, second] = LocalSecondsByTwoFlags(reading.stamp, 1, 0);
    EXPECT_EQ(first, reading.daylight);
    EXPECT_EQ(second, reading.standard);
  }
}

// A flag says how a stamp was meant, also where the other clock is in force.
TEST(LocalSeconds, ByDaylightFlag) {
  Zone const zone("Europe/Berlin");
  ExpectReadings({
      {At(2024, 1, 15, 12), Utc(2024, 1, 15, 11), Utc(2024, 1, 15, 10)},
      {At(2024, 7, 15, 12), Utc(2024, 7, 15, 11), Utc(2024, 7, 15, 10)},
      {At(2024, 3, 31, 1, 59, 59), Utc(2024, 3, 31, 0, 59, 59), Utc(2024, 3, 30, 23, 59, 59)},
      {At(2024, 3, 31, 2, 30), Utc(2024, 3, 31, 1, 30), Utc(2024, 3, 31, 0, 30)},
      {At(2024, 3, 31, 3), Utc(2024, 3, 31, 2), Utc(2024, 3, 31, 1)},
      {At(2024, 10, 27, 1, 59, 59), Utc(2024, 10, 27, 0, 59, 59), Utc(2024, 10, 26, 23, 59, 59)},
      {At(2024, 10, 27, 2), Utc(2024, 10, 27, 1), Utc(2024, 10, 27)},
      {At(2024, 10, 27, 2, 59, 59), Utc(2024, 10, 27, 1, 59, 59), Utc(2024, 10, 27, 0, 59, 59)},
      {At(2024, 10, 27, 3), Utc(2024, 10, 27, 2), Utc(2024, 10, 27, 1)},
  });
  // The calendar shows the clock that was in force.
  EXPECT_EQ(InRange(At(2024, 7, 15, 12, 0, 0, 0)), (std::vector{2024, 7, 15, 13, 0, 0, 1}));
  EXPECT_EQ(InRange(At(2024, 1, 15, 0, 30, 0, 1)), (std::vector{2024, 1, 14, 23, 30, 0, 0}));
  EXPECT_EQ(InRange(At(2024, 7, 15, 12, 0, 0, 1)), (std::vector{2024, 7, 15, 12, 0, 0, 1}));
}

// Without a flag the zone decides; what it leaves open is standard time.
TEST(LocalSeconds, OfTheDaysOfTheChange) {
  Zone const zone("Europe/Berlin");
  struct {
    Calendar stamp;
    i32 seconds;
    std::vector<int> inRange;
  } const rows[] = {
      {At(2024, 3, 31, 0, 0, 0), Utc(2024, 3, 30, 23), {2024, 3, 31, 0, 0, 0, 0}},
      {At(2024, 3, 31, 1, 59, 59), Utc(2024, 3, 31, 0, 59, 59), {2024, 3, 31, 1, 59, 59, 0}},
      {At(2024, 3, 31, 2, 0, 0), Utc(2024, 3, 31, 1), {2024, 3, 31, 3, 0, 0, 1}},
      {At(2024, 3, 31, 2, 30, 5), Utc(2024, 3, 31, 1, 30, 5), {2024, 3, 31, 3, 30, 5, 1}},
      {At(2024, 3, 31, 3, 0, 0), Utc(2024, 3, 31, 1), {2024, 3, 31, 3, 0, 0, 1}},
      {At(2024, 3, 31, 23, 59, 59), Utc(2024, 3, 31, 21, 59, 59), {2024, 3, 31, 23, 59, 59, 1}},
      {At(2024, 10, 27, 0, 0, 0), Utc(2024, 10, 26, 22), {2024, 10, 27, 0, 0, 0, 1}},
      {At(2024, 10, 27, 1, 59, 59), Utc(2024, 10, 26, 23, 59, 59), {2024, 10, 27, 1, 59, 59, 1}},
      {At(2024, 10, 27, 2, 0, 0), Utc(2024, 10, 27, 1), {2024, 10, 27, 2, 0, 0, 0}},
      {At(2024, 10, 27, 2, 30, 0), Utc(2024, 10, 27, 1, 30), {2024, 10, 27, 2, 30, 0, 0}},
      {At(2024, 10, 27, 3, 0, 0), Utc(2024, 10, 27, 2), {2024, 10, 27, 3, 0, 0, 0}},
      {At(2024, 10, 26, 26, 30, 0), Utc(2024, 10, 27, 1, 30), {2024, 10, 27, 2, 30, 0, 0}},
      {At(2024, 7, 15, 12), Utc(2024, 7, 15, 10), {2024, 7, 15, 12, 0, 0, 1}},
      {At(2024, 1, 15, 12), Utc(2024, 1, 15, 11), {2024, 1, 15, 12, 0, 0, 0}},
  };
  for (int round = 0; round < 2; ++round) {
    for (const auto& row : rows) {
      EXPECT_EQ(Seconds(row.stamp), row.seconds);
      EXPECT_EQ(InRange(row.stamp), row.inRange);
    }
  }
}

// The clock of Lord Howe Island changes by half an hour, within an hour: standard time is 10:30
// ahead of UTC, summer time 11:00.
TEST(LocalSeconds, OfHoursInWhichTheClockChanges) {
  Zone const zone("Australia/Lord_Howe");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Seconds(At(2024, 10, 6, 1, 59, 59)), Utc(2024, 10, 5, 15, 29, 59));
    EXPECT_EQ(Seconds(At(2024, 10, 6, 2, 15)), Utc(2024, 10, 5, 15, 45));  // skipped
    EXPECT_EQ(Seconds(At(2024, 10, 6, 2, 45)), Utc(2024, 10, 5, 15, 45));
    EXPECT_EQ(Seconds(At(2024, 4, 7, 1, 15)), Utc(2024, 4, 6, 14, 15));
    EXPECT_EQ(Seconds(At(2024, 4, 7, 1, 45)), Utc(2024, 4, 6, 15, 15));  // the second of two
    EXPECT_EQ(Seconds(At(2024, 4, 7, 2, 15)), Utc(2024, 4, 6, 15, 45));
  }
}

// Days that have the same number in another month or year are other days.
TEST(LocalSeconds, TellDaysOfOneNumberApart) {
  Zone const zone("Europe/Berlin");
  for (int year = 1970; year < 2038; ++year) {
    for (int month = 1; month <= 12; ++month) {
      Calendar stamp = At(year, month, 5, 12);
      bool const daylight = LocalCalendar(LocalSeconds(stamp)).DaylightFlag > 0;
      ASSERT_EQ(Seconds(At(year, month, 5, 12)),
                Utc(year, static_cast<unsigned>(month), 5, daylight ? 10 : 11));
    }
  }
}

// What was asked before has no part in the answer: every half hour of the months of the changes, in
// order, in no order, and each alone. (A day that a zone leaves out, as Apia did 30 December 2011,
// is no instant by either clock, and is as the C library has it.)
TEST(LocalSeconds, DoNotDependOnWhatWasAskedBefore) {
  std::mt19937 numbers(1);
  for (const char* const name : {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe",
                                 "Africa/Casablanca", "Pacific/Apia", "UTC"}) {
    Zone const zone(name);
    SCOPED_TRACE(name);
    std::vector<Calendar> stamps;
    for (int const month : {3, 4, 9, 10, 11}) {
      for (int const year : {2011, 2024}) {
        for (int half = 0; half < 31 * 48; ++half) {
          stamps.push_back(At(year, month, 1 + half / 48, half / 2 % 24, half % 2 * 30, half % 60,
                              half % 3 - 1));
        }
      }
    }
    std::vector<i32> alone;
    std::vector<std::vector<int>> aloneInRange;
    for (Calendar stamp : stamps) {
      qvslm::ForgetLocalTime();
      alone.push_back(LocalSeconds(stamp));
      aloneInRange.push_back(Fields(stamp));
    }
    std::vector<std::size_t> order(stamps.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    for (int round = 0; round < 2; ++round) {
      for (std::size_t const i : order) {
        Calendar stamp = stamps[i];
        ASSERT_EQ(LocalSeconds(stamp), alone[i]) << testing::PrintToString(Fields(stamps[i]));
        ASSERT_EQ(Fields(stamp), aloneInRange[i]) << testing::PrintToString(Fields(stamps[i]));
      }
      std::shuffle(order.begin(), order.end(), numbers);
    }
  }
}

// The stamp of an instant, with its daylight flag, is that instant again.
TEST(LocalSeconds, AreThoseOfTheStampTheyMake) {
  for (const char* const name : {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe",
                                 "Asia/Kathmandu", "Pacific/Apia", "UTC"}) {
    Zone const zone(name);
    SCOPED_TRACE(name);
    for (int const year : {1971, 1999, 2011, 2024, 2037}) {
      i32 const begin = Utc(year, 1, 2);
      for (i32 at = 0; at < 363 * 24 * kHour; at += 1799) {
        Calendar stamp = LocalCalendar(begin + at);
        ASSERT_EQ(LocalSeconds(stamp), begin + at) << testing::PrintToString(Fields(stamp));
      }
    }
  }
}

TEST(LocalSeconds, FollowTheZoneOnceTheOldOneIsForgotten) {
  Zone const berlin("Europe/Berlin");
  EXPECT_EQ(Seconds(At(2024, 7, 15, 12)), Utc(2024, 7, 15, 10));
  {
    Zone const newYork("America/New_York");
    EXPECT_EQ(Seconds(At(2024, 7, 15, 12)), Utc(2024, 7, 15, 16));
  }
  EXPECT_EQ(Seconds(At(2024, 7, 15, 12)), Utc(2024, 7, 15, 10));
}

TEST(LocalSecondsByTwoFlags, CarryWhatIsOutOfRange) {
  Zone const zone("Europe/Berlin");
  auto const [first, second] = LocalSecondsByTwoFlags(At(2024, 10, 27, 1, 90), 1, 0);
  EXPECT_EQ(first, Utc(2024, 10, 27, 0, 30));
  EXPECT_EQ(second, Utc(2024, 10, 27, 1, 30));
  auto const [low, high] = LocalSecondsByTwoFlags(At(2038, 1, 19, 4, 14, 8), 0, 1);
  EXPECT_EQ(low, -1);
  EXPECT_EQ(high, kHighest - 3599);
}

TEST(LocalCalendar, OfInstants) {
  {
    Zone const zone("UTC");
    EXPECT_EQ(Fields(LocalCalendar(0)), (std::vector{1970, 1, 1, 0, 0, 0, 0}));
    EXPECT_EQ(LocalCalendar(0).WeekDay, 4);
    EXPECT_EQ(Fields(LocalCalendar(-1)), (std::vector{1969, 12, 31, 23, 59, 59, 0}));
    EXPECT_EQ(Fields(LocalCalendar(4102444800)), (std::vector{2100, 1, 1, 0, 0, 0, 0}));
    EXPECT_EQ(LocalCalendar(std::numeric_limits<i64>::max()).DaylightFlag, -1);
  }
  Zone const zone("Europe/Berlin");
  EXPECT_EQ(Fields(LocalCalendar(Utc(2024, 10, 27, 0, 30))),
            (std::vector{2024, 10, 27, 2, 30, 0, 1}));
  EXPECT_EQ(Fields(LocalCalendar(Utc(2024, 10, 27, 1, 30))),
            (std::vector{2024, 10, 27, 2, 30, 0, 0}));
}

TEST(PresentTime, IsThatOfTheHost) {
  Zone const zone("Europe/Berlin");
  std::time_t const before = std::time(nullptr);
  i32 const seconds = qvslm::PresentSeconds();
  Calendar stamp = qvslm::PresentCalendar();
  i32 const ofStamp = LocalSeconds(stamp);
  std::time_t const after = std::time(nullptr);
  EXPECT_GE(seconds, before);
  EXPECT_LE(seconds, after);
  EXPECT_GE(ofStamp, before);
  EXPECT_LE(ofStamp, after);
}

}  // namespace
