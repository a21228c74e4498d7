// What --help shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

// The lines for one command, or for all of them without a name.
std::vector<std::string> HelpText(std::string_view command);

// The names and value of an option as help and manual show them: "-o, --output PICTURE".
struct OptionInfo;
std::string OptionSynopsis(const OptionInfo& option);

}  // namespace host
