// qvslm dump: one JSON object a line for each record, or one short line for the eye.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "outcome.h"
#include "output.h"

namespace host {

struct DumpOptions {
  std::vector<std::string> records;    // names of the records to write; empty for all
  std::optional<std::uint64_t> limit;  // most records to write of each file
  bool census = true;                  // count before the translation
  bool cut = false;                    // also records that the file does not wholly hold
  bool nameFile = false;               // tell with each record which file it is from
  bool brief = false;                  // a line for the eye in place of an object
};

Outcome Dump(const std::string& fileName, const DumpOptions& options, Output& output);

}  // namespace host
