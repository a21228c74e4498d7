#include "records/record_seeker.h"

#include <algorithm>
#include <limits>

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/way_memory.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr i32 kPassed = QV_NO_TEXT_HEADER;
constexpr int kNear = 8;  // items that are passed without a memory of the way
constexpr i64 kHighestPlace = std::numeric_limits<i32>::max();

struct Cursor {
  i32* firstOffset = nullptr;
  i32* fetchIndex = nullptr;  // families above 128 are not counted
};

Cursor CursorOf(u32 family) {
  TranslateContext& context = *CurrentContext;
  switch (family) {
    case 1:
      return {&context.FirstOffset1, &context.FetchIndex1};
    case 2:
      return {&context.FirstOffset2, &context.FetchIndex2};
    case 3:
      return {&context.FirstOffset3, &context.FetchIndex3};
    case 4:
      return {&context.FirstOffset4, &context.FetchIndex4};
    case 5:
      return {&context.FirstOffset5, &context.FetchIndex5};
    case 6:
      return {&context.FirstOffset6, &context.FetchIndex6};
    case 129:
      return {&context.FirstOffset129};
    case 130:
      return {&context.FirstOffset130};
    case 131:
      return {&context.FirstOffset131};
    default:
      return {};
  }
}

// What a walk can get past. A 'Q' block, a list and everything unknown stop it.
bool IsWalkable(u32 type) {
  switch (type) {
    case 'C':
    case 'E':
    case 'M':
    case 'R':
    case 'S':
    case 129:
    case 130:
    case 131:
    case 132:
      return true;
    default:
      return type < 9;
  }
}

// Length and body of a framed item; its length, or QV_BAD_LENGTH.
i32 ReadBody() {
  ReadItem();
  u32 const length = CurrentContext->RecordLength;
  return length > kLongestRecord ? i32{QV_BAD_LENGTH} : static_cast<i32>(length);
}

// A walk, and where its next turn begins: at an item, or at an entry of the stream that it crosses.
struct Walk {
  u32 family;
  u32 wanted;
  Cursor cursor;
  WayPoint place;
  i32 index = 0;

  bool IsInStream() const { return place.entry != WayPoint::kNoEntry; }
  bool IsAtWanted() const { return !IsInStream() && index == static_cast<i64>(wanted); }
};

// What steers a walk beside the file's bytes. One to item 0 ends behind the item that it begins at.
u32 KindOf(const Walk& walk) {
  const TranslateContext& context = *CurrentContext;
  return (1U << 31) + (walk.family << 4) + (walk.wanted == 0 ? 8U : 0U) +
         (IsModel431Or442() ? 4U : 0U) + (context.WholeDbStream != 0 ? 2U : 0U) +
         (context.SecondLevelKind != 0 ? 1U : 0U);
}

// One block of the stream at the place, from an entry in it on.
i32 PassStreamBlock(WayPoint& place) {
  TranslateContext& context = *CurrentContext;
  i32 const kept = context.FileOffset;
  context.FileOffset = place.at;
  i32 status = SkipStreamBlock(place.entry);
  place.at = context.FileOffset;
  if (SeekDataFile(place.at) != 0) status = FailWith(QV_TAIL_SEEK_FAILED);
  context.FileOffset = kept;
  return status;
}

// The type byte of a stream has been read.
i32 EnterStream(WayPoint& place) {
  TranslateContext& context = *CurrentContext;
  if (FilePosition() <= kHighestPlace) {
    place = {static_cast<i32>(FilePosition()), 0};
    return PassStreamBlock(place);
  }
  i32 const status = FailWith(QV_SEEK_FAILED);
  return SeekDataFile(context.FileOffset) == 0 ? status : FailWith(QV_TAIL_SEEK_FAILED);
}

u32 ReadType() {
  i32 const byte = ReadFileByte();
  if (byte < 0) NoteBytesMissing(1);
  auto const type = static_cast<u32>(byte);
  return type == 7 && IsModel431Or442() ? 6 : type;
}

// Passes an item whose type byte has been read, or the first block of a stream.
i32 PassOther(u32 type, WayPoint& place) {
  TranslateContext& context = *CurrentContext;
  if (type == 6) return EnterStream(place);
  if (type == 'R') {
    ReadLine(context.LineBuffer, sizeof context.LineBuffer);
    return 0;
  }
  i32 const status = ReadBody();
  return status > 0 ? 0 : status;
}

// An item, where it is not the family's next one, whose index is noted.
inline i32 PassItem(Walk& walk, u32 type) {
  if (!IsWalkable(type)) return QV_BAD_LENGTH;
  i32 status = 0;
  if (type == walk.family) {
    if (walk.cursor.fetchIndex != nullptr) walk.index = ++*walk.cursor.fetchIndex;
    status = walk.index <= static_cast<i64>(walk.wanted) ? ReadBody() : kPassed;
    if (type == 6) status = EnterStream(walk.place);
  } else {
    status = PassOther(type, walk.place);
  }
  return type == 0 || type == 'E' ? i32{QV_NOT_FOUND} : status;
}

// Notes a step that any walk of the kind would take, and ends the way where one would not, where
// the file ends, and where an offset cannot tell the position.
void NoteStep(Way& way, WayPoint from, u32 type, bool passed) {
  const TranslateContext& context = *CurrentContext;
  bool const line = type == 'R';
  bool const whole = line || context.BytesRead != 0 || context.RecordLength == 0;
  if (!passed || !whole || FilePosition() > kHighestPlace) return way.Ended(from);
  if (!line) return way.Passed(from, Leaves::Record, context.RecordLength + 1);
  way.Passed(from, Leaves::Text, static_cast<u32>(FilePosition() - from.at));
}

// The item at the file's position. Behind the highest offset there is no telling places apart.
WayPoint ItemHere() {
  return {static_cast<i32>(std::min(FilePosition(), kHighestPlace))};
}

// One turn: passes an item or a block of a stream, or takes the family's next item.
i32 Turn(Walk& walk, Way& way) {
  if (!walk.IsAtWanted() && way.Known(walk.place)) {
    if (SeekDataFile(walk.place.at) != 0) return FailWith(QV_TAIL_SEEK_FAILED);
    if (walk.IsAtWanted()) return 0;
  }
  WayPoint const from = walk.place;
  if (walk.IsInStream()) {
    i32 const status = PassStreamBlock(walk.place);
    NoteStep(way, from, 6, status >= 0);
    return status;
  }
  u32 const type = ReadType();
  // What becomes of the family's own items depends on the walk: the way ends before them.
  bool const own = type == walk.family;
  if (own) way.Ended(from);
  i32 const status = PassItem(walk, type);
  if (!own) NoteStep(way, from, type, status >= 0);
  if (!walk.IsInStream()) walk.place = ItemHere();
  return status;
}

// Goes on where no end is near, or within a stream, and remembers the way.
i32 WalkFar(Walk walk) {
  if (!walk.IsInStream()) walk.place = ItemHere();
  Way way(KindOf(walk), CurrentContext->LineBuffer);
  i32 status = 0;
  do {
    status = Turn(walk, way);
  } while (status >= 0 && !walk.IsAtWanted());
  way.Ended(walk.place);
  return status;
}

}  // namespace

i32 SeekRecord(u32 family, u32 wanted) {
  Walk walk{family, wanted, CursorOf(family), {}};
  i32* const firstOffset = walk.cursor.firstOffset;
  if (firstOffset == nullptr || *firstOffset < 1) return QV_NOT_FOUND;
  if (SeekDataFile(*firstOffset) != 0) return FailWith(QV_TAIL_SEEK_FAILED);

  u32& missing = CurrentContext->BytesMissing;
  u32 const missingBefore = missing;
  i32 status = 0;
  int turns = 0;
  do {
    status = PassItem(walk, ReadType());
  } while (status >= 0 && !walk.IsInStream() && !walk.IsAtWanted() && ++turns < kNear);
  if (status >= 0 && !walk.IsAtWanted()) status = WalkFar(walk);
  // A record that the file does not hold to its end counts as one byte that is missing. Where the
  // data ended before it, nothing is, whatever was read behind that end.
  bool const cut = missing > missingBefore || status == QV_RECORD_TOO_SHORT;
  missing = missingBefore + (cut && status != QV_NOT_FOUND ? 1 : 0);

  if (status == kPassed) return status;
  bool const lost =
      status == QV_NOT_FOUND || status == QV_BAD_LENGTH || FilePosition() > kHighestPlace;
  *firstOffset = lost ? 0 : static_cast<i32>(FilePosition());
  return status;
}

}  // namespace qvslm
