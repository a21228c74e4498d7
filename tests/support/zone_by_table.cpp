#include <stdexcept>

#include "qvslm_zone.h"
#include "support/scoped_zone.h"
#include "tzif.h"

namespace test {
namespace {

std::optional<std::string> current;
std::vector<QvZoneChange> changes;

}  // namespace

void SetZone(const std::optional<std::string>& name) {
  current = name;
  QvUseZone(nullptr, 0);
  if (!name) return;
  changes = zone_info::ChangesInFile("/usr/share/zoneinfo/" + *name);
  if (changes.empty()) throw std::runtime_error("there is no zone " + *name);
  QvUseZone(changes.data(), changes.size());
}

std::optional<std::string> CurrentZone() {
  return current;
}

}  // namespace test
