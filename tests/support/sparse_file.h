// A large file that takes next to no room: bytes at its head and at one other place, zeros between.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "support/temp_file.h"

namespace test {

class SparseFile {
 public:
  SparseFile(std::string_view head, std::int64_t offset, std::string_view bytes) : file_(head) {
    int const descriptor = open(file_.CPath(), O_WRONLY);
    written_ = pwrite(descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset)) ==
               static_cast<ssize_t>(bytes.size());
    close(descriptor);
  }

  // False where the disk cannot hold such a file.
  bool Written() const { return written_; }
  const std::string& Path() const { return file_.Path(); }

 private:
  TempFile file_;
  bool written_ = false;
};

}  // namespace test
