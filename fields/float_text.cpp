#include "fields/float_text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "fields/big_number.h"

namespace qvslm {

namespace {

constexpr i32 kFractionBits = 52;
constexpr u64 kFractionMask = (u64{1} << kFractionBits) - 1;
constexpr i32 kLeastExponent = -1022;  // of a number with all its bits
constexpr i32 kMostExponent = 1023;

constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();

enum class Base : u8 { Ten = 10, Sixteen = 16 };

// The digit's value, or as much as the base and above where it is none.
constexpr u32 DecimalDigit(char c) {
  return static_cast<u32>(c) - '0';
}
constexpr u32 HexadecimalDigit(char c) {
  if (DecimalDigit(c) < 10) return DecimalDigit(c);
  if (c >= 'a' && c <= 'f') return static_cast<u32>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<u32>(c - 'A') + 10;
  return 16;
}

constexpr char InLowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// A number as it is written: so many digits without their point, of which the last one counts
// base^scale; times the base of the exponent, which is ten or two, to that power.
struct Written {
  std::string_view digits;  // from the first that is not 0, the point among them
  i64 count = 0;            // of those digits
  i64 scale = 0;
  i64 exponent = 0;
};

// The whole number behind an exponent's mark; 0 when there is none. Held far beyond all that
// matters.
i64 ReadExponent(std::string_view text) {
  constexpr i64 kMost = 1000000000000;
  bool const negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);
  i64 exponent = 0;
  for (char const c : text) {
    if (DecimalDigit(c) >= 10) break;
    exponent = std::min(exponent * 10 + DecimalDigit(c), kMost);
  }
  return negative ? -exponent : exponent;
}

std::optional<Written> ReadWritten(std::string_view text, Base base) {
  Written number;
  std::size_t at = 0;
  std::size_t first = 0;
  bool anyDigit = false;
  bool behindPoint = false;
  for (; at < text.size(); ++at) {
    char const c = text[at];
    if (c == '.' && !behindPoint) {
      behindPoint = true;
      continue;
    }
    u32 const digit = HexadecimalDigit(c);
    if (digit >= static_cast<u32>(base)) break;
    anyDigit = true;
    if (behindPoint) --number.scale;
    if (digit == 0 && number.count == 0) continue;
    if (number.count == 0) first = at;
    ++number.count;
  }
  if (!anyDigit) return std::nullopt;
  number.digits = text.substr(first, at - first);
  char const mark = base == Base::Ten ? 'e' : 'p';
  if (at < text.size() && InLowerCase(text[at]) == mark) {
    number.exponent = ReadExponent(text.substr(at + 1));
  }
  return number;
}

// No f64, and no middle of two, has as many digits. Of those behind them all that matters is
// whether one is not 0, which a 1 in their place tells.
constexpr i64 kMostDigits = 800;

// The digits as a whole number, and the scale of its last one.
BigNumber WholeDigits(Written& number, Base base) {
  BigNumber whole(0);
  i64 taken = 0;
  bool anyBehind = false;
  for (char const c : number.digits) {
    if (c == '.') continue;
    if (taken < kMostDigits) {
      whole.MultiplyAdd(static_cast<u32>(base), HexadecimalDigit(c));
      ++taken;
    } else {
      anyBehind = anyBehind || c != '0';
    }
  }
  number.scale += number.count - taken;
  if (anyBehind) {
    whole.MultiplyAdd(static_cast<u32>(base), 1);
    --number.scale;
  }
  return whole;
}

// The f64 nearest to numerator / denominator * 2^power; neither is 0.
f64 NearestTo(BigNumber& numerator, BigNumber& denominator, i32 power) {
  // Brought to 1 <= numerator / denominator < 2.
  i32 const shift = numerator.Bits() - denominator.Bits();
  if (shift > 0) {
    denominator.ShiftLeft(shift);
  } else {
    numerator.ShiftLeft(-shift);
  }
  power += shift;
  if (numerator.Compare(denominator) < 0) {
    numerator.ShiftLeft(1);
    --power;
  }

  if (power > kMostExponent) return kInfinity;
  i32 const bits = kFractionBits + 1 - std::max(kLeastExponent - power, 0);
  if (bits < 0) return 0.0;
  u64 whole = 0;
  for (i32 bit = 0; bit < bits; ++bit) {
    whole <<= 1;
    if (numerator.Compare(denominator) >= 0) {
      numerator.Subtract(denominator);
      whole |= 1;
    }
    numerator.ShiftLeft(1);
  }
  i32 const rest = numerator.Compare(denominator);
  if (rest > 0 || (rest == 0 && (whole & 1) != 0)) ++whole;
  return std::ldexp(static_cast<f64>(whole), power + 1 - bits);
}

f64 DecimalValue(Written number) {
  if (number.count == 0) return 0.0;
  number.scale += number.exponent;
  // Below 10^places, and no less than a tenth of it.
  i64 const places = number.count + number.scale;
  if (places > 309) return kInfinity;
  if (places < -323) return 0.0;
  BigNumber numerator = WholeDigits(number, Base::Ten);
  BigNumber denominator(1);
  for (i64 at = 0; at < number.scale; ++at) numerator.MultiplyAdd(10, 0);
  for (i64 at = number.scale; at < 0; ++at) denominator.MultiplyAdd(10, 0);
  return NearestTo(numerator, denominator, 0);
}

f64 HexadecimalValue(Written number) {
  if (number.count == 0) return 0.0;
  // Below 2^places, and no less than a sixteenth of it.
  i64 const places = 4 * (number.count + number.scale) + number.exponent;
  if (places > 1100) return kInfinity;
  if (places < -1100) return 0.0;
  BigNumber numerator = WholeDigits(number, Base::Sixteen);
  BigNumber denominator(1);
  return NearestTo(numerator, denominator, static_cast<i32>(4 * number.scale + number.exponent));
}

// What instruments write: few digits with a point. They and the power are exact, so that the one
// division rounds as it should. Nothing where there is more to be read.
std::optional<f64> ShortDecimal(std::string_view text) {
  constexpr f64 kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  u64 whole = 0;
  std::size_t digits = 0;
  std::size_t digitsBeforePoint = 0;
  bool behindPoint = false;
  for (char const c : text) {
    u32 const digit = DecimalDigit(c);
    if (digit < 10) {
      whole = whole * 10 + digit;
      ++digits;
    } else if (c == '.' && !behindPoint) {
      behindPoint = true;
      digitsBeforePoint = digits;
    } else {
      if (InLowerCase(c) == 'e' || InLowerCase(c) == 'x') return std::nullopt;
      break;
    }
  }
  if (digits == 0 || digits >= std::size(kPowers)) return std::nullopt;
  std::size_t const places = behindPoint ? digits - digitsBeforePoint : 0;
  return static_cast<f64>(whole) / kPowers[places];
}

// "0x" with a digit behind it, or a point and a digit.
bool OpensHexadecimal(std::string_view text) {
  if (text.size() < 3 || text[0] != '0' || InLowerCase(text[1]) != 'x') return false;
  std::size_t const digit = text[2] == '.' ? 3 : 2;
  return digit < text.size() && HexadecimalDigit(text[digit]) < 16;
}

bool StartsWithWord(std::string_view text, std::string_view word) {
  return text.size() >= word.size() &&
         std::equal(word.begin(), word.end(), text.begin(),
                    [](char letter, char c) { return letter == InLowerCase(c); });
}

// The tenths in whole / 2^places, rounded to a whole number.
u64 TenthsOf(u64 whole, i32 places) {
  // Ten times 53 bits stays below a half of 2^58.
  i32 const shift = std::min(places, 58);
  u64 const exact = whole * 10;
  u64 const half = u64{1} << (shift - 1);
  u64 const rest = exact & (2 * half - 1);
  u64 const below = exact >> shift;
  bool const up = rest > half || (rest == half && (below & 1) != 0);
  return below + (up ? 1 : 0);
}

u32 TakeLastDigit(u64& number) {
  auto const digit = static_cast<u32>(number % 10);
  number /= 10;
  return digit;
}
u32 TakeLastDigit(BigNumber& number) {
  return number.TakeLastDigit();
}
bool IsZero(u64 number) {
  return number == 0;
}
bool IsZero(const BigNumber& number) {
  return number.Bits() == 0;
}

template <class Number>
std::size_t WriteTenths(Number tenths, char* text) {
  char* const end = text + kOneDecimalRoom - 1;
  char* next = end;
  *--next = static_cast<char>('0' + TakeLastDigit(tenths));
  *--next = '.';
  do {
    *--next = static_cast<char>('0' + TakeLastDigit(tenths));
  } while (!IsZero(tenths));
  auto const length = static_cast<std::size_t>(end - next);
  std::memmove(text, next, length);
  return length;
}

}  // namespace

std::optional<f64> UnsignedFloat(std::string_view text) {
  if (std::optional<f64> const number = ShortDecimal(text)) return number;
  if (OpensHexadecimal(text)) {
    return HexadecimalValue(*ReadWritten(text.substr(2), Base::Sixteen));
  }
  if (std::optional<Written> const number = ReadWritten(text, Base::Ten)) {
    return DecimalValue(*number);
  }
  if (StartsWithWord(text, "inf")) return kInfinity;
  if (StartsWithWord(text, "nan")) return std::numeric_limits<f64>::quiet_NaN();
  return std::nullopt;
}

std::size_t WriteOneDecimal(f64 value, char* text) {
  constexpr i32 kExponentOfNone = 0x7FF;
  u64 bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  u64 whole = bits & kFractionMask;
  auto const stored = static_cast<i32>(bits >> kFractionBits & kExponentOfNone);
  std::size_t length = 0;
  if (bits >> 63 != 0) text[length++] = '-';
  if (stored == kExponentOfNone) {
    std::string_view const name = whole == 0 ? "inf" : "nan";
    return length + name.copy(text + length, name.size());
  }

  // The number is whole * 2^exponent.
  if (stored != 0) whole |= kFractionMask + 1;
  i32 const exponent = std::max(stored, 1) - kMostExponent - kFractionBits;
  if (exponent < 0) return length + WriteTenths(TenthsOf(whole, -exponent), text + length);
  BigNumber tenths(whole * 10);
  tenths.ShiftLeft(exponent);
  return length + WriteTenths(tenths, text + length);
}

}  // namespace qvslm
