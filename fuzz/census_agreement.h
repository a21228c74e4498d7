// Where the census of a file promises what its translation delivers, and that it does.
#pragma once

#include <cstdint>
#include <span>

#include "census_run.h"
#include "translation_run.h"

namespace fuzz {

// Nothing is expected of files whose census goes another way than their translation, as the format
// has it:
// - a list whose first block begins with 0 has no blocks for the census and one for the
// translation;
//   one with blocks of no length goes by what was read before it;
// - a settings line that ends before its value has the value of the line before, which at the start
//   of a translation is one of the file's tail;
// - behind a results block of model 431 the census looks for another one.
void ExpectAgreement(std::span<const std::uint8_t> file, const Census& census,
                     const Delivered& delivered);

}  // namespace fuzz
