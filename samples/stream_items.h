// The streamed items: time histories of samples (6 and 7), and lists of spectra and fields (21 and
// 27).
#pragma once

#include <vector>

#include "sample_builder.h"

namespace samples {

// One entry of a time history: a sample, or a marker that stands for an event.
struct HistoryEntry {
  double level = 0;   // of a sample
  double second = 0;  // second level of a sample, where the settings ask for one; 0 for none
  int marker = -1;    // event code of a marker: 0, 16, 32 to 112
  int detail = 0;     // of a marker
};
// Writes item 6, or item 7 on models 431 and 442.
void AddHistory(SampleBuilder& sample, const std::vector<HistoryEntry>& entries);

// A spectrum of a list 21.
struct TimedSpectrum {
  int first = 1;  // first byte, not 0
  double time;    // within the run, in seconds
  double level;
  std::vector<double> bands{};  // 33 or 11, as the setup's flag 128 says
};
void AddSpectra(SampleBuilder& sample, const std::vector<TimedSpectrum>& spectra);

// An entry of a list 27: a sample with what the setup's selector and masks ask for, or a marker.
struct FieldEntry {
  double level = 0;
  double second = 0;             // selector above 0 and not 4
  double fields = 0;             // selector 4: about the level of the group fields
  std::vector<double> table1{};  // 33 bands
  std::vector<double> table2{};
  int marker = -1;  // kind 0 to 7; 4 and 5 stand for run events
  int detail = 0;
};
void AddFields(SampleBuilder& sample, const std::vector<FieldEntry>& entries);

}  // namespace samples
