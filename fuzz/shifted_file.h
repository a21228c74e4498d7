// One file in two forms that differ in nothing but where their records stand: behind the text
// header are items that a walk skips, few bytes of them in the one form and many in the other. In
// the far form a border of the stretches that files are read in lies somewhere in the records.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace fuzz {

struct ShiftedFile {
  std::string near;
  std::string far;
};

// Nothing for files whose text header does not plainly end somewhere.
std::optional<ShiftedFile> Shift(std::span<const std::uint8_t> file);

}  // namespace fuzz
