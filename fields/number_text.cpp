#include "fields/number_text.h"

#include <cstdio>
#include <limits>

#include "fields/float_text.h"
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
  std::optional<f64> const number = UnsignedFloat(text);
  if (!number) return 0.0;
  return negative ? -*number : *number;
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

  char fraction[kOneDecimalRoom + 1];
  std::size_t const length = WriteOneDecimal(rest, fraction);
  fraction[length] = '\0';
  const char* const pad = length < 4 ? "0" : "";
  std::snprintf(text, 32, hours < 24 ? "%02ld:%02ld:%s%s" : "%ld:%02ld:%s%s",
                static_cast<long>(hours), static_cast<long>(minutes), pad, fraction);
  return 0;
}

void FormatVoltage(f64 value, char* text, std::size_t size) {
  char digits[kOneDecimalRoom + 1];
  std::size_t const length = WriteOneDecimal(value, digits);
  digits[length] = 'V';
  CopyText(text, size, std::string_view(digits, length + 1));
}

void CopyText(char* field, std::size_t size, std::string_view text) {
  std::size_t const length = text.copy(field, size - 1);
  field[length] = '\0';
}

}  // namespace qvslm
