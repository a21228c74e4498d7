// A value over time for a picture: as many points as the eye can see, with all extremes, whatever
// the number of values.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace host {

struct CurvePoint {
  double time;
  double value;
};

class Curve {
 public:
  // Adds a value that holds from one time to another. Times that do not go on where the value
  // before ended make a gap.
  void AddSpan(double from, double to, double value);
  // Adds a value of a moment, without gaps.
  void AddMoment(double time, double value);

  bool Empty() const { return slots_.empty(); }
  double First() const;
  double Last() const;
  // The points in the order of time; each run of them goes on without a gap.
  std::vector<std::vector<CurvePoint>> Runs() const;

 private:
  // All points of a short time: the first and the last, and the lowest and the highest.
  struct Slot {
    CurvePoint first, low, high, last;
    bool endsRun = false;
  };
  void AddPoint(const CurvePoint& point);
  void EndRun();
  void Widen();
  static void Join(Slot& slot, const Slot& next);

  std::map<std::int64_t, Slot> slots_;  // by the number of the time
  double width_ = 1.0 / 64;             // seconds of a slot
  double end_ = 0;                      // where the value before ended
};

}  // namespace host
