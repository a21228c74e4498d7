#include "decimal_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace host {
namespace {

constexpr std::uint32_t kSlotBits = 12;

std::size_t SlotOf(std::uint32_t bits) {
  constexpr std::uint32_t golden = 2654435769U;  // 2^32 by the golden ratio
  return (bits * golden) >> (32 - kSlotBits);
}

}  // namespace

NumberText::NumberText(char decimal, WholeNumbers whole) : decimal_(decimal), whole_(whole) {
  Slot zero;
  Fill(zero, 0);
  slots_.assign(std::size_t{1} << kSlotBits, zero);
}

char* NumberText::Put(char* at, float value) {
  auto const bits = std::bit_cast<std::uint32_t>(value);
  Slot& slot = slots_[SlotOf(bits)];
  if (slot.bits != bits) Fill(slot, value);
  // A copy of fixed size is one or two moves; all of the text but large numbers fits in half of it.
  if (slot.size <= kMost / 2) {
    std::memcpy(at, slot.text.data(), kMost / 2);
  } else {
    std::memcpy(at, slot.text.data(), kMost);
  }
  return at + slot.size;
}

void NumberText::Fill(Slot& slot, float value) const {
  constexpr float leastFixed = 1e-4F;
  constexpr float endOfFixed = 1e15F;
  float const size = std::abs(value);
  bool const fixed = size == 0 || (size >= leastFixed && size < endOfFixed);
  char* const begin = slot.text.data();
  // Room for ".0" behind the longest number.
  char* end = std::to_chars(begin, begin + kMost - 2, value,
                            fixed ? std::chars_format::fixed : std::chars_format::scientific)
                  .ptr;
  char* const point = std::find(begin, end, '.');
  if (point != end) {
    *point = decimal_;
  } else if (fixed && whole_ == WholeNumbers::WithFraction) {
    *end++ = decimal_;
    *end++ = '0';
  }
  slot.bits = std::bit_cast<std::uint32_t>(value);
  slot.size = static_cast<std::uint8_t>(end - begin);
}

DecimalNumbers::DecimalNumbers() : slots_(std::size_t{1} << kSlotBits) {}

double DecimalNumbers::Of(float value) {
  auto const bits = std::bit_cast<std::uint32_t>(value);
  Slot& slot = slots_[SlotOf(bits)];
  if (slot.bits != bits) {
    char text[NumberText::kMost];
    const char* const end = text_.Put(text, value);
    std::from_chars(text, end, slot.value);
    slot.bits = bits;
  }
  return slot.value;
}

}  // namespace host
