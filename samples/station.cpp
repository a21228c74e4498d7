#include "station.h"

#include "sound.h"

namespace samples {

namespace {

const AuxChannel kWindSpeed{"WindSpeed", "m/s", 0, 32};
const AuxChannel kWindFrom{"WindDir", "deg", 0, 360};
const AuxChannel kTemperature{"Temp", "C", -40, 60};

std::uint32_t Seed(Clock time) {
  return static_cast<std::uint32_t>(time);
}

Percentiles StreetPercentiles(double level) {
  return {.levels = {level + 9.5, level + 6.25, level + 4.125, level - 2.5, level - 6.75,
                     level - 8.0625},
          .numbers = {1, 5, 10, 50, 90, 95}};
}

}  // namespace

SettingsBlock StationSettings(SampleBuilder& sample, Clock when) {
  SettingsBlock settings(sample);
  settings.Text(2, &QvSettings::Title2, "Mill Street 12")
      .Text(3, &QvSettings::Title3, "Microphone at the window")
      .Text(5, &QvSettings::Title1, "Traffic noise")
      .Stamp(when)
      .PlainRegisters();
  settings.Number(55, &QvSettings::SettingQ55, 1)
      .Number(56, &QvSettings::SettingQ56, 5)
      .Number(57, &QvSettings::SettingQ57, 10)
      .Number(58, &QvSettings::SettingQ58, 50)
      .Number(59, &QvSettings::SettingQ59, 90)
      .Number(60, &QvSettings::SettingQ60, 95)
      .Real(61, &QvSettings::SettingQ61, 65.5)
      .Number(62, &QvSettings::SettingQ62, 85)
      .Channels(kWindSpeed, kWindFrom, kTemperature)
      .Number(157, &QvSettings::SettingQ157, 3);
  return settings;
}

Interval StreetInterval(Clock time, double duration) {
  double const level = StreetLevel(time);
  std::uint32_t const seed = Seed(time);
  Interval interval{.time = time,
                    .duration = duration,
                    .levels = {level, level + 17.75, level + 11.5, level - 7.25, level + 24.125},
                    .byte1 = Chance(seed, 4),
                    .byte2 = Chance(seed + 1, 3)};
  interval.levelInRecord = 66.25;
  interval.aux = {Chance(seed + 2, 90), Chance(seed + 3, 256), 130 + Chance(seed + 4, 40)};
  interval.span1 = 3000 + Chance(seed + 5, 500);
  interval.span2 = 60000 + Chance(seed + 6, 500);
  interval.byte3 = Chance(seed + 7, 101);
  for (std::size_t i = 0; i < 16; ++i) {
    interval.table16[i] = Chance(seed + static_cast<std::uint32_t>(i), 60);
  }
  int const count = 4 + Chance(seed, 5);
  for (int i = 0; i < count; ++i) {
    int const sampled = static_cast<int>(level) + Chance(seed + static_cast<std::uint32_t>(i), 9);
    interval.samples.push_back(i == 2 ? -sampled : sampled);  // the third is flagged
  }
  return interval;
}

Summary StreetSummary(Clock time, double duration) {
  double const level = StreetLevel(time);
  Summary summary{
      .time = time,
      .duration = duration,
      .levels = {level, level + 33.5, level + 18.25, level - 11.125, level + 29.75, level + 6.5},
      .bytes = {1, 2, 3, 4},
      .percentiles = StreetPercentiles(level)};
  summary.aux = {{{10, 40, 90}, {100, 128, 200}, {130, 140, 170}}};
  summary.span1 = 3333;
  summary.span2 = 60606;
  summary.byte5 = 55;
  summary.distribution = StreetDistribution(level, 20, 30000);
  return summary;
}

DaySummary StreetDay(Clock date) {
  DaySummary day{.date = date,
                 .levels = {61.25, 64.5, 66.125, 96.75, 38.5, 112.25, 58.375},
                 .duration = kDay - 1};
  for (std::size_t hour = 0; hour < 24; ++hour) {
    double const level = StreetLevel(date + static_cast<Clock>(hour) * kHour);
    day.hours[hour] = hour == 5 ? 0 : hour == 13 ? -level : level;
    day.hoursB[hour] = hour == 14 ? -level - 12 : level + 12;
    day.hoursC[hour] = level - 5;
    day.counts[hour] = 1000 + static_cast<int>(hour);
    day.values[hour] = 60 + static_cast<int>(hour);
    day.digits[hour] = 40 + static_cast<int>(hour);
  }
  day.span1 = 4444;
  day.span2 = 55555;
  day.byte1 = 11;
  day.timeOfDay = 17 * kHour + 42 * kMinute + 5;
  day.value1 = 1742;
  day.byte2 = 22;
  day.bytes8 = {1, 2, 3, 4, 5, 6, 7, 8};
  day.value2 = 222;
  day.value3 = 3333;
  day.percentiles = StreetPercentiles(60.25);
  day.distribution = StreetDistribution(60, 20, 80000);
  return day;
}

LevelMark StreetMark(Clock time, int status) {
  return {.time = time, .level = StreetLevel(time) + 15, .status = status};
}

Event RunStart(Clock time, int number) {
  return {.time = time, .code = 64, .detail = 1, .value16 = number, .value24 = 65536 + number};
}

Event RunEnd(Clock time, int number) {
  return {.time = time, .code = 0, .detail = 2, .value16 = number, .value24 = 131072 + number};
}

std::vector<HistoryEntry> StreetRun(Clock start, int samples, double step, bool second) {
  std::vector<HistoryEntry> entries{{.marker = 64, .detail = 1}};
  for (int i = 0; i < samples; ++i) {
    auto const time = start + static_cast<Clock>(i * step);
    // Levels change within a second too.
    double const level = StreetLevel(time) + Chance(Seed(time) + Seed(i), 128) / 128.0;
    double const peak = i % 37 == 36 ? 0 : level + 20;
    entries.push_back({.level = level, .second = second ? peak : 0});
    if (i == samples / 2) entries.push_back({.marker = 32, .detail = 5});
  }
  entries.push_back({.marker = 0, .detail = 2});
  return entries;
}

BlockImage Image(int type, std::size_t firstBlock) {
  BlockImage image{.type = type};
  for (std::size_t i = 0; i < firstBlock; ++i) {
    image.block1.push_back(static_cast<char>(i % 251));
  }
  for (std::size_t i = 0; i < 512; ++i) {
    image.block2.push_back(static_cast<char>(255 - i % 241));
    image.block3.push_back(static_cast<char>(i * 7 % 239));
  }
  return image;
}

}  // namespace samples
