// The host's output record, through the struct of the record in hand.
#pragma once

#include <cstddef>

#include "api/context.h"

namespace qvslm {

template <class Record>
Record& OutputAs() {
  return *static_cast<Record*>(CurrentContext->Output);
}

// Fills in what most records take from the context.
template <class Record>
void StampRecord(Record& record, QvRecordCode code) {
  record.RecordType = static_cast<u16>(code);
  if constexpr (requires { record.SiteNumber; }) record.SiteNumber = CurrentContext->SiteNumber;
  if constexpr (requires { record.SettingFormat; }) {
    record.SettingFormat = CurrentContext->SettingFormat;
  }
  if constexpr (requires { record.Model; }) record.Model = static_cast<u16>(CurrentContext->Model);
}

// Clears the head of the output record. A call of its own: the C library clears blocks of this size
// faster than what compilers put in place.
void ClearOutput(std::size_t size);

// Clears the output record and stamps it.
template <class Record>
Record& BeginRecord(QvRecordCode code, std::size_t cleared = sizeof(Record)) {
  ClearOutput(cleared);
  auto& record = OutputAs<Record>();
  StampRecord(record, code);
  return record;
}

}  // namespace qvslm
