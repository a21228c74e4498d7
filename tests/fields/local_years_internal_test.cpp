// What is learned of whole years is what the zone says to each stamp, by both daylight flags.
#include <gtest/gtest.h>

#include "fields/local_time.h"
#include "fields/local_years.h"
#include "support/scoped_zone.h"

namespace test {
namespace {

using qvslm::AskZone;
using qvslm::Calendar;
using qvslm::ClearedCalendar;
using qvslm::DaysBeforeYear;
using qvslm::FindInYear;
using qvslm::i32;
using qvslm::i64;
using qvslm::LocalInstant;

constexpr i32 kDay = 86400;

class LearnedYears : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Zones, LearnedYears,
                         testing::Values("UTC", "Europe/Berlin", "Europe/Moscow",
                                         "Australia/Lord_Howe", "America/Sao_Paulo",
                                         "Africa/Casablanca", "Europe/Dublin",
                                         "EST5EDT,M3.2.0,M11.1.0"));

// Years at the ends of what packed dates reach, and those in which the zones gave up daylight time
// or moved their standard.
TEST_P(LearnedYears, AnswerAsTheZoneDoes) {
  ScopedZone const zone(GetParam());
  qvslm::ForgetLocalTime();
  for (i32 const year : {70, 96, 111, 114, 119, 124, 150, 169}) {
    for (i32 const flag : {0, 1}) {
      for (i32 second = 1800; second < 365 * kDay; second += 3 * 3600) {
        LocalInstant learned{};
        ASSERT_TRUE(FindInYear(year, second, flag, learned));
        Calendar stamp = ClearedCalendar();
        stamp.Year = year;
        stamp.Day = 1 + second / kDay;
        stamp.Second = second % kDay;
        stamp.Hour = stamp.Second / 3600;
        stamp.Minute = stamp.Second / 60 % 60;
        stamp.Second %= 60;
        i64 seconds = 0;
        bool const found = AskZone(stamp, flag, seconds);
        ASSERT_EQ(learned.found, found) << year << ' ' << second << ' ' << flag;
        ASSERT_EQ(learned.seconds, seconds) << year << ' ' << second << ' ' << flag;
        ASSERT_EQ(learned.flag, stamp.DaylightFlag) << year << ' ' << second << ' ' << flag;
      }
    }
  }
}

TEST(DaysBeforeYears, CountLeapDays) {
  EXPECT_EQ(DaysBeforeYear(100), 10957);  // 2000-01-01
  EXPECT_EQ(DaysBeforeYear(101), 11323);
  EXPECT_EQ(DaysBeforeYear(201), 47847);  // 2100 is no leap year
}

}  // namespace
}  // namespace test
