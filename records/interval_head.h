// What every interval begins with. Bands that an interval owns take their time from it, too.
#pragma once

#include "fields/levels.h"
#include "fields/packed_time.h"
#include "fields/whole_number.h"

namespace qvslm {

struct IntervalHead {
  f32 Duration;
  f32 LevelA;
  f32 LevelB;
  f32 LevelC;
  f32 LevelD;
  f32 LevelE;
  u8 Byte1;
  u8 Byte2;
  f32 DurationPercent;

  // The part of the interval that was measured, in seconds.
  f64 Length() const { return static_cast<f64>(Duration) * DurationPercent / 100.0; }

  // When the interval began, by the seconds of its stamp.
  i32 Start(i32 seconds) const {
    return CurrentContext->TimeIsEnd == 0 ? seconds : TruncateToI32(seconds - Length());
  }
};

inline IntervalHead DecodeIntervalHead(BodyFields& fields, Calendar& stamp) {
  IntervalHead head;
  stamp = DecodePackedStamp(fields);
  DecodeDuration5(fields, head.Duration);
  DecodeLevel(fields, head.LevelA);
  DecodeLevel(fields, head.LevelB);
  DecodeLevel(fields, head.LevelC);
  DecodeLevel(fields, head.LevelD);
  DecodeLevel(fields, head.LevelE);
  head.Byte1 = fields.Byte();
  head.Byte2 = fields.Byte();
  DecodeFixed16(fields, head.DurationPercent);
  return head;
}

}  // namespace qvslm
