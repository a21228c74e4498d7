#include "export/sample_table.h"

#include <algorithm>
#include <cmath>

#include "qvslm_records.h"
#include "record_bytes.h"

namespace host {

void SampleSeries::Take(const std::uint8_t* bytes) {
  constexpr int runStart = 64;
  constexpr int runStop = 80;
  auto const record = ReadAs<QvTimeHistory>(bytes);
  samples_.clear();
  markers_.clear();
  if (std::trunc(time_) != record.RecordTime) time_ = record.RecordTime;
  std::size_t const count = std::min<std::size_t>(record.EntryCount, std::size(record.FirstLevels));
  bool newRun = false;
  for (std::size_t i = 0; i < count; ++i) {
    float const first = record.FirstLevels[i];
    float const second = record.SecondLevels[i];
    if (first > 0) {
      samples_.push_back({time_, first, record.StreamFlags == 0 ? QV_NO_LEVEL : second});
      time_ += record.StreamPeriod;
    } else {
      auto const code = static_cast<int>(-first);
      markers_.push_back({time_, code, static_cast<int>(second)});
      newRun = newRun || code == runStart || code == runStop;
    }
  }
  // A run begins at its own time.
  if (newRun) time_ = -1;
}

}  // namespace host
