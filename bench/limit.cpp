#include "limit.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "bench_files.h"
#include "qvslm_records.h"

namespace bench {

namespace {

constexpr std::size_t kBlock = 65536;
std::array<char, kBlock> block;
std::array<char, QV_OUTPUT_RECORD_SIZE> output;

void Clear(std::int64_t bytes) {
  while (bytes > 0) {
    std::int64_t const piece = std::min(bytes, static_cast<std::int64_t>(output.size()));
    std::memset(output.data(), 0, static_cast<std::size_t>(piece));
    benchmark::DoNotOptimize(output.data());
    benchmark::ClobberMemory();
    bytes -= piece;
  }
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

void ReadAndClear(const std::string& path, std::int64_t bytesToClear) {
  std::int64_t const blocks = FileSize(path) / static_cast<std::int64_t>(kBlock) + 1;
  std::unique_ptr<std::FILE, CloseFile> const file(std::fopen(path.c_str(), "rb"));
  if (!file) throw std::runtime_error("cannot read " + path);
  while (std::fread(block.data(), 1, kBlock, file.get()) > 0) {
    benchmark::DoNotOptimize(block.data());
    Clear(bytesToClear / blocks);
  }
}

}  // namespace bench
