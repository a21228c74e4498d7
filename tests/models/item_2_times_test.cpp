// The times of items 2 of models 431 and 442, alike in all their forms: the zone of the host, the
// daylight span of the run, and the latest time.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <ostream>
#include <vector>

#include "support/autumn_run.h"
#include "support/scoped_zone.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

enum class Span { kFollowed, kIgnored };
enum class Latest { kRaised, kLeft };

struct Form {
  const char* name;
  int model;
  const char* modeTag;
  int kind;  // of tallies: the byte at position 12
  std::size_t size;
  int code;
  std::size_t timeOffset;  // of RecordTime in the record
  Span span;
  Latest latest;
};

constexpr Form kForms[] = {
    {"Bands431", 431, "OBA ", 0, 32, QV_BANDS_431, offsetof(QvBands431, RecordTime), Span::kIgnored,
     Latest::kRaised},
    {"Summary431", 431, "sSLM", 0, 38, QV_SUMMARY_431, offsetof(QvSummary431, RecordTime),
     Span::kIgnored, Latest::kRaised},
    {"SpectrumSummary", 442, "SSA", 0, 93, QV_SPECTRUM_SUMMARY,
     offsetof(QvSpectrumSummary, RecordTime), Span::kFollowed, Latest::kRaised},
    {"BandTable", 442, "RTA", 0, 40, QV_BAND_TABLE, offsetof(QvBandTable, RecordTime),
     Span::kFollowed, Latest::kLeft},
    {"NarrowTable", 442, "FFT", 0, 813, QV_NARROW_TABLE, offsetof(QvNarrowTable, RecordTime),
     Span::kFollowed, Latest::kLeft},
    {"TallyLevels", 442, "TAL", 0, 83, QV_TALLY_LEVELS, offsetof(QvTallyLevels, RecordTime),
     Span::kFollowed, Latest::kLeft},
    {"TallyBands", 442, "TAL", 1, 145, QV_TALLY_BANDS, offsetof(QvTallyBands, RecordTime),
     Span::kFollowed, Latest::kLeft},
    {"TallyTotals", 442, "TAL", 2, 23, QV_TALLY_TOTALS, offsetof(QvTallyTotals, RecordTime),
     Span::kFollowed, Latest::kLeft},
};

void PrintTo(const Form& form, std::ostream* out) {
  *out << form.name;
}

class Item2Times : public testing::TestWithParam<Form> {
 protected:
  static DataFile File() {
    const Form& form = GetParam();
    return form.model == 431 ? Model431(form.modeTag) : Model442(form.modeTag);
  }
  // An item of which only the stamp and the kind are not zero.
  static Body At(int day, int month, int hour, int minute, int second = 0) {
    const Form& form = GetParam();
    return Body()
        .Date(day, month, 2024)
        .Time(hour, minute, second)
        .PadTo(form.size)
        .Set(12, {form.kind});
  }
  static Body March() { return At(5, 3, 6, 7, 8); }
  static Body July() { return At(9, 7, 6, 7, 8); }

  static std::vector<std::int32_t> TimesOf(const Translation& run) {
    std::vector<std::int32_t> times;
    for (const Step& step : run.Records(GetParam().code)) {
      std::int32_t time = 0;
      std::memcpy(&time, step.record.data() + GetParam().timeOffset, sizeof time);
      times.push_back(time);
    }
    return times;
  }
};

TEST_P(Item2Times, CarryTheZoneOfTheHost) {
  for (const ZoneTimes& expected : kZoneTimes) {
    SCOPED_TRACE(expected.zone);
    ScopedZone const zone(expected.zone);
    Translation const run(File().Item(2, March()).Item(2, July()).EndOfData());
    EXPECT_EQ(TimesOf(run), (std::vector{expected.march, expected.july}));
  }
}

// 02:30 of the night stands twice. Model 431 reads each stamp by itself; forms of model 442 follow
// the run, and keep a last time that is apart from that of the level marks.
TEST_P(Item2Times, FollowTheSpanOfTheRunOnModel442) {
  ScopedZone const zone("Europe/Berlin");
  DataFile file = File();
  AddAutumnRun(file).Item(2, At(27, 10, 2, 30));
  file.Item(5, Body().U8(0).Date(27, 10, 2024).Time(8, 10, 0).Level(60.5).U8(0));
  file.Item(2, At(27, 10, 7, 50));
  file.Item(2, At(27, 10, 8, 10)).Item(2, At(27, 10, 7, 50));
  Translation const run(file.EndOfData(), {.census = true});
  EXPECT_EQ(run.census, QV_OK);
  if (GetParam().span == Span::kFollowed) {
    EXPECT_EQ(TimesOf(run),
              (std::vector{kSunday0030Utc, kSunday0550Utc, kSunday0710Utc, kSunday0650Utc}));
  } else {
    EXPECT_EQ(TimesOf(run),
              (std::vector{kSunday0130Utc, kSunday0650Utc, kSunday0710Utc, kSunday0650Utc}));
  }
}

TEST_P(Item2Times, RaiseTheLatestTimeOrLeaveIt) {
  Translation const run(File().Item(2, July()).Item(2, March()).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{GetParam().code, GetParam().code, int{QV_END}}));
  EXPECT_EQ(TimesOf(run), (std::vector{kJuly, kMarch}));
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, GetParam().latest == Latest::kRaised ? kJuly : 0);
}

INSTANTIATE_TEST_SUITE_P(Forms, Item2Times, testing::ValuesIn(kForms),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace test
