#include "sound.h"

#include <algorithm>
#include <cstdlib>

namespace samples {

namespace {

// Level by hour, in whole decibels: quiet at three in the morning, two rush hours.
constexpr int kHourLevels[24] = {47, 44, 42, 41, 43, 49, 56, 61, 63, 61, 59, 59,
                                 60, 60, 60, 61, 63, 64, 62, 59, 57, 55, 52, 49};

// Shape of a traffic spectrum: how far each octave from 8 Hz up lies below the total, in decibels.
constexpr int kOctaveShape[11] = {22, 14, 9, 11, 12, 9, 4, 7, 12, 20, 28};

}  // namespace

int Chance(std::uint32_t seed, int limit) {
  std::uint32_t mixed = seed * 2654435761U + 0x9E3779B9U;
  mixed ^= mixed >> 16;
  mixed *= 0x85EBCA6BU;
  mixed ^= mixed >> 13;
  mixed *= 0xC2B2AE35U;
  mixed ^= mixed >> 16;
  return static_cast<int>(mixed % static_cast<std::uint32_t>(limit));
}

double StreetLevel(Clock reading) {
  int const second = reading % kDay;
  int const hour = second / kHour;
  int const from = kHourLevels[hour];
  int const to = kHourLevels[(hour + 1) % 24];
  auto const seed = static_cast<std::uint32_t>(reading);
  int parts = (from * kHour + (to - from) * (second % kHour)) * 16 / kHour * 16;
  parts += Chance(seed, 1024) - 512;                                     // unrest, 2 dB each way
  if (Chance(seed / 7, 12) == 0) parts += 256 * (4 + Chance(seed, 14));  // a car passes
  return parts / 256.0;
}

std::vector<double> StreetBands(double level, int count, std::uint32_t seed) {
  std::vector<double> bands;
  for (int band = 0; band < count; ++band) {
    int const octave = count > 11 ? std::min(band / 3, 10) : band;
    double const share = count > 11 ? 5 : 0;  // a third holds a third of its octave
    double const band_level = level - kOctaveShape[octave] - share +
                              Chance(seed * 64 + static_cast<std::uint32_t>(band), 768) / 256.0;
    bands.push_back(std::max(band_level, 31.0));
  }
  return bands;
}

std::vector<int> StreetDistribution(double level, int first, int total) {
  std::vector<int> counts(127);
  for (int entry = 0; entry < 127; ++entry) {
    int const distance = std::abs(first + entry - static_cast<int>(level));
    counts[static_cast<std::size_t>(entry)] = distance > 12 ? 0 : total / (4 + distance * distance);
  }
  return counts;
}

}  // namespace samples
