// qvslm dump: one JSON object a line for each record, or one short line for the eye.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "outcome.h"
#include "output.h"
#include "record_choice.h"

namespace host {

struct DumpOptions {
  RecordChoice choice;
  std::optional<std::uint64_t> limit;  // most records to write of each file
  bool census = true;                  // count before the translation
  bool cut = false;                    // also records that the file does not wholly hold
  bool brief = false;                  // a line for the eye in place of an object
  bool raw = false;                    // numbers as they stand in the record
  bool nameFile = false;               // tell with each record which file it is from
};

Outcome Dump(const std::string& fileName, const DumpOptions& options, Output& output);

}  // namespace host
