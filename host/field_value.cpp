#include "field_value.h"

#include <cmath>

#include "latin1.h"
#include "qvslm_records.h"
#include "record_bytes.h"
#include "stamp_text.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;

Json FloatValue(float value, FieldKind kind) {
  if (!std::isfinite(value)) return nullptr;
  if (kind == FieldKind::Level && value == QV_NO_LEVEL) return nullptr;
  return value;
}

Json NumberValue(const FieldInfo& field, const std::uint8_t* bytes) {
  if (field.type == FieldType::F32) return FloatValue(ReadAs<float>(bytes), field.kind);
  return ReadWhole(field.type, bytes);
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

}  // namespace host
