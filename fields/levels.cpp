#include "fields/levels.h"

namespace qvslm {

void DecodeDuration(f32& result, i32 kind) {
  switch (kind) {
    case 3: {
      const u8* const bytes = TakeBytes(3);
      result = Stored(bytes[0] + (bytes[1] * 256 + bytes[2]) / 65536.0);
      break;
    }
    case 5:
      DecodeDuration5(result);
      break;
    case 6: {
      const u8* const bytes = TakeBytes(6);
      result = Stored(ClockSeconds(bytes) + (bytes[4] * 256 + bytes[5]) / 65536.0);
      break;
    }
    default:
      result = 0;
      break;
  }
}

}  // namespace qvslm
