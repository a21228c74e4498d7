// Bodies of items that many tests use.
#pragma once

#include "data_file_writer.h"

namespace test {

inline constexpr int kSkipped = 9;  // an item that yields no record

// Byte i holds i (its low 8 bits), so that a field tells the position that it was read from. The
// first holds 241: with a 0 there, a field that is not written would look right.
constexpr int CountedByte(std::size_t position) {
  return position == 0 ? 241 : static_cast<int>(position & 0xFF);
}
inline samples::Body CountingBody(std::size_t size) {
  samples::Body body;
  for (std::size_t i = 0; i < size; ++i) body.U8(CountedByte(i));
  return body;
}

// Every byte is 0xC8. As two bytes of a field that is 200.78125, in the forms that count 192 and
// more as negative -55.21875, and as a date 1 January 2000.
inline samples::Body HighBody(std::size_t size) {
  return samples::Body().Fill(size, 0xC8);
}
inline constexpr int kFirstOfJanuary2000 = 946684800;  // also the date of bytes that are missing

// An event item: a run event for code 64 or 80, another event for other codes.
inline samples::Body Event(int code, int day, int month, int year, int hour, int minute = 0,
                           int second = 0) {
  return samples::Body()
      .U8(0)
      .Date(day, month, year)
      .Time(hour, minute, second)
      .U8(code)
      .U16(0)
      .U24(0);
}

// A setup of a mode that has no form: it leaves its flags for the items behind it, and nothing
// else.
inline samples::Body FlagsOnlySetup(int flags) {
  return samples::Body().PadTo(219).Set(39, {6}).Set(41, {flags});
}
inline samples::Body FlagsOnlySetup431(int flags) {
  return samples::Body().PadTo(186).Set(39, {4}).Set(41, {flags});
}

}  // namespace test
