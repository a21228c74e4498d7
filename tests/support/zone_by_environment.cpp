#include <cstdlib>
#include <ctime>

#include "support/scoped_zone.h"

namespace test {

void SetZone(const std::optional<std::string>& name) {
  name ? setenv("TZ", name->c_str(), 1) : unsetenv("TZ");
  tzset();
}

std::optional<std::string> CurrentZone() {
  const char* const name = std::getenv("TZ");
  return name == nullptr ? std::nullopt : std::optional<std::string>(name);
}

}  // namespace test
