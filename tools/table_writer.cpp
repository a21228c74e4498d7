#include <ostream>

#include "writers.h"

namespace field_table {
namespace {

std::string TypeName(const std::string& type) {
  if (type == "uint8_t") return "U8";
  if (type == "uint16_t") return "U16";
  if (type == "uint32_t") return "U32";
  if (type == "int32_t") return "I32";
  if (type == "float") return "F32";
  return "Char";
}

std::string KindName(const std::string& kind) {
  if (kind == "level") return "Level";
  if (kind == "dB") return "Decibels";
  if (kind == "time") return "Time";
  if (kind == "s") return "Seconds";
  if (kind == "%") return "Percent";
  if (kind == "text") return "Text";
  if (kind == "raw text") return "RawText";
  return "Plain";
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (char const c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

void WriteTable(const std::vector<Record>& records, std::ostream& out) {
  out << "// Written by field_table from api/include/qvslm_records.h; `cmake --build BUILD "
         "--target\n"
         "// update_generated` writes it anew.\n"
         "// clang-format off\n"
         "#pragma once\n\n"
         "#include \"record_info.h\"\n\n"
         "namespace record_fields {\n\n";
  for (const Record& record : records) {
    out << "inline constexpr FieldInfo k" << record.name << "Fields[] = {\n";
    for (const Field& field : record.fields) {
      bool const table = field.dimensions.size() == 2;
      out << "    {" << Quoted(field.name) << ", FieldType::" << TypeName(field.type)
          << ", FieldKind::" << KindName(Kind(field)) << ", " << field.offset << ", "
          << (table ? field.dimensions[0] : 0) << ", "
          << (field.dimensions.empty() ? 0 : field.dimensions.back()) << ", "
          << (IsReserved(field) ? "true" : "false") << ", " << Quoted(field.comment) << "},\n";
    }
    out << "};\n\n";
  }
  out << "inline constexpr RecordInfo kRecords[] = {\n";
  for (const Record& record : records) {
    out << "    {" << Quoted(record.structName) << ", " << Quoted(record.name) << ", "
        << record.code << ", " << record.size << ", k" << record.name << "Fields},\n";
  }
  out << "};\n\n}  // namespace record_fields\n";
}

}  // namespace field_table
