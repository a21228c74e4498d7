// Dates and times of day in packed decimal digits.
#pragma once

#include <array>

#include "fields/body_fields.h"
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

static_assert(PackedDecimal(0x45) == 45 && PackedDecimal(0x4A) == 4 && PackedDecimal(0xA4) == 0 &&
              PackedDecimal(0xFF) == 0);

// Day, month, year. A month out of range is January, a day out of range the first, and years before
// 70 lie behind 2000.
inline void DecodePackedDate(BodyFields& fields, Calendar& calendar) {
  const u8* const bytes = fields.Take(3);
  i32 const day = PackedDecimal(bytes[0]);
  i32 const month = PackedDecimal(bytes[1]) - 1;
  i32 const year = PackedDecimal(bytes[2]);
  calendar.Month = month < 0 || month > 11 ? 0 : month;
  calendar.Day = day < 1 || day > 31 ? 1 : day;
  calendar.Year = year < 70 ? year + 100 : year;
}

// Hour, minute, second, as they stand.
inline void DecodePackedTime(BodyFields& fields, Calendar& calendar) {
  const u8* const bytes = fields.Take(3);
  calendar.Hour = PackedDecimal(bytes[0]);
  calendar.Minute = PackedDecimal(bytes[1]);
  calendar.Second = PackedDecimal(bytes[2]);
}

// A record's stamp: date, then time, in a cleared calendar.
inline Calendar DecodePackedStamp(BodyFields& fields) {
  Calendar stamp = ClearedCalendar();
  DecodePackedDate(fields, stamp);
  DecodePackedTime(fields, stamp);
  return stamp;
}

}  // namespace qvslm
