#include "measure.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <vector>

namespace bench {

namespace {

std::vector<void (*)()>& Peers() {
  static std::vector<void (*)()> peers;
  return peers;
}

// A line of /proc/self/status, in bytes; 0 where there is none.
std::int64_t StatusLine(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::int64_t kilobytes = 0;
    if (word == name && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

}  // namespace

void SetZone(const char* zone) {
  zone == nullptr ? unsetenv("TZ") : setenv("TZ", zone, 1);
  tzset();
}

std::int64_t PeakMemory() {
  return StatusLine("VmHWM:");
}

std::int64_t ForgetPeakMemory() {
  std::ofstream("/proc/self/clear_refs") << 5;
  return StatusLine("VmRSS:");
}

void SetCounters(benchmark::State& state, const Load& load, std::int64_t before) {
  using benchmark::Counter;
  std::int64_t const peak = PeakMemory();
  auto const passes = static_cast<std::int64_t>(state.iterations());
  auto const records = static_cast<double>(load.records * passes);
  state.SetBytesProcessed(load.bytes * passes);
  state.counters["records_per_second"] = Counter(records, Counter::kIsRate);
  state.counters["ns_per_record"] = Counter(records * 1e-9, Counter::kIsRate | Counter::kInvert);
  state.counters["peak_bytes"] = static_cast<double>(peak);
  state.counters["peak_growth_bytes"] = static_cast<double>(peak - before);
}

Peer::Peer(void (*registerPeer)()) {
  Peers().push_back(registerPeer);
}

void RegisterPeers() {
  for (auto* const registerPeer : Peers()) registerPeer();
}

}  // namespace bench
