#include "fields/record_time.h"

#include <limits>

#include "fields/levels.h"
#include "fields/packed_time.h"

namespace qvslm {

ModuleState<DaylightSpan> Dst;
ModuleState<RunningTimes> LastTimes;

void ForgetDaylightSpan() {
  Dst->End = 0;
  Dst->Start = std::numeric_limits<i32>::min();
  Dst->Hint = -1;
}

void ForgetRunningTimes() {
  *LastTimes = {};
}

i32 NormalizeTime(Calendar& calendar, i32* slot) {
  auto const [hinted, plain] = LocalSecondsByTwoFlags(calendar, Dst->Hint, calendar.DaylightFlag);
  i32 seconds = hinted;
  if (slot != nullptr) {
    if (hinted < *slot) seconds = plain;
    *slot = seconds;
  }
  if (seconds < Dst->Start || seconds > Dst->End) return plain;
  calendar.DaylightFlag = Dst->Hint;
  return hinted;
}

void NoteDstEvent(const Calendar& calendar, i16 event) {
  constexpr i32 kOctober = 9;
  i32 before = -1;
  i32 today = -1;
  if (calendar.Month == kOctober) {
    Calendar day = calendar;
    day.Day -= 1;
    LocalSeconds(day);
    before = day.DaylightFlag;
    day = calendar;
    LocalSeconds(day);
    today = day.DaylightFlag;
  }

  Calendar copy = calendar;
  bool const morningOfChange =
      today == 0 && before == 1 && (calendar.Hour == 1 || calendar.Hour == 2);
  if (morningOfChange) {
    copy.DaylightFlag = event == 64 ? 0 : Dst->Hint;
  } else if (Dst->Hint >= 0 && Dst->End == 0) {
    copy.DaylightFlag = Dst->Hint;
  }
  i32 const seconds = LocalSeconds(copy);

  if (event == 0 && Dst->End == 0 && copy.DaylightFlag != Dst->Hint && Dst->Hint > -1) {
    Dst->End = seconds;
    return;
  }
  if (event == 64) {
    if (Dst->Hint < 0) {
      Dst->Start = seconds;
      Dst->Hint = static_cast<i16>(copy.DaylightFlag);
    } else if (copy.DaylightFlag == Dst->Hint) {
      Dst->Start = seconds;
    }
  }
}

i32 ScanEventForDst() {
  BodyFields fields;
  fields.Skip(1);
  Calendar const stamp = DecodePackedStamp(fields);
  u16 event = 0;
  u16 detail = 0;
  DecodeEventByte(fields, event, detail);
  u16 value16 = 0;
  DecodeU16Short(fields, value16);
  DecodeU24(fields);
  if (event == 0 || event == 64) NoteDstEvent(stamp, static_cast<i16>(event));
  return fields.Status();
}

}  // namespace qvslm
