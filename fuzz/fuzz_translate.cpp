// A whole translation without a census before it.

#include "fuzz/memory_file.h"
#include "fuzz/oracles.h"
#include "fuzz/translation_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::MemoryFile file;
  file.Hold(data, size);
  auto const first = fuzz::Translate(file.Path(), size, fuzz::ContextUse::Steady);
  auto const second = fuzz::Translate(file.Path(), size, fuzz::ContextUse::Moved);
  fuzz::Expect(first.startStatus == second.startStatus && first.log == second.log,
               "two translations of a file give the same records");
  return 0;
}
