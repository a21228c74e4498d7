#include "fields/data_file.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>

namespace qvslm {

namespace {

constexpr std::size_t kWindowSize = 32768;
constexpr i64 kUnknown = -1;

struct Window {
  i64 start = 0;
  std::size_t size = 0;
  u8 bytes[kWindowSize];

  bool Holds(i64 offset) const {
    return offset >= start && offset < start + static_cast<i64>(size);
  }
};

Window windows[2];
Window* window = &windows[0];  // the one that is read from
const u8* next = windows[0].bytes;
const u8* limit = windows[0].bytes;
std::FILE* windowsFile = nullptr;  // whose bytes the windows hold
i64 streamPosition = kUnknown;     // where the C stream stands
bool seekable = false;

void ForgetWindows(std::FILE* file) {
  windowsFile = file;
  for (Window& each : windows) each.size = 0;
  window = &windows[0];
  window->start = 0;
  next = limit = window->bytes;
  streamPosition = kUnknown;
  seekable = false;
}

// Empties the window that is not in use and reads on at the offset from there.
void StartWindow(i64 offset) {
  window = window == &windows[0] ? &windows[1] : &windows[0];
  window->start = offset;
  window->size = 0;
  next = limit = window->bytes;
}

// Makes the windows those of the file in hand.
void UseFile() {
  std::FILE* const file = CurrentContext->File;
  if (file == windowsFile) return;
  ForgetWindows(file);
  if (file == nullptr) return;
  streamPosition = std::ftell(file);
  seekable = streamPosition >= 0 && std::fseek(file, 0, SEEK_CUR) == 0;
  StartWindow(std::max<i64>(streamPosition, 0));
}

// Reads the bytes behind the window into the other one. False at the end of the file.
bool Refill() {
  if (windowsFile == nullptr) return false;
  i64 const position = window->start + (next - window->bytes);
  StartWindow(position);
  if (seekable && streamPosition != position) {
    if (position > std::numeric_limits<long>::max() ||
        std::fseek(windowsFile, static_cast<long>(position), SEEK_SET) != 0) {
      streamPosition = kUnknown;
      return false;
    }
  }
  window->size = std::fread(window->bytes, 1, kWindowSize, windowsFile);
  limit = window->bytes + window->size;
  // Behind the end of the file the stream keeps saying so until it is sought anew.
  streamPosition =
      window->size == kWindowSize ? position + static_cast<i64>(kWindowSize) : kUnknown;
  return window->size > 0;
}

bool UseWindowHolding(i64 offset) {
  for (Window& each : windows) {
    if (!each.Holds(offset)) continue;
    window = &each;
    next = each.bytes + (offset - each.start);
    limit = each.bytes + each.size;
    return true;
  }
  return false;
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

i32 SeekDataFile(i64 offset) {
  UseFile();
  if (!seekable || offset < 0) return -1;
  if (offset == FilePosition() || UseWindowHolding(offset)) return 0;
  if (offset > std::numeric_limits<long>::max() ||
      std::fseek(windowsFile, static_cast<long>(offset), SEEK_SET) != 0) {
    return -1;
  }
  streamPosition = offset;
  StartWindow(offset);
  return 0;
}

i32 SeekFromEnd(i64 distance) {
  UseFile();
  if (!seekable || std::fseek(windowsFile, static_cast<long>(distance), SEEK_END) != 0) return -1;
  streamPosition = std::ftell(windowsFile);
  if (streamPosition < 0) return -1;
  StartWindow(streamPosition);
  return 0;
}

i64 FilePosition() {
  UseFile();
  return window->start + (next - window->bytes);
}

i32 ReadFileByte() {
  UseFile();
  if (next == limit && !Refill()) return -1;
  return *next++;
}

std::size_t ReadFileBlock(void* target, std::size_t count) {
  UseFile();
  auto* out = static_cast<u8*>(target);
  std::size_t left = count;
  while (left > 0) {
    if (next == limit && !Refill()) break;
    std::size_t const piece = std::min(left, static_cast<std::size_t>(limit - next));
    std::memcpy(out, next, piece);
    next += piece;
    out += piece;
    left -= piece;
  }
  return count - left;
}

LineRead ReadLine(char* text, std::size_t size) {
  UseFile();
  LineRead line;
  while (!line.complete) {
    if (next == limit && !Refill()) break;
    std::size_t const room =
        std::min(size - 1 - line.length, static_cast<std::size_t>(limit - next));
    const void* const feed = std::memchr(next, '\n', room);
    std::size_t const piece =
        feed == nullptr ? room : static_cast<std::size_t>(static_cast<const u8*>(feed) - next) + 1;
    std::memcpy(text + line.length, next, piece);
    next += piece;
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
