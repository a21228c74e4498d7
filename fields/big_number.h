// Whole numbers of up to 4096 bits, for floating-point numbers that must come out exact.
#pragma once

#include <bit>

#include "api/context.h"

namespace qvslm {

// Results that would not fit are a fault of the caller, who bounds what goes in.
class BigNumber {
 public:
  explicit BigNumber(u64 value) {
    for (; value != 0; value >>= 32) limbs_[count_++] = static_cast<u32>(value);
  }

  i32 Bits() const {
    return count_ == 0 ? 0 : 32 * (count_ - 1) + static_cast<i32>(std::bit_width(Top()));
  }

  // As <=> does: below 0 when this number is the smaller one.
  i32 Compare(const BigNumber& other) const {
    if (count_ != other.count_) return count_ - other.count_;
    for (i32 at = count_ - 1; at >= 0; --at) {
      if (limbs_[at] != other.limbs_[at]) return limbs_[at] < other.limbs_[at] ? -1 : 1;
    }
    return 0;
  }

  void MultiplyAdd(u32 factor, u32 addend) {
    u64 carry = addend;
    for (i32 at = 0; at < count_; ++at) {
      carry += u64{limbs_[at]} * factor;
      limbs_[at] = static_cast<u32>(carry);
      carry >>= 32;
    }
    if (carry != 0) limbs_[count_++] = static_cast<u32>(carry);
  }

  void ShiftLeft(i32 bits) {
    if (count_ == 0) return;
    i32 const limbs = bits / 32;
    if (limbs > 0) {
      for (i32 at = count_ - 1; at >= 0; --at) limbs_[at + limbs] = limbs_[at];
      for (i32 at = 0; at < limbs; ++at) limbs_[at] = 0;
      count_ += limbs;
    }
    MultiplyAdd(u32{1} << bits % 32, 0);
  }

  // The other number is no larger than this one.
  void Subtract(const BigNumber& other) {
    u64 borrow = 0;
    for (i32 at = 0; at < count_; ++at) {
      u64 const less = borrow + (at < other.count_ ? other.limbs_[at] : 0);
      borrow = less > limbs_[at] ? 1 : 0;
      limbs_[at] -= static_cast<u32>(less);
    }
    while (count_ > 0 && Top() == 0) --count_;
  }

  // Divides by ten and returns the remainder: the last decimal digit.
  u32 TakeLastDigit() {
    u64 rest = 0;
    for (i32 at = count_ - 1; at >= 0; --at) {
      rest = rest << 32 | limbs_[at];
      limbs_[at] = static_cast<u32>(rest / 10);
      rest %= 10;
    }
    if (count_ > 0 && Top() == 0) --count_;
    return static_cast<u32>(rest);
  }

 private:
  u32 Top() const { return limbs_[count_ - 1]; }

  u32 limbs_[128];  // the lowest first; those from the count on mean nothing
  i32 count_ = 0;   // without zeros at the top
};

}  // namespace qvslm
