// Which records a command shows: by name and by time.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace host {

struct RecordChoice {
  std::vector<std::string> records;  // names; empty for all
  std::optional<std::tm> since;      // local time of the first record that is wanted
  std::optional<std::tm> until;      // local time that a record must come before
};

}  // namespace host
