// Seconds as the clock of the measurement showed them.
#pragma once

#include <cstdint>
#include <string>

namespace host {

// RFC 3339 with the offset of the zone in force: 2024-06-21T12:00:00+02:00. Empty for 0 and below,
// which stand for no time.
std::string LocalTimeText(std::int32_t seconds);

}  // namespace host
