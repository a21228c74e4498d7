#include "fields/octave_sums.h"

#include <cmath>

#include "fields/levels.h"

namespace qvslm {

f32 OctaveSum(const f32* thirds) {
  f64 power = 0;
  for (int band = 0; band < 3; ++band) {
    if (thirds[band] == kNoLevel) return kNoLevel;
    power += std::pow(10.0, thirds[band] / 10.0);
  }
  return static_cast<f32>(10.0 * std::log10(power));
}

void SumOctaves(const f32* thirds, f32* octaves, int count) {
  for (int octave = 0; octave < count; ++octave, thirds += 3) octaves[octave] = OctaveSum(thirds);
}

}  // namespace qvslm
