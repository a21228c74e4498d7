// A peer: libsndfile turns as many big-endian samples of 16 bits into floating-point numbers as the
// file of a stream holds.
#include <sndfile.h>

#include <stdexcept>
#include <vector>

#include "measure.h"

namespace bench {

namespace {

constexpr int kSamplesOfBlock = 4096;

int Samples() {
  return RecordsOf(samples::Family::kStreamTwoByte);
}

void WriteSound(const std::string& path) {
  SF_INFO info{};
  info.samplerate = 8000;
  info.channels = 1;
  info.format = SF_FORMAT_AU | SF_FORMAT_PCM_16 | SF_ENDIAN_BIG;
  SNDFILE* const file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) throw std::runtime_error("cannot write " + path);
  std::vector<short> samples(static_cast<std::size_t>(Samples()));
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<short>(i * 37 % 20000);
  sf_count_t const written = sf_write_short(file, samples.data(), Samples());
  if (sf_close(file) != 0 || written != Samples()) throw std::runtime_error("cannot write " + path);
}

void ReadSound(const std::string& path) {
  SF_INFO info{};
  SNDFILE* const file = sf_open(path.c_str(), SFM_READ, &info);
  if (file == nullptr) throw std::runtime_error("cannot read " + path);
  static float levels[kSamplesOfBlock];
  sf_count_t samples = 0;
  while (sf_count_t const read = sf_read_float(file, levels, kSamplesOfBlock)) {
    benchmark::DoNotOptimize(levels);
    benchmark::ClobberMemory();
    samples += read;
  }
  sf_close(file);
  if (samples != Samples()) throw std::runtime_error("libsndfile stopped in " + path);
}

void RegisterLibsndfile() {
  std::string const path = KeptFile("peer_libsndfile", WriteSound);
  Register("peer/libsndfile", [=](benchmark::State& state) {
    Measure(state, {Samples(), FileSize(path)}, [&] { ReadSound(path); });
  });
}

const Peer libsndfile(RegisterLibsndfile);

}  // namespace

}  // namespace bench
