#include <span>

#include "settings/r_registers.h"
#include "settings/r_registers_431.h"
#include "settings/r_registers_442.h"
#include "settings/results_forms.h"
#include "settings/results_record.h"
#include "settings/settings.h"
#include "settings/settings_lines.h"

namespace qvslm {

namespace {

// Whether the general parser stores the register: some belong to model 431, which it can meet when
// a model line within the block says so.
bool IsStoredByGeneralParser(i32 number) {
  bool const model431 = CurrentContext->Model == kModel431;
  switch (number) {
    case 170:
    case 171:
      return !model431;
    case 179:
    case 180:
    case 181:
      return model431;
    default:
      return true;
  }
}

// What the registers do beside their store, alike in all models.
template <class Record>
void TakeEffect(i32 number, Record& record) {
  if (number == 6) {
    record.StopTime = record.SettingR6;
    TakeStopTime(record.SettingR6);
  }
  if (number >= 38 && number <= 43) record.ResultFlags |= kR38ToR43Met;
}

void TakeVoltage(std::span<const Register> registers, const SettingsLine& line,
                 ResultsBlock& block) {
  StoreVoltage(line.value, *FindRegister(registers, 86), *FindRegister(registers, 87), block);
}

// Register 106 of model 431: the level offset, a signed number of eight bits and its decimals.
void TakeLevelOffset431(QvResults431& record, const ResultsBlock& block) {
  f64 const offset = block.lastNumber >= 128.0 ? block.lastNumber - 256.0 : block.lastNumber;
  record.SettingR106 = static_cast<f32>(offset);
  CurrentContext->LevelOffset = record.SettingR106;
}

template <class Record>
void TakeLine(std::span<const Register> registers, const SettingsLine& line, Record& record,
              ResultsBlock& block) {
  if (line.number == 1) return TakeModelLine(line.value);
  const Register* const row = FindRegister(registers, line.number);
  if (row == nullptr) return;
  StoreResult(*row, line.value, line.whole, block);
  TakeEffect(line.number, record);
}

}  // namespace

i32 ParseRBlock() {
  auto& record = BeginResults<QvResults>();
  ResultsBlock block{&record};
  char text[256] = "";
  i32 const status = ReadSettingsLines('R', text, [&](const SettingsLine& line) {
    if (line.number == 170 && CurrentContext->Model == kModel431) {
      TakeVoltage(kGeneralRegisters, line, block);
    } else if (IsStoredByGeneralParser(line.number)) {
      TakeLine(kGeneralRegisters, line, record, block);
    }
  });
  EndResults(record, QV_RESULTS);
  return status;
}

i32 ParseRBlock431() {
  auto& record = BeginResults<QvResults431>();
  ResultsBlock block{&record};
  char text[320] = "";
  i32 const status = ReadSettingsLines('R', text, [&](const SettingsLine& line) {
    if (line.number == 170) return TakeVoltage(kRegisters431, line, block);
    TakeLine(kRegisters431, line, record, block);
    if (line.number == 106) TakeLevelOffset431(record, block);
  });
  EndResults(record, QV_RESULTS_431);
  return status;
}

i32 ParseRBlock442() {
  auto& record = BeginResults<QvResults442>();
  ResultsBlock block{&record};
  char text[2999] = "";
  i32 const status = ReadSettingsLines('R', text, [&](const SettingsLine& line) {
    if (line.number == 170) return TakeVoltage(kRegisters442, line, block);
    TakeLine(kRegisters442, line, record, block);
    if (line.number == 175) CurrentContext->StampR175 = record.SettingR175;
  });
  EndResults(record, QV_RESULTS_442);
  return status;
}

}  // namespace qvslm
