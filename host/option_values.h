// Values of options, read from their texts. All throw WrongUsage for what is none.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "export.h"

namespace host {

// A whole number from 1 on; the option is named in what is thrown.
std::uint64_t ReadCount(std::string_view option, std::string_view text, std::uint64_t most);

// 2024-06-21, 2024-06-21T08:30 or 2024-06-21T08:30:15, also with a blank for the T. The time of a
// date alone is midnight.
std::tm ReadClock(std::string_view option, const std::string& text);

// Adds the names of a list with commas.
void AddRecordNames(std::vector<std::string>& names, std::string_view list);

// All names that records have, in the order of the table.
std::vector<std::string_view> RecordNames();

// One printable sign, or the word "tab".
char ReadSign(std::string_view option, std::string_view text);

ExportFormat ReadFormat(std::string_view option, std::string_view text);

}  // namespace host
