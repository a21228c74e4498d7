// What the field table tells of the records: one RecordInfo for each struct of
// api/include/qvslm_records.h, one FieldInfo for each of its fields.
//
// The tables themselves are written by field_table into record_table.h:
//
//   for (const RecordInfo& record : record_fields::kRecords)
//     for (const FieldInfo& field : record.fields) ...
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace record_fields {

enum class FieldType { U8, U16, U32, I32, F32, Char };

// What a field holds, by the first word of its comment.
enum class FieldKind { Plain, Level, Decibels, Time, Seconds, Percent, Text, RawText };

struct FieldInfo {
  std::string_view name;
  FieldType type;
  FieldKind kind;
  std::size_t offset;
  std::size_t rows;   // first dimension of a table of two; 0 for all other fields
  std::size_t count;  // elements of an array (of a row, in a table of two); 0 for a single value
  bool reserved;      // holds nothing for a host: Reserved..., Unwritten..., Unused...
  std::string_view comment;
};

struct RecordInfo {
  std::string_view structName;  // QvInterval
  std::string_view name;        // Interval
  int code;                     // type code; 0 for structs that are no output record
  std::size_t size;
  std::span<const FieldInfo> fields;
};

constexpr std::size_t ElementSize(FieldType type) {
  switch (type) {
    case FieldType::U8:
    case FieldType::Char:
      return 1;
    case FieldType::U16:
      return 2;
    case FieldType::U32:
    case FieldType::I32:
    case FieldType::F32:
      return 4;
  }
  return 0;
}

// As programs of other languages are told them.
constexpr std::string_view TypeName(FieldType type) {
  switch (type) {
    case FieldType::U8:
      return "u8";
    case FieldType::U16:
      return "u16";
    case FieldType::U32:
      return "u32";
    case FieldType::I32:
      return "i32";
    case FieldType::F32:
      return "f32";
    case FieldType::Char:
      return "char";
  }
  return "";
}

constexpr std::string_view KindName(FieldKind kind) {
  switch (kind) {
    case FieldKind::Plain:
      return "plain";
    case FieldKind::Level:
      return "level";
    case FieldKind::Decibels:
      return "dB";
    case FieldKind::Time:
      return "time";
    case FieldKind::Seconds:
      return "s";
    case FieldKind::Percent:
      return "%";
    case FieldKind::Text:
      return "text";
    case FieldKind::RawText:
      return "raw text";
  }
  return "";
}

constexpr std::size_t FieldSize(const FieldInfo& field) {
  std::size_t const row = field.count == 0 ? 1 : field.count;
  return ElementSize(field.type) * row * (field.rows == 0 ? 1 : field.rows);
}

}  // namespace record_fields
