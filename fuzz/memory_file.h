// A file in memory that has a path, so that the library opens it like any other and no disk is
// touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  // Gives the file these bytes and no others.
  void Hold(const std::uint8_t* bytes, std::size_t size);
  const char* Path() const { return path_.c_str(); }

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace fuzz
