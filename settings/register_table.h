// Registers as data: number, how the value is read, and where in the record it goes.
#pragma once

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>

#include "api/context.h"

namespace qvslm {

enum class Form : u8 {
  // All blocks.
  Int16,  // low 16 bits of a whole number
  Int32,
  Real,   // plain decimal; a 'Q' block stores it only when there is a number
  Text,   // cut to the field
  Hms,    // hours, minutes, seconds, as seconds
  Stamp,  // date and time, as seconds since 1970
  // 'Q' blocks.
  ClockText,
  DateText,
  ShortDate,
  DayName,
  Int16Newer,    // 0 at firmware 0.9 or below
  Threshold,     // ThresholdLevel, which takes 65.0 where there is no number
  SamplePeriod,  // IntervalSamplePeriod as a whole number
  // 'R' blocks.
  Atof,  // floating point with exponent and all
  BlankSkippedText,
  LastNumber,      // the last number that this block parsed, not the line's own
  LetterTest,      // 1 when the line holds an 'n'
  IndexedReal,     // index, comma, number
  IndexedInteger,  // index from 1, comma, three characters, number
  EightIntegers,   // three characters and a number, eight times
  ColumnBytes,     // eight cells of a letter and a number
  CompassPoint,
  CompassPointAnew,  // searched from the start for each line; no match is the last point
  RealList,
  AtofList,
  StampList,
  BandList,         // third-octave bands, octaves summed
  CountedBandList,  // third-octave or octave bands as they stand
  BandReset,
  SevenNames,
  ScaledNumber,  // with K or M behind it
};

struct Register {
  u16 number;
  Form form;
  u16 offset;
  u16 size;
};

// The register's row, or null. Rows stand in order of their numbers.
inline const Register* FindRegister(std::span<const Register> registers, i32 number) {
  auto const row = std::lower_bound(
      registers.begin(), registers.end(), number,
      [](const Register& each, i32 wanted) { return static_cast<i32>(each.number) < wanted; });
  return row != registers.end() && row->number == number ? &*row : nullptr;
}

constexpr bool InOrder(std::span<const Register> registers) {
  return std::is_sorted(registers.begin(), registers.end(),
                        [](const Register& a, const Register& b) { return a.number < b.number; });
}

// Fields of a record by offset.
template <class Value>
void StoreAt(void* record, std::size_t offset, Value value) {
  std::memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

template <class Value>
Value LoadAt(const void* record, std::size_t offset) {
  Value value;
  std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
  return value;
}

inline char* TextAt(void* record, std::size_t offset) {
  return static_cast<char*>(record) + offset;
}

}  // namespace qvslm
