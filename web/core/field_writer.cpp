// field_writer: writes the field table of the records and the types of what is read for TypeScript.
#include <cstdio>
#include <string>
#include <string_view>

#include "record_table.h"

namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (char const c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

// What a member of the object is. A number of 32 bits with a fraction may be none (null).
std::string MemberType(const FieldInfo& field) {
  if (field.type == FieldType::Char) return "string";
  std::string type = field.type == FieldType::F32 ? "number | null" : "number";
  if (field.count == 0) return type;
  if (field.type == FieldType::F32) type = "(" + type + ")";
  return type + (field.rows == 0 ? "[]" : "[][]");
}

void Print(const std::string& line) {
  std::puts(line.c_str());
}

void WriteMembers(const RecordInfo& record) {
  for (const FieldInfo& field : record.fields) {
    bool const isCode = field.offset == 0 && record.code != 0;
    if (isCode || field.reserved) continue;
    Print("  /** " + std::string(field.comment) + " */");
    Print("  " + std::string(field.name) + ": " + MemberType(field) + ";");
    if (field.kind == FieldKind::Time) {
      Print("  " + std::string(field.name) +
            (field.count == 0 ? "Local: string | null;" : "Local: (string | null)[];"));
    }
  }
}

void WriteType(const RecordInfo& record) {
  Print("export interface " + std::string(record.name) + " {");
  if (record.code != 0) {
    Print("  record: " + Quoted(record.name) + ";");
    Print("  code: " + std::to_string(record.code) + ";");
  }
  WriteMembers(record);
  if (record.code != 0) {
    Print("  /** The item ended before its last field. */");
    Print("  short?: true;");
    Print("  /** The file does not wholly hold what this record rests on. */");
    Print("  cut?: true;");
  }
  Print("}");
}

void WriteTable(const RecordInfo& record) {
  Print("  {name: " + Quoted(record.name) + ", code: " + std::to_string(record.code) +
        ", size: " + std::to_string(record.size) + ", fields: [");
  for (const FieldInfo& field : record.fields) {
    Print("    {name: " + Quoted(field.name) + ", type: " + Quoted(TypeName(field.type)) +
          ", kind: " + Quoted(KindName(field.kind)) + ", offset: " + std::to_string(field.offset) +
          ", rows: " + std::to_string(field.rows) + ", count: " + std::to_string(field.count) +
          ", reserved: " + (field.reserved ? "true" : "false") +
          ", comment: " + Quoted(field.comment) + "},");
  }
  Print("  ]},");
}

}  // namespace

int main() {
  Print("// Written by field_writer from the field table of the records.");
  Print("import type { RecordInfo } from \"../field_info.js\";\n");
  std::string all;
  for (const RecordInfo& record : record_fields::kRecords) {
    WriteType(record);
    if (record.code != 0) all += "\n  | " + std::string(record.name);
  }
  Print("export type MeasurementRecord =" + all + ";\n");
  Print("export const records: readonly RecordInfo[] = [");
  for (const RecordInfo& record : record_fields::kRecords) WriteTable(record);
  Print("];");
  return 0;
}
