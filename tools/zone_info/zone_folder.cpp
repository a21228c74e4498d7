#include "zone_folder.h"

#include <utility>

#include "tzif.h"

namespace zone_info {

namespace {

bool IsLeftOut(const std::string& name) {
  return name.starts_with("posix/") || name.starts_with("right/") || name == "posixrules" ||
         name == "localtime";
}

}  // namespace

ZoneChanges ZonesInFolder(const std::filesystem::path& folder) {
  ZoneChanges zones;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::string const name = entry.path().lexically_relative(folder).generic_string();
    if (IsLeftOut(name)) continue;
    std::vector<QvZoneChange> changes = ChangesInFile(entry.path().string());
    if (!changes.empty()) zones.emplace(name, std::move(changes));
  }
  return zones;
}

}  // namespace zone_info
