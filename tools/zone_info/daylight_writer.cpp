// daylight_writer FOLDER: writes for TypeScript where the zones of a folder such as
// /usr/share/zoneinfo call another time daylight time than a simple rule does.
//
// A browser tells how far a zone's clock is ahead of UTC, and not whether it calls that daylight
// time. By the rule it does where the clock goes back within a year. Most zones do so throughout;
// the others are written down with the instants from which on the rule's answer is to be reversed,
// and again is not, in turns.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "posix_zone.h"
#include "zone_folder.h"

namespace {

using Changes = std::vector<QvZoneChange>;
using Instants = std::vector<std::int64_t>;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kYear = 366 * kDay;
// What zone_changes.ts looks at; the rule is its daylightByRule.
constexpr std::int64_t kFirst = -31 * kDay;
constexpr int kYearBehind = 2070;

// From the first instant on; what the zone says of daylight time alone is no change.
Changes ChangesOfOffset(const Changes& changes) {
  Changes found;
  for (const QvZoneChange& change : changes) {
    if (change.From <= kFirst) found.clear();
    if (!found.empty() && found.back().Offset == change.Offset) continue;
    found.push_back(change);
    if (change.From < kFirst) found.back().From = kFirst;
  }
  return found;
}

bool IsDaylightByRule(const Changes& offsets, std::size_t at) {
  if (at + 1 == offsets.size()) return false;
  const QvZoneChange& next = offsets[at + 1];
  return next.Offset < offsets[at].Offset && next.From - offsets[at].From < kYear;
}

Instants TurnsOf(const Changes& changes) {
  std::int64_t const end = zone_info::StartOfYear(kYearBehind);
  Changes const offsets = ChangesOfOffset(changes);
  Instants turns;
  std::size_t at = 0;
  for (std::size_t i = 0; i < changes.size() && changes[i].From < end; ++i) {
    // What ended before the first instant.
    if (i + 1 < changes.size() && changes[i + 1].From <= kFirst) continue;
    while (at + 1 < offsets.size() && offsets[at + 1].From <= changes[i].From) ++at;
    bool const isReversed = turns.size() % 2 == 1;
    bool const isDaylight = changes[i].Daylight != 0;
    if (IsDaylightByRule(offsets, at) != (isDaylight != isReversed)) {
      turns.push_back(std::max(changes[i].From, kFirst));
    }
  }
  return turns;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("daylight_writer FOLDER\n", stderr);
    return 2;
  }
  std::map<Instants, std::string> namesOf;
  for (const auto& [name, changes] : zone_info::ZonesInFolder(argv[1])) {
    Instants const turns = TurnsOf(changes);
    if (turns.empty()) continue;
    std::string& names = namesOf[turns];
    names += names.empty() ? name : " " + name;
  }
  std::puts("// Written by daylight_writer from the time zones of this machine.");
  std::puts(
      "/** Names of zones, and from when on they call the other time daylight time, in turns. */");
  std::puts("export const daylightTurns: readonly (readonly [string, readonly number[]])[] = [");
  for (const auto& [turns, names] : namesOf) {
    std::printf("  [\"%s\", [", names.c_str());
    for (std::size_t i = 0; i < turns.size(); ++i) {
      std::printf(i == 0 ? "%lld" : ", %lld", static_cast<long long>(turns[i]));
    }
    std::puts("]],");
  }
  std::puts("];");
  return 0;
}
