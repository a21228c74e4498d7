// Rows of a table of settings registers: what a line says, and what the record shows.
//
//   {35, "2.5", 284, 4, 2.5F}     a number of 4 bytes at offset 284
//   {36, "abc", 288, 10, "abc"}   a text in a field of 10 bytes
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "support/record_image.h"

namespace test {

struct RegisterRow {
  int number;
  std::string_view value;
  std::size_t offset;
  std::size_t width;
  std::variant<int, float, std::string_view> expected;
};

inline bool IsText(const RegisterRow& row) {
  return std::holds_alternative<std::string_view>(row.expected);
}

inline void Expect(RecordImage& image, const RegisterRow& row) {
  if (const float* const number = std::get_if<float>(&row.expected)) {
    image.F32(row.offset, *number);
  } else if (const auto* const text = std::get_if<std::string_view>(&row.expected)) {
    image.Chars(row.offset, *text);
  } else if (row.width == 2) {
    image.U16(row.offset, std::get<int>(row.expected));
  } else {
    image.I32(row.offset, std::get<int>(row.expected));
  }
}

}  // namespace test
