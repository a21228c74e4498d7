#include "fields/packed_time.h"

#include "fields/byte_reader.h"

namespace qvslm {

void DecodePackedDate(Calendar& calendar) {
  const u8* const bytes = TakeBytes(3);
  i32 const day = PackedDecimal(bytes[0]);
  i32 const month = PackedDecimal(bytes[1]) - 1;
  i32 const year = PackedDecimal(bytes[2]);
  calendar.Month = month < 0 || month > 11 ? 0 : month;
  calendar.Day = day < 1 || day > 31 ? 1 : day;
  calendar.Year = year < 70 ? year + 100 : year;
}

void DecodePackedTime(Calendar& calendar) {
  const u8* const bytes = TakeBytes(3);
  calendar.Hour = PackedDecimal(bytes[0]);
  calendar.Minute = PackedDecimal(bytes[1]);
  calendar.Second = PackedDecimal(bytes[2]);
}

}  // namespace qvslm
