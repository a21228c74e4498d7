// The forms of item 2 that belong to one mode of the models 431 and 442.
#pragma once

#include <array>
#include <vector>

#include "general_items.h"

namespace samples {

// Model 431, mode 0: thirty bands, or ten when the setup's flag 8 is not set.
struct Bands431 {
  Clock time;
  double duration;
  int byte11;
  std::vector<double> bands{};
};
void Add(SampleBuilder& sample, const Bands431& bands);

// Model 431, mode 1.
struct Summary431 {
  Clock first;
  Clock second;
  double duration;
  std::array<double, 7> values;  // in file order, -64 to 191
  std::array<int, 7> bytes;
};
void Add(SampleBuilder& sample, const Summary431& summary);

// Model 442, mode 0. Optional sections by the setup.
struct SpectrumSummary {
  Clock time;
  double duration;
  std::array<double, 6> levels;  // in file order
  std::array<int, 4> bytes{};
  Percentiles percentiles{};
  int span1 = 0;
  int span2 = 0;
  int spanByte = 0;
  std::vector<int> distribution{};             // 127 counts
  std::vector<double> bands{};                 // 33; 0 stands for no value
  std::vector<double> secondBands{};           // 33
  std::vector<std::vector<double>> spectra{};  // six of 33
};
void Add(SampleBuilder& sample, const SpectrumSummary& summary);

// Model 442, mode 4: 33 bands, or 11 when the setup's flag 128 is not set.
struct BandTableSummary {
  Clock time;
  int word;
  std::string name;  // up to 8 characters
  double level;
  std::vector<double> bands{};
};
void Add(SampleBuilder& sample, const BandTableSummary& table);

// Model 442, mode 5.
struct NarrowTable {
  Clock time;
  int word;
  int byte;
  double level;
  std::vector<double> levels{};  // 401
};
void Add(SampleBuilder& sample, const NarrowTable& table);

// Model 442, mode 7, in its three kinds.
struct TallyLevels {
  Clock time;
  double duration;
  int byte11;
  std::array<double, 9> first;
  std::array<double, 9> second;
  std::array<double, 3> third;
  double level55;
  double level57;
  std::array<double, 6> values;
  std::array<double, 6> last;
};
void Add(SampleBuilder& sample, const TallyLevels& tally);

struct TallyBands {
  Clock time;
  double duration;
  int byte11;
  std::vector<double> first{};  // 33
  std::vector<double> second{};
};
void Add(SampleBuilder& sample, const TallyBands& tally);

struct TallyTotals {
  Clock time;
  double duration;
  int byte11;
  int kind;  // 2 or more
  int word13;
  int word16;
  double level19;
  double level21;
};
void Add(SampleBuilder& sample, const TallyTotals& tally);

}  // namespace samples
