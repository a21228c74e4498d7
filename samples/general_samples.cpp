#include "general_samples.h"

#include "sound.h"
#include "station.h"

namespace samples {

namespace {

using S = QvSettings;

const Clock kMorning = At(2024, 6, 21, 8);

SampleBuilder General(std::string_view firmware = "1.200", int model = 486,
                      Clock start = kMorning) {
  SampleBuilder sample;
  sample.Header({.Model = model,
                 .Serial = " 2071",
                 .Firmware = std::string(firmware),
                 .Date = DateText(start),
                 .Time = TimeText(start),
                 .FirstLine = "L traffic noise",
                 .FourthLine = "Town of Milton"});
  return sample;
}

Sample Finish(SampleBuilder& sample, const std::string& name) {
  return sample.End(name).Finish();
}

}  // namespace

Sample GeneralSpine(const std::string& name) {
  SampleBuilder sample = General();
  SettingsBlock(sample)
      .Text(5, &S::Title1, "Traffic noise")
      .Stamp(kMorning)
      .Number(157, &S::SettingQ157, 7)
      .Done();
  Add(sample, RunStart(kMorning, 1));
  for (int i = 0; i < 160; ++i) {
    Clock const time = kMorning + i * 30;
    Add(sample, StreetMark(time, i % 8 | (i % 5 == 0 ? 0x20 : 0)));
    if (i % 10 == 9) {
      Add(sample, Event{.time = time,
                        .code = i / 10 % 8 * 16,
                        .detail = i / 10,
                        .value16 = 1000 + i,
                        .value24 = 1000000 + i});
    }
  }
  Add(sample, RunEnd(kMorning + 80 * kMinute, 1));
  return Finish(sample, name);
}

Sample GeneralShortTerm(const std::string& name) {
  SampleBuilder sample = General();
  Results const results{.start = kMorning, .stop = kMorning + 15 * kMinute, .levelOffset = 0.5};
  ExpectResults(sample, results);
  StationSettings(sample, kMorning)
      .Number(77, &S::SettingQ77, 1)
      .Number(210, &S::SettingQ210, 1)
      .LevelOffset(0.5)
      .Done();
  Add(sample, RunStart(kMorning, 1));
  for (int minute = 0; minute < 15; ++minute) {
    Add(sample, StreetInterval(kMorning + minute * kMinute, 60));
  }
  Add(sample, RunEnd(results.stop, 1));
  Add(sample, StreetSummary(kMorning, 15 * kMinute));
  AddGeneralResults(sample, results);
  return Finish(sample, name);
}

Sample GeneralDay(const std::string& name) {
  SampleBuilder sample = General();
  Clock const midnight = At(2024, 6, 22);
  Results const results{.start = midnight, .stop = midnight + kDay, .levelOffset = 10.5};
  ExpectResults(sample, results);
  StationSettings(sample, midnight)
      .Number(69, &S::SettingQ69, 1)
      .Number(70, &S::SettingQ70, 240)
      .Number(71, &S::SettingQ71, 1)
      .Number(77, &S::SettingQ77, 1)
      .Number(78, &S::SettingQ78, 1)
      .Number(118, &S::SettingQ118, 1)
      .Number(119, &S::SettingQ119, 1)
      .Number(120, &S::SettingQ120, 1)
      .Number(145, &S::SettingQ145, 1)
      .Number(206, &S::SettingQ206, 1)
      .Number(210, &S::SettingQ210, 17)
      .LevelOffset(10.5)
      .Done();
  Add(sample, RunStart(midnight, 1));
  for (int minute = 0; minute < 1440; ++minute) {
    Clock const time = midnight + minute * kMinute;
    Add(sample, StreetInterval(time, minute == 700 ? 30 : 60));
    if (StreetLevel(time) > 70) Add(sample, StreetMark(time + 20));
    if (minute % 60 == 59) Add(sample, StreetSummary(midnight + minute / 60 * kHour, kHour));
  }
  Add(sample, RunEnd(results.stop, 1));
  Add(sample, StreetDay(midnight));
  AddGeneralResults(sample, results);
  return Finish(sample, name);
}

Sample GeneralTimeHistory(const std::string& name) {
  SampleBuilder sample = General();
  StationSettings(sample, kMorning)
      .Number(81, &S::SettingQ81, 0)
      .Number(82, &S::SettingQ82, 1)
      .Number(83, &S::SettingQ83, 16)
      .Number(84, &S::SettingQ84, 0)
      .LevelOffset(2.25)
      .Done();
  std::vector<HistoryEntry> entries;
  for (int run = 0; run < 4; ++run) {
    Clock const start = kMorning + run * kHour;
    Add(sample, RunStart(start, run + 1));
    Add(sample, Event{.time = start + 300, .code = 32, .detail = 5});
    Add(sample, RunEnd(start + 600, run + 1));
    std::vector<HistoryEntry> const more = StreetRun(start, 1200, 0.5, true);
    entries.insert(entries.end(), more.begin(), more.end());
  }
  AddHistory(sample, entries);

  // The afternoon is logged in whole decibels, one each two seconds, without a second level.
  Clock const noon = At(2024, 6, 21, 12);
  StationSettings(sample, noon)
      .Number(81, &S::SettingQ81, 1)
      .Number(82, &S::SettingQ82, 0)
      .Number(83, &S::SettingQ83, 2)
      .Number(84, &S::SettingQ84, 1)
      .LevelOffset(2.25)
      .Done();
  Add(sample, RunStart(noon, 5));
  Add(sample, RunEnd(noon + 2400, 5));
  AddHistory(sample, StreetRun(noon, 1200, 2, false));

  // In the evening whole decibels with a second level, one a minute, until the stream is full up to
  // the last place of a record.
  Clock const evening = At(2024, 6, 21, 20);
  StationSettings(sample, evening)
      .Number(81, &S::SettingQ81, 1)
      .Number(82, &S::SettingQ82, 3)
      .Number(83, &S::SettingQ83, 1)
      .Number(84, &S::SettingQ84, 3)
      .LevelOffset(2.25)
      .Done();
  Add(sample, RunStart(evening, 6));
  AddHistory(sample, StreetRun(evening, 118, 60, true));
  Add(sample, RunEnd(evening + 2 * kHour, 6));
  return Finish(sample, name);
}

Sample GeneralSettingsForm(const std::string& name) {
  SampleBuilder sample;
  StationSettings(sample, kMorning)
      .Number(71, &S::SettingQ71, 1)
      .Number(81, &S::SettingQ81, 0)
      .Number(82, &S::SettingQ82, 0)
      .Number(83, &S::SettingQ83, 1)
      .Number(84, &S::SettingQ84, 1)
      .Line(233, "4711")
      .Done();
  Add(sample, RunStart(kMorning + 5, 1));
  for (int minute = 0; minute < 60; ++minute) {
    Add(sample, StreetInterval(kMorning + minute * kMinute, 60));
  }
  Add(sample, RunEnd(kMorning + kHour, 1));
  AddHistory(sample, StreetRun(kMorning + 5, 200, 1, false));
  AddGeneralResults(sample, {.start = kMorning, .stop = kMorning + kHour});
  Sample whole = Finish(sample, name);
  whole.start = QV_NO_TEXT_HEADER;
  whole.serial = "A4711";
  return whole;
}

Sample GeneralTitleForm(const std::string& name) {
  SampleBuilder sample;
  sample.Titles("Noise of the new road", "Before the works", "Station 4");
  sample.Header({.Model = 486,
                 .Serial = " 2071",
                 .Firmware = "1.200",
                 .Date = "21Jun2024",
                 .Time = "08:00:00",
                 .FirstLine = "* traffic noise"});
  StationSettings(sample, kMorning).Done();
  for (int i = 0; i < 40; ++i) Add(sample, StreetMark(kMorning + i * kMinute));
  AddGeneralResults(sample, {.start = kMorning, .stop = kMorning + kHour});
  Sample whole = Finish(sample, name);
  whole.serial = "";  // only a first line with an L leads to the serial number
  return whole;
}

Sample GeneralEndStamps(const std::string& name) {
  SampleBuilder sample = General();
  StationSettings(sample, kMorning)
      .Text(161, &S::SettingQ161, "end")
      .Number(162, &S::SettingQ162, 2)
      .Number(163, &S::SettingQ163, 1)
      .Done();
  for (int i = 1; i <= 48; ++i) {
    Interval interval = StreetInterval(kMorning + i * 1800, 1800);
    interval.percent = 50;
    Add(sample, interval);
  }
  return Finish(sample, name);
}

Sample GeneralFirmware09(const std::string& name) {
  SampleBuilder sample = General("0.900");
  Results const results{.start = kMorning, .stop = kMorning + kDay};
  ExpectResults(sample, results);
  // Registers 118 to 120 do nothing yet, and 206 stands for both distributions.
  StationSettings(sample, kMorning)
      .Number(71, &S::SettingQ71, 1)
      .Number(77, &S::SettingQ77, 1)
      .Number(78, &S::SettingQ78, 1)
      .Line(118, "1")
      .Line(119, "1")
      .Line(120, "1")
      .Number(206, &S::SettingQ206, 1)
      .Done();
  for (int hour = 0; hour < 24; ++hour) {
    Add(sample, StreetInterval(kMorning + hour * kHour, kHour));
  }
  Add(sample, StreetSummary(kMorning, kDay - 1));
  Add(sample, StreetDay(At(2024, 6, 21)));
  Add(sample, StreetDay(At(2024, 6, 22)));
  AddGeneralResults(sample, results);
  return Finish(sample, name);
}

Sample GeneralOlderModel(const std::string& name) {
  SampleBuilder sample = General("1.127", 412);
  Results const results{.start = kMorning, .stop = kMorning + kHour, .levelOffset = 20};
  ExpectResults(sample, results);
  StationSettings(sample, kMorning)
      .Number(69, &S::SettingQ69, 1)
      .Number(70, &S::SettingQ70, 320)
      .Number(118, &S::SettingQ118, 1)
      .Number(206, &S::SettingQ206, 1)
      .Number(210, &S::SettingQ210, 16)
      .LevelOffset(20)
      .Done();
  for (int minute = 0; minute < 60; ++minute) {
    Add(sample, StreetInterval(kMorning + minute * kMinute, 60));
  }
  Add(sample, StreetSummary(kMorning, kHour));
  Add(sample, StreetDay(At(2024, 6, 21)));
  AddGeneralResults(sample, results);
  return Finish(sample, name);
}

Sample GeneralBlocks(const std::string& name) {
  Clock const start = At(2024, 1, 8, 6);
  SampleBuilder sample = General("1.200", 486, start);
  Results const results{.start = start, .stop = start + 3 * kHour, .levelOffset = 1.5};
  ExpectResults(sample, results);
  StationSettings(sample, start).LevelOffset(1.5).Done();
  Add(sample, RunStart(start, 1));
  Add(sample, RunEnd(results.stop, 1));
  Add(sample, Image(7, 4096));
  Add(sample, Image(8, 4096));
  AddGeneralResults(sample, results);
  return Finish(sample, name);
}

}  // namespace samples
