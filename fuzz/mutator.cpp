// The entry points by which libFuzzer mutates and crosses files: mostly part by part, so that
// mutants stay files that the library reads far into, and now and then byte by byte.

#include <algorithm>
#include <cstring>

#include "part_mutations.h"

extern "C" {

std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                      const std::uint8_t* data2, std::size_t size2,
                                      std::uint8_t* out, std::size_t maxOutSize, unsigned int seed);
}

namespace {

fuzz::Parts PartsOf(const std::uint8_t* data, std::size_t size) {
  return fuzz::TakeApart({reinterpret_cast<const char*>(data), size});
}

std::size_t Store(fuzz::Parts& parts, std::uint8_t* out, std::size_t maxSize,
                  fuzz::Chance& chance) {
  fuzz::Shorten(parts, maxSize, chance);
  std::string const file = fuzz::PutTogether(parts);
  std::size_t const size = std::min(file.size(), maxSize);
  std::memcpy(out, file.data(), size);
  return size;
}

}  // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
  fuzz::Chance chance(seed);
  if (chance.OneIn(5)) return LLVMFuzzerMutate(data, size, maxSize);
  fuzz::Parts parts = PartsOf(data, size);
  for (std::size_t changes = 1 + chance.Below(4); changes > 0; --changes) {
    fuzz::Mutate(parts, chance);
  }
  return Store(parts, data, maxSize, chance);
}

std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                      const std::uint8_t* data2, std::size_t size2,
                                      std::uint8_t* out, std::size_t maxOutSize,
                                      unsigned int seed) {
  fuzz::Chance chance(seed);
  fuzz::Parts parts = PartsOf(data1, size1);
  fuzz::TakeOver(parts, PartsOf(data2, size2), chance);
  return Store(parts, out, maxOutSize, chance);
}
