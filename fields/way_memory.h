// What searches through the file have seen, so that one that comes to a known place need not go the
// rest of the way again.
//
// A search goes from point to point, and where it goes from a point follows from the bytes there
// and from the kind of the search alone. So two searches of one kind that meet go on alike. The
// memory keeps points of ways, where each way ended, and which of its steps must be taken again to
// leave behind what the whole way would have left: in RecordBuffer, or in a text, bytes of a step
// stay unless a later one was at least as long.
//
// Points are kept of ways of some length only, one in a stretch of the file, and stretches grow
// when the memory is full: then all is forgotten. It is the memory of the file in hand and is
// emptied with the windows, when a file is opened, closed, or exchanged for another one. Its loss
// changes no result. In a file that changes meanwhile a search may miss what came into a way that
// it had gone; what stood at the way's end is always read anew.
#pragma once

#include <cstddef>

#include "api/context.h"

namespace qvslm {

// A place where a search reads on: a line or an item, or an entry of a stream in the block there.
struct WayPoint {
  static constexpr i32 kNoEntry = -1;
  i32 at = 0;
  i32 entry = kNoEntry;
};

// What a step writes, each time from its start on.
enum class Leaves : u8 { Nothing, Text, Record };

// One search. The order of the calls: at each point either Known() tells the way's end, or the step
// is taken and Passed() notes it, or Ended() does where the search ended or may go on otherwise
// another time.
class Way {
 public:
  // Searches of one kind would go alike from each point.
  explicit Way(u32 kind);

  // Whether the way from the point is known. If so, takes the steps of it that count, by the given
  // function, and moves the point to the way's end, whose own step is still to be taken.
  template <class TakeStep>
  bool Known(WayPoint& point, TakeStep takeStep) {
    if (point.at < nextStretch_) return false;
    return Follow(Recall(point), point, takeStep);
  }

  // The reach is how many bytes the step wrote.
  void Passed(WayPoint point, Leaves leaves, u32 reach);
  void Ended(WayPoint point);

 private:
  template <class TakeStep>
  bool Follow(i32 link, WayPoint& point, TakeStep& takeStep);
  i32 Recall(WayPoint point);  // what is known; a point that is not may be kept
  void Met(i32 link);
  bool Keep(WayPoint point, u32 place, u32 order);
  void Begin();

  u32 kind_;
  WayPoint start_;
  i64 nextStretch_ = 0;  // where the next point may be kept
  bool begun_ = false;
  bool startKept_ = false;
};

// A step of a known way, or its end.
struct WayLink {
  WayPoint point;
  u16 textReach;    // the most that is left in the text from here on
  u16 recordReach;  // and in RecordBuffer
  i32 next;         // kWayEnd at the end
};
inline constexpr i32 kUnknownWay = -1;
inline constexpr i32 kWayEnd = -2;
const WayLink& WayLinkAt(i32 link);

void ForgetWays();

template <class TakeStep>
bool Way::Follow(i32 link, WayPoint& point, TakeStep& takeStep) {
  if (link == kUnknownWay) return false;
  const WayLink* step = &WayLinkAt(link);
  for (; step->next != kWayEnd; step = &WayLinkAt(step->next)) takeStep(step->point);
  point = step->point;
  Met(link);
  return true;
}

}  // namespace qvslm
