// The nights in which summer time ends. The instrument's clock goes on in summer time; behind a
// census every record of the night has its true time, without one the records behind the change
// are read in standard time and stand an hour late.
#include <gtest/gtest.h>

#include <initializer_list>

#include "clock.h"
#include "samples/sample_check.h"
#include "support/scoped_zone.h"

namespace test {
namespace {

struct Night {
  const char* name;
  const char* zone;
  samples::Clock evening;   // 22:00 on the clock of the instrument
  std::int32_t eveningUtc;  // the same in seconds
  samples::Clock repeated;  // begin of the hour that the change repeats, by that clock
};

// 22:00 in summer time is 20:00 UTC in Berlin, and 02:00 UTC of the next day in New York.
const Night kNights[] = {
    {"night_europe.qvd", "Europe/Berlin", samples::At(2024, 10, 26, 22), 1729972800,
     samples::At(2024, 10, 27, 2)},
    {"night_america.qvd", "America/New_York", samples::At(2024, 11, 2, 22), 1730599200,
     samples::At(2024, 11, 3, 1)},
};

// What the records of the night must show: those of the sample with a time each, moved from the
// instrument's clock to UTC.
template <class Move>
void ExpectTimes(const Night& night, const Translation& run, Move move) {
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  for (const samples::SampleEntry& entry : samples::AllSamples()) {
    if (entry.name != std::string(night.name)) continue;
    for (int const code : {QV_INTERVAL, QV_EVENT, QV_LEVEL_MARK}) {
      std::vector<Step> const records = run.Records(code);
      std::size_t next = 0;
      for (const samples::ExpectedRecord& expected : entry.build(entry.name).records) {
        if (expected.code != code) continue;
        ASSERT_LT(next, records.size());
        const Step& step = records[next++];
        std::int32_t clock = 0;
        std::int32_t found = 0;
        std::memcpy(&clock, expected.bytes.data() + 4, 4);
        std::memcpy(&found, step.record.data() + 4, 4);
        EXPECT_EQ(found, move(clock)) << "code " << code << ", record " << next;
        if (code != QV_INTERVAL) continue;
        EXPECT_EQ(Translation::Copy<QvInterval>(step).EndTime, move(clock) + 600);
      }
      EXPECT_EQ(next, records.size());
    }
    return;
  }
  FAIL() << night.name;
}

TEST(NightSamples, KeepTheTimeOfTheRunBehindACensus) {
  for (const Night& night : kNights) {
    SCOPED_TRACE(night.zone);
    ScopedZone const zone(night.zone);
    Translation const run(SamplePath(night.name), {.census = true});
    ASSERT_EQ(run.census, QV_OK);
    ExpectTimes(night, run,
                [&](samples::Clock clock) { return night.eveningUtc + (clock - night.evening); });
  }
}

TEST(NightSamples, JumpAnHourWithoutACensus) {
  for (const Night& night : kNights) {
    SCOPED_TRACE(night.zone);
    ScopedZone const zone(night.zone);
    // A census without a context forgets the span of the one before.
    QV_GetRecordCount(nullptr, nullptr, nullptr, nullptr);
    ExpectTimes(night, Translation(SamplePath(night.name)), [&](samples::Clock clock) {
      return night.eveningUtc + (clock - night.evening) + (clock < night.repeated ? 0 : 3600);
    });
  }
}

TEST(NightSamples, CountTheNight) {
  for (const Night& night : kNights) {
    ScopedZone const zone(night.zone);
    Translation const run(SamplePath(night.name), {.census = true});
    EXPECT_EQ(run.counts.Intervals, 48U);
    EXPECT_EQ(run.counts.LevelMarks, 8U);
    EXPECT_EQ(run.counts.Events, 2U);
    EXPECT_EQ(run.counts.SettingsBlocks, 1U);
    EXPECT_EQ(run.counts.ResultsBlocksMode0, 1U);
  }
}

}  // namespace
}  // namespace test
