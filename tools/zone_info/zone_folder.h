// All time zones of a folder such as /usr/share/zoneinfo.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "qvslm_zone.h"

namespace zone_info {

using ZoneChanges = std::map<std::string, std::vector<QvZoneChange>>;

// By their names in the order of these. Copies of the others are left out, and so are those that
// count leap seconds.
ZoneChanges ZonesInFolder(const std::filesystem::path& folder);

}  // namespace zone_info
