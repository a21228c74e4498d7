#include "fields/way_memory.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace qvslm {

namespace {

constexpr i64 kFirstStretch = 64;
constexpr i64 kBytesUnkept = 256;    // at the head of each way: shorter ones are gone again as fast
constexpr i64 kStretchesOfLong = 4;  // ways of which the start is kept, too

struct KnownPoint {
  WayPoint point;
  u32 kind;  // 0: the place is free
  i32 link;
};

constexpr u32 kPlaces = 16384;
constexpr u32 kMostPoints = kPlaces / 4 * 3;
constexpr u32 kMostLinks = 8192;
constexpr u32 kMostOpen = 4096;
constexpr u32 kMostSteps = 256;

// The search in hand: points whose way has not ended, in their order, and the steps that no later
// one has written over, by what they leave.
struct Step {
  WayPoint point;
  u32 reach;
};
struct Steps {
  Step all[kMostSteps];
  u32 count;

  const Step* Last() const { return count == 0 ? nullptr : &all[count - 1]; }
};

struct WayMemory {
  KnownPoint places[kPlaces];
  WayLink links[kMostLinks];
  u32 pointCount;
  u32 linkCount;
  i64 stretch;  // each file begins with the first one
  u32 openPoints[kMostOpen];
  u32 openCount;
  Steps textSteps;
  Steps recordSteps;
};
ModuleState<WayMemory> memory;

bool IsBefore(WayPoint a, WayPoint b) {
  return a.at != b.at ? a.at < b.at : a.entry < b.entry;
}

bool IsSame(WayPoint a, WayPoint b) {
  return a.at == b.at && a.entry == b.entry;
}

// The place of the point, or the free one where it belongs.
u32 PlaceOf(u32 kind, WayPoint point) {
  u64 const mixed = (u64{static_cast<u32>(point.at)} + (u64{kind} << 36) +
                     (u64{static_cast<u32>(point.entry)} << 44)) *
                    0x9E3779B97F4A7C15U;
  u32 at = static_cast<u32>(mixed >> 40) % kPlaces;
  while (memory->places[at].kind != 0 &&
         !(memory->places[at].kind == kind && IsSame(memory->places[at].point, point))) {
    at = (at + 1) % kPlaces;
  }
  return at;
}

void DropOpenPoints() {
  memory->openCount = 0;
  memory->textSteps.count = 0;
  memory->recordSteps.count = 0;
}

void Forget() {
  if (memory->pointCount > 0)
    std::fill(std::begin(memory->places), std::end(memory->places), KnownPoint{});
  memory->pointCount = 0;
  memory->linkCount = 0;
  DropOpenPoints();
}

// Makes room by keeping less of what comes.
void ForgetAndWiden() {
  Forget();
  memory->stretch *= 2;
}

i32 AddLink(const WayLink& link) {
  if (memory->linkCount == kMostLinks) return kUnknownWay;
  memory->links[memory->linkCount] = link;
  return static_cast<i32>(memory->linkCount++);
}

// Puts a step before those of the way, if it leaves anything that they do not write over.
i32 PutBefore(i32 way, const Step& step, bool text) {
  WayLink link = memory->links[way];
  u16& reach = text ? link.textReach : link.recordReach;
  if (step.reach <= reach) return way;
  reach = static_cast<u16>(step.reach);
  link.point = step.point;
  link.next = way;
  return AddLink(link);
}

// Joins the open points to a way, from the last one to the first.
void Join(i32 way) {
  while (memory->openCount > 0 && way != kUnknownWay) {
    KnownPoint& known = memory->places[memory->openPoints[memory->openCount - 1]];
    for (;;) {
      const Step* const text = memory->textSteps.Last();
      const Step* const record = memory->recordSteps.Last();
      bool const takeText =
          text != nullptr && (record == nullptr || IsBefore(record->point, text->point));
      const Step* const last = takeText ? text : record;
      if (last == nullptr || IsBefore(last->point, known.point) || way == kUnknownWay) break;
      way = PutBefore(way, *last, takeText);
      --(takeText ? memory->textSteps : memory->recordSteps).count;
    }
    known.link = way;
    --memory->openCount;
  }
  if (way == kUnknownWay) return ForgetAndWiden();
  DropOpenPoints();
}

}  // namespace

void ForgetWays() {
  Forget();
  memory->stretch = kFirstStretch;
}

const WayLink& WayLinkAt(i32 link) {
  return memory->links[link];
}

// What an earlier search has left open it did not bring to its end.
Way::Way(u32 kind) : kind_(kind) {
  if (memory->openCount > 0) Forget();
  DropOpenPoints();
}

// Keeps a point, as one of a way that has not ended. False when there is no room.
bool Way::Keep(WayPoint point, u32 place, u32 order) {
  if (memory->pointCount == kMostPoints || memory->openCount == kMostOpen) return false;
  memory->places[place] = {point, kind_, kUnknownWay};
  ++memory->pointCount;
  std::copy_backward(memory->openPoints + order, memory->openPoints + memory->openCount,
                     memory->openPoints + memory->openCount + 1);
  memory->openPoints[order] = place;
  ++memory->openCount;
  return true;
}

i32 Way::Recall(WayPoint point) {
  if (!begun_) start_ = point;
  bool const isStart = !begun_;
  begun_ = true;
  nextStretch_ = (point.at / memory->stretch + 1) * memory->stretch;
  i64 const way = i64{point.at} - start_.at;
  if (memory->pointCount == 0 && way < kBytesUnkept) return kUnknownWay;
  u32 const place = PlaceOf(kind_, point);
  if (memory->places[place].kind != 0) return memory->places[place].link;
  if (isStart || way < kBytesUnkept) return kUnknownWay;
  bool hasRoom = Keep(point, place, memory->openCount);
  if (hasRoom && way >= kStretchesOfLong * memory->stretch && !startKept_) {
    startKept_ = true;
    u32 const startPlace = PlaceOf(kind_, start_);
    hasRoom = memory->places[startPlace].kind != 0 || Keep(start_, startPlace, 0);
  }
  if (!hasRoom) {
    ForgetAndWiden();
    start_ = point;
  }
  return kUnknownWay;
}

void Way::Passed(WayPoint point, Leaves leaves, u32 reach) {
  if (leaves == Leaves::Nothing) return;
  Steps& steps = leaves == Leaves::Text ? memory->textSteps : memory->recordSteps;
  // A way may end anywhere: here, where too much would have to be taken again.
  if (steps.count == kMostSteps && reach < steps.Last()->reach) return Ended(point);
  while (steps.count > 0 && steps.Last()->reach <= reach) --steps.count;
  steps.all[steps.count++] = {point, reach};
}

void Way::Ended(WayPoint point) {
  if (memory->openCount > 0) Join(AddLink({point, 0, 0, kWayEnd}));
  Begin();
}

void Way::Met(i32 link) {
  Join(link);
  Begin();
}

void Way::Begin() {
  DropOpenPoints();
  begun_ = false;
  startKept_ = false;
  nextStretch_ = 0;
}

}  // namespace qvslm
