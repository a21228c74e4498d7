// zone_writer FOLDER FILE: writes all zones of a folder such as /usr/share/zoneinfo as a source,
// for programs on systems whose C library knows no zone by its name. What many zones share stands
// once: their changes as gaps in seconds and numbers of kinds, and zones that have other names alone.
#include <algorithm>
#include <cstdio>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "zone_folder.h"

namespace {

using Changes = std::vector<QvZoneChange>;
using Zones = zone_info::ZoneChanges;
using Kind = std::pair<std::int32_t, std::int32_t>;  // offset, daylight

Kind KindOf(const QvZoneChange& change) {
  return {change.Offset, change.Daylight};
}

bool IsAlike(const Changes& a, const Changes& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const QvZoneChange& one, const QvZoneChange& other) {
                      return one.From == other.From && KindOf(one) == KindOf(other);
                    });
}

class Writer {
 public:
  Writer(const Zones& zones, std::FILE* out) : zones_(zones), out_(out) {}

  bool Write() {
    for (const auto& [name, changes] : zones_) {
      if (!Place(name, changes)) return false;
    }
    std::fputs("// Written by zone_writer.\n#include \"zone_rows.h\"\n\nnamespace zone_info {\n",
               out_);
    List("ZoneKind kZoneKinds", kinds_,
         [this](const Kind& kind) { std::fprintf(out_, "{%d,%d}", kind.first, kind.second); });
    List("std::uint32_t kZoneGaps", gaps_,
         [this](std::uint32_t gap) { std::fprintf(out_, "%lu", static_cast<unsigned long>(gap)); });
    List("std::uint16_t kZoneKindNumbers", numbers_,
         [this](std::size_t number) { std::fprintf(out_, "%zu", number); });
    List("ZoneRow kZoneRows", rows_, [this](const Row& row) {
      std::fprintf(out_, "{\"%s\",%lld,%zu,%zu}", row.name.c_str(),
                   static_cast<long long>(row.start), row.first, row.count);
    });
    std::fprintf(out_, "\nconstexpr std::size_t kZoneCount = %zu;\n\n}  // namespace zone_info\n",
                 rows_.size());
    return true;
  }

 private:
  struct Row {
    std::string name;
    std::int64_t start;
    std::size_t first;
    std::size_t count;
  };

  // False for changes that the form cannot hold.
  bool Place(const std::string& name, const Changes& changes) {
    for (const Row& row : rows_) {
      if (!IsAlike(zones_.at(row.name), changes)) continue;
      rows_.push_back({name, row.start, row.first, row.count});
      return true;
    }
    rows_.push_back({name, changes.size() > 1 ? changes[1].From : 0, gaps_.size(), changes.size()});
    for (std::size_t i = 0; i < changes.size(); ++i) {
      std::int64_t const gap = i > 1 ? changes[i].From - changes[i - 1].From : 0;
      if (gap < 0 || gap > std::numeric_limits<std::uint32_t>::max()) return false;
      gaps_.push_back(static_cast<std::uint32_t>(gap));
      numbers_.push_back(NumberOf(KindOf(changes[i])));
    }
    return kinds_.size() <= std::numeric_limits<std::uint16_t>::max();
  }

  std::size_t NumberOf(const Kind& kind) {
    auto const found = std::find(kinds_.begin(), kinds_.end(), kind);
    if (found == kinds_.end()) kinds_.push_back(kind);
    return static_cast<std::size_t>(std::find(kinds_.begin(), kinds_.end(), kind) - kinds_.begin());
  }

  template <class T, class WriteOne>
  void List(const char* what, const std::vector<T>& list, WriteOne write) {
    std::fprintf(out_, "\nconstexpr %s[] = {\n", what);
    for (std::size_t i = 0; i < list.size(); ++i) {
      write(list[i]);
      std::fputs(i % 16 == 15 ? ",\n" : ",", out_);
    }
    std::fputs("};\n", out_);
  }

  const Zones& zones_;
  std::FILE* out_;
  std::vector<Kind> kinds_;
  std::vector<std::uint32_t> gaps_;
  std::vector<std::size_t> numbers_;
  std::vector<Row> rows_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("zone_writer FOLDER FILE\n", stderr);
    return 2;
  }
  Zones const zones = zone_info::ZonesInFolder(argv[1]);
  if (zones.empty()) {
    std::fprintf(stderr, "zone_writer: no compiled time zones in %s\n", argv[1]);
    return 1;
  }
  std::FILE* const out = std::fopen(argv[2], "w");
  bool const written = out != nullptr && Writer(zones, out).Write();
  if (!written || std::fclose(out) != 0) {
    std::fprintf(stderr, "zone_writer: %s cannot be written\n", argv[2]);
    return 1;
  }
  return 0;
}
