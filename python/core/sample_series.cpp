#include "sample_series.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace python {

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr std::int16_t kSample = -1;
constexpr std::size_t kMostEntries = std::size(QvTimeHistory{}.FirstLevels);

// The arrays are the user's, who may have changed any number.
std::int16_t Small(float number) {
  constexpr float most = 32767;
  return number >= 0 && number <= most ? static_cast<std::int16_t>(number) : std::int16_t{0};
}

// Rounded.
std::int64_t Microseconds(double seconds) {
  constexpr double inSecond = 1e6;
  constexpr double most = 1e12;
  if (!(std::fabs(seconds) < most)) return 0;
  double const half = seconds < 0 ? -0.5 : 0.5;
  return static_cast<std::int64_t>(seconds * inSecond + half);
}

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

Series SeriesOf(const std::uint8_t* records, std::size_t count, double& wouldGoOn) {
  Series series;
  if (count == 0) return series;
  series.entries.Grow(count * kMostEntries * sizeof(SeriesEntry));
  auto* next = reinterpret_cast<SeriesEntry*>(series.entries.Bytes());
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
      SeriesEntry now{Microseconds(begin + samples * period), kNone, kNone, kSample, kSample};
      float const first = record.FirstLevels[entry];
      float const second = record.SecondLevels[entry];
      if (first > 0) {
        now.level = first;
        if (hasSecond && second != QV_NO_LEVEL) now.second = second;
        ++samples;
        lastMark = kSample;
      } else {
        lastMark = now.mark = Small(-first);
        now.detail = Small(second);
      }
      *next++ = now;
    }
    series.count += entries;
    wouldGoOn = EndsRun(lastMark) ? kNone : begin + samples * period;
  }
  series.entries.Cut(series.count * sizeof(SeriesEntry));
  return series;
}

}  // namespace python
