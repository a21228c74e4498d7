// The C library of Windows knows UTC, and no other zone by its name.
#include <cstdlib>
#include <ctime>
#include <stdexcept>

#include "support/scoped_zone.h"

namespace test {

void SetZone(const std::optional<std::string>& name) {
  if (name && *name != "UTC") throw std::runtime_error("there is no zone " + *name);
  _putenv_s("TZ", name ? "UTC0" : "");
  _tzset();
}

std::optional<std::string> CurrentZone() {
  return std::getenv("TZ") == nullptr ? std::nullopt : std::optional<std::string>("UTC");
}

}  // namespace test
