// The lines of a results block that all models have in one form.
#pragma once

#include <string>

#include "sample_results.h"

namespace samples {

template <class R>
class ResultsLines {
 public:
  ResultsLines(SampleBuilder& sample, int code) : sample_(sample), record_(sample.Begin<R>(code)) {}

  ResultsLines& Line(int number, std::string_view value) {
    sample_.File().R(number, value);
    return *this;
  }
  ResultsLines& Whole(int number, std::int32_t R::*field, int value) {
    record_.*field = value;
    return Line(number, std::to_string(value));
  }
  ResultsLines& Real(int number, float R::*field, double value) {
    record_.*field = static_cast<float>(value);
    return Line(number, RealText(value));
  }
  ResultsLines& Length(int number, float R::*field, int seconds) {
    record_.*field = static_cast<float>(seconds);
    return Line(number, LengthText(seconds));
  }
  ResultsLines& Stamp(int number, std::int32_t R::*field, Clock reading) {
    record_.*field = reading;
    return Line(number, DateText(reading) + "," + TimeText(reading));
  }
  template <std::size_t N>
  ResultsLines& Text(int number, char (R::*field)[N], std::string_view text) {
    SetText(record_.*field, text);
    return Line(number, text);
  }
  template <std::size_t N>
  ResultsLines& Reals(int number, float (R::*field)[N], double first, double step) {
    std::string line;
    for (std::size_t i = 0; i < N; ++i) {
      std::string const text = RealText(first + step * static_cast<double>(i));
      (record_.*field)[i] = static_cast<float>(std::strtod(text.c_str(), nullptr));
      line += (i == 0 ? "" : ",") + text;
    }
    return Line(number, line);
  }

  // Model, stop time, title, auxiliary channels and the settings passed on.
  void Begin(const Results& results);
  void Registers(const Results& results);
  void End();

  R& Record() { return record_; }

 private:
  SampleBuilder& sample_;
  R record_;
};

template <class R>
void ResultsLines<R>::Begin(const Results& results) {
  Instrument const& state = sample_.State();
  Line(1, "Hedrom-Pulke Model " + std::to_string(state.model));
  Line(2, "Measurement report");
  Text(3, &R::SettingR3, "Traffic noise, Mill Street");
  Stamp(6, &R::SettingR6, results.stop);
  record_.StopTime = results.stop;
  sample_.EndRecord().EndRecordStopTime = results.stop;
  sample_.EndRecord().Model = static_cast<std::uint16_t>(state.model);

  for (std::size_t i = 0; i < 6; ++i) record_.KeptSixValues[i] = state.sixValues[i];
  record_.SetupKeptA = state.keptA;
  record_.SetupKeptB = state.keptB;
  record_.SettingQ47 = state.settingQ47;
  record_.SettingQ50 = state.settingQ50;
  record_.SettingQ53 = state.settingQ53;
  record_.SettingQ54 = state.settingQ54;
  record_.ModeFormFlag = state.modeFormFlag;
  if constexpr (requires { record_.SettingQ147; }) record_.SettingQ147 = state.settingQ147;
  SetText(record_.AuxName0, state.aux[0].name);
  SetText(record_.AuxName1, state.aux[1].name);
  SetText(record_.AuxName2, state.aux[2].name);
  SetText(record_.AuxUnits0, state.aux[0].units);
  SetText(record_.AuxUnits1, state.aux[1].units);
  SetText(record_.AuxUnits2, state.aux[2].units);

  int flags = 0x0200;  // registers 38 to 43 are written
  if (state.settingQ209 != 0) flags |= 0x0002;
  if (state.intervalAux || state.summaryAux || state.auxEnabled1 != 0) flags |= 0x0004;
  if (state.extraBlock) flags |= 0x0008;
  if (state.auxEnabled1 != 0) flags |= 0x0010;
  if (state.settingQ120 != 0) flags |= 0x0040;
  if (state.settingQ118 != 0) flags |= 0x0080;
  record_.ResultFlags = static_cast<std::uint16_t>(flags);
}

// The registers that hold single values on every model.
template <class R>
void ResultsLines<R>::Registers(const Results& results) {
  Length(5, &R::SettingR5, results.stop - results.start);
  Length(7, &R::SettingR7, 120);
  Stamp(8, &R::SettingR8, results.start);
  Text(10, &R::SettingR10, "-3.25");
  Text(12, &R::SettingR12, "12.75");
  Whole(31, &R::SettingR31, 31).Whole(32, &R::SettingR32, 320).Whole(33, &R::SettingR33, 4);
  Whole(34, &R::SettingR34, 7).Whole(35, &R::SettingR35, 2).Whole(36, &R::SettingR36, 65);
  Length(37, &R::SettingR37, 95);
  Real(38, &R::SettingR38, 78.85).Real(39, &R::SettingR39, 72.65).Real(40, &R::SettingR40, 66.05);
  Real(41, &R::SettingR41, 59.35).Real(42, &R::SettingR42, 48.15).Real(43, &R::SettingR43, 43.95);
  Real(44, &R::SettingR44, 1.25).Real(45, &R::SettingR45, 0.35);
  Real(46, &R::SettingR46, 85.25).Real(47, &R::SettingR47, 3.75);
  // Registers 48, 50 and 51 repeat the number of the register before.
  Line(48, "yes").Real(49, &R::SettingR49, 90.45).Line(50, "").Line(51, "");
  record_.SettingR48 = record_.SettingR47;
  record_.SettingR50 = record_.SettingR49;
  record_.SettingR51 = record_.SettingR49;
  Text(52, &R::SettingR52, "Slow");
  Line(53, "on");
  record_.SettingR53 = 1;
  Real(57, &R::SettingR57, 80.25);
  for (std::size_t hour = 0; hour < 24; ++hour) {
    double const level = 45.25 + static_cast<double>(hour);
    // A marked hour turns the sign.
    bool const marked = hour == 7;
    record_.SettingR60[hour] = static_cast<float>(marked ? -level : level);
    Line(60, std::to_string(hour) + "," + RealText(level) + (marked ? " p" : ""));
  }
  Real(62, &R::SettingR62, 5.5).Real(65, &R::SettingR65, 65.5).Real(68, &R::SettingR68, 68.25);
  Length(69, &R::SettingR69, 3661);
  Real(70, &R::SettingR70, results.leq);
  Real(72, &R::SettingR72, 21.35).Real(73, &R::SettingR73, 18.05).Real(74, &R::SettingR74, 24.65);
  Whole(75, &R::SettingR75, 75);
  Real(77, &R::SettingR77, 3.25).Real(78, &R::SettingR78, 0.15).Real(79, &R::SettingR79, 9.85);
  Whole(80, &R::SettingR80, 180);
  Real(82, &R::SettingR82, 270.5).Real(83, &R::SettingR83, 90.25).Real(84, &R::SettingR84, 359.75);
  Whole(85, &R::SettingR85, 85);
  Text(86, &R::SettingR86, "Bat").Text(87, &R::SettingR87, "INT");
  Real(88, &R::SettingR88, 20.05);
  Text(89, &R::SettingR89, "Free");
  Real(90, &R::SettingR90, 140.25).Whole(91, &R::SettingR91, 91);
  Whole(92, &R::SettingR92, 1440).Whole(93, &R::SettingR93, 93).Whole(94, &R::SettingR94, 94);
  Whole(95, &R::SettingR95, 95).Whole(96, &R::SettingR96, 960).Whole(97, &R::SettingR97, 524288);
  // Cells of four columns: a letter and a number; a 0 counts as 1.
  Line(98, "A1, B2, C3, D0, E12,F6, G7, H8");
  static constexpr std::uint8_t kCells[8] = {1, 2, 3, 1, 12, 6, 7, 8};
  std::memcpy(record_.SettingR98, kCells, sizeof kCells);
  Stamp(104, &R::SettingR104, results.start - 600).Stamp(105, &R::SettingR105, results.stop + 600);
  Real(106, &R::SettingR106, results.levelOffset).Real(107, &R::SettingR107, 114.05);
  Real(118, &R::SettingR118, 2.35).Real(119, &R::SettingR119, 7.85);
  Line(120, " SW");
  record_.SettingR120 = 10;
  Stamp(121, &R::SettingR121, results.start + 61);
  Real(123, &R::SettingR123, 11.25);
  Whole(150, &R::SettingR150, 150);
  Text(151, &R::SettingR151, "dB");
  Length(156, &R::SettingR156, 86399);
  Whole(158, &R::SettingR158, 1580).Whole(161, &R::SettingR161, 61);
  Real(162, &R::SettingR162, 1.75);
}

template <class R>
void ResultsLines<R>::End() {
  sample_.DeliverTimed(record_, record_.StopTime);
  QvRecordCensus& census = sample_.Census();
  ++(sample_.State().mode == 0 ? census.ResultsBlocksMode0 : census.ResultsBlocks);
}

}  // namespace samples
