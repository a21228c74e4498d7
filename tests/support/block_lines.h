// Settings lines as lists, for tables of tests.
//
//   AddSettings(file, {{71, "1"}, {145, "1"}})
#pragma once

#include <string_view>
#include <vector>

#include "data_file_writer.h"

namespace test {

struct Setting {
  int number;
  std::string_view value;
};

// One 'Q' block of the given lines; no block at all without lines.
inline samples::DataFile& AddSettings(samples::DataFile& file,
                                      const std::vector<Setting>& settings) {
  for (const Setting& setting : settings) file.Q(setting.number, setting.value);
  return file;
}

inline samples::DataFile& AddResults(samples::DataFile& file, const std::vector<Setting>& results) {
  for (const Setting& result : results) file.R(result.number, result.value);
  return file;
}

// A file of any model that has records 1, 2 and 3 in their general forms: models 431 and 442 are in
// a logging mode.
inline samples::DataFile LoggingFile(int model, std::string_view firmware) {
  return samples::DataFile().Header({.Model = model,
                                     .Firmware = std::string(firmware),
                                     .ModeTag = model == 431 ? "iSLM" : "LOG"});
}

}  // namespace test
