// The files that are measured. Each is written once, into the folder that $QVSLM_BENCH_FILES names,
// or into a temporary folder that goes when the program ends.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "bulk_files.h"

namespace bench {

enum class Season { kWinter, kSummer };
const char* SeasonName(Season season);

// Records of a family's file: enough for some milliseconds, all within one season.
int RecordsOf(samples::Family family);
std::string FamilyFile(samples::Family family, Season season = Season::kWinter);
// Two years of a family, a record a minute: more than the caches of a processor hold.
inline constexpr int kRecordsOfYears = 1000000;
std::string YearsFile(samples::Family family);
std::string MixedFile(int megabytes);

// The path of a file in the folder. Another benchmark's file is written by its own function, given
// the path, unless it is there already.
std::string KeptFile(const std::string& name,
                     const std::function<void(const std::string& path)>& write);

std::int64_t FileSize(const std::string& path);

}  // namespace bench
