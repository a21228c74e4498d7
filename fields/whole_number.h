// Whole numbers, and truncation to them.
#pragma once

#include <limits>

#include "api/context.h"

namespace qvslm {

// Toward zero; clamped to what 32 bits hold, and 0 for no number.
inline i32 TruncateToI32(f64 value) {
  if (value >= 2147483647.0) return std::numeric_limits<i32>::max();
  if (value <= -2147483648.0) return std::numeric_limits<i32>::min();
  return value == value ? static_cast<i32>(value) : 0;
}

// The low bits of a number, as the narrower type reads them.
template <class To, class From>
constexpr To LowBits(From value) {
  return static_cast<To>(
      static_cast<std::make_unsigned_t<To>>(static_cast<std::make_unsigned_t<From>>(value)));
}

}  // namespace qvslm
