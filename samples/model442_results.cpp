#include <cmath>

#include "results_lines.h"
#include "sound.h"

namespace samples {

namespace {

using R = QvResults442;
using Lines = ResultsLines<R>;

// Nine or three stamps, one second apart, date and time after one another.
template <std::size_t N>
void Stamps(Lines& lines, int number, std::int32_t (R::*field)[N], Clock first) {
  std::string line;
  for (std::size_t i = 0; i < N; ++i) {
    Clock const reading = first + static_cast<Clock>(i);
    (lines.Record().*field)[i] = reading;
    line.append(i == 0 ? "" : ",").append(DateText(reading)).append(" ").append(TimeText(reading));
  }
  lines.Line(number, line);
}

// The bands as text; a band without a value is written as dashes.
std::string BandText(std::size_t count, double level, std::size_t missing, float* bands) {
  std::string line;
  std::vector<double> const street =
      StreetBands(level, count > 12 ? 33 : 11, static_cast<std::uint32_t>(level));
  for (std::size_t i = 0; i < count; ++i) {
    std::string const text = i == missing ? "--.--" : RealText(street[i % street.size()]);
    bands[i] = i == missing ? QV_NO_LEVEL : static_cast<float>(std::strtod(text.c_str(), nullptr));
    line += (i == 0 ? "" : ",") + text;
  }
  return line;
}

double Power(float level) {
  return std::pow(10.0, static_cast<double>(level) / 10);
}

// The older band registers: 33 bands and one over all; the octaves are sums of three bands.
void Bands(Lines& lines, int number, float (R::*thirds)[34], float (R::*octaves)[12],
           double level) {
  constexpr std::size_t kMissing = 4;
  float* const bands = lines.Record().*thirds;
  lines.Line(number, BandText(34, level, kMissing, bands));
  for (std::size_t octave = 0; octave < 11; ++octave) {
    float const* const third = bands + 3 * octave;
    (lines.Record().*octaves)[octave] =
        octave == kMissing / 3
            ? QV_NO_LEVEL
            : static_cast<float>(10 *
                                 std::log10(Power(third[0]) + Power(third[1]) + Power(third[2])));
  }
}

// The counted band registers: a line of octaves fills both tables, one of thirds its own.
void CountedThirds(Lines& lines, int number, float (R::*thirds)[34], double level) {
  lines.Line(number, BandText(33, level, 0, lines.Record().*thirds));
}
void CountedOctaves(Lines& lines, int number, float (R::*thirds)[34], float (R::*octaves)[12],
                    double level) {
  float* const bands = lines.Record().*thirds;
  lines.Line(number, BandText(12, level, 11, bands));
  std::memcpy(lines.Record().*octaves, bands, 12 * sizeof(float));
}

void OlderBandRegisters(Lines& lines) {
  Bands(lines, 171, &R::SettingR171, &R::SettingR171Octaves, 62);
  Bands(lines, 172, &R::SettingR172, &R::SettingR172Octaves, 84);
  Bands(lines, 173, &R::SettingR173, &R::SettingR173Octaves, 55);
  Bands(lines, 188, &R::SettingR188, &R::SettingR188Octaves, 71);
  Bands(lines, 206, &R::SettingR206, &R::SettingR206Octaves, 68);
}

void CountedBandRegisters(Lines& lines) {
  CountedThirds(lines, 207, &R::SettingR171, 63);
  lines.Real(208, &R::SettingR208, 63.25).Text(209, &R::SettingR209, "A");
  CountedOctaves(lines, 210, &R::SettingR172, &R::SettingR172Octaves, 85);
  lines.Real(211, &R::SettingR211, 85.05).Text(212, &R::SettingR212, "Flat");
  CountedThirds(lines, 213, &R::SettingR188, 72);
  CountedOctaves(lines, 214, &R::SettingR206, &R::SettingR206Octaves, 69);
  // The entry behind the last band of this one holds no value.
  CountedThirds(lines, 219, &R::SettingR219, 77);
  lines.Record().SettingR219[33] = QV_NO_LEVEL;
}

void Names(Lines& lines) {
  static constexpr const char* kNames[7] = {"Leq", "Lmax", "Lmin", "Lpeak", "L10", "L50", "L90"};
  std::string line = "7N: ";
  for (std::size_t i = 0; i < 7; ++i) {
    std::string name = kNames[i];
    name.resize(21, ' ');
    SetText(lines.Record().SettingR218[i], name);
    line += (i == 6 ? ";" : "") + name;
  }
  lines.Line(218, line);
}

void SpectrumRegisters(Lines& lines, Clock start) {
  lines.Text(215, &R::SettingR215, "1/3");
  lines.Record().SettingR216 = 33;
  lines.Line(216, "33").Whole(217, &R::SettingR217, 48000);
  Names(lines);
  lines.Line(220, "512K");
  lines.Record().SettingR220 = 524288;
  lines.Line(221, "").Line(222, "");
  for (float& level : lines.Record().SettingR221) level = QV_NO_LEVEL;
  for (float& level : lines.Record().SettingR221Octaves) level = QV_NO_LEVEL;
  for (float& level : lines.Record().SettingR222) level = QV_NO_LEVEL;
  for (float& level : lines.Record().SettingR222Octaves) level = QV_NO_LEVEL;
  lines.Real(223, &R::SettingR223, 0.25);
  lines.Record().SettingR224 = 224;
  lines.Line(224, "224").Text(225, &R::SettingR225, "Hann");
  lines.Whole(227, &R::SettingR227, 2270).Whole(228, &R::SettingR228, 2280);
  lines.Real(229, &R::SettingR229, 51.25).Real(230, &R::SettingR230, 50.75);
  lines.Real(232, &R::SettingR232, 16.5).Length(233, &R::SettingR233, 233);
  lines.Reals(234, &R::SettingR234, 40.25, 0.5).Reals(235, &R::SettingR235, 41.25, 0.5);
  lines.Reals(236, &R::SettingR236, 42.25, 0.5).Reals(237, &R::SettingR237, 43.25, 0.5);
  lines.Reals(238, &R::SettingR238, 44.25, 0.5).Reals(239, &R::SettingR239, 45.25, 0.5);
  lines.Reals(240, &R::SettingR240, 10, 16);
  lines.Reals(203, &R::SettingR203, 75.5, -0.05).Stamp(176, &R::SettingR176, start + 176);
}

}  // namespace

void AddResults442(SampleBuilder& sample, const Results& results, BandRegisters registers) {
  Clock const start = results.start;
  Lines lines(sample, QV_RESULTS_442);
  lines.Begin(results);
  lines.Registers(results);
  lines.Reals(4, &R::SettingR4, 60.25, 1.5);
  lines.Reals(9, &R::SettingR9, 61.05, 2).Reals(11, &R::SettingR11, 57.05, 2);
  lines.Reals(13, &R::SettingR13, 99.25, 1).Reals(14, &R::SettingR14, 101.25, 1);
  lines.Reals(15, &R::SettingR15, 40.15, 0.25).Reals(17, &R::SettingR17, 39.15, 0.25);
  Stamps(lines, 16, &R::SettingR16, start + 160);
  Stamps(lines, 18, &R::SettingR18, start + 180);
  lines.Reals(19, &R::SettingR19, 84.15, 0.5).Reals(21, &R::SettingR21, 82.15, 0.5);
  Stamps(lines, 20, &R::SettingR20, start + 200);
  Stamps(lines, 22, &R::SettingR22, start + 220);
  lines.Reals(23, &R::SettingR23, 104.15, 0.5).Reals(25, &R::SettingR25, 103.15, 0.5);
  Stamps(lines, 24, &R::SettingR24, start + 240);
  Stamps(lines, 26, &R::SettingR26, start + 260);
  lines.Reals(27, &R::SettingR27, 106.15, 0.5).Reals(29, &R::SettingR29, 105.15, 0.5);
  Stamps(lines, 28, &R::SettingR28, start + 280);
  Stamps(lines, 30, &R::SettingR30, start + 300);
  lines.Whole(122, &R::SettingR122, 16);
  lines.Line(124, "N  12,NE 13,E  14,SE 15,S  16,SW 17,W  18,NW 19");
  for (int i = 0; i < 8; ++i) lines.Record().SettingR124[i] = 12 + i;
  lines.Length(139, &R::SettingR139, 139);
  lines.Reals(163, &R::SettingR163, 51.5, 1).Reals(164, &R::SettingR164, 50.5, 1);
  // On an external supply the text of register 86 becomes the voltage.
  lines.Text(87, &R::SettingR87, "EXT").Line(170, "11.87");
  SetText(lines.Record().SettingR86, "11.9V");
  lines.Stamp(175, &R::SettingR175, start + 175);
  lines.Whole(179, &R::SettingR179, 1790).Text(180, &R::SettingR180, "1.250");
  lines.Whole(181, &R::SettingR181, 181);
  registers == BandRegisters::kOlder ? OlderBandRegisters(lines) : CountedBandRegisters(lines);
  SpectrumRegisters(lines, start);
  lines.End();
}

}  // namespace samples
