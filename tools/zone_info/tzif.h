// Time zones as the system keeps them, one compiled file a zone (TZif, RFC 8536; on Debian in
// /usr/share/zoneinfo), turned into tables of changes for QvUseZone.
//
// Read are files of version 2 and later: their part of 64 bits, and the rule in their last line,
// which is written out to the end of 2100. Files that count leap seconds are none that a clock of
// POSIX can go by. What is read decides alone: no environment, no other file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvslm_zone.h"

namespace zone_info {

// The changes in the order of time, each unlike the one before it; the first one says what was
// before all others. Empty where the bytes are no whole file of this kind.
std::vector<QvZoneChange> ChangesOf(std::string_view bytes);

// The same of a file; empty, too, where it cannot be read.
std::vector<QvZoneChange> ChangesInFile(const std::string& path);

}  // namespace zone_info
