// Times of records around clock changes: the plain reading, and the daylight span that a census
// leaves for the runs that cross a change.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scoped_zone.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::DataFile;
using test::Clock;
using test::EventAt;
using test::General;
using test::MarkAt;
using test::ScopedZone;
using test::Translation;
using test::Utc;
using Times = std::vector<std::int32_t>;

constexpr int kStart = 64;
constexpr int kStop = 0;

// A null context forgets the span of the last census all the same.
void ForgetSpan() {
  QvRecordCensus census;
  ASSERT_EQ(QV_GetRecordCount("", nullptr, &census, nullptr), QV_NO_ARGUMENT);
}

Times TimesOf(const Translation& run, int code) {
  Times times;
  for (const test::Step& step : run.Records(code)) {
    times.push_back(Translation::Copy<QvLevelMark>(step).RecordTime);
  }
  return times;
}

DataFile WithEvents(const std::vector<std::pair<int, Clock>>& events) {
  DataFile file = General();
  for (const auto& [code, clock] : events) file.Item(4, EventAt(clock, code));
  return file;
}

// Times of the marks in a file that begins with the given events: counted first, or not.
Times MarkTimes(DataFile file, const std::vector<Clock>& marks, bool census) {
  ForgetSpan();
  for (const Clock& clock : marks) file.Item(5, MarkAt(clock));
  Translation const run(file.EndOfData(), {.census = census});
  EXPECT_EQ(run.census, 0);
  EXPECT_EQ(run.end, QV_END_OF_DATA);
  return TimesOf(run, QV_LEVEL_MARK);
}
Times Counted(const DataFile& file, const std::vector<Clock>& marks) {
  return MarkTimes(file, marks, true);
}
Times Plain(const DataFile& file, const std::vector<Clock>& marks) {
  return MarkTimes(file, marks, false);
}

class Berlin : public testing::Test {
  ScopedZone const zone_{"Europe/Berlin"};
};
class NewYork : public testing::Test {
  ScopedZone const zone_{"America/New_York"};
};

// Berlin, 27 October 2024: 03:00 summer time is 02:00 standard time, 01:00 UTC.
const std::vector<Clock> kBerlinNight = {{2024, 10, 26, 22}, {2024, 10, 27, 1, 59, 59},
                                         {2024, 10, 27, 2},  {2024, 10, 27, 2, 59, 59},
                                         {2024, 10, 27, 3},  {2024, 10, 27, 5, 30}};
const std::vector<std::pair<int, Clock>> kBerlinRun = {{kStart, {2024, 10, 26, 20}},
                                                       {kStop, {2024, 10, 27, 6}}};

TEST_F(Berlin, AutumnNightWithoutCensus) {
  Times const expected = {Utc(2024, 10, 26, 20), Utc(2024, 10, 26, 23, 59, 59),
                          Utc(2024, 10, 27, 1),  Utc(2024, 10, 27, 1, 59, 59),
                          Utc(2024, 10, 27, 2),  Utc(2024, 10, 27, 4, 30)};
  EXPECT_EQ(Plain(WithEvents(kBerlinRun), kBerlinNight), expected);
}

TEST_F(Berlin, AutumnNightKeepsTheDaylightOfItsRun) {
  Times const expected = {Utc(2024, 10, 26, 20), Utc(2024, 10, 26, 23, 59, 59),
                          Utc(2024, 10, 27, 0),  Utc(2024, 10, 27, 0, 59, 59),
                          Utc(2024, 10, 27, 1),  Utc(2024, 10, 27, 3, 30)};
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), kBerlinNight), expected);
}

TEST_F(Berlin, TheEventsThemselvesLieInTheSpan) {
  ForgetSpan();
  auto const file = WithEvents(kBerlinRun).EndOfData();
  Translation const counted(file, {.census = true});
  EXPECT_EQ(TimesOf(counted, QV_EVENT), (Times{Utc(2024, 10, 26, 18), Utc(2024, 10, 27, 4)}));
  ForgetSpan();
  Translation const plain(file);
  EXPECT_EQ(TimesOf(plain, QV_EVENT), (Times{Utc(2024, 10, 26, 18), Utc(2024, 10, 27, 5)}));
}

// The last second belongs to the span, by the hinted reading.
TEST_F(Berlin, SpanIncludesItsEnd) {
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), {{2024, 10, 27, 6}}), Times{Utc(2024, 10, 27, 4)});
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), {{2024, 10, 27, 6, 0, 1}}),
            Times{Utc(2024, 10, 27, 5, 0, 1)});
}

TEST_F(Berlin, BeforeTheSpanThePlainReadingHolds) {
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), {{2024, 1, 15, 12}}), Times{Utc(2024, 1, 15, 11)});
}

// The start follows to the last event 64 in the first one's daylight, here over a winter.
TEST_F(Berlin, SpanStartsAtTheLastStart) {
  const std::vector<Clock> winter = {{2025, 1, 15, 12}};
  auto const oneStart = WithEvents({{kStart, {2024, 8, 1, 12}}, {kStop, {2025, 11, 15, 12}}});
  EXPECT_EQ(Counted(oneStart, winter), Times{Utc(2025, 1, 15, 10)});
  auto const twoStarts = WithEvents(
      {{kStart, {2024, 8, 1, 12}}, {kStart, {2025, 7, 15, 12}}, {kStop, {2025, 11, 15, 12}}});
  EXPECT_EQ(Counted(twoStarts, winter), Times{Utc(2025, 1, 15, 11)});
  // A start in the other daylight does not move it.
  auto const winterStart = WithEvents(
      {{kStart, {2024, 8, 1, 12}}, {kStart, {2025, 2, 1, 12}}, {kStop, {2025, 11, 15, 12}}});
  EXPECT_EQ(Counted(winterStart, winter), Times{Utc(2025, 1, 15, 10)});
}

TEST_F(Berlin, SpanEndsAtTheFirstStopInTheOtherDaylight) {
  const std::vector<Clock> noon = {{2024, 10, 27, 12}};
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), noon), Times{Utc(2024, 10, 27, 11)});
  auto const laterStop = WithEvents(
      {{kStart, {2024, 10, 26, 20}}, {kStop, {2024, 10, 27, 6}}, {kStop, {2024, 10, 28, 6}}});
  EXPECT_EQ(Counted(laterStop, noon), Times{Utc(2024, 10, 27, 11)});
  // A stop in the same daylight ends nothing.
  auto const earlyStop = WithEvents(
      {{kStart, {2024, 10, 26, 20}}, {kStop, {2024, 10, 26, 22}}, {kStop, {2024, 10, 28, 6}}});
  EXPECT_EQ(Counted(earlyStop, noon), Times{Utc(2024, 10, 27, 10)});
}

TEST_F(Berlin, SpanWithoutStopIsEmpty) {
  EXPECT_EQ(Counted(WithEvents({{kStart, {2024, 10, 26, 20}}}), {{2024, 10, 27, 2, 30}}),
            Times{Utc(2024, 10, 27, 1, 30)});
}

TEST_F(Berlin, StopsWithoutStartMakeNoSpan) {
  EXPECT_EQ(Counted(WithEvents({{kStop, {2024, 10, 26, 20}}, {kStop, {2024, 10, 27, 6}}}),
                    {{2024, 10, 27, 2, 30}, {2024, 10, 27, 5}}),
            (Times{Utc(2024, 10, 27, 1, 30), Utc(2024, 10, 27, 4)}));
}

// Behind the stop the hint is no longer tried, and a start in the first daylight moves the start of
// the span behind its end.
TEST_F(Berlin, LaterStartEmptiesTheSpan) {
  auto events = kBerlinRun;
  events.push_back({kStart, {2025, 6, 1, 12}});
  EXPECT_EQ(Counted(WithEvents(events), {{2024, 10, 27, 5}}), Times{Utc(2024, 10, 27, 4)});
}

TEST_F(Berlin, OtherEventsHaveNoPartInTheSpan) {
  for (int const code : {16, 32, 48, 80, 96, 112}) {
    auto const asStart = WithEvents({{code, {2024, 10, 26, 20}}, {kStop, {2024, 10, 27, 6}}});
    EXPECT_EQ(Counted(asStart, {{2024, 10, 27, 5}}), Times{Utc(2024, 10, 27, 4)}) << code;
    auto const asStop = WithEvents({{kStart, {2024, 10, 26, 20}}, {code, {2024, 10, 27, 6}}});
    EXPECT_EQ(Counted(asStop, {{2024, 10, 27, 5}}), Times{Utc(2024, 10, 27, 4)}) << code;
  }
}

// Only bits 0x70 of the event byte are the event's code.
TEST_F(Berlin, EventDetailDoesNotMatterToTheSpan) {
  auto const file = WithEvents({{0xCF, {2024, 10, 26, 20}}, {0x8A, {2024, 10, 27, 6}}});
  EXPECT_EQ(Counted(file, {{2024, 10, 27, 5}}), Times{Utc(2024, 10, 27, 3)});
}

// A run that began in the repeated hour is taken as standard time; the span then lasts until the
// first stop in summer time.
TEST_F(Berlin, RunBegunInTheRepeatedHourIsStandardTime) {
  auto const file = WithEvents({{kStart, {2024, 10, 27, 2, 30}}, {kStop, {2025, 4, 10, 12}}});
  EXPECT_EQ(Counted(file, {{2024, 10, 27, 2, 30}, {2025, 4, 1, 12}, {2025, 4, 11, 12}}),
            (Times{Utc(2024, 10, 27, 1, 30), Utc(2025, 4, 1, 11), Utc(2025, 4, 11, 10)}));
}

// On the morning of the change a start at 1 or 2 o'clock counts as standard time, also within a run
// in summer time: it does not move the start of the span.
TEST_F(Berlin, StartOnTheMorningOfTheChangeDoesNotMoveTheSpan) {
  auto const file = WithEvents(
      {{kStart, {2024, 10, 26, 20}}, {kStart, {2024, 10, 27, 2, 30}}, {kStop, {2024, 10, 27, 6}}});
  EXPECT_EQ(Counted(file, {{2024, 10, 27, 2, 15}}), Times{Utc(2024, 10, 27, 0, 15)});
}

// 01:30 is still summer time in Berlin: no morning of a change yet, the start moves.
TEST_F(Berlin, StartBeforeTheChangeMovesTheSpan) {
  auto const file = WithEvents(
      {{kStart, {2023, 8, 1, 12}}, {kStart, {2024, 10, 27, 1, 30}}, {kStop, {2024, 10, 27, 6}}});
  EXPECT_EQ(Counted(file, {{2024, 1, 15, 12}, {2024, 10, 27, 2, 15}}),
            (Times{Utc(2024, 1, 15, 11), Utc(2024, 10, 27, 0, 15)}));
}

// A stop on that morning is read in the run's daylight, which it therefore does not end.
TEST_F(Berlin, StopOnTheMorningOfTheChangeEndsNothing) {
  auto const file = WithEvents({{kStart, {2024, 10, 26, 20}}, {kStop, {2024, 10, 27, 2, 30}}});
  EXPECT_EQ(Counted(file, {{2024, 10, 27, 2, 15}}), Times{Utc(2024, 10, 27, 1, 15)});
}

// Within one family time does not run backwards: a stamp whose hinted reading lies before the last
// one is read as it stands, and so is what follows it as long as that is later.
TEST_F(Berlin, BackwardsStampIsReadPlain) {
  EXPECT_EQ(Counted(WithEvents(kBerlinRun),
                    {{2024, 10, 27, 5, 45}, {2024, 10, 27, 5, 30}, {2024, 10, 27, 5, 50}}),
            (Times{Utc(2024, 10, 27, 3, 45), Utc(2024, 10, 27, 4, 30), Utc(2024, 10, 27, 4, 50)}));
  // The same second again is not backwards.
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), {{2024, 10, 27, 5, 45}, {2024, 10, 27, 5, 45}}),
            (Times{Utc(2024, 10, 27, 3, 45), Utc(2024, 10, 27, 3, 45)}));
  // The plain reading of the repeated hour lies in the span: the hint then holds for the result.
  EXPECT_EQ(Counted(WithEvents(kBerlinRun), {{2024, 10, 27, 5}, {2024, 10, 27, 2, 30}}),
            (Times{Utc(2024, 10, 27, 3), Utc(2024, 10, 27, 0, 30)}));
}

// Each family of records has its own last time.
TEST_F(Berlin, FamiliesDoNotDisturbEachOther) {
  ForgetSpan();
  auto file = WithEvents(kBerlinRun);
  file.Item(5, MarkAt({2024, 10, 27, 5, 45})).Item(4, EventAt({2024, 10, 27, 5, 30}, 32));
  Translation const run(file.EndOfData(), {.census = true});
  // The event is behind a stop at 06:00 of its own family: plain, and so behind the end.
  EXPECT_EQ(TimesOf(run, QV_EVENT).back(), Utc(2024, 10, 27, 4, 30));
  EXPECT_EQ(TimesOf(run, QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 3, 45)});
}

TEST_F(Berlin, StartForgetsTheLastTimes) {
  ForgetSpan();
  auto file = WithEvents(kBerlinRun);
  file.Item(5, MarkAt({2024, 10, 27, 5, 45})).EndOfData();
  test::TempFile const stored(test::Startable(file));
  Translation const first(stored.Path(), {.census = true});
  Translation const second(stored.Path());
  EXPECT_EQ(TimesOf(first, QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 3, 45)});
  EXPECT_EQ(TimesOf(second, QV_LEVEL_MARK), TimesOf(first, QV_LEVEL_MARK));
  EXPECT_EQ(TimesOf(second, QV_EVENT), TimesOf(first, QV_EVENT));
}

// The span of the last census rules every file of the process until the next census.
TEST_F(Berlin, SpanOutlivesItsFile) {
  ForgetSpan();
  Translation const counted(WithEvents(kBerlinRun).EndOfData(), {.census = true});
  auto const other = General().Item(5, MarkAt({2024, 10, 27, 2, 30})).EndOfData();
  EXPECT_EQ(TimesOf(Translation(other), QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 0, 30)});
  EXPECT_EQ(TimesOf(Translation(other, {.census = true}), QV_LEVEL_MARK),
            Times{Utc(2024, 10, 27, 1, 30)});
}

TEST_F(Berlin, NullContextForgetsTheSpan) {
  Translation const counted(WithEvents(kBerlinRun).EndOfData(), {.census = true});
  ForgetSpan();
  auto const other = General().Item(5, MarkAt({2024, 10, 27, 2, 30})).EndOfData();
  EXPECT_EQ(TimesOf(Translation(other), QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 1, 30)});
}

// The block time of a settings block is read with the span too.
TEST_F(Berlin, SettingsBlockIsReadWithTheSpan) {
  ForgetSpan();
  DataFile file;
  file.Q(6, "05:00:00").Q(7, "27Oct2024");
  for (const auto& [code, clock] : kBerlinRun) file.Item(4, EventAt(clock, code));
  file.EndOfData();
  Translation const plain(file);
  EXPECT_EQ(plain.As<QvSettings>(0, QV_SETTINGS).BlockTime, Utc(2024, 10, 27, 4));
  Translation const counted(file, {.census = true});
  EXPECT_EQ(counted.As<QvSettings>(0, QV_SETTINGS).BlockTime, Utc(2024, 10, 27, 3));
}

// The lines of one settings block share a calendar, and each date line brings it into range: the
// second date finds the hour and the daylight flag that came of the first.
TEST_F(Berlin, SecondDateOfASettingsBlock) {
  ForgetSpan();
  auto const blockTime = [](const char* time, const char* first, const char* second) {
    DataFile file;
    file.Q(6, time).Q(7, first).Q(7, second).EndOfData();
    return Translation(file).As<QvSettings>(0, QV_SETTINGS).BlockTime;
  };
  EXPECT_EQ(blockTime("25:00:00", "21Jun2024", "22Jun2024"), Utc(2024, 6, 21, 23));
  EXPECT_EQ(blockTime("12:00:00", "21Jun2024", "15Jan2024"), Utc(2024, 1, 15, 10));
  EXPECT_EQ(blockTime("12:00:00", "15Jan2024", "21Jun2024"), Utc(2024, 6, 21, 11));
  EXPECT_EQ(blockTime("12:00:00", "20Jun2024", "21Jun2024"), Utc(2024, 6, 21, 10));
}

// Berlin, 31 March 2024: 02:00 standard time is 03:00 summer time, 01:00 UTC.
TEST_F(Berlin, SkippedHourIsStandardTime) {
  EXPECT_EQ(Plain(General(), {{2024, 3, 31, 1, 59, 59}, {2024, 3, 31, 2, 30}, {2024, 3, 31, 3}}),
            (Times{Utc(2024, 3, 31, 0, 59, 59), Utc(2024, 3, 31, 1, 30), Utc(2024, 3, 31, 1)}));
}

TEST_F(Berlin, SpringNightKeepsTheDaylightOfItsRun) {
  auto const file = WithEvents({{kStart, {2024, 3, 30, 20}}, {kStop, {2024, 3, 31, 6}}});
  std::vector<Clock> const night = {{2024, 3, 31, 2, 30}, {2024, 3, 31, 5}, {2024, 3, 31, 6, 0, 1}};
  EXPECT_EQ(Counted(file, night),
            (Times{Utc(2024, 3, 31, 1, 30), Utc(2024, 3, 31, 4), Utc(2024, 3, 31, 4, 0, 1)}));
  EXPECT_EQ(Plain(file, night),
            (Times{Utc(2024, 3, 31, 1, 30), Utc(2024, 3, 31, 3), Utc(2024, 3, 31, 4, 0, 1)}));
}

// A run in summer time over a whole winter: the skipped hour of spring read in summer time.
TEST_F(Berlin, SkippedHourInASummerTimeSpan) {
  auto const file = WithEvents({{kStart, {2024, 10, 26, 20}}, {kStop, {2025, 12, 1, 6}}});
  EXPECT_EQ(Counted(file, {{2025, 3, 30, 2, 30}}), Times{Utc(2025, 3, 30, 0, 30)});
}

// The answer for one stamp does not depend on the stamps before it.
TEST_F(Berlin, EachStampIsReadForItself) {
  const std::vector<Clock> stamps = {
      {2024, 7, 1, 12},      {2024, 10, 27, 2, 30},     {2024, 1, 1, 12},
      {2024, 10, 27, 2, 30}, {2024, 3, 31, 2, 30},      {2024, 7, 1, 12},
      {2024, 3, 31, 2, 30},  {2024, 10, 27, 1, 59, 59}, {2024, 10, 27, 2, 0}};
  Times const expected = {
      Utc(2024, 7, 1, 10),      Utc(2024, 10, 27, 1, 30),      Utc(2024, 1, 1, 11),
      Utc(2024, 10, 27, 1, 30), Utc(2024, 3, 31, 1, 30),       Utc(2024, 7, 1, 10),
      Utc(2024, 3, 31, 1, 30),  Utc(2024, 10, 26, 23, 59, 59), Utc(2024, 10, 27, 1)};
  EXPECT_EQ(Plain(General(), stamps), expected);
}

// New York, 31 October 2004: 02:00 summer time is 01:00 standard time, 06:00 UTC.
TEST_F(NewYork, OctoberNight) {
  auto const file = WithEvents({{kStart, {2004, 10, 30, 20}}, {kStop, {2004, 10, 31, 6}}});
  std::vector<Clock> const night = {
      {2004, 10, 31, 0, 30}, {2004, 10, 31, 1, 30}, {2004, 10, 31, 3}, {2004, 10, 31, 6, 0, 1}};
  EXPECT_EQ(Counted(file, night), (Times{Utc(2004, 10, 31, 4, 30), Utc(2004, 10, 31, 5, 30),
                                         Utc(2004, 10, 31, 7), Utc(2004, 10, 31, 11, 0, 1)}));
  EXPECT_EQ(Plain(file, night), (Times{Utc(2004, 10, 31, 4, 30), Utc(2004, 10, 31, 6, 30),
                                       Utc(2004, 10, 31, 8), Utc(2004, 10, 31, 11, 0, 1)}));
}

// Here 1 o'clock is the repeated hour: a start in it is standard time and moves no span.
TEST_F(NewYork, StartOnTheMorningOfAnOctoberChange) {
  auto const file = WithEvents(
      {{kStart, {2004, 10, 30, 20}}, {kStart, {2004, 10, 31, 1, 30}}, {kStop, {2004, 10, 31, 6}}});
  EXPECT_EQ(Counted(file, {{2004, 10, 31, 1, 15}}), Times{Utc(2004, 10, 31, 5, 15)});
}

// New York, 3 November 2024: the change is not in October, and its morning is not recognised.
TEST_F(NewYork, NovemberNight) {
  auto const file = WithEvents({{kStart, {2024, 11, 2, 20}}, {kStop, {2024, 11, 3, 6}}});
  std::vector<Clock> const night = {
      {2024, 11, 3, 0, 30}, {2024, 11, 3, 1, 30}, {2024, 11, 3, 3}, {2024, 11, 3, 6, 0, 1}};
  EXPECT_EQ(Counted(file, night), (Times{Utc(2024, 11, 3, 4, 30), Utc(2024, 11, 3, 5, 30),
                                         Utc(2024, 11, 3, 7), Utc(2024, 11, 3, 11, 0, 1)}));
  EXPECT_EQ(Plain(file, night), (Times{Utc(2024, 11, 3, 4, 30), Utc(2024, 11, 3, 6, 30),
                                       Utc(2024, 11, 3, 8), Utc(2024, 11, 3, 11, 0, 1)}));
}

TEST_F(NewYork, StartOnTheMorningOfANovemberChangeMovesTheSpan) {
  auto const file = WithEvents(
      {{kStart, {2024, 11, 2, 20}}, {kStart, {2024, 11, 3, 1, 30}}, {kStop, {2024, 11, 3, 6}}});
  EXPECT_EQ(Counted(file, {{2024, 11, 3, 1, 29, 59}, {2024, 11, 3, 1, 30}, {2024, 11, 3, 1, 45}}),
            (Times{Utc(2024, 11, 3, 6, 29, 59), Utc(2024, 11, 3, 5, 30), Utc(2024, 11, 3, 5, 45)}));
}

// What was learnt of one zone is not used in the next.
TEST(RecordTime, ZoneMayChangeBetweenFiles) {
  ForgetSpan();
  auto const file = General()
                        .Item(5, MarkAt({2024, 7, 1, 12, 30}))
                        .Item(5, MarkAt({2024, 1, 1, 12, 30}))
                        .EndOfData();
  test::TempFile const stored(test::Startable(file));
  test::Session session;
  struct {
    const char* zone;
    std::int32_t summer, winter;
  } constexpr kZones[] = {
      {"UTC", Utc(2024, 7, 1, 12, 30), Utc(2024, 1, 1, 12, 30)},
      {"Europe/Berlin", Utc(2024, 7, 1, 10, 30), Utc(2024, 1, 1, 11, 30)},
      {"America/New_York", Utc(2024, 7, 1, 16, 30), Utc(2024, 1, 1, 17, 30)},
      {"UTC", Utc(2024, 7, 1, 12, 30), Utc(2024, 1, 1, 12, 30)},
  };
  for (const auto& row : kZones) {
    ScopedZone const zone(row.zone);
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.As<QvLevelMark>().RecordTime, row.summer) << row.zone;
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.As<QvLevelMark>().RecordTime, row.winter) << row.zone;
    ASSERT_EQ(session.Next(), QV_END_OF_DATA);
  }
}

// A census under one zone, the next under another: the span is that of the second.
TEST(RecordTime, ZoneMayChangeBetweenCensuses) {
  auto file = WithEvents(kBerlinRun);
  file.Item(5, MarkAt({2024, 10, 27, 5})).EndOfData();
  {
    ScopedZone const zone("UTC");
    Translation const run(file, {.census = true});
    EXPECT_EQ(TimesOf(run, QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 5)});
  }
  ScopedZone const zone("Europe/Berlin");
  Translation const run(file, {.census = true});
  EXPECT_EQ(TimesOf(run, QV_LEVEL_MARK), Times{Utc(2024, 10, 27, 3)});
}

}  // namespace
