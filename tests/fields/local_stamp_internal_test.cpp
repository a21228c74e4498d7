// Stamps as numbers. Internal: exports take and give stamps through a zone.
#include <gtest/gtest.h>

#include "fields/local_stamp.h"
#include "support/calendar_at.h"

namespace {

using qvslm::Calendar;
using qvslm::FloorOf;
using qvslm::i64;
using qvslm::LocalCount;
using qvslm::StampOf;
using qvslm::YearOfDay;
using test::At;

TEST(LocalStamp, Floors) {
  EXPECT_EQ(FloorOf(7, 4), 1);
  EXPECT_EQ(FloorOf(8, 4), 2);
  EXPECT_EQ(FloorOf(-1, 4), -1);
  EXPECT_EQ(FloorOf(-4, 4), -1);
  EXPECT_EQ(FloorOf(-5, 4), -2);
}

TEST(LocalStamp, DaysOfYears) {
  struct {
    i64 day, year, dayOfYear;
  } const rows[] = {
      {0, 70, 0},        {364, 70, 364},   {365, 71, 0},
      {-1, 69, 364},     {10956, 99, 364}, {10957, 100, 0},  // 1999 ends and 2000 begins
      {11322, 100, 365}, {11323, 101, 0},                    // a leap year
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.day);
    EXPECT_EQ(YearOfDay(row.day).year, row.year);
    EXPECT_EQ(YearOfDay(row.day).day, row.dayOfYear);
  }
}

TEST(LocalStamp, Counts) {
  EXPECT_EQ(LocalCount(At(1970, 1, 1)), 0);
  EXPECT_EQ(LocalCount(At(1969, 12, 31, 23, 59, 59)), -1);
  EXPECT_EQ(LocalCount(At(2000, 3, 1)), (10957 + 31 + 29) * i64{86400});
  EXPECT_EQ(LocalCount(At(2024, 6, 21, 12, 30, 15)), i64{1718973015});
}

TEST(LocalStamp, FieldsOutOfRangeAreCarriedOver) {
  EXPECT_EQ(LocalCount(At(1970, 13, 1)), 365 * i64{86400});
  EXPECT_EQ(LocalCount(At(1970, 0, 31)), -i64{86400});
  EXPECT_EQ(LocalCount(At(1970, 1, 0)), -i64{86400});
  EXPECT_EQ(LocalCount(At(1970, 1, 1, 24)), i64{86400});
  EXPECT_EQ(LocalCount(At(1970, 1, 1, 0, -1)), -60);
}

TEST(LocalStamp, Stamps) {
  Calendar const stamp = StampOf(1718973015, 1);
  EXPECT_EQ(stamp.Year, 124);
  EXPECT_EQ(stamp.Month, 5);
  EXPECT_EQ(stamp.Day, 21);
  EXPECT_EQ(stamp.Hour, 12);
  EXPECT_EQ(stamp.Minute, 30);
  EXPECT_EQ(stamp.Second, 15);
  EXPECT_EQ(stamp.WeekDay, 5);  // a Friday
  EXPECT_EQ(stamp.YearDay, 172);
  EXPECT_EQ(stamp.DaylightFlag, 1);
}

TEST(LocalStamp, StampsBefore1970) {
  Calendar const stamp = StampOf(-1, 0);
  EXPECT_EQ(stamp.Year, 69);
  EXPECT_EQ(stamp.Month, 11);
  EXPECT_EQ(stamp.Day, 31);
  EXPECT_EQ(stamp.Second, 59);
  EXPECT_EQ(stamp.WeekDay, 3);  // a Wednesday
  EXPECT_EQ(stamp.DaylightFlag, 0);
}

}  // namespace
