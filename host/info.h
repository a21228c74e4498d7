// qvslm info: what a file is and what it holds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "file_reports.h"
#include "output.h"

namespace host {

struct InfoOptions {
  bool json = false;
  bool quick = false;  // nothing that takes a pass over the whole file
};

// What can be found out of one file. Faults are reported on stderr.
FileReport FindInfo(const std::string& fileName, const InfoOptions& options);

// One screen for a file.
void ShowInfo(const Facts& facts, Output& output);

// What several files hold together, on one line.
class InfoTotals {
 public:
  void Add(const Facts& facts);
  void Show(Output& output) const;

 private:
  struct Held {
    std::string name;
    std::uint64_t count;
  };
  std::uint64_t files_ = 0;
  std::uint64_t bytes_ = 0;
  std::vector<Held> holds_;
};

}  // namespace host
