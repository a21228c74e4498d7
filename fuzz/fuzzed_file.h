// The file that holds one input after another.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "support/memory_file.h"

namespace fuzz {

class FuzzedFile {
 public:
  void Hold(std::span<const std::uint8_t> bytes) {
    file_.Resize(bytes.size());
    file_.Write(0, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }
  const char* Path() const { return path_.c_str(); }

 private:
  test::MemoryFile file_{""};
  std::string path_ = file_.Path();
};

}  // namespace fuzz
