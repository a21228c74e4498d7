#include "model431_samples.h"

#include "setup_items.h"
#include "sound.h"
#include "station.h"

namespace samples {

namespace {

const Clock kMorning = At(2024, 1, 9, 7);
constexpr double kLevelOffset = 10.25;

// Flags of a setup block.
constexpr int kImages = 64 | 32 | 16;
constexpr int kThirds = 8;

SampleBuilder Model431(std::string_view modeTag) {
  SampleBuilder sample;
  sample.Header({.Model = 431,
                 .Serial = "B0815",
                 .Firmware = "1.310",
                 .Date = "09Jan2024",
                 .Time = "07:00:00",
                 .ModeTag = std::string(modeTag),
                 .FirstLine = "L noise at work"});
  return sample;
}

Results ResultsUntil(Clock stop) {
  return {.start = kMorning, .stop = stop, .leq = 81.45, .levelOffset = kLevelOffset};
}

// Calibration before and after, and where it was. The first level offset comes with it.
void AddPlace(SampleBuilder& sample) {
  AddReference(sample, {.first = kMorning - kHour, .second = kMorning - 300}, kLevelOffset);
  AddSite(sample, {.number = 12,
                   .name = "Press shop",
                   .street = "Hall 3, east side",
                   .note = "next to press 7, doors closed"});
}

// Flags at positions 42, 47, 48 and 49 of a logging setup: percentiles and distribution in
// summaries, distribution and percentiles in days, samples in intervals, the extra block.
SetupBlock LoggingSetup(const SampleBuilder& sample) {
  return SetupBlock(sample.State(), "LOG1", "Logging of a shift", kImages)
      .Set(42, {65})
      .Set(47, {128 + 32, 64, 64})
      .Set(78, {4})
      .Set(176, {240});
}

}  // namespace

Sample Model431Octaves(const std::string& name) {
  SampleBuilder sample = Model431("OBA ");
  Results const results = ResultsUntil(kMorning + kHour);
  ExpectResults(sample, results);
  AddPlace(sample);
  AddSetup(sample, SetupBlock(sample.State(), "OCT", "Ten octaves", kImages));
  for (int i = 0; i < 6; ++i) {
    Clock const time = kMorning + i * 5 * kMinute;
    Add(sample, Bands431{.time = time,
                         .duration = 300,
                         .byte11 = i,
                         .bands = StreetBands(85, 10, static_cast<std::uint32_t>(time))});
  }
  AddSetup(sample, SetupBlock(sample.State(), "THIRD", "Thirty thirds", kImages | kThirds));
  for (int i = 0; i < 6; ++i) {
    Clock const time = kMorning + (i + 6) * 5 * kMinute;
    std::vector<double> bands = StreetBands(85, 33, static_cast<std::uint32_t>(time));
    bands.resize(30);
    Add(sample, Bands431{.time = time, .duration = 299.5, .byte11 = 100 + i, .bands = bands});
  }
  Add(sample, Image(8, 5120));
  AddResults431(sample, results);
  return sample.End(name).Finish();
}

Sample Model431Short(const std::string& name) {
  SampleBuilder sample = Model431("sSLM");
  Results const results = ResultsUntil(kMorning + kHour);
  ExpectResults(sample, results);
  AddPlace(sample);
  AddSetup(sample, SetupBlock(sample.State(), "SHORT", "Spot checks", 0));
  for (int i = 0; i < 12; ++i) {
    Clock const time = kMorning + i * 5 * kMinute;
    double const level = 78 + i / 4.0;
    Add(sample, Summary431{.first = time,
                           .second = time + 60,
                           .duration = 60.25,
                           .values = {level, level + 20.5, -12.75 + i, level - 9, level + 6.125,
                                      level + 3.25, -0.5},
                           .bytes = {31, 32 + i, 33, 34, 35 + i, 36, 37}});
  }
  AddResults431(sample, results);
  return sample.End(name).Finish();
}

Sample Model431Logging(const std::string& name) {
  SampleBuilder sample = Model431("iSLM");
  Results const results = ResultsUntil(kMorning + 2 * kHour);
  ExpectResults(sample, results);
  AddPlace(sample);
  AddSetup(sample, LoggingSetup(sample).Set(140, {2}).Period(8, 0));
  Add(sample, RunStart(kMorning, 1));
  for (int minute = 0; minute < 60; ++minute) {
    Add(sample, StreetInterval(kMorning + minute * kMinute, 60));
    if (minute % 9 == 0) Add(sample, StreetMark(kMorning + minute * kMinute + 7, 3));
  }
  Add(sample, RunEnd(kMorning + kHour, 1));
  AddHistory(sample, StreetRun(kMorning, 1000, 0.25, true));
  Add(sample, StreetSummary(kMorning, kHour));
  Add(sample, StreetDay(At(2024, 1, 9)));
  Add(sample, Image(8, 5120));
  AddResults431(sample, results);
  return sample.End(name).Finish();
}

Sample Model431Environment(const std::string& name) {
  SampleBuilder sample = Model431("ENV ");
  Results const results = ResultsUntil(kMorning + kDay);
  ExpectResults(sample, results);
  AddPlace(sample);
  // Stamps at the end of intervals (flag 32 of position 48); whole decibels (4 of position 47).
  AddSetup(sample, LoggingSetup(sample).Set(47, {128 + 4, 32, 0}).Period(10, 1));
  Add(sample, RunStart(kMorning, 1));
  for (int hour = 1; hour <= 24; ++hour) {
    Add(sample, StreetInterval(kMorning + hour * kHour, kHour));
  }
  Add(sample, RunEnd(kMorning + kDay, 1));
  AddHistory(sample, StreetRun(kMorning, 500, 10, false));
  Add(sample, StreetSummary(kMorning, kDay - 1));
  Add(sample, StreetDay(At(2024, 1, 9)));
  AddResults431(sample, results);
  return sample.End(name).Finish();
}

}  // namespace samples
