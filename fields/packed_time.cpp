#include "fields/packed_time.h"

#include "fields/byte_reader.h"

namespace qvslm {

void DecodePackedDate(Calendar& calendar) {
  i32 const day = PackedDecimal(ReadByte());
  i32 const month = PackedDecimal(ReadByte()) - 1;
  i32 const year = PackedDecimal(ReadByte());
  calendar.Month = month < 0 || month > 11 ? 0 : month;
  calendar.Day = day < 1 || day > 31 ? 1 : day;
  calendar.Year = year < 70 ? year + 100 : year;
}

void DecodePackedTime(Calendar& calendar) {
  calendar.Hour = PackedDecimal(ReadByte());
  calendar.Minute = PackedDecimal(ReadByte());
  calendar.Second = PackedDecimal(ReadByte());
}

}  // namespace qvslm
