// Small whole numbers as text.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace host {

// The numbers of one byte, each with what separates it from the next.
class ByteText {
 public:
  // Put writes so many characters, of which those before the end count.
  static constexpr std::size_t kMost = 4;

  explicit ByteText(char separator) {
    for (std::size_t value = 0; value < slots_.size(); ++value) {
      Slot& slot = slots_[value];
      char* const end = std::to_chars(slot.text, slot.text + 3, value).ptr;
      *end = separator;
      slot.size = static_cast<std::uint8_t>(end + 1 - slot.text);
    }
  }

  char* Put(char* at, std::uint8_t value) const {
    const Slot& slot = slots_[value];
    std::memcpy(at, slot.text, kMost);
    return at + slot.size;
  }

 private:
  struct Slot {
    char text[kMost] = {};
    std::uint8_t size = 0;
  };
  std::array<Slot, 256> slots_;
};

}  // namespace host
