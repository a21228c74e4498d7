// What the tests of `qvslm export` share.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace test {

inline std::vector<std::string> SampleFiles() {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(std::getenv("SAMPLES"))) {
    paths.push_back(entry.path().string());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

// The first half of a sample.
inline std::string HalfASample() {
  std::string const sample = Contents(std::string(std::getenv("SAMPLES")) + "/general_day.qvd");
  return sample.substr(0, sample.size() / 2);
}

// Names of all in a folder and below, hidden ones too, from the folder on and in order.
inline std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    names.push_back(entry.path().lexically_relative(folder).string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// What the comparison of an export with a dump says of each sample: empty where all is the same.
// `reader` and `options` are those of the script and of the export.
inline std::string Differences(const std::string& file, const std::string& reader,
                               const std::string& format,
                               const std::vector<std::string>& options = {}) {
  TempFolder const folder;
  RunOptions const berlin = {.zone = "Europe/Berlin"};
  std::string const place = folder.Path() + "/out";
  std::vector<std::string> command = {"export", file, "--format", format, "--to", place};
  command.insert(command.end(), options.begin(), options.end());
  Result const exported = RunQvslm(command, berlin);
  if (exported.exitCode != 0) return exported.err;
  std::string const dump = folder.File("dump", RunQvslm({"dump", file}, berlin).out);
  std::string compared = place;
  if (reader == "json") {
    // Columns as they are, with no list taken for a matrix of one row.
    Result const octave = RunProgram(
        {"octave-cli", "-q", "--eval", "printf('%s', jsonencode(load('-mat', '" + place + "')))"});
    if (octave.exitCode != 0) return octave.err;
    compared = folder.File("json", octave.out);
  }
  Result const result = RunProgram({"/usr/bin/python3", COMPARE_EXPORT, reader, compared, dump});
  return result.exitCode == 0 ? "" : file + ": " + result.err + result.out;
}

}  // namespace test
