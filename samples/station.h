// A noise monitoring station at a street: what its samples have in common.
#pragma once

#include "band_items.h"
#include "general_items.h"
#include "sample_results.h"
#include "site_items.h"
#include "stream_items.h"
#include "summary_items.h"

namespace samples {

// A settings block with titles, clock, channels, thresholds and the plain registers; the caller
// adds what its sample is about and ends it.
SettingsBlock StationSettings(SampleBuilder& sample, Clock when);

// Items with the levels of the street at their time. Optional blocks are filled in; they are
// written where the settings ask for them.
Interval StreetInterval(Clock time, double duration);
Summary StreetSummary(Clock time, double duration);
DaySummary StreetDay(Clock date);
LevelMark StreetMark(Clock time, int status = 0);

// A run: its two events and, for time histories, its two markers.
Event RunStart(Clock time, int number);
Event RunEnd(Clock time, int number);

// Entries of a time history from a run's start: marker, samples, closing marker. `step` is the
// spacing of the samples in seconds.
std::vector<HistoryEntry> StreetRun(Clock start, int samples, double step, bool second);

// Three blocks of an image, each byte given by its place.
BlockImage Image(int type, std::size_t firstBlock);

}  // namespace samples
