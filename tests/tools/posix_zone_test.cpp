// Rules of zones as POSIX writes them, and the changes that they make of years.
#include "posix_zone.h"

#include <gtest/gtest.h>

#include <string_view>
#include <tuple>
#include <vector>

#include "support/utc.h"

namespace test {
namespace {

using Row = std::tuple<std::int64_t, int, int>;

std::vector<Row> Rows(std::string_view rule, int first, int last) {
  auto const zone = zone_info::ParsePosixZone(rule);
  if (!zone) return {};
  std::vector<Row> rows;
  for (const QvZoneChange& change : zone_info::ChangesOfYears(*zone, first, last)) {
    rows.emplace_back(change.From, change.Offset, change.Daylight);
  }
  return rows;
}

TEST(PosixZone, WithoutDaylightTime) {
  EXPECT_EQ(Rows("UTC0", 2020, 2025), (std::vector<Row>{{Utc(2020, 1, 1), 0, 0}}));
  EXPECT_EQ(Rows("<+0545>-5:45", 2020, 2020), (std::vector<Row>{{Utc(2020, 1, 1), 20700, 0}}));
  EXPECT_EQ(Rows("<-03>3", 2020, 2020), (std::vector<Row>{{Utc(2020, 1, 1), -10800, 0}}));
  EXPECT_EQ(Rows("LMT+0:25:21", 2020, 2020), (std::vector<Row>{{Utc(2020, 1, 1), -1521, 0}}));
}

TEST(PosixZone, ByWeekdays) {
  EXPECT_EQ(Rows("CET-1CEST,M3.5.0,M10.5.0/3", 2024, 2025),
            (std::vector<Row>{{Utc(2024, 3, 31, 1), 7200, 1},
                              {Utc(2024, 10, 27, 1), 3600, 0},
                              {Utc(2025, 3, 30, 1), 7200, 1},
                              {Utc(2025, 10, 26, 1), 3600, 0}}));
  EXPECT_EQ(Rows("EST5EDT,M3.2.0,M11.1.0", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 3, 10, 7), -14400, 1}, {Utc(2024, 11, 3, 6), -18000, 0}}));
}

// Daylight time begins in October, and is half an hour.
TEST(PosixZone, SouthOfTheEquator) {
  EXPECT_EQ(
      Rows("<+1030>-10:30<+11>-11,M10.1.0,M4.1.0", 2024, 2024),
      (std::vector<Row>{{Utc(2024, 4, 6, 15), 37800, 0}, {Utc(2024, 10, 5, 15, 30), 39600, 1}}));
}

// What is called daylight time is an hour behind standard time.
TEST(PosixZone, WithDaylightTimeInWinter) {
  EXPECT_EQ(Rows("IST-1GMT0,M10.5.0,M3.5.0/1", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 3, 31, 1), 3600, 0}, {Utc(2024, 10, 27, 1), 0, 1}}));
}

TEST(PosixZone, ByDays) {
  // Day 60 without leap days is the first of March; counted with them from 0, the last of February.
  EXPECT_EQ(Rows("AAA0BBB,J60,59/0", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 2, 28, 23), 0, 0}, {Utc(2024, 3, 1, 2), 3600, 1}}));
  EXPECT_EQ(Rows("AAA0BBB,J60,59/0", 2023, 2023),
            (std::vector<Row>{{Utc(2023, 2, 28, 23), 0, 0}, {Utc(2023, 3, 1, 2), 3600, 1}}));
}

// By a rule for daylight time in all the year, the end of one and the start of the next are one
// instant, and the start comes behind.
TEST(PosixZone, WithDaylightTimeForEver) {
  EXPECT_EQ(Rows("XXX3EDT4,0/0,J365/23", 2024, 2025),
            (std::vector<Row>{{Utc(2024, 1, 1, 3), -14400, 1},
                              {Utc(2025, 1, 1, 3), -10800, 0},
                              {Utc(2025, 1, 1, 3), -14400, 1},
                              {Utc(2026, 1, 1, 3), -10800, 0}}));
}

// The leap day counts from March on; the fifth Monday of February 2021 would be the first of March.
TEST(PosixZone, InJanuaryAndFebruary) {
  EXPECT_EQ(Rows("AAA0BBB,J10,M2.5.1/0", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 1, 10, 2), 3600, 1}, {Utc(2024, 2, 25, 23), 0, 0}}));
  EXPECT_EQ(Rows("AAA0BBB,J10,M2.5.1/0", 2021, 2021),
            (std::vector<Row>{{Utc(2021, 1, 10, 2), 3600, 1}, {Utc(2021, 2, 21, 23), 0, 0}}));
}

// The hours of a rule go beyond its day.
TEST(PosixZone, ByHoursOfOtherDays) {
  EXPECT_EQ(Rows("<-02>2<-01>,M3.5.0/-1,M10.5.0/0", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 3, 31, 1), -3600, 1}, {Utc(2024, 10, 27, 1), -7200, 0}}));
  EXPECT_EQ(Rows("EET-2EEST,M3.4.4/50,M10.4.4/50", 2024, 2024),
            (std::vector<Row>{{Utc(2024, 3, 30, 0), 10800, 1}, {Utc(2024, 10, 25, 23), 7200, 0}}));
}

TEST(PosixZone, ThatIsNone) {
  for (const char* const text : {"",
                                 "C",
                                 "CET",
                                 "CE-1",
                                 "CET-1CEST",
                                 "CET-1CEST,",
                                 "CET-1CEST,M3.5.0",
                                 "CET-1CEST,M3.5.0,M10.5.0/3 ",
                                 "CET-1CEST,M13.5.0,M10.5.0",
                                 "CET-1CEST,M3.6.0,M10.5.0",
                                 "CET-1CEST,M3.0.0,M10.5.0",
                                 "CET-1CEST,M3.5.7,M10.5.0",
                                 "CET-1CEST,J0,J10",
                                 "CET-1CEST,J366,J10",
                                 "CET-1CEST,366,10",
                                 "CET-1CEST,M3.5.0/168,M10.5.0",
                                 "CET-25",
                                 "CET-1:60",
                                 "CET-1:00:60",
                                 "<CET-1",
                                 "<+5>-5",
                                 "CET-1234567890123456789"}) {
    EXPECT_FALSE(zone_info::ParsePosixZone(text).has_value()) << text;
  }
}

}  // namespace
}  // namespace test
