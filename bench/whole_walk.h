// Whole walks over a file through the exported calls, as a host makes them.
#pragma once

#include <cstdint>
#include <string>

namespace bench {

struct Delivered {
  std::int64_t records = 0;
  std::int64_t bytes = 0;  // sizes of the records delivered
};

// Counts the records of a file. Throws std::runtime_error when the walk fails.
void CountRecords(const std::string& path);

// Translates a file from start to end of data. Throws std::runtime_error when it does not get
// there.
void TranslateFile(const std::string& path);

// Translates a file, and says what was delivered.
Delivered MeasureDelivered(const std::string& path);

}  // namespace bench
