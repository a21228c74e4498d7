#include "carried_zones.h"

#include <algorithm>
#include <limits>

#include "zone_rows.h"

namespace zone_info {

std::vector<QvZoneChange> CarriedZone(std::string_view name) {
  const ZoneRow* const end = kZoneRows + kZoneCount;
  const ZoneRow* const row = std::find_if(
      kZoneRows, end, [name](const ZoneRow& candidate) { return candidate.name == name; });
  std::vector<QvZoneChange> changes;
  if (row == end) return changes;
  std::int64_t from = row->start;
  for (std::size_t i = row->first; i < row->first + row->count; ++i) {
    from += kZoneGaps[i];
    const ZoneKind& kind = kZoneKinds[kZoneKindNumbers[i]];
    changes.push_back({from, kind.offset, kind.daylight});
  }
  changes.front().From = std::numeric_limits<std::int64_t>::min();
  return changes;
}

}  // namespace zone_info
