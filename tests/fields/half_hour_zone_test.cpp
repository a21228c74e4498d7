// The clock of Lord Howe Island goes forward and back by half an hour, so that within one hour the
// stamps of one half and those of the other are as far from UTC as no whole hour tells.
#include <gtest/gtest.h>

#include <vector>

#include "support/scoped_zone.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;

TEST(HalfHourZone, EachStampByItsOwnHalf) {
  struct Row {
    int day, month, hour, minute, second;
    std::int32_t seconds;
  };
  // Standard time is 10:30 ahead of UTC, summer time 11:00.
  const Row kRows[] = {
      {6, 10, 1, 59, 59, 1728142199},  // standard
      {6, 10, 2, 15, 0, 1728143100},   // skipped, read as standard
      {6, 10, 2, 45, 0, 1728143100},   // summer
      {7, 4, 1, 15, 0, 1712412900},    // summer
      {7, 4, 1, 45, 0, 1712416500},    // repeated, read as standard
      {7, 4, 2, 15, 0, 1712418300},    // standard
  };
  ScopedZone const zone("Australia/Lord_Howe");
  samples::DataFile file = General();
  for (const Row& row : kRows) {
    file.Item(5, Body()
                     .U8(0)
                     .Date(row.day, row.month, 2024)
                     .Time(row.hour, row.minute, row.second)
                     .Level(65.5)
                     .U8(0));
  }
  Translation const run(file.EndOfData(), {.census = true});
  ASSERT_EQ(run.Records(QV_LEVEL_MARK).size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(run.As<QvLevelMark>(i, QV_LEVEL_MARK).RecordTime, kRows[i].seconds) << i;
  }
}

}  // namespace
}  // namespace test
