// Dates and times of day in packed decimal digits.
#pragma once

#include <array>

#include "fields/local_time.h"

namespace qvslm {

// The numbers that the two hexadecimal digits of each byte show when read as decimal. Reading stops
// at a digit above 9, so 0x45 is 45, 0x4A is 4 and 0xA4 is 0.
inline constexpr auto kPackedDecimals = [] {
  std::array<u8, 256> numbers{};
  for (u32 byte = 0; byte < numbers.size(); ++byte) {
    u32 const high = byte / 16;
    u32 const low = byte % 16;
    numbers[byte] = static_cast<u8>(high > 9 ? 0 : low > 9 ? high : high * 10 + low);
  }
  return numbers;
}();

constexpr i32 PackedDecimal(u8 byte) {
  return kPackedDecimals[byte];
}

// Day, month, year. A month out of range is January, a day out of range the first, and years before
// 70 lie behind 2000.
void DecodePackedDate(Calendar& calendar);

// Hour, minute, second, as they stand.
void DecodePackedTime(Calendar& calendar);

}  // namespace qvslm
