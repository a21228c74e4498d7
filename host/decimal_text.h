// Numbers as text: the shortest digits that give the same 32-bit number back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

// How a whole number with a fraction type is written: 65 or 65.0.
enum class WholeNumbers { Plain, WithFraction };

// Levels of a file repeat all the time: what was written last is remembered by its bits.
class NumberText {
 public:
  // Put writes so many characters at most; the room for them must be there.
  static constexpr std::size_t kMost = 32;

  explicit NumberText(char decimal = '.', WholeNumbers whole = WholeNumbers::Plain);

  // Writes a finite number, and gives the end of what it wrote.
  char* Put(char* at, float value);

 private:
  struct Slot {
    std::uint32_t bits = 0;
    std::uint8_t size = 0;
    std::array<char, kMost> text{};
  };
  void Fill(Slot& slot, float value) const;

  char decimal_;
  WholeNumbers whole_;
  std::vector<Slot> slots_;
};

// The decimal number of those digits in 64 bits: 65.1, where the bits of the 32-bit number are those
// of 65.0999985.
class DecimalNumbers {
 public:
  DecimalNumbers();
  double Of(float value);

 private:
  struct Slot {
    std::uint32_t bits = 0;
    double value = 0;
  };
  NumberText text_;
  std::vector<Slot> slots_;
};

}  // namespace host
