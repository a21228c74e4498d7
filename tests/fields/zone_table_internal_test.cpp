// The zone that a front end hands in as a table of changes. Internal: the shared library has no call
// for it.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "fields/local_time.h"
#include "qvslm_zone.h"
#include "qvslmtranslate.h"
#include "support/calendar_at.h"
#include "support/scoped_zone.h"
#include "support/utc.h"

namespace test {
namespace {

using qvslm::Calendar;
using qvslm::i32;
using qvslm::i64;
using test::At;

constexpr i32 kHour = 3600;

// A year of the clocks of Berlin.
const QvZoneChange kBerlin[] = {
    {Utc(2019, 10, 27, 1), kHour, 0},
    {Utc(2020, 3, 29, 1), 2 * kHour, 1},
    {Utc(2020, 10, 25, 1), kHour, 0},
};

// Tables end with the test.
class ZoneTable : public testing::Test {
 protected:
  template <size_t count>
  void Use(const QvZoneChange (&changes)[count]) {
    QvUseZone(changes, count);
  }
  ~ZoneTable() override { QvUseZone(nullptr, 0); }

 private:
  ScopedZone const zone_{"Pacific/Marquesas"};  // 9:30 behind UTC, and in no table here
};

struct Answer {
  bool found;
  i64 seconds;
  int hour, minute, second, flag;
  friend bool operator==(const Answer&, const Answer&) = default;
};

Answer Ask(Calendar stamp, i32 flag) {
  i64 seconds = 0;
  bool const found = qvslm::AskZone(stamp, flag, seconds);
  return {found, seconds, stamp.Hour, stamp.Minute, stamp.Second, stamp.DaylightFlag};
}

TEST_F(ZoneTable, GivesTheStampOfSeconds) {
  Use(kBerlin);
  Calendar const before = qvslm::LocalCalendar(Utc(2020, 3, 29, 0, 59, 59));
  EXPECT_EQ(before.Hour, 1);
  EXPECT_EQ(before.Second, 59);
  EXPECT_EQ(before.DaylightFlag, 0);
  Calendar const at = qvslm::LocalCalendar(Utc(2020, 3, 29, 1));
  EXPECT_EQ(at.Year, 120);
  EXPECT_EQ(at.Month, 2);
  EXPECT_EQ(at.Day, 29);
  EXPECT_EQ(at.Hour, 3);
  EXPECT_EQ(at.Minute, 0);
  EXPECT_EQ(at.WeekDay, 0);
  EXPECT_EQ(at.YearDay, 31 + 29 + 28);
  EXPECT_EQ(at.DaylightFlag, 1);
}

TEST_F(ZoneTable, HoldsBeforeItsFirstChangeAndBehindItsLast) {
  Use(kBerlin);
  EXPECT_EQ(qvslm::LocalCalendar(Utc(1950, 7, 1)).Hour, 1);
  EXPECT_EQ(qvslm::LocalCalendar(Utc(2030, 7, 1)).Hour, 1);
  const QvZoneChange single[] = {{Utc(2020, 1, 1), -5 * kHour, 0}};
  Use(single);
  EXPECT_EQ(qvslm::LocalCalendar(Utc(1999, 7, 1, 12)).Hour, 7);
  EXPECT_EQ(qvslm::LocalCalendar(Utc(2021, 7, 1, 12)).Hour, 7);
}

TEST_F(ZoneTable, ReadsAStampByItsFlag) {
  Use(kBerlin);
  EXPECT_EQ(Ask(At(2020, 7, 1, 12), 1), (Answer{true, Utc(2020, 7, 1, 10), 12, 0, 0, 1}));
  EXPECT_EQ(Ask(At(2020, 12, 1, 12), 0), (Answer{true, Utc(2020, 12, 1, 11), 12, 0, 0, 0}));
  // Against the zone's flag: by the offset of the nearest time that has it.
  EXPECT_EQ(Ask(At(2020, 7, 1, 12), 0), (Answer{true, Utc(2020, 7, 1, 11), 13, 0, 0, 1}));
  EXPECT_EQ(Ask(At(2020, 12, 1, 12), 1), (Answer{true, Utc(2020, 12, 1, 10), 11, 0, 0, 0}));
}

TEST_F(ZoneTable, ReadsTheHourThatComesTwiceByItsFlag) {
  Use(kBerlin);
  EXPECT_EQ(Ask(At(2020, 10, 25, 2, 30), 1), (Answer{true, Utc(2020, 10, 25, 0, 30), 2, 30, 0, 1}));
  EXPECT_EQ(Ask(At(2020, 10, 25, 2, 30), 0), (Answer{true, Utc(2020, 10, 25, 1, 30), 2, 30, 0, 0}));
}

// By the clock that goes on as the flag says.
TEST_F(ZoneTable, ReadsTheHourThatIsSkippedByItsFlag) {
  Use(kBerlin);
  EXPECT_EQ(Ask(At(2020, 3, 29, 2, 30), 0), (Answer{true, Utc(2020, 3, 29, 1, 30), 3, 30, 0, 1}));
  EXPECT_EQ(Ask(At(2020, 3, 29, 2, 30), 1), (Answer{true, Utc(2020, 3, 29, 0, 30), 1, 30, 0, 0}));
}

TEST_F(ZoneTable, CarriesOverWhatIsOutOfRange) {
  Use(kBerlin);
  EXPECT_EQ(Ask(At(2020, 14, 0, 25, -30, 61), 0),  // the last of January 2021
            (Answer{true, Utc(2021, 1, 31, 23, 31, 1), 0, 31, 1, 0}));
  // Seconds are added to the instant: over the change the clock goes on by an hour more.
  EXPECT_EQ(Ask(At(2020, 3, 29, 1, 59, 60), 0), (Answer{true, Utc(2020, 3, 29, 1), 3, 0, 0, 1}));
}

TEST_F(ZoneTable, TakesAnHourForDaylightTimeThatNoneIsNear) {
  const QvZoneChange kolkata[] = {{0, 5 * kHour + 1800, 0}};
  Use(kolkata);
  EXPECT_EQ(Ask(At(2020, 6, 1, 12), 0), (Answer{true, Utc(2020, 6, 1, 6, 30), 12, 0, 0, 0}));
  EXPECT_EQ(Ask(At(2020, 6, 1, 12), 1), (Answer{true, Utc(2020, 6, 1, 5, 30), 11, 0, 0, 0}));
}

TEST_F(ZoneTable, TakesAnHourForStandardTimeThatNoneIsNear) {
  const QvZoneChange always[] = {{0, 2 * kHour, 1}};
  Use(always);
  EXPECT_EQ(Ask(At(2020, 6, 1, 12), 1), (Answer{true, Utc(2020, 6, 1, 10), 12, 0, 0, 1}));
  EXPECT_EQ(Ask(At(2020, 6, 1, 12), 0), (Answer{true, Utc(2020, 6, 1, 11), 13, 0, 0, 1}));
}

// Daylight time of two hours from 2000 on is 229057200 seconds off at most, 381 strides of 601200.
TEST_F(ZoneTable, SearchesForAFlagOverSevenYears) {
  i64 const change = Utc(2000, 1, 1);
  const QvZoneChange changes[] = {{0, 0, 0}, {change, 2 * kHour, 1}};
  Use(changes);
  Calendar near = qvslm::LocalCalendar(change - 229057200);
  Calendar far = qvslm::LocalCalendar(change - 229057201);
  EXPECT_EQ(Ask(near, 1).seconds, change - 229057200 - 2 * kHour);
  EXPECT_EQ(Ask(far, 1).seconds, change - 229057201 - kHour);
}

// A day that the zone left out without a change of its flag.
TEST_F(ZoneTable, HasNoInstantWhereBothSidesHaveTheFlag) {
  const QvZoneChange apia[] = {{0, -10 * kHour, 1}, {Utc(2011, 12, 30, 10), 14 * kHour, 1}};
  Use(apia);
  EXPECT_EQ(Ask(At(2011, 12, 30, 12, 1, 2), 1), (Answer{false, -1, 12, 1, 2, 1}));
}

// An hour that comes twice with one flag goes by the answer before; none is before the first.
TEST_F(ZoneTable, StaysOnTheSideOfTheAnswerBefore) {
  i64 const change = Utc(2014, 10, 25, 22);
  const QvZoneChange moscow[] = {{0, 4 * kHour, 0}, {change, 3 * kHour, 0}};
  Use(moscow);
  EXPECT_EQ(Ask(At(2014, 10, 26, 1, 30), 0).seconds, change + 1800);
  Ask(At(2014, 10, 1), 0);
  EXPECT_EQ(Ask(At(2014, 10, 26, 1, 30), 0).seconds, change - 1800);
  qvslm::ForgetLocalTime();
  EXPECT_EQ(Ask(At(2014, 10, 26, 1, 30), 0).seconds, change + 1800);
}

TEST_F(ZoneTable, KnowsNoStampOfYearsBeyond32Bits) {
  Use(kBerlin);
  for (i64 const seconds : {std::numeric_limits<i64>::min(), std::numeric_limits<i64>::max(),
                            i64{1} << 57, -(i64{1} << 57)}) {
    Calendar const stamp = qvslm::LocalCalendar(seconds);
    EXPECT_EQ(stamp.DaylightFlag, -1) << seconds;
    EXPECT_EQ(stamp.Day, 0) << seconds;
  }
  Calendar farOff = At(1970, 1, 1);
  farOff.Year = farOff.Month = std::numeric_limits<i32>::max();
  EXPECT_FALSE(Ask(farOff, 0).found);
}

// What the exports tell goes by the table from the call on, and by the C library after the next.
TEST_F(ZoneTable, ServesTheExports) {
  auto const noon = [] { return TX_DateToSecs("01Jul2020", "12:00:00", 0); };
  auto const hourOf = [](i32 seconds) {
    char time[9] = {};
    TX_SecsToDate(&seconds, nullptr, time, 0);
    return std::string(time);
  };
  EXPECT_EQ(noon(), static_cast<std::uint32_t>(Utc(2020, 7, 1, 21, 30)));
  Use(kBerlin);
  EXPECT_EQ(noon(), static_cast<std::uint32_t>(Utc(2020, 7, 1, 10)));
  EXPECT_EQ(hourOf(Utc(2020, 12, 1, 11)), "12:00:00");
  QvUseZone(kBerlin, 0);
  EXPECT_EQ(noon(), static_cast<std::uint32_t>(Utc(2020, 7, 1, 21, 30)));
  Use(kBerlin);
  QvUseZone(nullptr, 3);
  EXPECT_EQ(noon(), static_cast<std::uint32_t>(Utc(2020, 7, 1, 21, 30)));
}

TEST_F(ZoneTable, ForgetsWhatIsRememberedOfTheZoneBefore) {
  auto const noon = [] {
    Calendar stamp = At(2020, 7, 1, 12);
    return qvslm::LocalSeconds(stamp);
  };
  EXPECT_EQ(noon(), Utc(2020, 7, 1, 21, 30));
  Use(kBerlin);
  EXPECT_EQ(noon(), Utc(2020, 7, 1, 10));
  QvUseZone(nullptr, 0);
  EXPECT_EQ(noon(), Utc(2020, 7, 1, 21, 30));
}

}  // namespace
}  // namespace test
