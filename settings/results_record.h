// What the records of results take from the context, in all their layouts: the settings that
// earlier blocks left, and the flags.
#pragma once

#include <algorithm>
#include <iterator>

#include "fields/number_text.h"
#include "fields/output_record.h"
#include "fields/record_time.h"

namespace qvslm {

enum ResultFlag : u16 {
  kQ209NotZero = 0x0002,
  kAuxInRecords = 0x0004,
  kSpansInRecords = 0x0008,
  kSecondAuxEnabled = 0x0010,
  kCountersByQ120 = 0x0040,
  kCountersByQ118 = 0x0080,
  kR38ToR43Met = 0x0200,
};

// Clears the record and fills in the kept settings.
template <class Record>
Record& BeginResults() {
  const TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<Record>();
  ClearOutput(sizeof record);
  if (context.KeptSixValues[0] != -1.0F) {
    std::copy(std::begin(context.KeptSixValues), std::end(context.KeptSixValues),
              record.KeptSixValues);
  }
  record.SetupKeptA = context.SetupKeptA;
  record.SetupKeptB = context.SetupKeptB;
  record.SettingQ50 = context.SettingQ50;
  record.SettingQ47 = context.SettingQ47;
  record.SettingQ53 = context.SettingQ53;
  record.SettingQ54 = context.SettingQ54;
  if constexpr (requires { record.SettingQ147; }) record.SettingQ147 = context.SettingQ147;
  return record;
}

u16 ResultFlagsOfContext();

// Fills in the head, the flags and the auxiliary channels.
template <class Record>
void EndResults(Record& record, QvRecordCode code) {
  const TranslateContext& context = *CurrentContext;
  StampRecord(record, code);
  record.ResultFlags |= ResultFlagsOfContext();
  char* const names[] = {record.AuxName0, record.AuxName1, record.AuxName2};
  char* const units[] = {record.AuxUnits0, record.AuxUnits1, record.AuxUnits2};
  for (int channel = 0; channel < 3; ++channel) {
    CopyText(names[channel], sizeof record.AuxName0, context.AuxChannel[channel].Name);
    CopyText(units[channel], sizeof record.AuxUnits0, context.AuxChannel[channel].Units);
  }
  record.ModeFormFlag = context.ModeFormFlag;
  NoteRecordTime(record.StopTime);
}

}  // namespace qvslm
