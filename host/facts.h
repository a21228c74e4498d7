// What is found out of a file, by name, for a screen as well as for programs.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace host {

using Facts = nlohmann::ordered_json;

// On one line. Names of files may be no UTF-8.
inline std::string FactsLine(const Facts& facts) {
  constexpr int oneLine = -1;
  return facts.dump(oneLine, ' ', false, Facts::error_handler_t::replace);
}

}  // namespace host
