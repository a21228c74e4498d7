#include "bulk_files.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "setup_items.h"
#include "sound.h"
#include "station.h"

namespace samples {

namespace {

using S = QvSettings;

const Clock kStart = At(2020, 1, 1);

// Writes what a builder has put together whenever it has grown.
class Output {
 public:
  Output(const std::string& path, SampleBuilder& sample)
      : path_(path), sample_(sample), out_(path, std::ios::binary | std::ios::trunc) {}

  std::int64_t Size() const { return written_ + static_cast<std::int64_t>(sample_.File().Size()); }
  void Flush(std::size_t from = 1 << 20) {
    if (sample_.File().Size() < from) return;
    std::string const bytes = sample_.TakeBytes();
    out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    written_ += static_cast<std::int64_t>(bytes.size());
  }
  void Close() {
    Flush(0);
    out_.close();
    if (!out_) throw std::runtime_error("cannot write " + path_);
  }

 private:
  std::string path_;
  SampleBuilder& sample_;
  std::ofstream out_;
  std::int64_t written_ = 0;
};

void GeneralHeader(SampleBuilder& sample) {
  sample.Header({.Model = 486,
                 .Serial = " 2071",
                 .Firmware = "1.200",
                 .Date = "01Jan2020",
                 .Time = "00:00:00"});
}

// Settings of a time history with every optional block of the other items.
void FullSettings(SampleBuilder& sample, Clock when) {
  StationSettings(sample, when)
      .Number(69, &S::SettingQ69, 1)
      .Number(70, &S::SettingQ70, 240)
      .Number(71, &S::SettingQ71, 1)
      .Number(77, &S::SettingQ77, 1)
      .Number(78, &S::SettingQ78, 1)
      .Number(81, &S::SettingQ81, 0)
      .Number(82, &S::SettingQ82, 1)
      .Number(83, &S::SettingQ83, 3)
      .Number(84, &S::SettingQ84, 1)
      .Number(118, &S::SettingQ118, 1)
      .Number(119, &S::SettingQ119, 1)
      .Number(120, &S::SettingQ120, 1)
      .Number(145, &S::SettingQ145, 1)
      .Number(206, &S::SettingQ206, 1)
      .Number(210, &S::SettingQ210, 17)
      .LevelOffset(10.5)
      .Done();
}

void StreamSettings(SampleBuilder& sample, bool wholeDb, bool second) {
  StationSettings(sample, kStart)
      .Number(81, &S::SettingQ81, wholeDb)
      .Number(82, &S::SettingQ82, second)
      .Number(83, &S::SettingQ83, 1)
      .Number(84, &S::SettingQ84, 1)
      .Done();
}

void AddHour(SampleBuilder& sample, Clock start, int number) {
  Add(sample, RunStart(start, number));
  for (int minute = 0; minute < 60; ++minute) {
    Clock const time = start + minute * kMinute;
    Add(sample, StreetInterval(time, 60));
    if (StreetLevel(time) > 68) Add(sample, StreetMark(time + 20, minute % 8));
    if (minute % 20 == 19) {
      Add(sample, Event{.time = time + 30, .code = 32, .detail = 5, .value16 = minute});
    }
  }
  AddHistory(sample, StreetRun(start, 1200, 3, true));
  Add(sample, RunEnd(start + kHour - 1, number));
  Add(sample, StreetSummary(start, kHour));
}

void EndFile(SampleBuilder& sample, Clock stop) {
  Results const results{.start = kStart, .stop = stop};
  AddGeneralResults(sample, results);
  sample.End("");
}

// Model 442 looks for its results in the first two million bytes, but not at the very start of the
// data, so they stand behind one other item here.
void Header442(SampleBuilder& sample, std::string_view modeTag) {
  sample.Header({.Model = 442,
                 .Serial = " 31415",
                 .Firmware = "3.600",
                 .Date = "01Jan2020",
                 .Time = "00:00:00",
                 .ModeTag = std::string(modeTag)});
  Results const results{.start = kStart, .stop = kStart + kDay, .levelOffset = 20.5};
  ExpectResults(sample, results);
  AddSite(sample, {.number = 1, .name = "Test", .street = "", .note = ""});
  AddResults442(sample, results, BandRegisters::kOlder);
}

SetupBlock Setup(const SampleBuilder& sample) {
  return SetupBlock(sample.State(), "BULK", "Many records", 128)
      .Period(1, 1)
      .Fields(4, {0xE0, 0x83, 0xC0, 0x87, 0x81, 0xC3})
      .LevelBase(20);
}

std::vector<double> Thirds(double level, int seed) {
  return StreetBands(level, 33, static_cast<std::uint32_t>(seed));
}

void AddBandInterval(SampleBuilder& sample, int index) {
  double const level = 80 + index % 9;
  std::vector<double> const bands = Thirds(level, index);
  Add(sample, BandInterval{.time = kStart + index * 10,
                           .duration = 10,
                           .valueA = 1,
                           .valueB = 2,
                           .byte = 3,
                           .overall = {level, level + 3, level - 3},
                           .bands = {bands, bands, bands}});
}

void AddSpectrum(std::vector<TimedSpectrum>& spectra, int index) {
  double const level = 70 + index % 17;
  spectra.push_back({.time = index % 250 * 0.5, .level = level, .bands = Thirds(level, index)});
}

void AddField(std::vector<FieldEntry>& entries, int index) {
  double const level = 70 + index % 17 + 0.25;
  std::vector<double> const bands = Thirds(level, index);
  entries.push_back({.level = level, .fields = level - 2, .table1 = bands, .table2 = bands});
}

void AddBands(SampleBuilder& sample, int owner) {
  BandTable const bands = StreetBandTable(66, static_cast<std::uint32_t>(owner));
  Add(sample,
      IntervalBands{
          .owner = owner, .bandsA = bands, .bandsB = bands, .bandsC = bands, .overall = 22 * 256});
}

// Entries of a list or stream come in items of at most so many.
constexpr int kEntriesOfItem = 10000;

template <class Entry, class Append, class Write>
void AddInItems(Output& output, int records, Append append, Write write) {
  std::vector<Entry> entries;
  for (int index = 0; index < records; ++index) {
    append(entries, index);
    if (static_cast<int>(entries.size()) < kEntriesOfItem && index + 1 < records) continue;
    write(entries);
    entries.clear();
    output.Flush();
  }
}

void AddStream(SampleBuilder& sample, Output& output, int records, bool wholeDb, bool second) {
  GeneralHeader(sample);
  StreamSettings(sample, wholeDb, second);
  AddInItems<HistoryEntry>(
      output, records,
      [&](std::vector<HistoryEntry>& entries, int index) {
        double const level = StreetLevel(kStart + index);
        entries.push_back({.level = level, .second = second ? level + 18 : 0});
      },
      [&](const std::vector<HistoryEntry>& entries) { AddHistory(sample, entries); });
}

// A family whose items stand one after another.
template <class Append>
void AddItems(Output& output, int records, Append append) {
  for (int index = 0; index < records; ++index) {
    append(index);
    output.Flush();
  }
}

void AddFamily(SampleBuilder& sample, Output& output, Family family, int records, Clock start) {
  auto const minute = [=](int index) { return start + index * kMinute; };
  bool const full = family == Family::kFullIntervals || family == Family::kSummaries ||
                    family == Family::kDaySummaries;
  auto const general = [&] {
    GeneralHeader(sample);
    full ? FullSettings(sample, start) : StationSettings(sample, start).Done();
  };
  switch (family) {
    case Family::kEvents:
      general();
      return AddItems(output, records, [&](int i) {
        Add(sample, Event{.time = minute(i), .code = i % 8 * 16, .detail = i % 16, .value24 = i});
      });
    case Family::kLevelMarks:
      general();
      return AddItems(output, records, [&](int i) { Add(sample, StreetMark(minute(i), i % 8)); });
    case Family::kIntervals:
    case Family::kFullIntervals:
      general();
      return AddItems(output, records, [&](int i) { Add(sample, StreetInterval(minute(i), 60)); });
    case Family::kSummaries:
      general();
      return AddItems(output, records, [&](int i) { Add(sample, StreetSummary(minute(i), 60)); });
    case Family::kDaySummaries:
      general();
      return AddItems(output, records,
                      [&](int i) { Add(sample, StreetDay(start + i % 10000 * kDay)); });
    case Family::kBandIntervals:
      Header442(sample, "RTA");
      AddSetup(sample, SetupBlock(sample.State(), "BULK", "Many bands", 128));
      return AddItems(output, records, [&](int i) { AddBandInterval(sample, i); });
    case Family::kStreamOneByte:
      return AddStream(sample, output, records, true, false);
    case Family::kStreamOneByteSecond:
      return AddStream(sample, output, records, true, true);
    case Family::kStreamTwoByte:
      return AddStream(sample, output, records, false, false);
    case Family::kStreamTwoByteSecond:
      return AddStream(sample, output, records, false, true);
    case Family::kBandsNear:
      general();
      return AddItems(output, records, [&](int i) {
        Add(sample, StreetInterval(minute(i), 60));
        AddBands(sample, i + 1);
      });
    case Family::kBandsFar:
      general();
      AddItems(output, records, [&](int i) { Add(sample, StreetInterval(minute(i), 60)); });
      return AddItems(output, records, [&](int i) { AddBands(sample, i + 1); });
    case Family::kSetups:
      Header442(sample, "LOG");
      return AddItems(output, records, [&](int) { AddSetup(sample, Setup(sample)); });
    case Family::kSpectra:
      Header442(sample, "LOG");
      AddSetup(sample, Setup(sample));
      return AddInItems<TimedSpectrum>(
          output, records, AddSpectrum,
          [&](const std::vector<TimedSpectrum>& spectra) { AddSpectra(sample, spectra); });
    case Family::kFields:
      Header442(sample, "LOG");
      AddSetup(sample, Setup(sample));
      return AddInItems<FieldEntry>(
          output, records, AddField,
          [&](const std::vector<FieldEntry>& entries) { AddFields(sample, entries); });
    case Family::kResults:
      general();
      // A mark between two blocks keeps them apart.
      return AddItems(output, records, [&](int i) {
        Add(sample, StreetMark(minute(i)));
        AddGeneralResults(sample, {.start = minute(i), .stop = minute(i + 1)});
      });
  }
}

}  // namespace

void WriteMixedFile(const std::string& path, std::int64_t bytes, Clock start) {
  if (bytes >= std::int64_t{1} << 31) throw std::runtime_error("2 GiB is too much for a data file");
  SampleBuilder sample(SampleBuilder::Keep::kNothing);
  Output output(path, sample);
  GeneralHeader(sample);
  int hour = 0;
  while (output.Size() < bytes) {
    Clock const now = start + hour * kHour;
    if (hour % 24 == 0) FullSettings(sample, now);
    AddHour(sample, now, hour % 65536);
    ++hour;
    if (hour % 24 == 0) Add(sample, StreetDay(now - 23 * kHour));
    output.Flush();
  }
  EndFile(sample, start + hour * kHour);
  output.Close();
}

const char* FamilyName(Family family) {
  static constexpr const char* kNames[] = {"events",
                                           "level_marks",
                                           "intervals",
                                           "full_intervals",
                                           "band_intervals",
                                           "stream_one_byte",
                                           "stream_one_byte_second",
                                           "stream_two_byte",
                                           "stream_two_byte_second",
                                           "summaries",
                                           "day_summaries",
                                           "bands_near",
                                           "bands_far",
                                           "setups",
                                           "spectra",
                                           "fields",
                                           "results"};
  return kNames[static_cast<int>(family)];
}

void WriteFamilyFile(const std::string& path, Family family, int records, Clock start) {
  SampleBuilder sample(SampleBuilder::Keep::kNothing);
  Output output(path, sample);
  AddFamily(sample, output, family, records, start);
  bool const hasResults = sample.State().model == 442 || family == Family::kResults;
  if (hasResults) {
    sample.End("");
  } else {
    EndFile(sample, start + kDay);
  }
  output.Close();
}

}  // namespace samples
