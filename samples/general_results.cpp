#include "results_lines.h"

namespace samples {

namespace {

// The registers of the general models that model 431 has in the same form.
template <class R>
void SharedRegisters(ResultsLines<R>& lines, const Results& results) {
  Clock const start = results.start;
  lines.Real(9, &R::SettingR9, 61.15).Real(11, &R::SettingR11, 58.95);
  lines.Real(13, &R::SettingR13, 99.85).Real(14, &R::SettingR14, 102.25);
  lines.Real(15, &R::SettingR15, 41.35).Stamp(16, &R::SettingR16, start + 16);
  lines.Real(17, &R::SettingR17, 40.05).Stamp(18, &R::SettingR18, start + 18);
  lines.Real(19, &R::SettingR19, 88.75).Stamp(20, &R::SettingR20, start + 20);
  lines.Real(21, &R::SettingR21, 86.45).Stamp(22, &R::SettingR22, start + 22);
  lines.Real(23, &R::SettingR23, 108.25).Stamp(24, &R::SettingR24, start + 24);
  lines.Real(25, &R::SettingR25, 107.65).Stamp(26, &R::SettingR26, start + 26);
  lines.Real(27, &R::SettingR27, 106.35).Stamp(28, &R::SettingR28, start + 28);
  lines.Real(29, &R::SettingR29, 105.55).Stamp(30, &R::SettingR30, start + 30);
  for (int i = 0; i < 8; ++i) {
    lines.Record().SettingR124[i] = 12 + i;
    lines.Line(124, std::to_string(i + 1) + ",Dir" + std::to_string(12 + i));
  }
  lines.Real(163, &R::SettingR163, 55.25).Real(164, &R::SettingR164, 54.15);
}

}  // namespace

void ExpectResults(SampleBuilder& sample, const Results& results) {
  Instrument& state = sample.State();
  state.lastStop = results.stop - 1;
  if (state.model == 442) state.levelOffset = static_cast<float>(results.levelOffset);
}

void AddGeneralResults(SampleBuilder& sample, const Results& results) {
  using R = QvResults;
  ResultsLines<R> lines(sample, QV_RESULTS);
  lines.Begin(results);
  lines.Registers(results);
  SharedRegisters(lines, results);
  lines.Whole(170, &R::SettingR170, 170).Whole(171, &R::SettingR171, 1710);
  lines.End();
}

void AddResults431(SampleBuilder& sample, const Results& results) {
  using R = QvResults431;
  ResultsLines<R> lines(sample, QV_RESULTS_431);
  lines.Begin(results);
  lines.Registers(results);
  SharedRegisters(lines, results);
  // On an external supply the text of register 86 becomes the voltage.
  lines.Text(87, &R::SettingR87, "EXT").Line(170, "12.43");
  SetText(lines.Record().SettingR86, "12.4V");
  lines.Reals(171, &R::SettingR171, 48.25, 0.75).Reals(172, &R::SettingR172, 66.5, -0.25);
  lines.Reals(173, &R::SettingR173, 35.05, 0.5);
  lines.Whole(179, &R::SettingR179, 1790).Text(180, &R::SettingR180, "1.250");
  lines.Whole(181, &R::SettingR181, 181);
  lines.End();
  sample.State().levelOffset = static_cast<float>(results.levelOffset);
}

}  // namespace samples
