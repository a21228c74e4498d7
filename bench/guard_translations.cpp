// A fixed set of translations for tools/check_instructions, which counts their instructions.
//
//   guard_translations write FOLDER   writes the files
//   guard_translations walk FOLDER    counts and translates each; under callgrind, each walk leaves
//                                     its own dump, named "census FAMILY" or "translation FAMILY"
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

#include "api/qvslmtranslate.h"
#include "samples/bulk_files.h"

namespace {

using samples::Family;

constexpr int kRecords = 3000;
constexpr int kStreamSamples = 60000;

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

std::string FileOf(const std::string& folder, Family family) {
  return folder + "/" + samples::FamilyName(family);
}

void WriteFiles(const std::string& folder) {
  // Two days across the autumn clock change of the zone below.
  samples::Clock const start = samples::At(2020, 10, 24);
  for (Family const family : samples::kFamilies) {
    samples::WriteFamilyFile(FileOf(folder, family), family, RecordsOf(family), start);
  }
}

void Expect(int status, int expected, const std::string& path) {
  if (status == expected) return;
  throw std::runtime_error(path + ": status " + std::to_string(status));
}

void NameCounts(const char* walk, Family family) {
  std::string const name = std::string(walk) + " " + samples::FamilyName(family);
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

void WalkFiles(const std::string& folder) {
  // A zone with a daylight rule that depends on no file of the machine.
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  std::vector<std::uint64_t> context(QV_GetBufferSize() / 8);
  alignas(4) static std::array<std::uint8_t, QV_OUTPUT_RECORD_SIZE> record;
  for (Family const family : samples::kFamilies) {
    std::string const path = FileOf(folder, family);
    QvRecordCensus census;
    Expect(QV_GetRecordCount(path.c_str(), context.data(), &census, record.data()), QV_OK, path);
    NameCounts("census", family);
    Expect(QV_StartTranslate(path.c_str(), context.data()), QV_OK, path);
    int status = QV_OK;
    while (status >= 0) status = QV_TranslateNextRec(record.data(), context.data());
    Expect(status, QV_END_OF_DATA, path);
    NameCounts("translation", family);
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
