// The times of the sample stream: the running time of its samples, and the run markers that set it
// to the times of the run events.
#include <gtest/gtest.h>

#include <vector>

#include "support/stamped_items.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::EventAt;
using test::General;
using test::MarkAt;
using test::Translation;
using test::Utc;
using Times = std::vector<std::int32_t>;

constexpr std::int32_t kHeaderTime = Utc(2024, 6, 21, 12);
constexpr std::int32_t kRunTime = Utc(2024, 6, 22, 8);

// A header that dates the file at second 0, which counts as no date.
DataFile Undated() {
  return DataFile().Header({.Model = 486, .Date = "01Jan1970", .Time = "00:00:00"});
}

// One-byte samples in the given period (a number, and a unit: 0 1/32 s, 1 s, 2 10 s, 3 min).
DataFile& Period(DataFile& file, const char* value, const char* unit) {
  return file.Q(81, "1").Q(82, "0").Q(83, value).Q(84, unit);
}

Body Samples(std::size_t count) {
  return Body().Fill(count, 60);
}

Times TimesOf(const Translation& run) {
  Times times;
  for (const test::Step& step : run.Records(QV_TIME_HISTORY)) {
    times.push_back(Translation::Copy<QvTimeHistory>(step).RecordTime);
  }
  return times;
}

std::vector<int> EntryCounts(const Translation& run) {
  std::vector<int> counts;
  for (const test::Step& step : run.Records(QV_TIME_HISTORY)) {
    counts.push_back(Translation::Copy<QvTimeHistory>(step).EntryCount);
  }
  return counts;
}

TEST(TimeHistoryTimes, RunOnByThePeriod) {
  struct {
    const char* value;
    const char* unit;
    Times expected;  // of three full records and a rest
  } const rows[] = {
      {"1", "0", {kHeaderTime, kHeaderTime + 1, kHeaderTime + 3, kHeaderTime + 5}},
      {"8", "0", {kHeaderTime, kHeaderTime + 15, kHeaderTime + 30, kHeaderTime + 45}},
      {"2", "1", {kHeaderTime, kHeaderTime + 120, kHeaderTime + 240, kHeaderTime + 360}},
      {"1", "2", {kHeaderTime, kHeaderTime + 600, kHeaderTime + 1200, kHeaderTime + 1800}},
      {"1", "3", {kHeaderTime, kHeaderTime + 3600, kHeaderTime + 7200, kHeaderTime + 10800}},
      {"0", "1", {kHeaderTime, kHeaderTime, kHeaderTime, kHeaderTime}},
  };
  for (const auto& row : rows) {
    DataFile file = General();
    Period(file, row.value, row.unit).Stream(6, Samples(181)).EndOfData();
    EXPECT_EQ(TimesOf(Translation(file)), row.expected) << row.value << " " << row.unit;
  }
}

// Each sample adds its period to the running time, and each sum is rounded: a period of 0.5 s less
// 2^-25 s counts as 0.5 s where times are 2^-22 s apart. Each line of register 84 scales the period
// anew.
TEST(TimeHistoryTimes, AddUpSampleBySample) {
  DataFile file = General();
  Period(file, "16777215", "0");
  for (int line = 0; line < 4; ++line) file.Q(84, "0");
  Translation const run(file.Stream(6, Samples(181)).EndOfData());
  EXPECT_EQ(TimesOf(run),
            (Times{kHeaderTime, kHeaderTime + 30, kHeaderTime + 60, kHeaderTime + 90}));
  EXPECT_EQ(run.As<QvTimeHistory>(0, QV_TIME_HISTORY).StreamPeriod, 0.5F - 0x1p-25F);
}

// The next stream goes on where the last one stopped.
TEST(TimeHistoryTimes, GoOnWithTheNextStream) {
  DataFile file = General();
  Period(file, "2", "1").Stream(6, Samples(5)).Stream(6, Samples(60)).Stream(6, Samples(1));
  EXPECT_EQ(TimesOf(Translation(file.EndOfData())),
            (Times{kHeaderTime, kHeaderTime + 10, kHeaderTime + 130}));
}

// The period may change on the way; each sample counts the one in force.
TEST(TimeHistoryTimes, FollowThePeriodInForce) {
  DataFile file = General();
  Period(file, "2", "1").Stream(6, Samples(5));
  Period(file, "3", "3").Stream(6, Samples(2)).Stream(6, Samples(1)).EndOfData();
  Translation const run(file);
  EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kHeaderTime + 10, kHeaderTime + 370}));
  EXPECT_EQ(run.As<QvTimeHistory>(1, QV_TIME_HISTORY).StreamPeriod, 180.0F);
}

// A marker takes no time; one that is no run marker sets none.
TEST(TimeHistoryTimes, OtherMarkersTakeNoTime) {
  for (int const marker : {0x80, 0x90, 0xA0, 0xB5, 0xE0, 0xFF}) {
    DataFile file = General();
    file.Item(4, EventAt({2024, 6, 22, 8}, 64)).Item(4, EventAt({2024, 6, 22, 9}, 32));
    Period(file, "1", "1");
    file.Stream(6, Body().Fill(10, 60).U8(marker).Fill(49, 60).Fill(5, 60)).EndOfData();
    Translation const run(file);
    EXPECT_EQ(EntryCounts(run), (std::vector{60, 5}));
    EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kHeaderTime + 59})) << marker;
  }
}

// Nor does a sample that comes out at or below 0, which counts as a marker; those behind it go on.
TEST(TimeHistoryTimes, SamplesAtOrBelowZeroTakeNoTime) {
  DataFile file = General();
  Period(file, "2", "1").Q(227, "-50.0");
  file.Stream(6, Body().Fill(9, 60).U8(50).Fill(50, 60).Fill(60, 60).U8(60)).EndOfData();
  Translation const run(file);
  EXPECT_EQ(EntryCounts(run), (std::vector{60, 60, 1}));
  EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kHeaderTime + 118, kHeaderTime + 238}));
}

// A run marker ends its record, and the next begins at the time of the event it answers to.
TEST(TimeHistoryTimes, RunMarkerAsThirdEntry) {
  for (int const marker : {0xC0, 0xC7, 0xD0, 0xDF}) {
    DataFile file = General();
    file.Item(4, EventAt({2024, 6, 22, 8}, marker & 0x70));
    Period(file, "1", "1").Stream(6, Body().Fill(2, 60).U8(marker).Fill(61, 60)).EndOfData();
    Translation const run(file);
    EXPECT_EQ(EntryCounts(run), (std::vector{3, 60, 1})) << marker;
    EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kRunTime, kRunTime + 60})) << marker;
    EXPECT_EQ(run.As<QvTimeHistory>(0, QV_TIME_HISTORY).FirstLevels[2],
              -static_cast<float>(marker & 0x70));
  }
}

// A run marker as the last entry: nothing is pending when the stream closes.
TEST(TimeHistoryTimes, RunMarkerAsLastEntry) {
  DataFile file = General();
  file.Item(4, EventAt({2024, 6, 22, 8}, 64));
  Period(file, "1", "1").Stream(6, Body().U8(60).U8(0xC0)).Stream(6, Samples(1)).EndOfData();
  Translation const run(file);
  std::vector<int> codes;
  for (const test::Step& step : run.steps) codes.push_back(step.Code());
  EXPECT_EQ(codes, (std::vector{4, 7, 16, 0, 16, 15}));
  EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kRunTime}));
}

// As entry number 60 it ends the record once.
TEST(TimeHistoryTimes, RunMarkerAsSixtiethEntry) {
  DataFile file = General();
  file.Item(4, EventAt({2024, 6, 22, 8}, 64));
  Period(file, "1", "1").Stream(6, Body().Fill(59, 60).U8(0xC0).Fill(2, 60)).EndOfData();
  Translation const run(file);
  EXPECT_EQ(EntryCounts(run), (std::vector{60, 2}));
  EXPECT_EQ(TimesOf(run), (Times{kHeaderTime, kRunTime}));
}

TEST(TimeHistoryTimes, RunMarkersTakeTheEventsInOrder) {
  DataFile file = General();
  file.Item(4, EventAt({2024, 6, 22, 8}, 64))
      .Item(4, EventAt({2024, 6, 22, 9}, 80))
      .Item(4, EventAt({2024, 6, 22, 10}, 64));
  Period(file, "1", "1");
  file.Stream(6, Body().U8(0xC0).Fill(3, 60).U8(0xC0).Fill(2, 60))
      .Stream(6, Body().U8(60).U8(0xD0).U8(60))
      .EndOfData();
  Translation const run(file);
  EXPECT_EQ(EntryCounts(run), (std::vector{1, 4, 2, 2, 1}));
  EXPECT_EQ(TimesOf(run),
            (Times{kHeaderTime, kRunTime, kRunTime + 3600, kRunTime + 3602, kRunTime + 7200}));
}

// 99 run markers take a time and end a record; further ones are entries like other markers.
TEST(TimeHistoryTimes, Only99RunMarkersCount) {
  DataFile file = General();
  for (int i = 0; i < 101; ++i) file.Item(4, EventAt({2024, 6, 22, 8, i / 60, i % 60}, 64));
  Period(file, "1", "1");
  file.Stream(6, Body().Fill(101, 0xC0).Fill(3, 60)).Stream(6, Samples(1)).EndOfData();
  Translation const run(file);
  auto const times = TimesOf(run);
  ASSERT_EQ(times.size(), 101U);
  EXPECT_EQ(times[0], kHeaderTime);
  for (int i = 1; i <= 99; ++i) {
    EXPECT_EQ(times[static_cast<std::size_t>(i)], kRunTime + i - 1) << i;
  }
  auto const last = run.As<QvTimeHistory>(99, QV_TIME_HISTORY);
  EXPECT_EQ(last.EntryCount, 5);
  EXPECT_EQ(last.FirstLevels[0], -64.0F);
  EXPECT_EQ(last.FirstLevels[1], -64.0F);
  EXPECT_EQ(last.FirstLevels[2], 60.0F);
  EXPECT_EQ(times[100], kRunTime + 98 + 3);  // three samples behind the 99th event
}

// A file without a date takes the first run event's time for its first record. The running time is
// not touched and goes on from 0.
TEST(TimeHistoryTimes, WithoutADate) {
  DataFile file = Undated();
  file.Item(4, EventAt({2024, 6, 22, 7}, 32)).Item(4, EventAt({2024, 6, 22, 8}, 80));
  Period(file, "1", "1").Stream(6, Samples(61)).EndOfData();
  EXPECT_EQ(TimesOf(Translation(file)), (Times{kRunTime, 60}));
}

TEST(TimeHistoryTimes, WithoutADateAndAPeriod) {
  DataFile file = Undated();
  file.Item(4, EventAt({2024, 6, 22, 8}, 64)).Stream(6, Body().Fill(2 * 121, 60)).EndOfData();
  EXPECT_EQ(TimesOf(Translation(file)), (Times{kRunTime, kRunTime, kRunTime}));
}

TEST(TimeHistoryTimes, WithoutADateAndARunEvent) {
  DataFile file = Undated();
  file.Item(4, EventAt({2024, 6, 22, 8}, 32)).Item(5, MarkAt({2024, 6, 22}));
  Period(file, "1", "1").Stream(6, Samples(61)).EndOfData();
  EXPECT_EQ(TimesOf(Translation(file)), (Times{0, 60}));
}

// That first time is also the start of the first run, which a settings block behind it shows.
TEST(TimeHistoryTimes, WithoutADateSetTheFirstRun) {
  DataFile file = Undated();
  file.Item(4, EventAt({2024, 6, 22, 7}, 32))
      .Item(4, EventAt({2024, 6, 22, 8}, 64))
      .Stream(6, Body().Fill(2, 60))
      .Q(7, "25Jun2024")
      .EndOfData();
  EXPECT_EQ(Translation(file).As<QvSettings>(0, QV_SETTINGS).BlockTime, kRunTime);
}

TEST(TimeHistoryTimes, RaiseTheLatestTime) {
  DataFile file = General();
  Period(file, "1", "3").Stream(6, Samples(61)).EndOfData();
  EXPECT_EQ(Translation(file).As<QvEnd>(0, QV_END).LatestRecordTime, kHeaderTime + 3600);

  DataFile later = General();
  later.Item(5, MarkAt({2025, 1, 1})).Stream(6, Body().Fill(2, 60)).EndOfData();
  EXPECT_EQ(Translation(later).As<QvEnd>(0, QV_END).LatestRecordTime, Utc(2025, 1, 1));
}

// The entries are counted through the file, markers included; the history of a list goes on with
// that count.
TEST(TimeHistoryTimes, EntriesAreCounted) {
  DataFile file = General();
  Period(file, "1", "1")
      .Stream(6, Body().Fill(60, 60).U8(0xA0).U8(0xC0).U8(60))
      .Stream(6, Body().U8(60))
      .List(27, 1, {Body().U8(60), Body().U8(0x80)})
      .EndOfData();
  Translation const run(file);
  EXPECT_EQ(run.As<QvFieldHistory>(0, QV_FIELD_HISTORY).RecordIndex, 65U);
  EXPECT_EQ(run.As<QvFieldHistory>(1, QV_FIELD_HISTORY).RecordIndex, 66U);
}

}  // namespace
