#include "sample_series.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace python {

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr std::int16_t kSample = -1;
constexpr double kMicroseconds = 1e6;
constexpr std::size_t kMostEntries = std::size(QvTimeHistory{}.FirstLevels);

bool EndsRun(int mark) {
  return mark == 64 || mark == 80;
}

// Where the samples of a record begin. Records tell their time in whole seconds; one that goes on
// where the record before it ended begins at that part of its second.
double BeginOf(const QvTimeHistory& record, double wouldGoOn) {
  auto const own = static_cast<double>(record.RecordTime);
  return std::trunc(wouldGoOn) == own ? wouldGoOn : own;
}

}  // namespace

std::vector<SeriesEntry> SeriesOf(const std::uint8_t* records, std::size_t count) {
  std::vector<SeriesEntry> series;
  series.reserve(count * kMostEntries);
  double wouldGoOn = kNone;
  QvTimeHistory record;
  for (std::size_t at = 0; at < count; ++at) {
    std::memcpy(&record, records + at * sizeof record, sizeof record);
    double const begin = BeginOf(record, wouldGoOn);
    bool const hasSecond = record.StreamFlags != 0;
    auto const period = static_cast<double>(record.StreamPeriod);
    int samples = 0;
    int lastMark = kSample;
    std::size_t const entries = std::min<std::size_t>(record.EntryCount, kMostEntries);
    for (std::size_t entry = 0; entry < entries; ++entry) {
      double const time = begin + samples * period;
      SeriesEntry now{std::llround(time * kMicroseconds), kNone, kNone, kSample, kSample};
      float const first = record.FirstLevels[entry];
      float const second = record.SecondLevels[entry];
      if (first > 0) {
        now.level = first;
        if (hasSecond && second != QV_NO_LEVEL) now.second = second;
        ++samples;
        lastMark = kSample;
      } else {
        lastMark = now.mark = static_cast<std::int16_t>(-first);
        now.detail = static_cast<std::int16_t>(second);
      }
      series.push_back(now);
    }
    wouldGoOn = EndsRun(lastMark) ? kNone : begin + samples * period;
  }
  return series;
}

}  // namespace python
