#include "low_byte_first.h"

#include <algorithm>
#include <string_view>

#include "record_table.h"

namespace {

using record_fields::FieldInfo;
using record_fields::RecordInfo;

bool LowByteIsFirst() {
  std::uint16_t const one = 1;
  return *reinterpret_cast<const std::uint8_t*>(&one) == 1;
}

void Turn(void* record, const RecordInfo& info) {
  auto* const bytes = static_cast<std::uint8_t*>(record);
  for (const FieldInfo& field : info.fields) {
    std::size_t const size = record_fields::ElementSize(field.type);
    std::size_t const end = field.offset + FieldSize(field);
    for (std::size_t at = field.offset; at < end; at += size) {
      std::reverse(bytes + at, bytes + at + size);
    }
  }
}

}  // namespace

void PutLowByteFirst(void* record, std::uint16_t code, std::int32_t mode) {
  constexpr std::int32_t kModeOfBands = 4;
  if (LowByteIsFirst()) return;
  if (code == 1) {
    return PutLowByteFirstIn(record, mode == kModeOfBands ? "QvBandInterval" : "QvInterval");
  }
  for (const RecordInfo& info : record_fields::kRecords) {
    if (info.code == code && code != 0) return Turn(record, info);
  }
}

void PutLowByteFirstIn(void* info, const char* structName) {
  if (LowByteIsFirst()) return;
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.structName == structName) return Turn(info, record);
  }
}
