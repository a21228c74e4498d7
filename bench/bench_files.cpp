#include "bench_files.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace bench {

namespace {

namespace fs = std::filesystem;
using samples::Family;

// A folder of this process, which goes with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "qvslm-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

fs::path Folder() {
  if (const char* const kept = std::getenv("QVSLM_BENCH_FILES")) {
    fs::create_directories(kept);
    return kept;
  }
  static const TemporaryFolder folder;
  return folder.Path();
}

}  // namespace

const char* SeasonName(Season season) {
  return season == Season::kWinter ? "winter" : "summer";
}

int RecordsOf(Family family) {
  switch (family) {
    case Family::kStreamOneByte:
    case Family::kStreamOneByteSecond:
    case Family::kStreamTwoByte:
    case Family::kStreamTwoByteSecond:
      return 1000000;
    case Family::kDaySummaries:
    case Family::kSetups:
      return 5000;
    case Family::kResults:
      return 2000;
    default:
      return 20000;
  }
}

// A file that was cut while it was written never gets its name.
std::string KeptFile(const std::string& name,
                     const std::function<void(const std::string& path)>& write) {
  fs::path const path = Folder() / name;
  if (!fs::exists(path)) {
    fs::path const unfinished = path.string() + ".part";
    write(unfinished.string());
    fs::rename(unfinished, path);
  }
  return path.string();
}

std::string FamilyFile(Family family, Season season) {
  std::string const name = std::string(samples::FamilyName(family)) + "_" + SeasonName(season);
  return KeptFile(name, [&](const std::string& path) {
    int const month = season == Season::kWinter ? 1 : 7;
    samples::WriteFamilyFile(path, family, RecordsOf(family), samples::At(2020, month, 1));
  });
}

std::string YearsFile(Family family) {
  return KeptFile(
      std::string(samples::FamilyName(family)) + "_years",
      [&](const std::string& path) { samples::WriteFamilyFile(path, family, kRecordsOfYears); });
}

std::string MixedFile(int megabytes) {
  return KeptFile("mixed_" + std::to_string(megabytes), [&](const std::string& path) {
    samples::WriteMixedFile(path, std::int64_t{megabytes} * 1000000);
  });
}

std::int64_t FileSize(const std::string& path) {
  return static_cast<std::int64_t>(fs::file_size(path));
}

}  // namespace bench
