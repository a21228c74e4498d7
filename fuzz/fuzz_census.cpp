// The census alone.

#include "census_run.h"
#include "fuzzed_file.h"
#include "oracles.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::FuzzedFile file;
  file.Hold({data, size});
  fuzz::Census const first = fuzz::RunCensus(file.Path(), size);
  fuzz::Census const second = fuzz::RunCensus(file.Path(), size);
  fuzz::Expect(first == second, "two censuses of a file agree");
  return 0;
}
