// Values as they stand in a CSV table, by RFC 4180.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "byte_text.h"
#include "clock_text.h"
#include "decimal_text.h"
#include "record_info.h"

namespace host {

struct CsvStyle {
  char separator = ',';
  char decimal = '.';
  bool guard = true;  // no text can run as a formula
};

class CsvValues {
 public:
  // Room that a number or a time may take, with the separator behind it.
  static constexpr std::size_t kMost = 64;

  explicit CsvValues(const CsvStyle& style);
  const CsvStyle& Style() const { return style_; }

  // All write a value with the separator behind it and give the end of it. A level without a value
  // and a number that is none are empty.
  char* PutFloat(char* at, float value, bool level);
  char* PutDouble(char* at, double value) const;
  char* PutWhole(char* at, std::int64_t value) const;
  char* PutBytes(char* at, const std::uint8_t* bytes, std::size_t count) const;
  char* PutClock(char* at, std::int32_t seconds);
  char* PutClockWithMilliseconds(char* at, double seconds);
  // Room for 7 characters for each of the text, and 4.
  char* PutLatin1(char* at, const std::uint8_t* text, std::size_t size) const;

  // A text of our own, such as a heading, quoted where it must be.
  std::string Quoted(std::string_view text) const;

 private:
  CsvStyle style_;
  NumberText numbers_;
  ByteText bytes_;
  ClockText clock_;
};

}  // namespace host
