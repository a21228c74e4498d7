// What a picture shows, before it is drawn.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "plot/curve.h"

namespace host {

enum class CurveStyle { Samples, Line, Points };

struct NamedCurve {
  std::string name;
  CurveStyle style;
  Curve curve;
};

struct RunMark {
  double time;
  bool starts;  // else the run ends
};

// Levels over time.
struct LevelPicture {
  std::string title;
  std::string unit;
  std::vector<NamedCurve> curves;
  std::vector<RunMark> marks;
};

// Levels over the elements of a field of bands, of all records together.
struct SpectrumPicture {
  struct Band {
    std::uint64_t count = 0;
    double energy = 0;
    double low = 0;
    double high = 0;
  };
  std::string title;
  std::string name;  // IntervalBands.BandsA
  std::uint64_t records = 0;
  std::vector<Band> bands;
};

}  // namespace host
