#include "model442_samples.h"

#include "setup_items.h"
#include "sound.h"
#include "station.h"

namespace samples {

namespace {

const Clock kEvening = At(2024, 1, 18, 18);
constexpr double kLevelOffset = 20.5;
constexpr int kLevelBase = 20;

// Flags of a setup block.
constexpr int kThirds = 128;
constexpr int kImages = 64 | 32 | 16;

SampleBuilder Model442(std::string_view modeTag, const Results& results,
                       std::string_view firmware = "3.600") {
  SampleBuilder sample;
  sample.Header({.Model = 442,
                 .Serial = " 31415",
                 .Firmware = std::string(firmware),
                 .Date = "18Jan2024",
                 .Time = "18:00:00",
                 .ModeTag = std::string(modeTag),
                 .FirstLine = "L concert hall",
                 .FourthLine = "Analyser 2"});
  ExpectResults(sample, results);
  return sample;
}

Results ResultsUntil(Clock stop) {
  return {.start = kEvening, .stop = stop, .leq = 88.75, .levelOffset = kLevelOffset};
}

void AddPlace(SampleBuilder& sample) {
  AddReference(sample, {.first = kEvening - kHour, .second = kEvening - 300, .deviation = -26.5});
  AddSite(sample, {.number = 4,
                   .name = "Concert hall",
                   .street = "Balcony, row 2",
                   .note = "audience present"});
}

std::vector<double> Thirds(double level, int seed) {
  return StreetBands(level, 33, static_cast<std::uint32_t>(seed));
}
std::vector<double> Octaves(double level, int seed) {
  return StreetBands(level, 11, static_cast<std::uint32_t>(seed));
}

// Entries of a list 27 between two run markers, with a marker of another kind among them.
std::vector<FieldEntry> Fields(int count, bool tables) {
  std::vector<FieldEntry> entries{{.marker = 4, .detail = 1}};
  for (int i = 0; i < count; ++i) {
    double const level = StreetLevel(kEvening + i) + 10;
    FieldEntry entry{.level = level, .second = level + 5.25, .fields = level - 2};
    if (tables) {
      entry.table1 = Thirds(level, i);
      entry.table2 = Thirds(level + 6, i + 1000);
    }
    entries.push_back(entry);
    if (i == count / 2) entries.push_back({.marker = 2, .detail = 7});
  }
  entries.push_back({.marker = 0, .detail = 2});
  return entries;
}

std::vector<TimedSpectrum> Spectra(int count, double step, bool thirds) {
  std::vector<TimedSpectrum> spectra;
  for (int i = 0; i < count; ++i) {
    double const level = StreetLevel(kEvening + i) + 10;
    spectra.push_back({.first = 1 + i % 100,
                       .time = i * step,
                       .level = level,
                       .bands = thirds ? Thirds(level, i) : Octaves(level, i)});
  }
  return spectra;
}

// The events of a run to which the markers of a list refer.
void AddRunEvents(SampleBuilder& sample, Clock start, Clock end, int number) {
  Add(sample, RunStart(start, number));
  Add(sample, Event{.time = start + 30, .code = 32, .detail = 7});
  Add(sample, RunEnd(end, number));
}

}  // namespace

Sample Model442Spectra(const std::string& name) {
  Results const results = ResultsUntil(kEvening + 2 * kHour);
  SampleBuilder sample = Model442("SSA", results);
  AddPlace(sample);
  // Percentiles and distribution (65), the extra block (64), second spectrum and six spectra.
  AddSetup(sample, SetupBlock(sample.State(), "SSA1", "Spectra of an evening", kThirds | kImages)
                       .Set(42, {65})
                       .Set(49, {64})
                       .Set(103, {1, 2})
                       .Period(1, 1)
                       .Fields(1, {0, 0, 0, 0, 0, 0})
                       .LevelBase(kLevelBase));
  AddRunEvents(sample, kEvening, kEvening + kHour, 1);
  for (int i = 0; i < 6; ++i) {
    Clock const time = kEvening + i * 10 * kMinute;
    double const level = 84 + i;
    SpectrumSummary summary{
        .time = time,
        .duration = 600,
        .levels = {level, level + 14, level + 8, level - 20, level + 22, level + 3},
        .bytes = {i, 24, 25, 26},
        .span1 = 1000 + i,
        .span2 = 65000 + i,
        .spanByte = 40 + i};
    summary.percentiles.levels = {level + 7, level + 5, level + 4, level - 1, level - 6, level - 7};
    summary.distribution = StreetDistribution(level, 30, 20000);
    summary.bands = Thirds(level, i);
    summary.bands[10] = 0;  // one band without a value
    summary.secondBands = Thirds(level + 9, i + 50);
    for (int row = 0; row < 6; ++row) summary.spectra.push_back(Thirds(level - row, i * 6 + row));
    Add(sample, summary);
  }
  AddSpectra(sample, Spectra(40, 0.125, true));
  AddFields(sample, Fields(60, false));
  // A setup without the optional parts.
  AddSetup(sample, SetupBlock(sample.State(), "SSA2", "Short form", 0).LevelBase(kLevelBase));
  SpectrumSummary plain{
      .time = kEvening + kHour, .duration = 59.75, .levels = {80.5, 95.25, 88, 60.25, 101, 83}};
  plain.bands = Thirds(80, 9);
  Add(sample, plain);
  AddSpectra(sample, Spectra(12, 0.25, false));
  AddSetup(sample,
           SetupBlock(sample.State(), "SSA3", "With images", kImages).LevelBase(kLevelBase));
  Add(sample, Image(8, 5120));
  AddResults442(sample, results, BandRegisters::kOlder);
  return sample.End(name).Finish();
}

Sample Model442Short(const std::string& name) {
  Results const results = ResultsUntil(kEvening + kHour);
  SampleBuilder sample = Model442("ISM", results, "3.112");
  AddPlace(sample);
  AddSetup(sample, SetupBlock(sample.State(), "ISM1", "Spot checks", 0).LevelBase(kLevelBase));
  AddRunEvents(sample, kEvening, kEvening + kHour, 1);
  for (int i = 0; i < 30; ++i) Add(sample, StreetMark(kEvening + i * 2 * kMinute, i % 8));
  AddResults442(sample, results, BandRegisters::kOlder);
  return sample.End(name).Finish();
}

Sample Model442Logging(const std::string& name) {
  Results const results = ResultsUntil(kEvening + kHour);
  SampleBuilder sample = Model442("LOG", results);
  // Texts in registers 161 to 165, and the kind of second levels in the stream.
  SettingsBlock(sample)
      .Text(2, &QvSettings::Title2, "Concert hall")
      .Text(3, &QvSettings::Title3, "Analyser 2")
      .Text(5, &QvSettings::Title1, "Evening of 18 January")
      .Stamp(kEvening)
      .Number(82, &QvSettings::SettingQ82, 2)
      .Number(83, &QvSettings::SettingQ83, 1)
      .Number(84, &QvSettings::SettingQ84, 1)
      .Number(118, &QvSettings::SettingQ118, 1)
      .Number(157, &QvSettings::SettingQ157, 4)
      .Text(161, &QvSettings::SettingQ161Text, "evening")
      .Text(162, &QvSettings::SettingQ162Text, "balcony")
      .Text(163, &QvSettings::SettingQ163Text, "row 2")
      .Text(164, &QvSettings::SettingQ164Text, "A")
      .Text(165, &QvSettings::SettingQ165Text, "12345678")
      .Done();
  AddPlace(sample);
  // Selector 4 with fields of all six groups, counts, ratios and both tables.
  AddSetup(sample, SetupBlock(sample.State(), "LOG1", "Logging of a concert", kImages)
                       .Set(42, {65})
                       .Set(47, {128 + 32, 64, 64})
                       .Set(176, {160})
                       .Period(1, 1)
                       .Fields(4, {0xE0, 0x83, 0xC0, 0x87, 0x81, 0xC3})
                       .LevelBase(kLevelBase));
  AddRunEvents(sample, kEvening, kEvening + kHour, 1);
  AddRunEvents(sample, kEvening + 10, kEvening + kHour, 2);
  for (int minute = 0; minute < 60; ++minute) {
    Add(sample, StreetInterval(kEvening + minute * kMinute, 60));
  }
  AddHistory(sample, StreetRun(kEvening, 600, 1, true));
  AddFields(sample, Fields(60, true));
  Add(sample, StreetSummary(kEvening, kHour));
  Add(sample, StreetDay(At(2024, 1, 18)));
  Add(sample, Image(8, 5120));
  AddResults442(sample, results, BandRegisters::kCounted);
  return sample.End(name).Finish();
}

Sample Model442Environment(const std::string& name) {
  Results const results = ResultsUntil(kEvening + 12 * kHour);
  SampleBuilder sample = Model442("ENV", results, "3.111");
  AddPlace(sample);
  // Whole decibels (4 of position 47), stamps at the end of intervals (32 of position 48), and the
  // extra block (64 of position 49), which has its first span at this firmware.
  AddSetup(sample, SetupBlock(sample.State(), "ENV1", "A night", 0)
                       .Set(42, {64})
                       .Set(47, {128 + 32 + 4, 32, 64})
                       .Set(138, {0x12, 0x34})
                       .Period(1, 3)
                       .LevelBase(kLevelBase));
  Add(sample, RunStart(kEvening, 1));
  for (int i = 1; i <= 48; ++i) Add(sample, StreetInterval(kEvening + i * 900, 900));
  Add(sample, RunEnd(results.stop, 1));
  AddHistory(sample, StreetRun(kEvening, 720, 60, false));
  Add(sample, StreetSummary(kEvening, 12 * kHour));
  Add(sample, StreetDay(At(2024, 1, 18)));
  AddResults442(sample, results, BandRegisters::kOlder);
  return sample.End(name).Finish();
}

Sample Model442Bands(const std::string& name) {
  Results const results = ResultsUntil(kEvening + kHour);
  SampleBuilder sample = Model442("RTA", results);
  AddPlace(sample);
  for (bool const thirds : {true, false}) {
    AddSetup(sample, SetupBlock(sample.State(), thirds ? "RTA3" : "RTA1", "Bands of a concert",
                                thirds ? kThirds : 0));
    Clock const start = kEvening + (thirds ? 0 : 20 * kMinute);
    AddRunEvents(sample, start, start + 10 * kMinute, thirds ? 1 : 2);
    for (int i = 0; i < 20; ++i) {
      Clock const time = start + i * 30;
      double const level = 82 + i % 7;
      BandInterval interval{.time = time,
                            .duration = 30.5,
                            .valueA = 4000 + i,
                            .valueB = 300 + i,
                            .byte = i,
                            .overall = {level, level + 8, level - 12},
                            .bands = {},
                            .trailer = 200 + i};
      for (std::size_t table = 0; table < 3; ++table) {
        double const of = interval.overall[table];
        interval.bands[table] = thirds ? Thirds(of, i) : Octaves(of, i);
      }
      Add(sample, interval);
      if (i % 5 == 4) {
        Add(sample, BandTableSummary{.time = time,
                                     .word = 500 + i,
                                     .name = "Piece " + std::to_string(i / 5 + 1),
                                     .level = level,
                                     .bands = thirds ? Thirds(level, i) : Octaves(level, i)});
      }
    }
    AddSpectra(sample, Spectra(20, 0.0625, thirds));
  }
  AddResults442(sample, results, BandRegisters::kCounted);
  return sample.End(name).Finish();
}

Sample Model442Narrow(const std::string& name) {
  Results const results = ResultsUntil(kEvening + kHour);
  SampleBuilder sample = Model442("FFT", results);
  AddPlace(sample);
  AddSetup(sample, SetupBlock(sample.State(), "FFT1", "Lines of a hum", 0)
                       .Set(47, {128 + 64})
                       .Set(75, {3, 0x01, 0x91, 12}));
  AddRunEvents(sample, kEvening, kEvening + kHour, 1);
  for (int i = 0; i < 8; ++i) {
    NarrowTable table{.time = kEvening + i * kMinute, .word = 401, .byte = i, .level = 72.25};
    for (int line = 0; line < 401; ++line) {
      bool const hum = line % 50 == 49;  // a tone and its harmonics
      int const noise = Chance(static_cast<std::uint32_t>(i * 401 + line), 512);
      table.levels.push_back((hum ? 68 : 41) + noise / 256.0);
    }
    table.levels[0] = 0;  // the line at 0 Hz has no value
    Add(sample, table);
  }
  AddResults442(sample, results, BandRegisters::kCounted);
  return sample.End(name).Finish();
}

Sample Model442Tally(const std::string& name) {
  Results const results = ResultsUntil(kEvening + kHour);
  SampleBuilder sample = Model442("TAL", results);
  AddPlace(sample);
  AddSetup(sample, SetupBlock(sample.State(), "TAL1", "Cars and lorries", kThirds)
                       .Period(16, 0)
                       .Fields(4, {0xFF, 0x40, 0x20, 0x10, 0x08, 0x04})
                       .LevelBase(kLevelBase));
  AddRunEvents(sample, kEvening, kEvening + kHour, 1);
  for (int i = 0; i < 10; ++i) {
    Clock const time = kEvening + i * 6 * kMinute;
    double const level = 66 + i;
    Add(sample,
        TallyLevels{.time = time,
                    .duration = 12.25,
                    .byte11 = i,
                    .first = {level, level + 1, level + 2, level + 3, level + 4, level + 5,
                              level + 6, level + 7, level + 8},
                    .second = {level - 1, level - 2, level - 3, level - 4, level - 5, level - 6,
                               level - 7, level - 8, level - 9},
                    .third = {level + 20, level + 21, level + 22},
                    .level55 = level + 30,
                    .level57 = level + 31,
                    .values = {-0.5, 1.25, -30.75, 40, 100.5, 0},
                    .last = {level + 9, level + 6, level + 3, level - 3, level - 6, level - 9}});
    Add(sample, TallyBands{.time = time,
                           .duration = 12.25,
                           .byte11 = i,
                           .first = Thirds(level, i),
                           .second = Thirds(level + 8, i + 100)});
    Add(sample, TallyTotals{.time = time,
                            .duration = 12.25,
                            .byte11 = i,
                            .kind = 2 + i % 3,
                            .word13 = 130 + i,
                            .word16 = 16000 + i,
                            .level19 = level + 1.5,
                            .level21 = level - 1.5});
  }
  AddSpectra(sample, Spectra(15, 0.5, true));
  AddFields(sample, Fields(80, false));
  AddResults442(sample, results, BandRegisters::kCounted);
  return sample.End(name).Finish();
}

}  // namespace samples
