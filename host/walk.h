// The walk through a file, from the start of the translation to its end, with what is said about
// it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "library_file.h"
#include "outcome.h"
#include "progress.h"

namespace host {

// Why a file cannot be begun, for a status that tells it.
std::string StatusWords(int status);

struct WalkOptions {
  bool census = true;  // count first: the daylight span
  bool cut = false;    // show also the records that the file does not wholly hold
};

struct WalkResult {
  Outcome outcome = Outcome::Whole;
  int header = 0;             // status of QV_ReadFileHeader
  bool stopped = false;       // by the visitor
  std::uint64_t records = 0;  // shown
};

// Shows each record to the visitor, the end record too; what the walk tells of it stands in State()
// of the translation. Ends when visit returns false. Faults are reported on stderr.
WalkResult Walk(Translation& translation, const InputFile& file, const WalkOptions& options,
                Progress& progress, const std::function<bool()>& visit);

}  // namespace host
