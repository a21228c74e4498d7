// Mutations that know what the parts of a file are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

#include "file_parts.h"

namespace fuzz {

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}

  // 0 to below count; 0 for a count of 0.
  std::size_t Below(std::size_t count) {
    return count == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, count - 1)(engine_);
  }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  int Byte() { return static_cast<int>(Below(256)); }
  template <class Value, std::size_t Size>
  const Value& From(const Value (&values)[Size]) {
    return values[Below(Size)];
  }

 private:
  std::mt19937 engine_;
};

// Makes one change. It may be one that leaves the file as it is.
void Mutate(Parts& parts, Chance& chance);

// Puts some consecutive parts of another file among these.
void TakeOver(Parts& parts, const Parts& other, Chance& chance);

// Takes parts out at random until the file is no longer than size: its end, which a start looks at,
// stays as likely as the rest.
void Shorten(Parts& parts, std::size_t size, Chance& chance);

}  // namespace fuzz
