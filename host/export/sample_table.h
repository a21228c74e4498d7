// The streamed time history as a series of samples, each with its own time.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace host {

struct Sample {
  double time;   // seconds since 1970-01-01 00:00 UTC
  float first;   // dB
  float second;  // dB; QV_NO_LEVEL without a value, and where the stream has no second levels
};

struct Marker {
  double time;
  int code;
  int detail;
};

// Records begin at whole seconds, what they hold does not: a record that goes on where the one
// before ended begins at its exact time.
class SampleSeries {
 public:
  // Takes a QvTimeHistory; what it held stands in Samples and Markers until the next.
  void Take(const std::uint8_t* record);
  std::span<const Sample> Samples() const { return samples_; }
  std::span<const Marker> Markers() const { return markers_; }

 private:
  std::vector<Sample> samples_;
  std::vector<Marker> markers_;
  double time_ = -1;  // where the last record ended
};

}  // namespace host
