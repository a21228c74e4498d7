// A peer: libmseed reads small big-endian records through its file API. As many as the file of
// events has, headers only; and those of as many samples as the file of a stream has.
#include <libmseed.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "measure.h"

namespace bench {

namespace {

constexpr int kRecordLength = 128;
constexpr int kSamplesOfRecord = 36;  // 16 bits each, behind 56 bytes of header

void WriteRecord(char* record, int length, void* out) {
  static_cast<std::ofstream*>(out)->write(record, length);
}

// Packs as many records as the samples need.
void WriteMiniSeed(const std::string& path, int samples) {
  std::ofstream out(path, std::ios::binary);
  std::vector<std::int32_t> levels(static_cast<std::size_t>(samples));
  for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = static_cast<int>(i * 37 % 20000);

  MSRecord* record = msr_init(nullptr);
  std::strcpy(record->network, "QV");
  std::strcpy(record->station, "SLM");
  std::strcpy(record->channel, "LEV");
  record->reclen = kRecordLength;
  record->dataquality = 'D';
  record->starttime = ms_time2hptime(2020, 1, 0, 0, 0, 0);
  record->samprate = 1;
  record->encoding = DE_INT16;
  record->byteorder = 1;
  record->numsamples = static_cast<std::int64_t>(levels.size());
  record->datasamples = levels.data();
  record->sampletype = 'i';
  std::int64_t packed = 0;
  msr_pack(record, WriteRecord, &out, &packed, 1, 0);
  record->datasamples = nullptr;  // not libmseed's to free
  msr_free(&record);
  out.close();
  if (packed != samples || !out) throw std::runtime_error("cannot write " + path);
}

void ReadMiniSeed(const std::string& path, bool withSamples, std::int64_t expected) {
  MSRecord* record = nullptr;
  std::int64_t samples = 0;
  int status = MS_NOERROR;
  while ((status = ms_readmsr(&record, path.c_str(), kRecordLength, nullptr, nullptr, 1,
                              withSamples, 0)) == MS_NOERROR) {
    benchmark::DoNotOptimize(record->starttime);
    samples += record->samplecnt;
  }
  ms_readmsr(&record, nullptr, 0, nullptr, nullptr, 0, 0, 0);
  if (status != MS_ENDOFFILE || samples != expected)
    throw std::runtime_error("libmseed stopped in " + path);
}

void RegisterLibmseed() {
  int const records = RecordsOf(samples::Family::kEvents);
  int const samplesOfRecords = records * kSamplesOfRecord;
  std::string const headers = KeptFile("peer_libmseed_headers", [=](const std::string& path) {
    WriteMiniSeed(path, samplesOfRecords);
  });
  Register("peer/libmseed_headers", [=](benchmark::State& state) {
    Measure(state, {records, FileSize(headers)},
            [&] { ReadMiniSeed(headers, false, samplesOfRecords); });
  });

  int const samples = RecordsOf(samples::Family::kStreamTwoByte);
  std::string const stream = KeptFile(
      "peer_libmseed_samples", [=](const std::string& path) { WriteMiniSeed(path, samples); });
  Register("peer/libmseed_samples", [=](benchmark::State& state) {
    Measure(state, {samples, FileSize(stream)}, [&] { ReadMiniSeed(stream, true, samples); });
  });
}

const Peer libmseed(RegisterLibmseed);

}  // namespace

}  // namespace bench
