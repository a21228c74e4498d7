#include "record_json.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "qvslm_records.h"
#include "record_bytes.h"
#include "record_table.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

constexpr std::string_view kNull = "null";
constexpr std::string_view kShort = ",\"short\":true";
constexpr std::string_view kCut = ",\"cut\":true";
constexpr std::string_view kFile = ",\"file\":\"";
// A character of the instrument, at its longest: \u001b.
constexpr std::size_t kEscaped = 6;

char* PutText(char* at, std::string_view text) {
  return std::copy(text.begin(), text.end(), at);
}

// A character of Latin-1 within a JSON text. Control characters are escaped, those above 127 too:
// a terminal may obey them.
char* PutCharacter(char* at, std::uint8_t code) {
  if (code >= 0xA0) {
    *at++ = static_cast<char>(0xC0 | (code >> 6));
    *at++ = static_cast<char>(0x80 | (code & 0x3F));
    return at;
  }
  if (code >= 0x20 && code < 0x7F) {
    if (code == '"' || code == '\\') *at++ = '\\';
    *at++ = static_cast<char>(code);
    return at;
  }
  constexpr std::string_view controls = "\b\t\n\f\r";
  constexpr std::string_view letters = "btnfr";
  if (std::size_t const known = controls.find(static_cast<char>(code));
      known != std::string_view::npos) {
    *at++ = '\\';
    *at++ = letters[known];
    return at;
  }
  constexpr std::string_view digits = "0123456789abcdef";
  at = PutText(at, "\\u00");
  *at++ = digits[code >> 4];
  *at++ = digits[code & 0x0F];
  return at;
}

char* PutLatin1(char* at, const std::uint8_t* text, std::size_t size) {
  *at++ = '"';
  for (std::size_t i = 0; i < size && text[i] != 0; ++i) at = PutCharacter(at, text[i]);
  *at++ = '"';
  return at;
}

std::size_t MostOf(FieldType type, bool clock) {
  return 1 + (type == FieldType::Char ? kEscaped : clock ? ClockText::kMost : NumberText::kMost);
}

}  // namespace

RecordJson::RecordJson(JsonValues values)
    : values_(values),
      numbers_('.', WholeNumbers::WithFraction),
      bytes_(','),
      plans_(std::size(record_fields::kRecords)) {}

const RecordJson::Plan& RecordJson::PlanOf(const RecordInfo& info) {
  Plan& plan = plans_[static_cast<std::size_t>(&info - record_fields::kRecords)];
  if (!plan.steps.empty()) return plan;
  auto const add = [&](const FieldInfo& field, const std::string& name, bool clock) {
    bool const level = field.kind == FieldKind::Level && values_ == JsonValues::Told;
    std::string const before = ",\"" + name + "\":";
    plan.steps.push_back({before, field.type, clock, level, field.offset, field.rows, field.count});
    std::size_t const values = FieldSize(field) / ElementSize(field.type);
    // Quotes or brackets, those of each row too.
    plan.most += before.size() + values * MostOf(field.type, clock) + 2 * (field.rows + 1);
  };
  for (const FieldInfo& field : info.fields) {
    bool const isCode = field.offset == 0;
    if (isCode || field.reserved) continue;
    std::string const name(field.name);
    add(field, name, false);
    bool const clock = field.kind == FieldKind::Time && values_ == JsonValues::Told;
    if (clock) add(field, name + "Local", true);
  }
  std::string const head =
      "{\"record\":\"" + std::string(info.name) + "\",\"code\":" + std::to_string(info.code);
  plan.steps.front().before.insert(0, head);
  plan.most += head.size() + kShort.size() + kCut.size() + kFile.size() + 2;
  return plan;
}

std::size_t RecordJson::Most(const RecordInfo& info, const JsonMarks& marks) {
  return PlanOf(info).most + 2 * marks.file.size();
}

char* RecordJson::Put(char* at, const RecordInfo& info, const std::uint8_t* record,
                      const JsonMarks& marks) {
  for (const Step& step : PlanOf(info).steps) {
    at = PutText(at, step.before);
    at = PutValue(at, step, record + step.offset);
  }
  if (marks.shortItem) at = PutText(at, kShort);
  if (marks.cut) at = PutText(at, kCut);
  if (!marks.file.empty()) {
    at = PutText(at, kFile);
    for (char const c : marks.file) {
      if (c == '"' || c == '\\') *at++ = '\\';
      *at++ = c;
    }
    *at++ = '"';
  }
  *at++ = '}';
  return at;
}

std::string RecordJson::Text(const RecordInfo& info, const std::uint8_t* record,
                             const JsonMarks& marks) {
  std::string text(Most(info, marks), '\0');
  char* const end = Put(text.data(), info, record, marks);
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

char* RecordJson::PutValue(char* at, const Step& step, const std::uint8_t* bytes) {
  if (step.rows == 0) return PutRow(at, step, bytes);
  *at++ = '[';
  for (std::size_t row = 0; row < step.rows; ++row) {
    at = PutRow(at, step, bytes + row * step.count * ElementSize(step.type));
    *at++ = ',';
  }
  at[-1] = ']';
  return at;
}

// One value, or an array of step.count of them; a text is one value.
char* RecordJson::PutRow(char* at, const Step& step, const std::uint8_t* bytes) {
  if (step.type == FieldType::Char) return PutLatin1(at, bytes, step.count);
  if (step.count == 0) return PutOne(at, step, bytes);
  *at++ = '[';
  if (step.type == FieldType::U8) {
    for (std::size_t i = 0; i < step.count; ++i) at = bytes_.Put(at, bytes[i]);
  } else {
    for (std::size_t i = 0; i < step.count; ++i) {
      at = PutOne(at, step, bytes + i * ElementSize(step.type));
      *at++ = ',';
    }
  }
  at[-1] = ']';
  return at;
}

char* RecordJson::PutOne(char* at, const Step& step, const std::uint8_t* bytes) {
  if (step.clock) {
    *at = '"';
    char* const end = clock_.Put(at + 1, ReadAs<std::int32_t>(bytes));
    if (end == at + 1) return PutText(at, kNull);
    *end = '"';
    return end + 1;
  }
  if (step.type == FieldType::F32) {
    auto const value = ReadAs<float>(bytes);
    if (!std::isfinite(value) || (step.level && value == QV_NO_LEVEL)) return PutText(at, kNull);
    return numbers_.Put(at, value);
  }
  return PutWhole(at, step.type, bytes);
}

}  // namespace host
