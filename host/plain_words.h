// Counts, sizes and lengths of time in plain words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host {

// "1 file", "3 files".
std::string Counted(std::uint64_t count, std::string_view one, std::string_view many);

// "48 intervals" for 48 and the name of a record or of a count of the census.
std::string CountedRecords(std::uint64_t count, std::string_view name);

// "an interval" for the name of a record.
std::string OneRecord(std::string_view name);

// 812 bytes, 30.1 kB, 30.0 MB.
std::string SizeText(std::uint64_t bytes);

// 0:07, 12:30, 1:05:00.
std::string LengthText(std::uint64_t seconds);

}  // namespace host
