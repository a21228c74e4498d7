// The benchmarks, with the options of Google Benchmark. bench/report runs them for its table.
#include <cstdio>
#include <exception>

#include "measure.h"

int main(int argc, char** argv) try {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  bench::RegisterTranslations();
  bench::RegisterPeers();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "benchmarks: %s\n", error.what());
  return 1;
}
