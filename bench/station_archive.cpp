// Writes a synthetic archive: what noise monitoring stations leave behind in ten years.
//
//   station_archive FOLDER FILES BYTES STATIONS
//
// FOLDER/STATION/YEAR-MONTH-DAY.qvd, of BYTES on the average, half as large to half as large again,
// spread over the years from 2015 on. One file in a hundred ends in the middle of its data.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bulk_files.h"

namespace {

constexpr int kDaysOfTenYears = 3650;
constexpr int kFilesToABrokenOne = 100;

// A day of a clock as names of files sort: "2024-06-21".
std::string SortedDate(samples::Clock when) {
  static constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
  std::string const text = samples::DateText(when);
  int const month = static_cast<int>(kMonths.find(text.substr(2, 3)) / 3) + 1;
  char name[16];
  std::snprintf(name, sizeof name, "%s-%02d-%s", text.substr(5).c_str(), month,
                text.substr(0, 2).c_str());
  return name;
}

// The serial number stands behind the model in the second line.
void SetSerial(const std::string& path, int serial) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  std::string head(256, '\0');
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  std::size_t const at = head.find("486 2071");
  if (at == std::string::npos) throw std::runtime_error("no serial number in " + path);
  char text[8];
  std::snprintf(text, sizeof text, "%04d", serial % 10000);
  file.seekp(static_cast<std::streamoff>(at + 4));
  file.write(text, 4);
  if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  std::filesystem::path const folder = argv[1];
  int const files = std::atoi(argv[2]);
  std::int64_t const bytes = std::atoll(argv[3]);
  int const stations = std::atoi(argv[4]);
  if (files < 1 || bytes < 1 || stations < 1) return 2;
  int const filesOfAStation = (files + stations - 1) / stations;
  for (int number = 0; number < files; ++number) {
    int const station = 1001 + number % stations;
    int const day = number / stations * kDaysOfTenYears / filesOfAStation;
    samples::Clock const start = samples::At(2015, 1, 1) + day * samples::kDay;
    std::filesystem::path const own = folder / std::to_string(station);
    std::filesystem::create_directories(own);
    std::string const path = (own / (SortedDate(start) + ".qvd")).string();
    samples::WriteMixedFile(path, bytes * (2 + number % 5) / 4, start);
    SetSerial(path, station);
    if (number % kFilesToABrokenOne == kFilesToABrokenOne / 2) {
      std::filesystem::resize_file(path, std::filesystem::file_size(path) * 3 / 5);
    }
  }
  return 0;
}
