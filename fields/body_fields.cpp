#include "fields/body_fields.h"

#include <algorithm>

namespace qvslm {

namespace {

struct LastField {
  u8 bytes[8];
};
ModuleState<LastField> padded;

}  // namespace

const u8* BodyFields::PaddedField(const u8* bytes, std::ptrdiff_t count) {
  static_assert(kLongestField == sizeof(LastField));
  u8* const field = padded->bytes;
  std::fill_n(std::copy_n(bytes, count, field), kLongestField - count, u8{0});
  return field;
}

}  // namespace qvslm
