// The streamed time history as one series.
#pragma once

#include <cstddef>
#include <cstdint>

#include "qvslm_records.h"
#include "row_memory.h"

namespace python {

// A sample, or a marker between samples: then the level is none, and the second level neither.
struct SeriesEntry {
  std::int64_t microseconds;  // since 1970
  float level;
  float second;
  std::int16_t mark;    // the code of a marker; -1 for a sample
  std::int16_t detail;  // of a marker; -1 for a sample
};

struct Series {
  RowMemory entries;
  std::size_t count = 0;
};

// Of records in the order of the file, whose bytes may lie anywhere. They go on where the records
// before them ended, at wouldGoOn in seconds, NaN for none; it then tells where these end.
Series SeriesOf(const std::uint8_t* records, std::size_t count, double& wouldGoOn);

}  // namespace python
