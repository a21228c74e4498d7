#include "fuzz/memory_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <system_error>

namespace fuzz {

namespace {

[[noreturn]] void ThrowErrno(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

MemoryFile::MemoryFile() : descriptor_(memfd_create("measurement", MFD_CLOEXEC)) {
  if (descriptor_ < 0) ThrowErrno("memfd_create");
  path_ = "/proc/self/fd/" + std::to_string(descriptor_);
}

MemoryFile::~MemoryFile() {
  close(descriptor_);
}

void MemoryFile::Hold(const std::uint8_t* bytes, std::size_t size) {
  if (ftruncate(descriptor_, static_cast<off_t>(size)) != 0) ThrowErrno("ftruncate");
  std::size_t written = 0;
  while (written < size) {
    ssize_t const piece =
        pwrite(descriptor_, bytes + written, size - written, static_cast<off_t>(written));
    if (piece <= 0) ThrowErrno("pwrite");
    written += static_cast<std::size_t>(piece);
  }
}

}  // namespace fuzz
