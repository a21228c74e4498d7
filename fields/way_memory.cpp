#include "fields/way_memory.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

namespace qvslm {

namespace {

constexpr i64 kFirstStretch = 64;
constexpr i64 kBytesUnkept = 256;    // at the head of each way: shorter ones are gone again as fast
constexpr i64 kStretchesOfLong = 4;  // ways of which the start is kept, too

constexpr std::size_t kFirstPlaces = 1024;  // powers of two
constexpr std::size_t kMostPlaces = 1048576;

// A way's end, and what its steps have left there. Ends are named by numbers that are not used
// again.
struct WayEnd {
  u64 number = 0;
  WayPoint point;
  bool used = false;  // since the last look for the one to be given up
  std::vector<char> text;
  std::vector<u8> record;
  u32 recordLength = 0;
  i32 recordPos = 0;
  u32 bytesRead = 0;
};
constexpr u64 kMostEnds = 2048;
constexpr u64 kNoEnd = 0;

// What is left behind from the point on to the end. Its end may be given up since, or not be known
// yet.
struct KnownPoint {
  WayPoint point;
  u32 kind = 0;  // 0: the place is free
  Reaches reaches;
  u64 end = kNoEnd;
};

// The search in hand: points whose way has not ended, in their order, and the steps that no later
// one has written over, by what they leave. Their reaches fall.
struct Step {
  WayPoint point;
  u16 reach;
};
struct SearchInHand {
  std::vector<WayPoint> openPoints;
  std::vector<Step> textSteps;
  std::vector<Step> recordSteps;
};
ModuleState<SearchInHand> search;

struct WayMemory {
  std::vector<KnownPoint> places;
  std::size_t pointCount = 0;
  i64 stretch = kFirstStretch;
  std::vector<WayEnd> ends;
  u64 nextToGiveUp = 0;
};
ModuleState<WayMemory> memory;

bool IsBefore(WayPoint a, WayPoint b) {
  return a.at != b.at ? a.at < b.at : a.entry < b.entry;
}

bool IsSame(WayPoint a, WayPoint b) {
  return a.at == b.at && a.entry == b.entry;
}

// The place of the point, or the free one where it belongs.
KnownPoint& PlaceOf(u32 kind, WayPoint point) {
  u64 const mixed = (u64{static_cast<u32>(point.at)} + (u64{kind} << 36) +
                     (u64{static_cast<u32>(point.entry)} << 44)) *
                    0x9E3779B97F4A7C15U;
  std::size_t at = static_cast<std::size_t>(mixed >> 40) & (memory->places.size() - 1);
  while (memory->places[at].kind != 0 &&
         !(memory->places[at].kind == kind && IsSame(memory->places[at].point, point))) {
    at = (at + 1) & (memory->places.size() - 1);
  }
  return memory->places[at];
}

void DropOpenPoints() {
  search->openPoints.clear();
  search->textSteps.clear();
  search->recordSteps.clear();
}

void Forget() {
  memory->places.clear();
  memory->pointCount = 0;
  memory->ends.clear();
  memory->nextToGiveUp = 0;
  DropOpenPoints();
}

void GrowPlaces() {
  std::vector<KnownPoint> before(std::max(kFirstPlaces, memory->places.size() * 2));
  before.swap(memory->places);
  for (const KnownPoint& known : before) {
    if (known.kind != 0) PlaceOf(known.kind, known.point) = known;
  }
}

// Keeps a point, as one of a way that has not ended. False when there is no room.
bool Keep(u32 kind, WayPoint point, std::size_t order) {
  bool const full = memory->pointCount >= memory->places.size() / 4 * 3;
  if (full && memory->places.size() == kMostPlaces) return false;
  if (full) GrowPlaces();
  KnownPoint& known = PlaceOf(kind, point);
  if (known.kind == 0) ++memory->pointCount;
  known = {point, kind, {}, kNoEnd};
  search->openPoints.insert(search->openPoints.begin() + static_cast<std::ptrdiff_t>(order), point);
  return true;
}

WayEnd* FindEnd(u64 number) {
  if (number == kNoEnd) return nullptr;
  WayEnd& end = memory->ends[number % kMostEnds];
  return end.number == number ? &end : nullptr;
}

// A free end: a new one, or the place of one that no search has met of late.
WayEnd& TakeEnd() {
  if (memory->ends.size() < kMostEnds) {
    u64 const place = memory->ends.size();
    memory->ends.emplace_back().number = place + kMostEnds;
    return memory->ends.back();
  }
  while (memory->ends[memory->nextToGiveUp].used) {
    memory->ends[memory->nextToGiveUp].used = false;
    memory->nextToGiveUp = (memory->nextToGiveUp + 1) % kMostEnds;
  }
  WayEnd& end = memory->ends[memory->nextToGiveUp];
  end.number += kMostEnds;
  memory->nextToGiveUp = (memory->nextToGiveUp + 1) % kMostEnds;
  return end;
}

// A new end, with what the buffers hold there.
u64 EndWith(WayPoint point, const char* text, Reaches reaches) {
  const TranslateContext& context = *CurrentContext;
  WayEnd& end = TakeEnd();
  end.point = point;
  end.used = false;
  end.text.assign(text, text + reaches.text);
  end.record.assign(context.RecordBuffer,
                    context.RecordBuffer + std::max<i32>(reaches.record - 1, 0));
  end.recordLength = context.RecordLength;
  end.recordPos = context.RecordPos;
  end.bytesRead = context.BytesRead;
  return end.number;
}

// Leaves in the buffers what the steps on the way to the end would.
void LeaveBehind(const WayEnd& end, char* text, Reaches reaches) {
  TranslateContext& context = *CurrentContext;
  std::copy_n(end.text.begin(), reaches.text, text);
  if (reaches.record == 0) return;
  std::copy_n(end.record.begin(), reaches.record - 1, context.RecordBuffer);
  context.RecordLength = end.recordLength;
  context.RecordPos = end.recordPos;
  context.BytesRead = end.bytesRead;
}

// Notes a step over those that it has written over.
void PutOver(std::vector<Step>& steps, Step step) {
  while (!steps.empty() && steps.back().reach <= step.reach) steps.pop_back();
  steps.push_back(step);
}

// Takes away the steps from the point on; the reach becomes theirs, where it is the longer one.
void TakeBack(std::vector<Step>& steps, WayPoint point, u16& reach) {
  while (!steps.empty() && !IsBefore(steps.back().point, point)) {
    reach = std::max(reach, steps.back().reach);
    steps.pop_back();
  }
}

// What the steps from the first open point on leave behind.
u16 LongestReach(const std::vector<Step>& steps, u16 reach) {
  auto const first = std::find_if(steps.begin(), steps.end(), [](const Step& step) {
    return !IsBefore(step.point, search->openPoints.front());
  });
  return first == steps.end() ? reach : std::max(reach, first->reach);
}

// No room for more: starts anew and keeps less of what comes.
void ForgetAndWiden() {
  Forget();
  memory->stretch *= 2;
}

}  // namespace

void ForgetWays() {
  Forget();
  memory->places.shrink_to_fit();
  memory->ends.shrink_to_fit();
  search->openPoints.shrink_to_fit();
  memory->stretch = kFirstStretch;
}

Way::Way(u32 kind, char* text) : kind_(kind), text_(text) {
  DropOpenPoints();
}

void Way::Begin() {
  DropOpenPoints();
  begun_ = false;
  startKept_ = false;
  nextStretch_ = 0;
}

// Without memory for more nothing is lost but what was remembered.
template <class Work>
bool Way::WithMemory(Work work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    ForgetAndWiden();
    Begin();
    return false;
  }
}

// A point where a stretch begins: moves on to the way's end if it is known, else keeps the point.
bool Way::RecallOrKeep(WayPoint& point) {
  if (!begun_) start_ = point;
  begun_ = true;
  nextStretch_ = (point.at / memory->stretch + 1) * memory->stretch;
  if (!memory->places.empty()) {
    KnownPoint const known = PlaceOf(kind_, point);
    if (WayEnd* const end = FindEnd(known.end)) {
      point = end->point;
      end->used = true;
      LeaveBehind(*end, text_, known.reaches);
      Join(known.end, point, known.reaches);
      return true;
    }
  }
  i64 const way = i64{point.at} - start_.at;
  bool hasRoom = way < kBytesUnkept || Keep(kind_, point, search->openPoints.size());
  if (hasRoom && !startKept_ && way >= kStretchesOfLong * memory->stretch) {
    startKept_ = true;
    hasRoom = Keep(kind_, start_, 0);
  }
  if (!hasRoom) {
    ForgetAndWiden();
    Begin();
  }
  return false;
}

bool Way::Recall(WayPoint& point) {
  return WithMemory([&] { return RecallOrKeep(point); });
}

void Way::Passed(WayPoint point, Leaves leaves, u32 reach) {
  if (leaves == Leaves::Nothing) return;
  WithMemory([&] {
    PutOver(leaves == Leaves::Text ? search->textSteps : search->recordSteps,
            {point, static_cast<u16>(reach)});
    return true;
  });
}

void Way::Ended(WayPoint point) {
  WithMemory([&] {
    Join(kNoEnd, point, {});
    return true;
  });
}

// Joins the open points, from the last one to the first, to the way to an end, on which from where
// it is met the reaches are left behind. Longer steps before that make it an end of its own, as a
// new one is.
void Way::Join(u64 end, WayPoint endPoint, Reaches reaches) {
  if (search->openPoints.empty()) return Begin();
  Reaches const longest = {LongestReach(search->textSteps, reaches.text),
                           LongestReach(search->recordSteps, reaches.record)};
  bool const fits =
      end != kNoEnd && longest.text == reaches.text && longest.record == reaches.record;
  if (!fits) end = EndWith(endPoint, text_, longest);
  for (; !search->openPoints.empty(); search->openPoints.pop_back()) {
    WayPoint const point = search->openPoints.back();
    TakeBack(search->textSteps, point, reaches.text);
    TakeBack(search->recordSteps, point, reaches.record);
    KnownPoint& known = PlaceOf(kind_, point);
    known.reaches = reaches;
    known.end = end;
  }
  Begin();
}

}  // namespace qvslm
