// Octave levels from third-octave bands.
#pragma once

#include "api/context.h"

namespace qvslm {

// The level of three bands together: the sum of their powers. No value where one has none.
f32 OctaveSum(const f32* thirds);

// The first count octaves, each from its three bands in their order.
void SumOctaves(const f32* thirds, f32* octaves, int count);

}  // namespace qvslm
