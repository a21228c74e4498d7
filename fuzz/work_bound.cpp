#include "work_bound.h"

#include <cstdio>
#include <ctime>

namespace {

std::uint64_t streamCalls = 0;
std::int64_t filesOpen = 0;

}  // namespace

// The linker sends the calls of the library here, and the names with __real_ to the C library.
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode);
int __real_fclose(std::FILE* file);
std::size_t __real_fread(void* target, std::size_t size, std::size_t count, std::FILE* file);
int __real_fseeko(std::FILE* file, off_t offset, int origin);

std::FILE* __wrap_fopen(const char* path, const char* mode);
int __wrap_fclose(std::FILE* file);
std::size_t __wrap_fread(void* target, std::size_t size, std::size_t count, std::FILE* file);
int __wrap_fseeko(std::FILE* file, off_t offset, int origin);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
  std::FILE* const file = __real_fopen(path, mode);
  if (file != nullptr) ++filesOpen;
  return file;
}

int __wrap_fclose(std::FILE* file) {
  --filesOpen;
  return __real_fclose(file);
}

std::size_t __wrap_fread(void* target, std::size_t size, std::size_t count, std::FILE* file) {
  ++streamCalls;
  return __real_fread(target, size, count, file);
}

int __wrap_fseeko(std::FILE* file, off_t offset, int origin) {
  ++streamCalls;
  return __real_fseeko(file, offset, origin);
}

}  // extern "C"

namespace fuzz {

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::size_t kSmallestRefill = 4096;

// Generous, as a sanitized build on a busy machine needs: what it tells apart is work that follows
// from the file's size and work that does not end.
std::int64_t MostTime(std::int64_t size) {
  return 2000 * kMillisecond + size * 10'000;
}

std::uint64_t MostStreamCalls(std::size_t size, Reads reads) {
  std::uint64_t const blocks = 200 + 4 * (size / kSmallestRefill + 1);
  return reads == Reads::OverTheFile ? blocks : blocks + 4 * size;
}

}  // namespace

Work WorkSoFar() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return {streamCalls, filesOpen, std::int64_t{now.tv_sec} * 1000 * kMillisecond + now.tv_nsec};
}

void ExpectBound(const Work& before, const Work& after, std::size_t fileSize, Reads reads) {
  Expect(after.streamCalls - before.streamCalls <= MostStreamCalls(fileSize, reads),
         "a call read and sought more often than the file's size justifies");
  Expect(
      after.processorTime - before.processorTime <= MostTime(static_cast<std::int64_t>(fileSize)),
      "a call took longer than the file's size justifies");
}

}  // namespace fuzz
