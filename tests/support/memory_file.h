// A file without a disk: what thousands of slightly different files are tried with.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace test {

class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : file_(memfd_create("test", 0)) {
    if (file_ < 0) throw std::runtime_error("cannot make a file in memory");
    Write(0, bytes);
  }
  ~MemoryFile() { close(file_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

  // Overwrites what stands there, or lengthens the file.
  void Write(std::size_t position, std::string_view bytes) const {
    ssize_t const written = pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(position));
    if (written != static_cast<ssize_t>(bytes.size())) throw std::runtime_error("cannot write");
  }
  // Cuts the file, or lengthens it by zeros.
  void Resize(std::size_t size) const {
    if (ftruncate(file_, static_cast<off_t>(size)) != 0) throw std::runtime_error("cannot resize");
  }

 private:
  int file_;
};

}  // namespace test
