#include "records/record_seeker.h"

#include <limits>

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr i32 kPassed = QV_NO_TEXT_HEADER;

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

i32 PassStream() {
  TranslateContext& context = *CurrentContext;
  i32 const kept = context.FileOffset;
  i32 status = KeepFilePosition();
  if (status >= 0) status = SkipStreamBlock();
  if (SeekDataFile(context.FileOffset) != 0) status = FailWith(QV_TAIL_SEEK_FAILED);
  context.FileOffset = kept;
  return status;
}

// One turn of the walk: passes an item, or takes the family's next one, whose index it notes.
i32 PassItem(u32 family, const Cursor& cursor, u32 wanted, i32& index) {
  TranslateContext& context = *CurrentContext;
  i32 const byte = ReadFileByte();
  if (byte < 0) NoteBytesMissing(1);
  auto type = static_cast<u32>(byte);
  if (type == 7 && IsModel431Or442()) type = 6;
  if (!IsWalkable(type)) return QV_BAD_LENGTH;

  i32 status = 0;
  if (type == family) {
    if (cursor.fetchIndex != nullptr) index = ++*cursor.fetchIndex;
    status = index <= static_cast<i64>(wanted) ? ReadBody() : kPassed;
  } else if (type != 6 && type != 'R') {
    status = ReadBody();
    if (status > 0) status = 0;
  }
  if (type == 6) status = PassStream();
  if (type == 'R') ReadLine(context.LineBuffer, sizeof context.LineBuffer);
  if (type == 0 || type == 'E') status = QV_NOT_FOUND;
  return status;
}

}  // namespace

i32 SeekRecord(u32 family, u32 wanted) {
  Cursor const cursor = CursorOf(family);
  if (cursor.firstOffset == nullptr || *cursor.firstOffset < 1) return QV_NOT_FOUND;
  if (SeekDataFile(*cursor.firstOffset) != 0) return FailWith(QV_TAIL_SEEK_FAILED);

  u32& missing = CurrentContext->BytesMissing;
  u32 const missingBefore = missing;
  i32 index = 0;
  i32 status = 0;
  do {
    status = PassItem(family, cursor, wanted, index);
  } while (status >= 0 && index != static_cast<i64>(wanted));
  // A record that the file does not hold to its end counts as one byte that is missing. Where the data
  // ended before it, nothing is, whatever was read behind that end.
  bool const cut = missing > missingBefore || status == QV_RECORD_TOO_SHORT;
  missing = missingBefore + (cut && status != QV_NOT_FOUND ? 1 : 0);

  if (status == kPassed) return status;
  bool const lost = status == QV_NOT_FOUND || status == QV_BAD_LENGTH ||
                    FilePosition() > std::numeric_limits<i32>::max();
  *cursor.firstOffset = lost ? 0 : static_cast<i32>(FilePosition());
  return status;
}

}  // namespace qvslm
