// What every measurement does alike: the loop over whole passes, and its counters.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "bench_files.h"

namespace bench {

// How much a pass goes through.
struct Load {
  std::int64_t records;
  std::int64_t bytes;
};

// Sets the process's zone; null stands for no TZ at all.
void SetZone(const char* zone);

// The largest resident size since the last call of ForgetPeakMemory, in bytes.
std::int64_t PeakMemory();
std::int64_t ForgetPeakMemory();  // returns the resident size at hand

void SetCounters(benchmark::State& state, const Load& load, std::int64_t before);

// Runs passes until the time is up. One pass beforehand has the file in the system's cache and
// the caches of the code under test in the state that a host's second file finds.
template <class Pass>
void Measure(benchmark::State& state, const Load& load, Pass pass) {
  std::int64_t const before = ForgetPeakMemory();
  pass();
  for (auto _ : state) pass();
  SetCounters(state, load, before);
}

// Registration under a name with parts: "translation/events".
template <class Body>
void Register(const std::string& name, Body body) {
  benchmark::RegisterBenchmark(name.c_str(), body)->Unit(benchmark::kMillisecond);
}

// Each file of benchmarks registers its own.
void RegisterTranslations();

// The peers register themselves where they are built.
struct Peer {
  explicit Peer(void (*registerPeer)());
};
void RegisterPeers();

}  // namespace bench
