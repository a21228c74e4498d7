// Samples of band items with the records that own them, for each family of instruments, and of a
// night in which the clocks change.
#pragma once

#include "sample.h"

namespace samples {

Sample BandsGeneral(const std::string& name);
Sample BandsModel431(const std::string& name);
Sample BandsModel442(const std::string& name);

// From 22 to 6 o'clock. The instrument's clock goes on in summer time, so that a record's time in
// the zone is its stamp less the zone's summer offset: UTC+2 in Europe/Berlin, UTC-4 in
// America/New_York.
Sample NightInEurope(const std::string& name);
Sample NightInAmerica(const std::string& name);

}  // namespace samples
