#include "export/csv_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "qvslm_records.h"

namespace host {
namespace {

// What a spreadsheet takes for the start of a formula.
constexpr std::string_view kFormulaStarts = "=+-@\t\r\n";
constexpr std::string_view kQuoted = "\"\r\n";

bool IsControl(std::uint8_t code) {
  bool const space = code == '\t' || code == '\r' || code == '\n';
  return !space && (code < 0x20 || (code >= 0x7F && code < 0xA0));
}

// A terminal obeys control characters: they are written as JSON writes them.
char* PutEscape(char* at, std::uint8_t code) {
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr std::string_view start = "\\u00";
  at = std::copy(start.begin(), start.end(), at);
  *at++ = digits[code >> 4];
  *at++ = digits[code & 0x0F];
  return at;
}

}  // namespace

CsvValues::CsvValues(const CsvStyle& style)
    : style_(style), numbers_(style.decimal), bytes_(style.separator) {}

char* CsvValues::PutFloat(char* at, float value, bool level) {
  if (std::isfinite(value) && !(level && value == QV_NO_LEVEL)) at = numbers_.Put(at, value);
  *at++ = style_.separator;
  return at;
}

char* CsvValues::PutDouble(char* at, double value) const {
  char* const end = std::to_chars(at, at + kMost - 1, value).ptr;
  std::replace(at, end, '.', style_.decimal);
  *end = style_.separator;
  return end + 1;
}

char* CsvValues::PutWhole(char* at, std::int64_t value) const {
  at = std::to_chars(at, at + kMost, value).ptr;
  *at++ = style_.separator;
  return at;
}

char* CsvValues::PutBytes(char* at, const std::uint8_t* bytes, std::size_t count) const {
  for (std::size_t i = 0; i < count; ++i) at = bytes_.Put(at, bytes[i]);
  return at;
}

char* CsvValues::PutClock(char* at, std::int32_t seconds) {
  at = clock_.Put(at, seconds);
  *at++ = style_.separator;
  return at;
}

char* CsvValues::PutClockWithMilliseconds(char* at, double seconds) {
  at = clock_.PutWithMilliseconds(at, seconds);
  *at++ = style_.separator;
  return at;
}

char* CsvValues::PutLatin1(char* at, const std::uint8_t* text, std::size_t size) const {
  const std::uint8_t* const end = std::find(text, text + size, std::uint8_t{0});
  bool const quoted = std::any_of(text, end, [&](std::uint8_t code) {
    char const c = static_cast<char>(code);
    return c == style_.separator || kQuoted.find(c) != std::string_view::npos;
  });
  if (quoted) *at++ = '"';
  if (style_.guard && text != end &&
      kFormulaStarts.find(static_cast<char>(*text)) != std::string_view::npos) {
    *at++ = '\'';
  }
  for (; text != end; ++text) {
    std::uint8_t const code = *text;
    if (IsControl(code)) {
      at = PutEscape(at, code);
    } else if (code >= 0x80) {
      *at++ = static_cast<char>(0xC0 | (code >> 6));
      *at++ = static_cast<char>(0x80 | (code & 0x3F));
    } else {
      if (code == '"') *at++ = '"';
      *at++ = static_cast<char>(code);
    }
  }
  if (quoted) *at++ = '"';
  *at++ = style_.separator;
  return at;
}

std::string CsvValues::Quoted(std::string_view text) const {
  std::string quoted(text);
  if (quoted.find(style_.separator) == std::string::npos) return quoted;
  return '"' + quoted + '"';
}

}  // namespace host
