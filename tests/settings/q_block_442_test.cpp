// Registers that mean something else, or nothing, in settings blocks of model 442.
#include <gtest/gtest.h>

#include "support/translation.h"
#include "support/utc.h"

namespace test {
namespace {

using samples::Body;

// There they are texts of eight characters, and say nothing about times and levels.
TEST(QBlock442, Registers162And163LeaveTheIntervalsAlone) {
  constexpr int kNoon = Utc(2024, 6, 21, 12);
  Body const interval =
      Body().Date(21, 6, 2024).Time(12, 0, 0).Duration5(60).Fill(12, 1).Fixed16(100).PadTo(200);
  for (const char* const value : {"1", "2"}) {
    SCOPED_TRACE(value);
    Translation const of442(
        Model442("LOG").Q(61, "70").Q(162, value).Q(163, value).Item(1, interval).EndOfData());
    ASSERT_EQ(of442.Records(QV_INTERVAL).size(), 1U);
    EXPECT_EQ(of442.As<QvInterval>(0, QV_INTERVAL).RecordTime, kNoon);
    EXPECT_EQ(of442.As<QvInterval>(0, QV_INTERVAL).IntervalFlags & 0x1000, 0);
  }
  Translation const general(General().Q(163, "1").Item(1, interval).EndOfData());
  EXPECT_EQ(general.As<QvInterval>(0, QV_INTERVAL).RecordTime, kNoon - 60);
}

}  // namespace
}  // namespace test
