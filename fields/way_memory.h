// What searches through the file have seen, so that one that comes to a known place need not go the
// rest of the way again.
//
// A search goes from point to point, and where it goes from a point follows from the bytes there
// and from the kind of the search alone. So two searches of one kind that meet go on alike. The
// memory keeps points of ways, where each way ended, and what was left behind there: in
// RecordBuffer, or in a text, bytes of a step stay unless a later one was at least as long.
//
// Points are kept of ways of some length only, one in a stretch of the file. The memory grows with
// the file as far as kMostPlaces; then all is forgotten, and stretches become longer. It is the
// memory of the file in hand and is emptied with the windows, when a file is opened, closed, or
// exchanged for another one. Its loss changes no result. In a file that changes meanwhile a search
// may miss what came into a way that it had gone; what stood at the way's end is always read anew.
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

// What a step writes, each time from its start on: the text of the search, or RecordBuffer, with
// length and position of the record.
enum class Leaves : u8 { Nothing, Text, Record };

// How many bytes are left behind, and one more for the ending NUL or for the record's length.
struct Reaches {
  u16 text = 0;
  u16 record = 0;
};

// One search. The order of the calls: at each point either Known() moves to the way's end, or the
// step is taken and Passed() notes it, or Ended() does where the search ended or may go on
// otherwise another time.
class Way {
 public:
  // Searches of one kind would go alike from each point. The text is what their lines are read to.
  Way(u32 kind, char* text);

  // Whether the way from the point is known. If so, leaves behind what the steps on it would, and
  // moves the point to the way's end, whose own step is still to be taken.
  bool Known(WayPoint& point) { return point.at >= nextStretch_ && Recall(point); }

  // The reach is how many bytes the step wrote.
  void Passed(WayPoint point, Leaves leaves, u32 reach);
  void Ended(WayPoint point);

 private:
  template <class Work>
  bool WithMemory(Work work);
  void Begin();
  bool Recall(WayPoint& point);
  bool RecallOrKeep(WayPoint& point);
  void Join(u64 end, WayPoint endPoint, Reaches reaches);

  u32 kind_;
  char* text_;
  WayPoint start_;
  i64 nextStretch_ = 0;  // where the next point may be kept
  bool begun_ = false;
  bool startKept_ = false;
};

void ForgetWays();

}  // namespace qvslm
