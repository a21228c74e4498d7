// The limit that the machine sets: what any translation of a file must do at least.
#pragma once

#include <cstdint>
#include <string>

namespace bench {

// Reads a file through the C stream in blocks of 64 KiB, and clears as many bytes of an output
// record beside it as are asked for. Throws std::runtime_error when the file cannot be read.
void ReadAndClear(const std::string& path, std::int64_t bytesToClear);

// Reads alone.
inline void ReadWhole(const std::string& path) {
  ReadAndClear(path, 0);
}

}  // namespace bench
