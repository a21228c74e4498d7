// platform_inputs FOLDER ZONE...: writes what the platforms are compared by into a folder: 60 files
// by the bulk writer, always with the same bytes, as NAME.qvd, and for each zone of the system's
// tzdata a table of its changes, as the last part of the zone's name with .txt.
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "bulk_files.h"
#include "tzif.h"

namespace {

// Through both changes of the clocks of Europe, and over the end of a year.
struct Start {
  const char* name;
  samples::Clock clock;
};
const Start kStarts[] = {
    {"spring", samples::At(2020, 3, 28)},
    {"autumn", samples::At(2020, 10, 24)},
    {"winter", samples::At(2019, 12, 31)},
};

constexpr int kRecords = 1000;
constexpr int kResults = 40;  // whole blocks of settings
constexpr std::int64_t kMixedBytes[] = {50000, 150000, 450000};

std::string PathOf(const std::string& folder, const std::string& name, const Start& start) {
  std::string path = folder + '/';
  path.append(name).append("_").append(start.name).append(".qvd");
  return path;
}

void WriteFiles(const std::string& folder) {
  for (const Start& start : kStarts) {
    for (samples::Family const family : samples::kFamilies) {
      int const records = family == samples::Family::kResults ? kResults : kRecords;
      samples::WriteFamilyFile(PathOf(folder, samples::FamilyName(family), start), family, records,
                               start.clock);
    }
    for (std::int64_t const bytes : kMixedBytes) {
      samples::WriteMixedFile(PathOf(folder, "mixed_" + std::to_string(bytes), start), bytes,
                              start.clock);
    }
  }
}
static_assert(std::size(kStarts) * (std::size(samples::kFamilies) + std::size(kMixedBytes)) == 60);

void WriteZone(const std::string& folder, const std::string& zone) {
  auto const changes = zone_info::ChangesInFile("/usr/share/zoneinfo/" + zone);
  if (changes.empty()) throw std::runtime_error("no zone of tzdata: " + zone);
  std::ofstream out(folder + '/' + zone.substr(zone.rfind('/') + 1) + ".txt");
  for (const QvZoneChange& change : changes) {
    out << change.From << ' ' << change.Offset << ' ' << change.Daylight << '\n';
  }
  if (!out.flush()) throw std::runtime_error("cannot write into " + folder);
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 2) {
    std::fputs("usage: platform_inputs FOLDER ZONE...\n", stderr);
    return 2;
  }
  WriteFiles(argv[1]);
  for (int at = 2; at < argc; ++at) WriteZone(argv[1], argv[at]);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "platform_inputs: %s\n", error.what());
  return 1;
}
