#include "record_json.h"

#include <cmath>
#include <cstring>

#include "latin1.h"
#include "qvslm_records.h"
#include "stamp_text.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;

template <class T>
T ReadAs(const std::uint8_t* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

Json FloatValue(float value, FieldKind kind) {
  if (!std::isfinite(value)) return nullptr;
  if (kind == FieldKind::Level && value == QV_NO_LEVEL) return nullptr;
  return value;
}

Json NumberValue(const FieldInfo& field, const std::uint8_t* bytes) {
  switch (field.type) {
    case FieldType::U8:
      return *bytes;
    case FieldType::U16:
      return ReadAs<std::uint16_t>(bytes);
    case FieldType::U32:
      return ReadAs<std::uint32_t>(bytes);
    case FieldType::I32:
      return ReadAs<std::int32_t>(bytes);
    case FieldType::F32:
      return FloatValue(ReadAs<float>(bytes), field.kind);
    case FieldType::Char:
      break;
  }
  return nullptr;
}

Json LocalTime(const FieldInfo&, const std::uint8_t* bytes) {
  std::string const text = LocalTimeText(ReadAs<std::int32_t>(bytes));
  return text.empty() ? Json(nullptr) : Json(text);
}

// One value, or an array of field.count of them; a text is one value.
template <class Convert>
Json Row(const FieldInfo& field, const std::uint8_t* bytes, Convert convert) {
  if (field.type == FieldType::Char) {
    return TextFromLatin1(reinterpret_cast<const char*>(bytes), field.count);
  }
  if (field.count == 0) return convert(field, bytes);
  Json values = Json::array();
  for (std::size_t i = 0; i < field.count; ++i) {
    values.push_back(convert(field, bytes + i * ElementSize(field.type)));
  }
  return values;
}

template <class Convert>
Json Value(const FieldInfo& field, const std::uint8_t* record, Convert convert) {
  const std::uint8_t* const bytes = record + field.offset;
  if (field.rows == 0) return Row(field, bytes, convert);
  Json rows = Json::array();
  for (std::size_t i = 0; i < field.rows; ++i) {
    rows.push_back(Row(field, bytes + i * field.count * ElementSize(field.type), convert));
  }
  return rows;
}

}  // namespace

Json FieldValue(const FieldInfo& field, const std::uint8_t* record) {
  return Value(field, record, NumberValue);
}

Json FieldClock(const FieldInfo& field, const std::uint8_t* record) {
  return Value(field, record, LocalTime);
}

Json RecordJson(const record_fields::RecordInfo& info, const std::uint8_t* record) {
  Json json = Json::object();
  // Every member stands once: append without looking whether it is there.
  auto const add = [&json](std::string_view name, Json value) {
    json.get_ref<Json::object_t&>().emplace_back(std::string(name), std::move(value));
  };
  add("record", std::string(info.name));
  add("code", info.code);
  for (const FieldInfo& field : info.fields) {
    bool const isCode = field.offset == 0;
    if (isCode || field.reserved) continue;
    add(field.name, FieldValue(field, record));
    if (field.kind == FieldKind::Time) {
      add(std::string(field.name) + "Local", FieldClock(field, record));
    }
  }
  return json;
}

}  // namespace host
