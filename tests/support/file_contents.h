// All bytes of a file; none where it cannot be read.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace test {

inline std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace test
