#include "fields/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view BehindWhiteSpace(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" \t\n\v\f\r");
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view BehindBlanks(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

bool TakeSign(std::string_view& text) {
  if (text.empty() || (text[0] != '+' && text[0] != '-')) return false;
  bool const negative = text[0] == '-';
  text.remove_prefix(1);
  return negative;
}

bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// "0x" with a digit behind it, or a point and a digit.
bool OpensHexadecimal(std::string_view text) {
  if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return false;
  if (text[2] == '.') return text.size() > 3 && IsHexDigit(text[3]);
  return IsHexDigit(text[2]);
}

// Whether a number that no f64 holds is too large for it; else it is too small.
bool IsHuge(std::string_view number, std::chars_format format) {
  const char* const marks = format == std::chars_format::hex ? "pP" : "eE";
  std::size_t const exponentMark = number.find_first_of(marks);
  std::string_view const digits = number.substr(0, exponentMark);
  i64 exponent =
      exponentMark == std::string_view::npos ? 0 : LongNumber(number.substr(exponentMark + 1));
  exponent = std::clamp<i64>(exponent, -1000000, 1000000);
  auto const point = static_cast<i64>(std::min(digits.find('.'), digits.size()));
  std::size_t const first = digits.find_first_not_of("0.");
  return first != std::string_view::npos && exponent + point - static_cast<i64>(first) > 0;
}

}  // namespace

i64 LongNumber(std::string_view text) {
  constexpr u64 kMost = std::numeric_limits<i64>::max();
  text = BehindWhiteSpace(text);
  bool const negative = TakeSign(text);
  u64 const limit = negative ? kMost + 1 : kMost;
  u64 number = 0;
  for (char const c : text) {
    if (!IsDigit(c)) break;
    auto const digit = static_cast<u64>(c - '0');
    bool const fits =
        number < kMost / 10 || (number == kMost / 10 && digit <= limit - kMost / 10 * 10);
    if (!fits) {
      number = limit;
      break;
    }
    number = number * 10 + digit;
  }
  return static_cast<i64>(negative ? 0 - number : number);
}

i32 WholeNumber(std::string_view text) {
  return LowBits<i32>(LongNumber(text));
}

i32 NumberAt(std::string_view text, std::size_t column) {
  return column < text.size() ? WholeNumber(text.substr(column)) : 0;
}

f64 FloatNumber(std::string_view text) {
  text = BehindWhiteSpace(text);
  bool const negative = TakeSign(text);
  if (text.empty() || text[0] == '-') return 0.0;
  auto format = std::chars_format::general;
  if (OpensHexadecimal(text)) {
    format = std::chars_format::hex;
    text.remove_prefix(2);
  }
  f64 value = 0.0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, format);
  if (error == std::errc::invalid_argument) return 0.0;
  if (error == std::errc::result_out_of_range) {
    std::string_view const number = text.substr(0, static_cast<std::size_t>(end - text.data()));
    value = IsHuge(number, format) ? std::numeric_limits<f64>::infinity() : 0.0;
  }
  return negative ? -value : value;
}

i32 ParseDouble(std::string_view text, f64* result) {
  *result = 0.0;
  text = BehindBlanks(text);
  f64 const sign = TakeSign(text) ? -1.0 : 1.0;
  text = BehindBlanks(text);

  f64 number = 0.0;
  std::size_t at = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) number = number * 10.0 + (text[at] - '0');
  if (at > 0) *result = sign * number;
  if (at == text.size() || text[at] != '.') return at > 0 ? 0 : -1;

  f64 divisor = 1.0;
  for (++at; at < text.size() && IsDigit(text[at]); ++at) {
    number = number * 10.0 + (text[at] - '0');
    divisor *= 10.0;
  }
  *result = sign * number / divisor;
  return 0;
}

f64 ParseHms(std::string_view text) {
  std::size_t const first = text.find(':');
  if (first == std::string_view::npos) return 0.0;
  f64 leading = 0.0;
  f64 middle = 0.0;
  if (ParseDouble(text, &leading) != 0) return 0.0;
  if (ParseDouble(text.substr(first + 1), &middle) != 0) return 0.0;
  if (text.size() < 9 && text.find('.') != std::string_view::npos) return leading * 60.0 + middle;

  std::size_t const second = text.find(':', first + 1);
  if (second == std::string_view::npos) return 0.0;
  f64 trailing = 0.0;
  if (ParseDouble(text.substr(second + 1), &trailing) != 0) return 0.0;
  return leading * 3600.0 + middle * 60.0 + trailing;
}

i32 FormatHms(f32 seconds, char* text) {
  i32 const hours = TruncateToI32(seconds / 3600.0);
  f64 const behindHours = seconds - hours * 3600.0;
  i32 const minutes = TruncateToI32(behindHours / 60.0);
  auto const rest = static_cast<f32>(behindHours - minutes * 60.0);

  char fraction[64];
  auto const [end, error] =
      std::to_chars(fraction, fraction + sizeof fraction - 1, rest, std::chars_format::fixed, 1);
  *end = '\0';
  const char* const pad = end - fraction < 4 ? "0" : "";
  std::snprintf(text, 32, hours < 24 ? "%02ld:%02ld:%s%s" : "%ld:%02ld:%s%s",
                static_cast<long>(hours), static_cast<long>(minutes), pad, fraction);
  return 0;
}

void FormatVoltage(f64 value, char* text, std::size_t size) {
  char digits[400];
  auto const [end, error] =
      std::to_chars(digits, digits + sizeof digits - 1, value, std::chars_format::fixed, 1);
  *end = 'V';
  CopyText(text, size, std::string_view(digits, static_cast<std::size_t>(end + 1 - digits)));
}

void CopyText(char* field, std::size_t size, std::string_view text) {
  std::size_t const length = text.copy(field, size - 1);
  field[length] = '\0';
}

}  // namespace qvslm
