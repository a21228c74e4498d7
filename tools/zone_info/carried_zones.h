// Time zones by their names, for systems whose C library knows none.
#pragma once

#include <string_view>
#include <vector>

#include "qvslm_zone.h"

namespace zone_info {

// The changes of a zone of the tz database, as QvUseZone takes them; empty for a name that is none.
std::vector<QvZoneChange> CarriedZone(std::string_view name);

}  // namespace zone_info
