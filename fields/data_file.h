// The data file: the only door to the C stream functions.
//
// The open file stands in CurrentContext->File. Behind it are a few windows of the file's bytes, so
// that reading on, stepping back a byte, and going to and fro between the walk and a seeker's
// cursor cost no system call. The windows are a memory of the file named last: opening, closing, or
// naming another file empties them, and nothing but speed is lost.
#pragma once

#include <cstddef>
#include <cstring>

#include "api/context.h"

namespace qvslm {

// Opens the path into CurrentContext->File, which is null when that fails. A null path fails.
bool OpenDataFile(const char* path);

// Closes CurrentContext->File, if it is open, and sets it null.
void CloseDataFile();

// The window that is read from: the bytes ahead, and what they are bytes of.
struct ReadingPlace {
  const u8* next;
  const u8* limit;
  i64 limitOffset;  // of the limit in the file
  std::FILE* file;
  bool seekable;
};
extern ModuleState<ReadingPlace> Reading;

inline bool IsReading(std::FILE* file) {
  return file != nullptr && file == Reading->file;
}

// Where the next byte is read.
i64 TakeUpPosition();
inline i64 FilePosition() {
  if (!IsReading(CurrentContext->File)) [[unlikely]]
    return TakeUpPosition();
  return Reading->limitOffset - (Reading->limit - Reading->next);
}

// Moves to an offset from the start, or from the end (0 or below). 0, or -1 when that cannot be:
// the file is no file to seek in, or the place lies before its start.
i32 SeekElsewhere(i64 offset);
inline i32 SeekDataFile(i64 offset) {
  bool const here = FilePosition() == offset && Reading->seekable;
  return here ? 0 : SeekElsewhere(offset);
}
i32 SeekFromEnd(i64 distance);

// The bytes ahead, where the window holds as many, else null. PassBytes goes behind them.
inline const u8* BytesAhead(std::size_t count) {
  bool const ahead = IsReading(CurrentContext->File) &&
                     count <= static_cast<std::size_t>(Reading->limit - Reading->next);
  return ahead ? Reading->next : nullptr;
}
inline void PassBytes(std::size_t count) {
  Reading->next += count;
}

// Takes bytes that BytesAhead has found. A call of its own: where compilers know a bound of the
// count they put a slower copy in place.
void TakeBytesAhead(void* target, std::size_t count);

// Reads up to count bytes and returns how many came.
std::size_t ReadAcrossWindows(void* target, std::size_t count);
inline std::size_t ReadFileBlock(void* target, std::size_t count) {
  const u8* const bytes = BytesAhead(count);
  if (bytes == nullptr) [[unlikely]]
    return ReadAcrossWindows(target, count);
  std::memcpy(target, bytes, count);
  PassBytes(count);
  return count;
}

// Whether a read that came short did so by a fault of the file, and not by its end.
bool ReadFailed();

// One byte, 0 to 255, or -1 at the end of the file.
inline i32 ReadFileByte() {
  u8 byte = 0;
  return ReadFileBlock(&byte, 1) == 1 ? byte : -1;
}

struct LineRead {
  std::size_t length = 0;  // characters, the line feed included; 0: there was none
  bool complete = false;   // the line ended, or the room did, before the end of the file
  explicit operator bool() const { return length > 0; }
};

// Reads a line up to its line feed or size - 1 characters, and ends it with a NUL. A line that is
// not there leaves the text as it was.
LineRead ReadLine(char* text, std::size_t size);

// Sets FileOffset to the file's position. QV_SEEK_FAILED, raised, where it cannot tell the
// position.
i32 KeepFilePosition();

}  // namespace qvslm
