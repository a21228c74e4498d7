// A record as one line for the eye.
#pragma once

#include <cstdint>
#include <string>

#include "record_info.h"

namespace host {

// The name of the record, then name and value of what tells something:
//
//   LevelMark  SiteNumber 7  RecordTime 2024-06-21T08:00:30+02:00  LevelOffset 0.00  Level 76.07
//              ...
//
// Times as the clock showed them, levels to two decimals, texts in quotes. Left out are reserved
// bytes, arrays, empty texts, levels and times without a value, and every 0 that says no more than
// that nothing was stored. A line that grows too long ends behind a member with "...".
std::string BriefLine(const record_fields::RecordInfo& info, const std::uint8_t* record);

}  // namespace host
