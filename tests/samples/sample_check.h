// Holds what a translation delivers against what the writer of a sample expects, and tells the
// difference by the names of the fields.
#pragma once

#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "record_table.h"
#include "sample.h"
#include "support/translation.h"

namespace test {

// Path of a committed sample.
inline std::string SamplePath(const std::string& name) {
  const char* const folder = std::getenv("SAMPLES");
  return (folder != nullptr ? folder : "samples/files") + ("/" + name);
}

// The struct of a record; code 1 stands for two, of different sizes.
inline const record_fields::RecordInfo* InfoOf(const samples::ExpectedRecord& record) {
  for (const record_fields::RecordInfo& info : record_fields::kRecords) {
    if (info.code == record.code && info.size == record.bytes.size()) return &info;
  }
  return nullptr;
}

inline std::string ElementText(record_fields::FieldType type, const char* bytes) {
  using record_fields::FieldType;
  std::ostringstream text;
  text.precision(9);
  if (type == FieldType::F32) {
    float value;
    std::memcpy(&value, bytes, 4);
    text << value;
  } else if (type == FieldType::I32 || type == FieldType::U32) {
    std::int32_t value;
    std::memcpy(&value, bytes, 4);
    text << value;
  } else if (type == FieldType::U16) {
    std::uint16_t value;
    std::memcpy(&value, bytes, 2);
    text << value;
  } else {
    text << static_cast<int>(static_cast<unsigned char>(*bytes));
  }
  return text.str();
}

// Empty when every byte is as expected, also behind the record; else the first fields that differ.
inline std::string Differences(const samples::ExpectedRecord& expected, const Step& step) {
  auto const* const found = reinterpret_cast<const char*>(step.record.data());
  if (step.Code() != expected.code) {
    return "type code " + std::to_string(step.Code()) + " instead of " +
           std::to_string(expected.code);
  }
  std::string text;
  int named = 0;
  const record_fields::RecordInfo* const info = InfoOf(expected);
  if (info == nullptr) return "no record of this code and size";
  for (const record_fields::FieldInfo& field : info->fields) {
    std::size_t const size = ElementSize(field.type);
    for (std::size_t at = field.offset; at < field.offset + FieldSize(field); at += size) {
      const char* const want = expected.bytes.data() + at;
      if (std::memcmp(want, found + at, size) == 0) continue;
      if (++named > 6) return text + "and more";
      text += std::string(field.name) + "[" + std::to_string((at - field.offset) / size) + "] " +
              ElementText(field.type, found + at) + " instead of " + ElementText(field.type, want) +
              "; ";
    }
  }
  for (std::size_t at = expected.bytes.size(); at < step.record.size(); ++at) {
    if (step.record[at] == samples::kUnwritten) continue;
    return text + "byte " + std::to_string(at) + " behind the record is written";
  }
  return text;
}

}  // namespace test
