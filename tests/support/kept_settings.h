// What a file's settings are at a point of its data, seen through the records that they steer.
//
//   DataFile file = General("3.600").Item(kSetupItem, block);
//   KeptSettings const kept = SettingsBehind(file);
//   EXPECT_EQ(kept.at("StreamPeriod"), 60.0);
#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/setup_block.h"

namespace test {

// By name, numbers as the records show them; switches are 1 or 0.
//
//   WholeDbStream, StreamSelector, StreamPeriod, MaskA to MaskF    a list 27
//   StreamFlags                     a stream: SecondLevelKind k shows as bit k + 7
//   SetupKeptA, SetupKeptB, SettingQ47, SettingQ50, ModeFormFlag,
//   SixFirst, SixLast               a results block
//   SummaryLn, SummaryAux, ExtraBlock, Distribution2               a summary
//   SettingQ206, Distribution       a day summary
//   Samples, SampleSpacing, IntervalAux, LevelInRecord, TimeIsEnd, Threshold
//                                   an interval
//   AboveLimit                      an interval: whether 80.5 dB lies above the limit
using KeptSettings = std::map<std::string, double>;

namespace kept_settings {

inline samples::Body Interval() {
  return samples::Body()
      .Date(21, 6, 2024)
      .Time(12, 0, 0)
      .Duration5(3600)
      .Level(60.5)
      .Level(60.5)
      .Level(80.5)
      .Level(60.5)
      .Level(60.5)
      .U8(0)
      .U8(0)
      .Fixed16(50)
      .PadTo(1200);
}

template <class Results>
void AddResults(KeptSettings& kept, const Results& results) {
  kept["SetupKeptA"] = results.SetupKeptA;
  kept["SetupKeptB"] = results.SetupKeptB;
  kept["SettingQ47"] = results.SettingQ47;
  kept["SettingQ50"] = results.SettingQ50;
  kept["ModeFormFlag"] = results.ModeFormFlag;
  kept["SixFirst"] = static_cast<double>(results.KeptSixValues[0]);
  kept["SixLast"] = static_cast<double>(results.KeptSixValues[5]);
}

inline void AddInterval(KeptSettings& kept, const QvInterval& interval) {
  kept["Samples"] = (interval.IntervalFlags & 0x0100) != 0;
  kept["SampleSpacing"] = static_cast<double>(interval.SampleSpacing);
  kept["IntervalAux"] = (interval.IntervalFlags & 0x0004) != 0;
  kept["LevelInRecord"] = (interval.IntervalFlags & 0x1000) != 0;
  kept["AboveLimit"] = (interval.IntervalFlags & 0x0400) != 0;
  kept["TimeIsEnd"] = interval.EndTime == 1718971200;  // the stamp
}

inline void AddSummary(KeptSettings& kept, const QvSummary& summary) {
  kept["SummaryLn"] = (summary.SummaryFlags & 0x0200) != 0;
  kept["SummaryAux"] = (summary.SummaryFlags & 0x0004) != 0;
  kept["ExtraBlock"] = (summary.SummaryFlags & 0x0008) != 0;
  kept["Distribution2"] = (summary.SummaryFlags & 0x0100) != 0;
}

inline void AddHistory(KeptSettings& kept, const QvFieldHistory& history) {
  kept["WholeDbStream"] = history.Level == 60.0F;
  kept["StreamSelector"] = history.StreamSelector;
  kept["StreamPeriod"] = static_cast<double>(history.StreamPeriod);
  kept["MaskA"] = history.StreamMaskA;
  kept["MaskB"] = history.StreamMaskB;
  kept["MaskC"] = history.StreamMaskC;
  kept["MaskD"] = history.StreamMaskD;
  kept["MaskE"] = history.StreamMaskE;
  kept["MaskF"] = history.StreamMaskF;
}

}  // namespace kept_settings

// The settings behind a file of a general model or of model 431 in mode 2, without a level offset.
// The file must hold no results, intervals, summaries or streams of its own.
inline KeptSettings SettingsBehind(samples::DataFile file, int streamType = 6) {
  using samples::Body;
  file.R(2, "")
      .Item(1, kept_settings::Interval())
      .Item(2, Body().PadTo(1200))
      .Item(3, Body().PadTo(1200))
      .List(27, 2, {Body().U8(60).U8(128)})
      .Stream(streamType, Body().U8(60).U8(1).U8(1).U8(1))
      .Q(162, "0")  // so that an interval shows the threshold
      .Item(1, kept_settings::Interval())
      .EndOfData();
  Translation const run(file);
  KeptSettings kept;
  if (streamType == 6) {
    kept_settings::AddResults(kept, run.As<QvResults>(0, QV_RESULTS));
  } else {
    kept_settings::AddResults(kept, run.As<QvResults431>(0, QV_RESULTS_431));
  }
  kept_settings::AddInterval(kept, run.As<QvInterval>(0, QV_INTERVAL));
  kept_settings::AddSummary(kept, run.As<QvSummary>(0, QV_SUMMARY));
  kept_settings::AddHistory(kept, run.As<QvFieldHistory>(0, QV_FIELD_HISTORY));
  int const day = run.As<QvDaySummary>(0, QV_DAY_SUMMARY).DayFlags;
  kept["SettingQ206"] = (day & 0x0200) != 0;
  kept["Distribution"] = (day & 0x0100) != 0;
  kept["StreamFlags"] = run.As<QvTimeHistory>(0, QV_TIME_HISTORY).StreamFlags;
  kept["Threshold"] = static_cast<double>(run.As<QvInterval>(1, QV_INTERVAL).ThresholdOrLevel);
  return kept;
}

// Settings lines that switch every option on, each with a value of its own.
inline samples::DataFile& EverySettingOn(samples::DataFile& file) {
  return file.Q(46, "461")
      .Q(47, "471")
      .Q(49, "491")
      .Q(50, "501")
      .Q(55, "55")
      .Q(56, "56")
      .Q(57, "57")
      .Q(58, "58")
      .Q(59, "59")
      .Q(60, "60")
      .Q(61, "62.5")
      .Q(62, "100")
      .Q(69, "1")
      .Q(70, "64")
      .Q(71, "1")
      .Q(77, "1")
      .Q(78, "1")
      .Q(81, "1")
      .Q(82, "3")
      .Q(83, "7")
      .Q(84, "1")
      .Q(145, "1")
      .Q(146, "1")
      .Q(162, "2")
      .Q(163, "1")
      .Q(206, "1")
      .Q(210, "17");
}

// A setup in which every byte that is kept has a value of its own and every switch is on.
inline samples::Body FullSetup(int mode, std::size_t size = kSetupSize) {
  samples::Body block = EmptySetup(mode, kSetupSize);
  block.Set(42, {255}).Set(47, {255, 255, 255}).Set(75, {175, 176}).Set(78, {178, 179});
  block.Set(99, {199}).Set(103, {1, 2});
  block.Set(110, {16, 128, 17, 128, 18, 128, 19, 128, 20, 128, 21, 128}).Set(122, {66, 64});
  block.Set(140, {5, 6, 2}).Set(176, {96}).Set(179, {200});
  block.Set(181, {33, 17, 18, 19, 20, 21, 22});
  return samples::Body().Raw(block.Bytes().substr(0, size));
}

}  // namespace test
