#include "brief_line.h"

#include <array>
#include <cstdio>

#include "field_value.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

bool IsArray(const FieldInfo& field) {
  return field.rows != 0 || (field.count != 0 && field.type != FieldType::Char);
}

// The long records are lists of registers and positions, of which most are never set.
bool IsRegisterList(const RecordInfo& info) {
  constexpr std::size_t mostFieldsOfAMeasurement = 48;
  return info.fields.size() > mostFieldsOfAMeasurement;
}

bool IsDecibels(const FieldInfo& field) {
  return field.kind == FieldKind::Level || field.kind == FieldKind::Decibels;
}

// In a measurement a code, a count and a level may be 0; a length of time, a share or the value of
// a channel that is 0 was not measured.
bool TellsZero(const FieldInfo& field, const RecordInfo& info) {
  if (IsRegisterList(info) || field.comment.starts_with("always 0")) return false;
  return field.type != FieldType::F32 || IsDecibels(field);
}

std::string NumberText(const FieldInfo& field, float value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), IsDecibels(field) ? "%.2f" : "%.6g",
                static_cast<double>(value));
  return text.data();
}

// Empty where the field tells nothing.
std::string ValueText(const FieldInfo& field, const RecordInfo& info, const std::uint8_t* record) {
  if (field.kind == FieldKind::Time) {
    Json const clock = FieldClock(field, record);
    return clock.is_null() ? "" : clock.get<std::string>();
  }
  Json const value = FieldValue(field, record);
  if (value.is_null()) return "";
  if (value.is_string()) return value.get_ref<const std::string&>().empty() ? "" : value.dump();
  if (value.get<double>() == 0 && !TellsZero(field, info)) return "";
  return value.is_number_float() ? NumberText(field, value.get<float>()) : value.dump();
}

}  // namespace

std::string BriefLine(const RecordInfo& info, const std::uint8_t* record) {
  constexpr std::size_t widest = 480;  // every measurement in full; lists of registers go on
  std::string line(info.name);
  for (const FieldInfo& field : info.fields) {
    bool const isCode = field.offset == 0;
    if (isCode || field.reserved || IsArray(field)) continue;
    std::string const value = ValueText(field, info, record);
    if (value.empty()) continue;
    std::string const member = "  " + std::string(field.name) + ' ' + value;
    if (line.size() + member.size() > widest) return line + "  ...";
    line += member;
  }
  return line;
}

}  // namespace host
