// The lists of event times, seen through the markers of streams and lists that take them.
#include <gtest/gtest.h>

#include <vector>

#include "support/scoped_zone.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::EventAt;
using test::General;
using test::Translation;
using test::Utc;

constexpr std::int32_t kMidnight = Utc(2024, 6, 21);

// Event number i stands i seconds behind midnight.
Body NumberedEvent(int number, int code) {
  return EventAt({2024, 6, 21, number / 3600, number / 60 % 60, number % 60}, code);
}

// List item 27 with count marker blocks of one kind.
DataFile& AddMarkers(DataFile& file, int firstByte, int count) {
  return file.List(27, 2, std::vector<Body>(static_cast<std::size_t>(count), Body().U8(firstByte)));
}

std::vector<std::int32_t> MarkerTimes(const Translation& run) {
  std::vector<std::int32_t> times;
  for (const test::Step& step : run.Records(QV_FIELD_HISTORY)) {
    times.push_back(Translation::Copy<QvLevelMark>(step).RecordTime);
  }
  return times;
}

// Codes 64 and 80 are run events and answer to markers 4 and 5; all others to the other markers.
TEST(EventLists, ByEventCode) {
  auto file = General();
  int number = 0;
  for (int const code : {0, 64, 16, 80, 32, 79, 48, 95, 96, 112}) {
    file.Item(4, NumberedEvent(++number, code));
  }
  AddMarkers(file, 0xC0, 2);  // run markers
  AddMarkers(file, 0xD0, 2);
  AddMarkers(file, 0x80, 1);  // other markers
  AddMarkers(file, 0x90, 1);
  AddMarkers(file, 0xA0, 1);
  AddMarkers(file, 0xB0, 1);
  AddMarkers(file, 0xE0, 1);
  AddMarkers(file, 0xF0, 1);
  Translation const run(file.EndOfData());
  std::vector<std::int32_t> expected;
  for (int const offset : {2, 4, 6, 8, 1, 3, 5, 7, 9, 10}) expected.push_back(kMidnight + offset);
  EXPECT_EQ(MarkerTimes(run), expected);
}

// The 300th event of a kind is delivered but no longer listed: its marker keeps the time of the
// stream, which the last run marker left.
TEST(EventLists, HoldTheFirst299OfAKind) {
  struct {
    int eventCode, marker;
    std::int32_t time300;
  } constexpr kRows[] = {
      {64, 0xC0, kMidnight + 299},
      {80, 0xD5, kMidnight + 299},
      {32, 0xA0, Utc(2024, 6, 21, 12)},  // no run marker: the time of the header
      {0, 0x80, Utc(2024, 6, 21, 12)},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.eventCode);
    auto file = General();
    for (int i = 1; i <= 301; ++i) file.Item(4, NumberedEvent(i, row.eventCode));
    AddMarkers(file, row.marker, 301);
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.Records(QV_EVENT).size(), 301U);
    EXPECT_EQ(run.As<QvEvent>(299, QV_EVENT).RecordTime, kMidnight + 300);
    EXPECT_EQ(run.As<QvEvent>(300, QV_EVENT).RecordTime, kMidnight + 301);
    auto const times = MarkerTimes(run);
    ASSERT_EQ(times.size(), 301U);
    for (int i = 0; i < 299; ++i) {
      ASSERT_EQ(times[static_cast<std::size_t>(i)], kMidnight + i + 1) << i;
    }
    EXPECT_EQ(times[299], row.time300);
    EXPECT_EQ(times[300], row.time300);
  }
}

// The kinds have a list each: 299 of one leave the other empty.
TEST(EventLists, DoNotFillEachOther) {
  auto file = General();
  for (int i = 1; i <= 300; ++i) file.Item(4, NumberedEvent(i, 32));
  file.Item(4, NumberedEvent(1000, 64));
  AddMarkers(file, 0xC0, 1);
  Translation const run(file.EndOfData());
  EXPECT_EQ(MarkerTimes(run), std::vector{kMidnight + 1000});
}

// Nor does what is too much for one list run into the other.
TEST(EventLists, DoNotRunIntoEachOther) {
  auto file = General();
  file.Item(4, NumberedEvent(1000, 32)).Item(4, NumberedEvent(2000, 64));
  for (int i = 1; i <= 310; ++i) {
    file.Item(4, NumberedEvent(i, 64)).Item(4, NumberedEvent(3000 + i, 32));
  }
  AddMarkers(file, 0xC0, 1);
  AddMarkers(file, 0xA0, 1);
  Translation const run(file.EndOfData());
  EXPECT_EQ(MarkerTimes(run), (std::vector{kMidnight + 2000, kMidnight + 1000}));
}

// File order, not time order.
TEST(EventLists, AreNotSorted) {
  auto file = General();
  for (int const number : {500, 100, 300}) file.Item(4, NumberedEvent(number, 64));
  file.Stream(6, Body().Raw({0xC0, 1, 0xC0, 1, 0xC0, 1, 70, 0}));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(QV_TIME_HISTORY).size(), 4U);
  EXPECT_EQ(run.As<QvTimeHistory>(1, QV_TIME_HISTORY).RecordTime, kMidnight + 500);
  EXPECT_EQ(run.As<QvTimeHistory>(2, QV_TIME_HISTORY).RecordTime, kMidnight + 100);
  EXPECT_EQ(run.As<QvTimeHistory>(3, QV_TIME_HISTORY).RecordTime, kMidnight + 300);
}

// An event that runs backwards behind a later one is listed as its record shows it.
TEST(EventLists, HoldTheTimesOfTheRecords) {
  test::ScopedZone const zone("Europe/Berlin");
  auto file = General();
  file.Item(4, EventAt({2024, 10, 26, 20}, 64))
      .Item(4, EventAt({2024, 10, 27, 6}, 0))
      .Item(4, EventAt({2024, 10, 27, 5, 30}, 80))
      .Stream(6, Body().Raw({0xC0, 1, 0xD0, 1, 70, 0}));
  Translation const run(file.EndOfData(), {.census = true});
  EXPECT_EQ(run.As<QvEvent>(2, QV_EVENT).RecordTime, Utc(2024, 10, 27, 4, 30));
  EXPECT_EQ(run.As<QvTimeHistory>(1, QV_TIME_HISTORY).RecordTime, Utc(2024, 10, 26, 18));
  EXPECT_EQ(run.As<QvTimeHistory>(2, QV_TIME_HISTORY).RecordTime, Utc(2024, 10, 27, 4, 30));
}

TEST(EventLists, BeginAnewWithEachStart) {
  auto file = General();
  file.Item(4, NumberedEvent(100, 64))
      .Item(4, NumberedEvent(200, 80))
      .Stream(6, Body().Raw({0xC0, 1, 0xD0, 1, 70, 0}))
      .EndOfData();
  test::TempFile const stored(test::Startable(file));
  test::Session session;
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    std::vector<std::int32_t> times;
    int status = 0;
    while ((status = session.Next()) >= 0) {
      if (session.Code() == QV_TIME_HISTORY) {
        times.push_back(session.As<QvTimeHistory>().RecordTime);
      }
    }
    EXPECT_EQ(status, QV_END_OF_DATA);
    EXPECT_EQ(times, (std::vector{Utc(2024, 6, 21, 12), kMidnight + 100, kMidnight + 200}));
  }
}

// Stopped in the middle of the events, the next translation does not see those of the last.
TEST(EventLists, BeginAnewBehindAnUnfinishedTranslation) {
  auto file = General();
  file.Item(4, NumberedEvent(100, 64)).Stream(6, Body().Raw({0xC0, 1, 70, 0})).EndOfData();
  test::TempFile const stored(test::Startable(file));
  test::Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  ASSERT_EQ(session.Next(), QV_OK);
  ASSERT_EQ(session.Next(), QV_OK);  // within the stream
  ASSERT_EQ(session.Code(), QV_TIME_HISTORY);
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  ASSERT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvEvent>().RecordIndex, 1U);
  ASSERT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvTimeHistory>().RecordTime, Utc(2024, 6, 21, 12));
  ASSERT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvTimeHistory>().RecordTime, kMidnight + 100);
}

}  // namespace
