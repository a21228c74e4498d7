// qvslm dump: one JSON object a line for each record.
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
  bool nameFile = false;               // a member "file" in each object
};

Outcome Dump(const std::string& fileName, const DumpOptions& options, Output& output);

}  // namespace host
