#include "export/field_columns.h"

namespace host {

using record_fields::ElementSize;
using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

std::string_view UnitOf(const FieldInfo& field) {
  switch (field.kind) {
    case FieldKind::Level:
    case FieldKind::Decibels:
      return "dB";
    case FieldKind::Time:
      return "s since 1970 UTC";
    case FieldKind::Seconds:
      return "s";
    case FieldKind::Percent:
      return "%";
    case FieldKind::Plain:
    case FieldKind::Text:
    case FieldKind::RawText:
      break;
  }
  return "";
}

std::vector<Column> ColumnsOf(const RecordInfo& info) {
  std::vector<Column> columns;
  for (const FieldInfo& field : info.fields) {
    bool const isCode = field.offset == 0;
    if (isCode || field.reserved) continue;
    bool const text = field.type == FieldType::Char;
    std::size_t const rows = field.rows == 0 ? 1 : field.rows;
    std::size_t const count = field.count == 0 || text ? 1 : field.count;
    std::size_t const size = text ? field.count : ElementSize(field.type);
    for (std::size_t row = 0; row < rows; ++row) {
      for (std::size_t i = 0; i < count; ++i) {
        std::string index;
        if (field.rows != 0) index += '[' + std::to_string(row) + ']';
        if (field.count != 0 && !text) index += '[' + std::to_string(i) + ']';
        std::string const name(field.name);
        std::size_t const offset = field.offset + (row * count + i) * size;
        columns.push_back({&field, name + index, false, offset});
        if (field.kind == FieldKind::Time) {
          std::string clockName = name + "Local";
          columns.push_back({&field, clockName += index, true, offset});
        }
      }
    }
  }
  return columns;
}

const FieldInfo* TimeField(const RecordInfo& info) {
  for (const FieldInfo& field : info.fields) {
    if (field.name == "RecordTime") return &field;
  }
  return nullptr;
}

}  // namespace host
