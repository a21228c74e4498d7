// A sound that is the same on every machine: the levels of a street through day and night, with
// cars passing by.
#pragma once

#include <vector>

#include "clock.h"

namespace samples {

// A number from 0 to limit - 1 that looks random and depends on the seed alone.
int Chance(std::uint32_t seed, int limit);

// Level of the street at an instant, in 1/256 dB steps, 38 to 85 dB.
double StreetLevel(Clock reading);

// Third-octave (33) or octave (11) band levels of traffic whose total is about the given level.
std::vector<double> StreetBands(double level, int count, std::uint32_t seed);

// Counts of a level distribution around the given level: 127 entries, one for each decibel.
std::vector<int> StreetDistribution(double level, int first, int total);

}  // namespace samples
