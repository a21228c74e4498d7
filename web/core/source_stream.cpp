// The C streams of a program that has no files: whatever is opened is the source that JavaScript
// has in hand, read by its calls. Linked with --wrap=fopen, so that the library opens it unchanged.
#include <sys/types.h>

#include <cstdio>
#include <cstdlib>

// What JavaScript gives: the size of the source, below 0 without one, and bytes of it. Fewer bytes
// than asked for only at the end; below 0 where it cannot be read.
extern "C" {
double source_size();
int source_read(double offset, void* target, std::size_t count);
}

namespace {

struct Place {
  off_t offset;
};

ssize_t Read(void* cookie, char* target, std::size_t count) {
  auto& place = *static_cast<Place*>(cookie);
  int const came = source_read(static_cast<double>(place.offset), target, count);
  if (came > 0) place.offset += came;
  return came;
}

int Seek(void* cookie, off_t* offset, int origin) {
  auto& place = *static_cast<Place*>(cookie);
  off_t start = 0;
  if (origin == SEEK_CUR) start = place.offset;
  if (origin == SEEK_END) start = static_cast<off_t>(source_size());
  if (start + *offset < 0) return -1;
  place.offset = start + *offset;
  *offset = place.offset;
  return 0;
}

int Close(void* cookie) {
  std::free(cookie);
  return 0;
}

}  // namespace

extern "C" std::FILE* __wrap_fopen(const char*, const char* mode) {
  if (source_size() < 0) return nullptr;
  auto* const place = static_cast<Place*>(std::calloc(1, sizeof(Place)));
  if (place == nullptr) return nullptr;
  std::FILE* const file = fopencookie(place, mode, {Read, nullptr, Seek, Close});
  if (file == nullptr) std::free(place);
  return file;
}
