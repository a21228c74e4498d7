// Asks C libraries that have two sorts of file offsets for those of 64 bits.
#if !defined(_WIN32) && !defined(__LP64__)
#define _FILE_OFFSET_BITS 64
#endif

#include "fields/data_file.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "fields/line_pieces.h"
#include "fields/way_memory.h"

namespace qvslm {

ModuleState<ReadingPlace> Reading;

namespace {

// The C library's own calls take a long, which is no wider than 32 bits on many platforms.
#if defined(_WIN32)
int SeekTo(std::FILE* file, i64 offset, int origin) {
  return _fseeki64(file, offset, origin);
}
i64 PositionOf(std::FILE* file) {
  return _ftelli64(file);
}
#else
static_assert(sizeof(off_t) >= sizeof(i64));
int SeekTo(std::FILE* file, i64 offset, int origin) {
  return fseeko(file, offset, origin);
}
i64 PositionOf(std::FILE* file) {
  return ftello(file);
}
#endif

constexpr std::size_t kWindowSize = 32768;
constexpr int kWindows = 4;  // for the walk, and the cursors of the three families that own bands
constexpr i64 kUnknown = -1;

struct Window {
  i64 start = 0;
  std::size_t size = 0;
  u64 lastUse = 0;
  u8 bytes[kWindowSize];

  bool Holds(i64 offset) const {
    return offset >= start && offset < start + static_cast<i64>(size);
  }
};

struct FileWindows {
  Window all[kWindows];
  int inUse = 0;  // the window that is read from
  u64 uses = 0;
};
ModuleState<FileWindows> windows;

struct Stream {
  i64 position = kUnknown;  // where the C stream stands
  i64 endMet = kUnknown;    // where a read found no more bytes
  bool failed = false;      // the last refill came short by a fault, not by the end of the file
};
ModuleState<Stream> stream;

// Reads on in a window, from an offset within its bytes or right behind them.
void ReadFrom(int at, i64 offset) {
  Window& window = windows->all[at];
  window.lastUse = ++windows->uses;
  windows->inUse = at;
  Reading->next = window.bytes + (offset - window.start);
  Reading->limit = window.bytes + window.size;
  Reading->limitOffset = window.start + static_cast<i64>(window.size);
}

// Reads on in a window that holds the offset, if there is one.
bool ReadFromHolder(i64 offset) {
  for (int at = 0; at < kWindows; ++at) {
    if (!windows->all[at].Holds(offset)) continue;
    ReadFrom(at, offset);
    return true;
  }
  return false;
}

// Empties the window that was used the longest time ago, and reads on at the offset from there.
void StartWindow(i64 offset) {
  int oldest = windows->inUse == 0 ? 1 : 0;
  for (int at = 0; at < kWindows; ++at) {
    if (at != windows->inUse && windows->all[at].lastUse < windows->all[oldest].lastUse)
      oldest = at;
  }
  windows->all[oldest].start = offset;
  windows->all[oldest].size = 0;
  ReadFrom(oldest, offset);
}

void ForgetWindows(std::FILE* file) {
  for (Window& window : windows->all) window.size = 0;
  ForgetWays();
  ForgetPieces();
  stream->endMet = kUnknown;
  stream->position = kUnknown;
  Reading->file = file;
  Reading->seekable = false;
  StartWindow(0);
}

// Makes the windows those of the file in hand.
void UseFile() {
  std::FILE* const file = CurrentContext->File;
  if (IsReading(file)) return;
  ForgetWindows(file);
  if (file == nullptr) return;
  stream->position = PositionOf(file);
  Reading->seekable = stream->position >= 0 && SeekTo(file, 0, SEEK_CUR) == 0;
  StartWindow(std::max<i64>(stream->position, 0));
}

bool SeekStream(i64 offset, int origin) {
  bool const reached = SeekTo(Reading->file, offset, origin) == 0;
  stream->position = kUnknown;
  return reached;
}

// Goes on behind the window, in one that holds the bytes there already, as after a step back, or in
// one that is filled with them. False at the end of the file.
bool Refill() {
  if (Reading->file == nullptr) return false;
  i64 const position = Reading->limitOffset;
  if (ReadFromHolder(position)) return true;
  bool const started =
      windows->all[windows->inUse].size == 0 && windows->all[windows->inUse].start == position;
  if (!started) StartWindow(position);
  stream->failed =
      Reading->seekable && stream->position != position && !SeekStream(position, SEEK_SET);
  if (stream->failed) return false;
  Window& window = windows->all[windows->inUse];
  window.size = std::fread(window.bytes, 1, kWindowSize, Reading->file);
  ReadFrom(windows->inUse, position);
  stream->position = Reading->limitOffset;
  if (window.size == 0) {
    // Where searches come to the end of the file again and again, they leave no window behind
    // there.
    if (stream->endMet == position) window.lastUse = 0;
    stream->endMet = position;
  }
  if (window.size < kWindowSize) {
    stream->failed = std::ferror(Reading->file) != 0;
    if (stream->failed) stream->position = kUnknown;
    // The stream would keep saying that it has ended, also when the file grows.
    std::clearerr(Reading->file);
  }
  return window.size > 0;
}

}  // namespace

bool OpenDataFile(const char* path) {
  CurrentContext->File = path == nullptr ? nullptr : std::fopen(path, "rb");
  ForgetWindows(nullptr);
  if (CurrentContext->File == nullptr) return false;
  // The windows are the buffer.
  std::setvbuf(CurrentContext->File, nullptr, _IONBF, 0);
  return true;
}

void CloseDataFile() {
  if (CurrentContext->File == nullptr) return;
  std::fclose(CurrentContext->File);
  CurrentContext->File = nullptr;
  ForgetWindows(nullptr);
}

i64 TakeUpPosition() {
  UseFile();
  return Reading->limitOffset - (Reading->limit - Reading->next);
}

i32 SeekElsewhere(i64 offset) {
  UseFile();
  if (!Reading->seekable || offset < 0) return -1;
  if (ReadFromHolder(offset)) return 0;
  if (!SeekStream(offset, SEEK_SET)) return -1;
  stream->position = offset;
  StartWindow(offset);
  return 0;
}

// The walk that follows a look at the end begins with a seek of its own, not with one within a
// step.
i32 SeekFromEnd(i64 distance) {
  UseFile();
  for (Window& window : windows->all) window.size = 0;
  if (!Reading->seekable || !SeekStream(distance, SEEK_END)) return -1;
  stream->position = PositionOf(Reading->file);
  if (stream->position < 0) return -1;
  StartWindow(stream->position);
  return 0;
}

void TakeBytesAhead(void* target, std::size_t count) {
  std::memcpy(target, Reading->next, count);
  PassBytes(count);
}

std::size_t ReadAcrossWindows(void* target, std::size_t count) {
  UseFile();
  auto* out = static_cast<u8*>(target);
  std::size_t left = count;
  while (left > 0) {
    if (Reading->next == Reading->limit && !Refill()) break;
    std::size_t const piece =
        std::min(left, static_cast<std::size_t>(Reading->limit - Reading->next));
    std::memcpy(out, Reading->next, piece);
    Reading->next += piece;
    out += piece;
    left -= piece;
  }
  return count - left;
}

bool ReadFailed() {
  return stream->failed;
}

LineRead ReadLine(char* text, std::size_t size) {
  UseFile();
  LineRead line;
  while (!line.complete) {
    if (Reading->next == Reading->limit && !Refill()) break;
    std::size_t const room =
        std::min(size - 1 - line.length, static_cast<std::size_t>(Reading->limit - Reading->next));
    const void* const feed = std::memchr(Reading->next, '\n', room);
    std::size_t const piece =
        feed == nullptr
            ? room
            : static_cast<std::size_t>(static_cast<const u8*>(feed) - Reading->next) + 1;
    std::memcpy(text + line.length, Reading->next, piece);
    Reading->next += piece;
    line.length += piece;
    line.complete = feed != nullptr || line.length == size - 1;
  }
  if (line.length > 0) text[line.length] = '\0';
  return line;
}

i32 KeepFilePosition() {
  i64 const position = FilePosition();
  if (position > std::numeric_limits<i32>::max()) return FailWith(QV_SEEK_FAILED);
  CurrentContext->FileOffset = static_cast<i32>(position);
  return 0;
}

}  // namespace qvslm
