// Band items: 129 to 132, which belong to an interval, a summary or a level mark by its number, and
// the intervals of the band analyser (mode 4).
#pragma once

#include <array>
#include <vector>

#include "sample_builder.h"

namespace samples {

// A band level as these items hold it: powers of two in 1/256. 3.0103 dB each.
using BandTable = std::array<int, 34>;

// Bands of a street: a table around the given level.
BandTable StreetBandTable(double level, std::uint32_t seed);

// Item 129, long form: three tables and a total.
struct IntervalBands {
  int owner;
  BandTable bandsA;
  BandTable bandsB;
  BandTable bandsC;
  int overall;
};
void Add(SampleBuilder& sample, const IntervalBands& bands);

// Item 129, short form: a table of 34 bands, one of 31 of which the last two bytes also are the
// owner's number, and single values.
struct ShortIntervalBands {
  int owner;
  BandTable bandsA;
  std::array<int, 30> bandsB;
  int pair1;
  int value;  // in halves
  int overall;
  int byte;
};
void Add(SampleBuilder& sample, const ShortIntervalBands& bands);

// Item 130.
struct SummaryBands {
  int owner;
  BandTable bandsA;
  BandTable bandsB;
  BandTable bandsC;
};
void Add(SampleBuilder& sample, const SummaryBands& bands);

// Item 131.
struct MarkBands {
  int owner;
  BandTable bands;
};
void Add(SampleBuilder& sample, const MarkBands& bands);

// Item 132, one of a series within its interval. The interval may be written later; `ownerTime` is
// its start.
struct SeriesBands {
  int owner;
  bool last;
  Clock ownerTime;
  BandTable bands;
};
void Add(SampleBuilder& sample, const SeriesBands& bands);

// Item 1 in mode 4: three totals, each with 33 or 11 bands as the setup's flag 128 says.
struct BandInterval {
  Clock time;
  double duration;
  int valueA;
  int valueB;
  int byte;
  std::array<double, 3> overall;
  std::array<std::vector<double>, 3> bands;
  int trailer = 0;
};
void Add(SampleBuilder& sample, const BandInterval& interval);

}  // namespace samples
