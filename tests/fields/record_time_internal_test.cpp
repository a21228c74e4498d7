// The state behind the times of records. Internal: records show only what comes of it.
#include <gtest/gtest.h>

#include <limits>

#include "fields/record_time.h"
#include "support/calendar_at.h"
#include "support/scoped_zone.h"
#include "support/utc.h"

namespace {

using namespace qvslm;
using test::At;
using test::Utc;

class RecordTime : public testing::Test {
 protected:
  RecordTime() {
    ForgetLocalTime();
    ForgetDaylightSpan();
  }
  void Note(const Calendar& calendar, i16 event) { NoteDstEvent(calendar, event); }
  static void ExpectSpan(i16 hint, i32 start, i32 end) {
    EXPECT_EQ(Dst->Hint, hint);
    EXPECT_EQ(Dst->Start, start);
    EXPECT_EQ(Dst->End, end);
  }

 private:
  test::ScopedZone const zone_{"Europe/Berlin"};
};

// What stands there before any census of the process.
struct {
  i16 hint = Dst->Hint;
  i32 start = Dst->Start;
  i32 end = Dst->End;
} const kFresh;

TEST(FreshProcess, HasTheSpanOfOneInstant) {
  EXPECT_EQ(kFresh.hint, 0);
  EXPECT_EQ(kFresh.start, 0);
  EXPECT_EQ(kFresh.end, 0);
}

constexpr i32 kNever = std::numeric_limits<i32>::min();

TEST_F(RecordTime, ClearedCalendar) {
  Calendar const calendar = ClearedCalendar();
  EXPECT_EQ(calendar.Second, 0);
  EXPECT_EQ(calendar.Minute, 0);
  EXPECT_EQ(calendar.Hour, 0);
  EXPECT_EQ(calendar.Day, 0);
  EXPECT_EQ(calendar.Month, 0);
  EXPECT_EQ(calendar.Year, 0);
  EXPECT_EQ(calendar.DaylightFlag, -1);
}

TEST_F(RecordTime, ForgottenSpan) {
  ExpectSpan(-1, kNever, 0);
}

TEST_F(RecordTime, SpanOfAnAutumnRun) {
  Note(At(2024, 10, 26, 20), 64);
  ExpectSpan(1, Utc(2024, 10, 26, 18), 0);
  Note(At(2024, 10, 26, 22), 0);
  ExpectSpan(1, Utc(2024, 10, 26, 18), 0);
  Note(At(2024, 10, 26, 23), 64);
  ExpectSpan(1, Utc(2024, 10, 26, 21), 0);
  Note(At(2024, 10, 27, 6), 0);
  ExpectSpan(1, Utc(2024, 10, 26, 21), Utc(2024, 10, 27, 4));
  Note(At(2024, 10, 27, 8), 0);
  Note(At(2024, 10, 27, 9), 64);
  ExpectSpan(1, Utc(2024, 10, 26, 21), Utc(2024, 10, 27, 4));
}

TEST_F(RecordTime, StopBeforeAnyStart) {
  Note(At(2024, 10, 26, 20), 0);
  Note(At(2024, 12, 26, 20), 0);
  ExpectSpan(-1, kNever, 0);
}

// The morning of the change: 2 o'clock in Berlin, on that day in October alone.
TEST_F(RecordTime, MorningOfTheChange) {
  struct {
    Calendar clock;
    i16 hint;
    i32 start;
  } const rows[] = {
      {At(2024, 10, 27, 1, 59), 1, Utc(2024, 10, 26, 23, 59)},
      {At(2024, 10, 27, 2, 0), 0, Utc(2024, 10, 27, 1)},
      {At(2024, 10, 27, 2, 59), 0, Utc(2024, 10, 27, 1, 59)},
      {At(2024, 10, 27, 3, 0), 0, Utc(2024, 10, 27, 2)},
      {At(2024, 10, 26, 2, 30), 1, Utc(2024, 10, 26, 0, 30)},
      {At(2024, 10, 28, 2, 30), 0, Utc(2024, 10, 28, 1, 30)},
      {At(2024, 10, 1, 2, 30), 1, Utc(2024, 10, 1, 0, 30)},
  };
  for (const auto& row : rows) {
    ForgetDaylightSpan();
    Note(row.clock, 64);
    ExpectSpan(row.hint, row.start, 0);
  }
}

// Before any census the hint is 0: the slot takes the standard reading of a summer stamp, one hour
// later than the result.
TEST_F(RecordTime, SlotFollowsTheHintedReading) {
  Dst->Hint = 0;
  Dst->Start = 0;
  Dst->End = 0;
  i32 slot = 0;
  Calendar summer = At(2024, 7, 1, 12);
  EXPECT_EQ(NormalizeTime(summer, &slot), Utc(2024, 7, 1, 10));
  EXPECT_EQ(slot, Utc(2024, 7, 1, 11));
  // Below the slot the plain reading is tried, and the slot goes down with it.
  Calendar next = At(2024, 7, 1, 11);
  EXPECT_EQ(NormalizeTime(next, &slot), Utc(2024, 7, 1, 9));
  EXPECT_EQ(slot, Utc(2024, 7, 1, 9));
  Calendar winter = At(2024, 12, 1, 12);
  EXPECT_EQ(NormalizeTime(winter, &slot), Utc(2024, 12, 1, 11));
  EXPECT_EQ(slot, Utc(2024, 12, 1, 11));
}

TEST_F(RecordTime, WithoutASlot) {
  Note(At(2024, 10, 26, 20), 64);
  Note(At(2024, 10, 27, 6), 0);
  Calendar inside = At(2024, 10, 27, 5);
  EXPECT_EQ(NormalizeTime(inside, nullptr), Utc(2024, 10, 27, 3));
  Calendar outside = At(2024, 10, 27, 7);
  EXPECT_EQ(NormalizeTime(outside, nullptr), Utc(2024, 10, 27, 6));
}

// A flag that the caller has set rules outside the span.
TEST_F(RecordTime, CallersFlag) {
  Calendar daylight = At(2024, 10, 27, 2, 30);
  daylight.DaylightFlag = 1;
  EXPECT_EQ(NormalizeTime(daylight, nullptr), Utc(2024, 10, 27, 0, 30));
  Calendar standard = At(2024, 7, 1, 12);
  standard.DaylightFlag = 0;
  EXPECT_EQ(NormalizeTime(standard, nullptr), Utc(2024, 7, 1, 11));
}

// The conversion brings the calendar into range and resolves its flag.
TEST_F(RecordTime, CalendarIsWrittenBack) {
  Calendar calendar = At(2024, 6, 31, 25, 61);
  EXPECT_EQ(LocalSeconds(calendar), Utc(2024, 7, 2, 0, 1));
  EXPECT_EQ(calendar.Year, 124);
  EXPECT_EQ(calendar.Month, 6);
  EXPECT_EQ(calendar.Day, 2);
  EXPECT_EQ(calendar.Hour, 2);
  EXPECT_EQ(calendar.Minute, 1);
  EXPECT_EQ(calendar.WeekDay, 2);
  EXPECT_EQ(calendar.YearDay, 183);
  EXPECT_EQ(calendar.DaylightFlag, 1);
}

}  // namespace
