#include "fields/levels.h"

namespace qvslm {

namespace {

// Hours and minutes, and seconds that are rounded to f32 first.
f32 Seconds(const u8* clock, f64 fraction) {
  u32 const hours = clock[0] * 256U + clock[1];
  f32 const seconds = Stored(clock[3] + fraction);
  return Stored(hours * 3600.0 + clock[2] * 60.0 + seconds);
}

}  // namespace

void DecodeDuration(f32& result, i32 kind) {
  if (kind == 3) {
    const u8* const bytes = TakeBytes(3);
    result = Stored(bytes[0] + (bytes[1] * 256 + bytes[2]) / 65536.0);
  } else if (kind == 5) {
    const u8* const bytes = TakeBytes(5);
    result = Seconds(bytes, bytes[4] / 256.0);
  } else if (kind == 6) {
    const u8* const bytes = TakeBytes(6);
    result = Seconds(bytes, (bytes[4] * 256 + bytes[5]) / 65536.0);
  } else {
    result = 0;
  }
}

}  // namespace qvslm
