// The yardstick of the Python package: a walk in C that copies each record once.
//
//   row_walk write FILE BYTES  writes the mixed file
//   row_walk stream FILE COUNT writes a file with a stream of so many samples
//   row_walk FILE RUNS         walks it so many times, and prints for each run three times in seconds
//                              of the processor:
//                              of the walk alone, of one that copies each record into one and the
//                              same buffer, and of one that keeps all of them
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "bulk_files.h"
#include "qvslm_walk.h"

namespace {

enum class Copies { kNone, kToOneBuffer, kKept };

struct Kept {
  std::uint8_t* bytes = nullptr;
  std::size_t used = 0;
  std::size_t room = 0;

  void Append(const void* record, std::size_t size) {
    if (room - used < size) {
      room = std::max(room * 2, std::size_t{1} << 16);
      bytes = static_cast<std::uint8_t*>(std::realloc(bytes, room));
      if (bytes == nullptr) std::abort();
    }
    std::memcpy(bytes + used, record, size);
    used += size;
  }
};

double SecondsOf(const char* path, Copies copies) {
  static std::vector<std::uint64_t> context(QV_GetBufferSize() / sizeof(std::uint64_t));
  static std::vector<std::uint32_t> record(QV_OUTPUT_RECORD_SIZE / sizeof(std::uint32_t));
  static std::vector<std::uint8_t> one(QV_OUTPUT_RECORD_SIZE);
  Kept kept[QV_BAND_TABLE + 1];
  QvRecordCensus census;
  QvWalk walk;
  std::clock_t const start = std::clock();
  QvWalkOpen(&walk, path, context.data(), record.data(), &census);
  while (QvWalkNext(&walk) != 0) {
    std::size_t const size = QvRecordSize(walk.Code);
    if (copies == Copies::kToOneBuffer) std::memcpy(one.data(), walk.Record, size);
    if (copies == Copies::kKept) kept[walk.Code].Append(walk.Record, size);
  }
  QvWalkClose(&walk);
  std::clock_t const time = std::clock() - start;
  if (QvWalkWasWhole(&walk) == 0) std::fprintf(stderr, "%s: %s\n", path, QvWalkWhy(&walk));
  for (const Kept& rows : kept) std::free(rows.bytes);
  return static_cast<double>(time) / CLOCKS_PER_SEC;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::string(argv[1]) == "write") {
    samples::WriteMixedFile(argv[2], std::atoll(argv[3]));
    return 0;
  }
  if (argc == 4 && std::string(argv[1]) == "stream") {
    samples::WriteFamilyFile(argv[2], samples::Family::kStreamTwoByte, std::atoi(argv[3]));
    return 0;
  }
  if (argc != 3) return 2;
  for (int run = 0; run < std::atoi(argv[2]); ++run) {
    double const alone = SecondsOf(argv[1], Copies::kNone);
    double const copied = SecondsOf(argv[1], Copies::kToOneBuffer);
    std::printf("%.6f %.6f %.6f\n", alone, copied, SecondsOf(argv[1], Copies::kKept));
  }
  return 0;
}
