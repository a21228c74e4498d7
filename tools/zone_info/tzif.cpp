#include "tzif.h"

#include <fstream>
#include <limits>
#include <optional>
#include <sstream>

#include "posix_zone.h"

namespace zone_info {

namespace {

constexpr int kFirstYearOfRule = 1900;
constexpr int kLastYearOfRule = 2100;

// The bytes of a file from its start. Where they end too early, zeros are read and `good` is false.
struct Bytes {
  std::string_view rest;
  bool good = true;

  std::string_view Take(std::size_t count) {
    good = good && count <= rest.size();
    if (!good) return {};
    std::string_view const taken = rest.substr(0, count);
    rest.remove_prefix(count);
    return taken;
  }

  // High byte first.
  std::uint64_t Number(std::size_t size) {
    std::uint64_t number = 0;
    for (char const byte : Take(size)) number = number << 8 | static_cast<unsigned char>(byte);
    return number;
  }
  std::int32_t Signed32() { return static_cast<std::int32_t>(Number(4)); }
  std::int64_t Signed64() { return static_cast<std::int64_t>(Number(8)); }
};

struct Header {
  char version;
  std::uint64_t utcMarks, standardMarks, leapSeconds, changes, kinds, letters;

  // Of the data behind the header.
  std::size_t Size(std::size_t sizeOfTime) const {
    constexpr std::size_t kSizeOfKind = 6;
    return changes * (sizeOfTime + 1) + kinds * kSizeOfKind + letters +
           leapSeconds * (sizeOfTime + 4) + standardMarks + utcMarks;
  }
};

Header ReadHeader(Bytes& bytes) {
  constexpr std::size_t kUnused = 15;
  Header header{};
  bytes.good = bytes.Take(4) == "TZif" && bytes.good;
  header.version = static_cast<char>(bytes.Number(1));
  bytes.Take(kUnused);
  for (std::uint64_t* const count : {&header.utcMarks, &header.standardMarks, &header.leapSeconds,
                                     &header.changes, &header.kinds, &header.letters}) {
    *count = bytes.Number(4);
  }
  return header;
}

struct Kind {
  std::int32_t offset;
  std::int32_t daylight;
};

// The instants, and what holds from each on.
struct Data {
  std::vector<std::int64_t> instants;
  std::vector<std::size_t> kindOf;
  std::vector<Kind> kinds;
};

std::optional<Data> ReadData(Bytes& bytes, const Header& header) {
  constexpr std::int32_t kMostOffset = 26 * 3600;
  constexpr std::size_t kSizeOfTime = 8;
  Bytes data{bytes.Take(header.Size(kSizeOfTime))};
  if (!bytes.good || header.kinds == 0 || header.leapSeconds != 0) return {};
  Data found;
  for (std::uint64_t at = 0; at < header.changes; ++at) {
    found.instants.push_back(data.Signed64());
    if (at > 0 && found.instants[at] <= found.instants[at - 1]) return {};
  }
  for (std::uint64_t at = 0; at < header.changes; ++at) {
    found.kindOf.push_back(data.Number(1));
    if (found.kindOf.back() >= header.kinds) return {};
  }
  for (std::uint64_t at = 0; at < header.kinds; ++at) {
    std::int32_t const offset = data.Signed32();
    auto const daylight = static_cast<std::int32_t>(data.Number(1));
    data.Take(1);  // where its name stands
    if (offset < -kMostOffset || offset > kMostOffset || daylight > 1) return {};
    found.kinds.push_back({offset, daylight});
  }
  return found;
}

// The first kind that is no daylight time; where there is none, the first.
const Kind& KindBefore(const Data& data) {
  for (const Kind& kind : data.kinds) {
    if (kind.daylight == 0) return kind;
  }
  return data.kinds.front();
}

void Add(std::vector<QvZoneChange>& changes, const QvZoneChange& change) {
  // Of two changes at one instant the later one holds.
  if (!changes.empty() && changes.back().From == change.From) changes.pop_back();
  bool const isNews = changes.empty() || changes.back().Offset != change.Offset ||
                      changes.back().Daylight != change.Daylight;
  if (isNews) changes.push_back(change);
}

// From the last instant of the data on, the rule holds.
void AddRule(std::vector<QvZoneChange>& changes, const PosixZone& zone, std::int64_t from) {
  QvZoneChange atStart{};
  std::vector<QvZoneChange> const ruled = ChangesOfYears(zone, kFirstYearOfRule, kLastYearOfRule);
  auto next = ruled.begin();
  while (next != ruled.end() && next->From <= from) atStart = *next++;
  if (next != ruled.begin()) Add(changes, {from, atStart.Offset, atStart.Daylight});
  for (; next != ruled.end(); ++next) Add(changes, *next);
}

}  // namespace

std::vector<QvZoneChange> ChangesOf(std::string_view bytes) {
  constexpr std::size_t kSizeOfOldTime = 4;
  Bytes file{bytes};
  Header const old = ReadHeader(file);
  if (!file.good || old.version < '2') return {};
  file.Take(old.Size(kSizeOfOldTime));
  Header const header = ReadHeader(file);
  std::optional<Data> const data = ReadData(file, header);
  if (!data) return {};

  std::size_t const end = file.rest.find('\n', 1);
  if (file.rest.empty() || file.rest.front() != '\n' || end == std::string_view::npos) return {};
  std::string_view const rule = file.rest.substr(1, end - 1);
  std::optional<PosixZone> const zone = ParsePosixZone(rule);
  if (!rule.empty() && !zone) return {};

  constexpr std::int64_t kLongAgo = std::numeric_limits<std::int64_t>::min();
  Kind const& before = KindBefore(*data);
  std::vector<QvZoneChange> changes = {{kLongAgo, before.offset, before.daylight}};
  for (std::size_t at = 0; at < data->instants.size(); ++at) {
    const Kind& kind = data->kinds[data->kindOf[at]];
    Add(changes, {data->instants[at], kind.offset, kind.daylight});
  }
  std::int64_t const last = data->instants.empty() ? kLongAgo : data->instants.back();
  if (zone) AddRule(changes, *zone, last);
  return changes;
}

std::vector<QvZoneChange> ChangesInFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return ChangesOf(bytes.str());
}

}  // namespace zone_info
