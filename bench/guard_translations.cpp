// A fixed set of translations for tools/check_instructions, which counts their instructions.
//
//   guard_translations write FOLDER   writes the files
//   guard_translations walk FOLDER    counts and translates each; under callgrind, each walk leaves
//                                     its own dump, named "census NAME" or "translation NAME"
#include <valgrind/callgrind.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bulk_files.h"
#include "qvslmtranslate.h"

namespace {

using samples::Family;

constexpr int kRecords = 3000;
constexpr int kStreamSamples = 60000;
constexpr const char* kMixed = "mixed";
constexpr int kMixedBytes = 1000000;

int RecordsOf(Family family) {
  switch (family) {
    case Family::kStreamOneByte:
    case Family::kStreamOneByteSecond:
    case Family::kStreamTwoByte:
    case Family::kStreamTwoByteSecond:
      return kStreamSamples;
    case Family::kDaySummaries:
    case Family::kResults:
      return kRecords / 10;
    default:
      return kRecords;
  }
}

// The families, and a mixed file behind them.
std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (Family const family : samples::kFamilies) names.emplace_back(samples::FamilyName(family));
  names.emplace_back(kMixed);
  return names;
}

void WriteFiles(const std::string& folder) {
  // Days across the clock changes of the zone below.
  samples::Clock const autumn = samples::At(2020, 10, 24);
  samples::Clock const spring = samples::At(2020, 3, 27);
  for (Family const family : samples::kFamilies) {
    std::string const path = folder + "/" + samples::FamilyName(family);
    samples::WriteFamilyFile(path, family, RecordsOf(family), autumn);
  }
  samples::WriteMixedFile(folder + "/" + kMixed, kMixedBytes, spring);
}

void Expect(int status, int expected, const std::string& path) {
  if (status == expected) return;
  throw std::runtime_error(path + ": status " + std::to_string(status));
}

void KeepCounts(const std::string& name) {
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

void WalkFiles(const std::string& folder) {
  // A zone with a daylight rule that depends on no file of the machine.
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  std::vector<std::uint64_t> context(QV_GetBufferSize() / 8);
  alignas(4) static std::array<std::uint8_t, QV_OUTPUT_RECORD_SIZE> record;
  for (const std::string& name : Names()) {
    std::string const path = folder + "/" + name;
    QvRecordCensus census;
    Expect(QV_GetRecordCount(path.c_str(), context.data(), &census, record.data()), QV_OK, path);
    KeepCounts("census " + name);
    Expect(QV_StartTranslate(path.c_str(), context.data()), QV_OK, path);
    int status = QV_OK;
    while (status >= 0) status = QV_TranslateNextRec(record.data(), context.data());
    Expect(status, QV_END_OF_DATA, path);
    KeepCounts("translation " + name);
  }
}

}  // namespace

int main(int argc, char** argv) try {
  std::string_view const what = argc == 3 ? argv[1] : "";
  if (what == "write") {
    WriteFiles(argv[2]);
  } else if (what == "walk") {
    WalkFiles(argv[2]);
  } else {
    std::fputs("usage: guard_translations write|walk FOLDER\n", stderr);
    return 2;
  }
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "guard_translations: %s\n", error.what());
  return 1;
}
