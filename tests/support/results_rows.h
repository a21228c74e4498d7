// Rows of a results block's register tables: a line, and the field that it fills.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "support/record_image.h"

namespace test {

struct ResultsRow {
  int Number;
  std::string_view Value;  // as it stands in the line
  std::size_t Offset;
  std::variant<float, std::int32_t, std::string_view> Stored;
};

inline void StoreResultsRow(RecordImage& image, const ResultsRow& row) {
  if (const auto* const number = std::get_if<float>(&row.Stored)) {
    image.F32(row.Offset, *number);
  } else if (const auto* const whole = std::get_if<std::int32_t>(&row.Stored)) {
    image.I32(row.Offset, *whole);
  } else {
    image.Chars(row.Offset, std::get<std::string_view>(row.Stored));
  }
}

}  // namespace test
