// One report a file, made by several processes and shown in the order of the files.
#pragma once

#include <functional>
#include <string>

#include "facts.h"
#include "file_list.h"
#include "outcome.h"

namespace host {

struct FileReport {
  Outcome outcome = Outcome::Whole;
  Facts facts;  // null where there is nothing to show
};

struct ReportCalls {
  std::function<FileReport(const std::string& file)> make;
  // False ends the run.
  std::function<bool(const FileReport& report)> show;
};

// Gives what the files come to. A process that ends before its report is told on stderr, and stops
// no other.
Outcome ReportFiles(const FileList& list, int jobs, const ReportCalls& calls);

}  // namespace host
