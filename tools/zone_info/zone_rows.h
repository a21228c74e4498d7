// The zones that the program carries along; zone_writer writes the rows from the zones of the
// machine that builds it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zone_info {

struct ZoneKind {
  std::int32_t offset;    // seconds to add to UTC
  std::int32_t daylight;  // 1 for daylight time
};

struct ZoneRow {
  std::string_view name;  // rows are in the order of names
  std::int64_t start;     // its second change, in seconds since 1970; the first is before all time
  std::size_t first;      // of its changes in kZoneGaps and kZoneKindNumbers
  std::size_t count;
};

extern const ZoneKind kZoneKinds[];
// For each change the seconds since the one before it, 0 for the first two of a zone, and what holds
// from then on.
extern const std::uint32_t kZoneGaps[];
extern const std::uint16_t kZoneKindNumbers[];
extern const ZoneRow kZoneRows[];
extern const std::size_t kZoneCount;

}  // namespace zone_info
