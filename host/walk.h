// The walk through a file, from the start of the translation to the end record, with all that can
// end it earlier.
#pragma once

#include <cstdint>
#include <functional>

#include "library_file.h"
#include "outcome.h"
#include "progress.h"

namespace host {

struct WalkOptions {
  bool census = true;  // count first: daylight span, progress, and where a cut list must end
};

struct WalkResult {
  Outcome outcome = Outcome::Whole;
  int header = 0;             // status of QV_ReadFileHeader
  int census = 0;             // status of QV_GetRecordCount
  bool stopped = false;       // by the visitor
  std::uint64_t records = 0;  // delivered
  std::uint64_t shortItems = 0;
};

// Shows each record to visit(isShort), the end record too; isShort: the item ended before its last
// field, so that fields at the end are zero. Ends when visit returns false. Faults are reported on
// stderr.
WalkResult Walk(Translation& translation, const InputFile& file, const WalkOptions& options,
                Progress& progress, const std::function<bool(bool isShort)>& visit);

}  // namespace host
