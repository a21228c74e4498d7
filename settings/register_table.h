// Registers as data: number, how the value is read, and where in the record it goes.
#pragma once

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>

#include "fields/field_place.h"

namespace qvslm {

enum class Form : u8 {
  // All blocks.
  Int16,  // low 16 bits of a whole number
  Real,   // plain decimal; a 'Q' block stores it only when there is a number
  Text,   // cut to the field
  // 'Q' blocks.
  ClockText,
  DateText,
  ShortDate,
  DayName,
  Int16Newer,    // 0 at firmware 0.9 or below
  Threshold,     // ThresholdLevel, which takes 65.0 where there is no number
  SamplePeriod,  // IntervalSamplePeriod as a whole number
  // 'R' blocks.
  Int32,
  Hms,    // hours, minutes, seconds, as seconds
  Stamp,  // date and time, as seconds since 1970
  Atof,   // floating point with exponent and all
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
  FieldPlace field;
  Form form;
};

// What the field of a band list is made of.
struct BandArray {
  f32 thirds[34];
  f32 octaves[12];
};

// Whether the form fits a field of that width: it writes no byte behind it, and leaves none
// unwritten where the form alone says how wide its value is.
constexpr bool FitsWidth(Form form, std::size_t width) {
  switch (form) {
    case Form::Int16:
    case Form::Int16Newer:
    case Form::SamplePeriod:
    case Form::CompassPoint:
    case Form::CompassPointAnew:
      return width == sizeof(u16);
    case Form::Int32:
    case Form::Stamp:
    case Form::LetterTest:
    case Form::DayName:
      return width == sizeof(i32);
    case Form::Real:
    case Form::Hms:
    case Form::Atof:
    case Form::LastNumber:
    case Form::ScaledNumber:
    case Form::Threshold:
      return width == sizeof(f32);
    case Form::Text:
    case Form::BlankSkippedText:
    case Form::ClockText:
    case Form::DateText:
    case Form::ShortDate:
      return width > 1;
    case Form::IndexedReal:
    case Form::RealList:
    case Form::AtofList:
      return width > 0 && width % sizeof(f32) == 0;
    case Form::IndexedInteger:
    case Form::StampList:
      return width > 0 && width % sizeof(i32) == 0;
    case Form::EightIntegers:
      return width == 8 * sizeof(i32);
    case Form::ColumnBytes:
      return width == 8;
    case Form::BandList:
    case Form::CountedBandList:
    case Form::BandReset:
      return width == sizeof(BandArray);
    case Form::SevenNames:
      return width == std::size_t{7} * 22;
  }
  return false;
}

constexpr bool IsSettingsForm(Form form) {
  return form <= Form::SamplePeriod;
}
constexpr bool IsResultsForm(Form form) {
  return form <= Form::Text || form >= Form::Int32;
}

// What a table is proved by: its rows in order of their numbers, each number once, and each form
// one that the block's parser knows and the field has room for.
constexpr bool IsSoundTable(std::span<const Register> registers, bool (*isKnown)(Form)) {
  for (std::size_t at = 0; at < registers.size(); ++at) {
    const Register& row = registers[at];
    if (at > 0 && registers[at - 1].number >= row.number) return false;
    if (!isKnown(row.form) || !FitsWidth(row.form, row.field.size)) return false;
  }
  return true;
}
constexpr bool IsSettingsTable(std::span<const Register> registers) {
  return IsSoundTable(registers, IsSettingsForm);
}
constexpr bool IsResultsTable(std::span<const Register> registers) {
  return IsSoundTable(registers, IsResultsForm);
}

// The register's row, or null. Rows stand in order of their numbers.
inline const Register* FindRegister(std::span<const Register> registers, i32 number) {
  auto const row = std::lower_bound(
      registers.begin(), registers.end(), number,
      [](const Register& each, i32 wanted) { return static_cast<i32>(each.number) < wanted; });
  return row != registers.end() && row->number == number ? &*row : nullptr;
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
