// Dates and times of day in packed decimal digits.
#pragma once

#include "fields/local_time.h"

namespace qvslm {

// The number that the two hexadecimal digits of a byte show when read as decimal: reading stops at
// a digit above 9, so 0x45 is 45, 0x4A is 4 and 0xA4 is 0.
constexpr i32 PackedDecimal(u8 byte) {
  i32 const high = byte >> 4;
  i32 const low = byte & 0x0F;
  if (high > 9) return 0;
  return low > 9 ? high : high * 10 + low;
}

// Day, month, year. A month out of range is January, a day out of range the first, and years before
// 70 lie behind 2000.
void DecodePackedDate(Calendar& calendar);

// Hour, minute, second, as they stand.
void DecodePackedTime(Calendar& calendar);

}  // namespace qvslm
