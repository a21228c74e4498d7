#include "band_samples.h"

#include "setup_items.h"
#include "sound.h"
#include "station.h"

namespace samples {

namespace {

const Clock kNoon = At(2024, 5, 6, 12);
constexpr double kLevelOffset = 12.5;

BandTable Bands(int seed) {
  return StreetBandTable(66 + seed % 9, static_cast<std::uint32_t>(seed));
}

// Stamps stand at the start of an interval or at its end.
Clock Stamp(const SampleBuilder& sample, int number) {
  return kNoon + (number - (sample.State().timeIsEnd ? 0 : 1)) * 300;
}

void AddInterval(SampleBuilder& sample, int number) {
  Add(sample, StreetInterval(Stamp(sample, number), 300));
}

// Three tables of one interval, the last of which says so.
void AddSeries(SampleBuilder& sample, int owner) {
  Clock const start = kNoon + (owner - 1) * 300;
  for (int i = 0; i < 3; ++i) {
    Add(sample,
        SeriesBands{
            .owner = owner, .last = i == 2, .ownerTime = start, .bands = Bands(owner * 10 + i)});
  }
}

// Behind a settings block a series may stand before its interval; without one the first interval
// comes first.
enum class SeriesPlace { kBeforeInterval, kBehindInterval };

void AddBandItems(SampleBuilder& sample, SeriesPlace place) {
  for (int number = 1; number <= 3; ++number) {
    if (place == SeriesPlace::kBeforeInterval) AddSeries(sample, number);
    AddInterval(sample, number);
    if (place == SeriesPlace::kBehindInterval) AddSeries(sample, number);
  }
  Add(sample, RunStart(kNoon, 1));
  AddHistory(sample, StreetRun(kNoon, 700, 1, false));
  for (int number = 4; number <= 6; ++number) {
    AddInterval(sample, number);
    Add(sample, IntervalBands{.owner = number,
                              .bandsA = Bands(number),
                              .bandsB = Bands(number + 20),
                              .bandsC = Bands(number + 40),
                              .overall = 22 * 256 + number});
  }
  // Two intervals, then their bands.
  AddInterval(sample, 7);
  AddInterval(sample, 8);
  for (int number = 7; number <= 8; ++number) {
    ShortIntervalBands bands{.owner = number,
                             .bandsA = Bands(number),
                             .bandsB = {},
                             .pair1 = 20 * 256 + 128,
                             .value = 2 * number + 1,
                             .overall = -3 * 256 + 64,
                             .byte = 33};
    for (std::size_t band = 0; band < 30; ++band) {
      bands.bandsB[band] = 15 * 256 + static_cast<int>(band) * 8;
    }
    Add(sample, bands);
  }
  for (int number = 1; number <= 3; ++number) {
    Add(sample, StreetSummary(kNoon + number * kHour, kHour));
    Add(sample, SummaryBands{.owner = number,
                             .bandsA = Bands(number + 1),
                             .bandsB = Bands(number + 2),
                             .bandsC = Bands(number + 3)});
  }
  for (int number = 1; number <= 4; ++number) {
    Add(sample, StreetMark(kNoon + number * 77, number));
  }
  for (int number = 1; number <= 4; ++number) {
    Add(sample, MarkBands{.owner = number, .bands = Bands(number * 3)});
  }
  Add(sample, RunEnd(kNoon + 3 * kHour, 1));
}

Sample Night(const std::string& name, Clock evening) {
  SampleBuilder sample;
  sample.Header({.Model = 486,
                 .Serial = " 2071",
                 .Firmware = "1.200",
                 .Date = DateText(evening),
                 .Time = TimeText(evening)});
  Clock const morning = evening + 8 * kHour;
  Results const results{.start = evening, .stop = morning};
  ExpectResults(sample, results);
  StationSettings(sample, evening).Done();
  Add(sample, RunStart(evening, 1));
  for (Clock time = evening; time < morning; time += 10 * kMinute) {
    Add(sample, StreetInterval(time, 600));
    if (time % kHour == 30 * kMinute) Add(sample, StreetMark(time + 1));
  }
  Add(sample, RunEnd(morning, 1));
  AddGeneralResults(sample, results);
  return sample.End(name).Finish();
}

}  // namespace

Sample BandsGeneral(const std::string& name) {
  SampleBuilder sample;
  sample.Header({.Model = 486, .Firmware = "1.200", .Date = "06May2024"});
  Results const results{.start = kNoon, .stop = kNoon + 3 * kHour, .levelOffset = kLevelOffset};
  ExpectResults(sample, results);
  StationSettings(sample, kNoon)
      .Number(81, &QvSettings::SettingQ81, 0)
      .Number(82, &QvSettings::SettingQ82, 0)
      .Number(83, &QvSettings::SettingQ83, 1)
      .Number(84, &QvSettings::SettingQ84, 1)
      .LevelOffset(kLevelOffset)
      .Done();
  AddBandItems(sample, SeriesPlace::kBeforeInterval);
  AddGeneralResults(sample, results);
  return sample.End(name).Finish();
}

Sample BandsModel431(const std::string& name) {
  SampleBuilder sample;
  sample.Header({.Model = 431,
                 .Serial = "B0815",
                 .Firmware = "1.310",
                 .Date = "06May2024",
                 .ModeTag = "iSLM"});
  Results const results{.start = kNoon, .stop = kNoon + 3 * kHour, .levelOffset = kLevelOffset};
  ExpectResults(sample, results);
  AddReference(sample, {.first = kNoon - 600, .second = kNoon - 60}, kLevelOffset);
  AddSetup(sample, SetupBlock(sample.State(), "BANDS", "Bands of intervals", 0)
                       .Set(47, {0, 32, 0})
                       .Period(1, 1));
  AddBandItems(sample, SeriesPlace::kBehindInterval);
  AddResults431(sample, results);
  return sample.End(name).Finish();
}

Sample BandsModel442(const std::string& name) {
  SampleBuilder sample;
  sample.Header({.Model = 442,
                 .Serial = " 31415",
                 .Firmware = "3.600",
                 .Date = "06May2024",
                 .ModeTag = "LOG"});
  Results const results{.start = kNoon, .stop = kNoon + 3 * kHour, .levelOffset = kLevelOffset};
  ExpectResults(sample, results);
  AddSetup(sample,
           SetupBlock(sample.State(), "BANDS", "Bands of intervals", 0).Period(1, 1).LevelBase(12));
  AddBandItems(sample, SeriesPlace::kBehindInterval);
  AddResults442(sample, results, BandRegisters::kOlder);
  return sample.End(name).Finish();
}

Sample NightInEurope(const std::string& name) {
  return Night(name, At(2024, 10, 26, 22));
}

Sample NightInAmerica(const std::string& name) {
  return Night(name, At(2024, 11, 2, 22));
}

}  // namespace samples
