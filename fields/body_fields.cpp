#include "fields/body_fields.h"

#include <algorithm>

namespace qvslm {

const u8* BodyFields::PaddedField(const u8* bytes, std::ptrdiff_t count) {
  static u8 field[kLongestField];
  std::fill_n(std::copy_n(bytes, count, field), kLongestField - count, u8{0});
  return field;
}

}  // namespace qvslm
