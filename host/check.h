// qvslm check: whether a file is whole, or where it breaks.
#pragma once

#include <string>

#include "file_reports.h"
#include "output.h"

namespace host {

struct CheckOptions {
  bool json = false;
};

// Reads the file to its end. Nothing is reported on stderr: all that is wrong is a fact.
FileReport FindDamage(const std::string& fileName);

// One line for a whole file, some for another.
void ShowDamage(const FileReport& report, Output& output);

// What several files came to, on one line.
class CheckTotals {
 public:
  void Add(Outcome outcome);
  void Show(Output& output) const;

 private:
  std::uint64_t whole_ = 0;
  std::uint64_t damaged_ = 0;
  std::uint64_t unreadable_ = 0;
};

}  // namespace host
