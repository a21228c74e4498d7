// The reader of compiled zones, on files written here byte by byte, whole and broken.
#include "tzif.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include "support/temp_folder.h"
#include "support/utc.h"

namespace test {
namespace {

constexpr std::int64_t kLongAgo = std::numeric_limits<std::int64_t>::min();

struct Kind {
  std::int32_t offset;
  int daylight;
};

struct Change {
  std::int64_t at;
  int kind;
};

std::string Number(std::int64_t number, int size) {
  std::string bytes;
  for (int at = size - 1; at >= 0; --at) bytes += static_cast<char>(number >> (8 * at) & 0xFF);
  return bytes;
}

struct Counts {
  int utc = 0, standard = 0, leap = 0, changes = 0, kinds = 0, letters = 0;
};

std::string Header(const Counts& counts, char version = '2') {
  std::string bytes = std::string("TZif") + version + std::string(15, '\0');
  for (int const count :
       {counts.utc, counts.standard, counts.leap, counts.changes, counts.kinds, counts.letters}) {
    bytes += Number(count, 4);
  }
  return bytes;
}

// A file of version 2 whose part of 32 bits has a change and a kind that no reader of it should see.
std::string File(const std::vector<Kind>& kinds, const std::vector<Change>& changes,
                 const std::string& rule, int leapSeconds = 0) {
  std::string bytes = Header({1, 1, 1, 1, 1, 4});
  bytes += std::string(4 + 1 + 6 + 4 + 8 + 1 + 1, '\x55');
  Counts counts;
  counts.changes = static_cast<int>(changes.size());
  counts.kinds = static_cast<int>(kinds.size());
  counts.letters = 4;
  counts.leap = leapSeconds;
  counts.utc = counts.standard = counts.kinds;
  bytes += Header(counts);
  for (const Change& change : changes) bytes += Number(change.at, 8);
  for (const Change& change : changes) bytes += Number(change.kind, 1);
  for (const Kind& kind : kinds) bytes += Number(kind.offset, 4) + Number(kind.daylight, 1) + '\0';
  bytes += std::string("XYZ\0", 4);
  bytes += std::string(static_cast<std::size_t>(leapSeconds) * 12, '\0');
  bytes += std::string(kinds.size() * 2, '\0');
  return bytes + '\n' + rule + '\n';
}

using Row = std::tuple<std::int64_t, int, int>;

std::vector<Row> Rows(const std::string& bytes) {
  std::vector<Row> rows;
  for (const QvZoneChange& change : zone_info::ChangesOf(bytes)) {
    rows.emplace_back(change.From, change.Offset, change.Daylight);
  }
  return rows;
}

const std::vector<Kind> kKinds = {{-100, 0}, {3600, 0}, {7200, 1}};

TEST(TzifFile, GivesItsChanges) {
  EXPECT_EQ(
      Rows(File(kKinds, {{-3000000000, 1}, {500, 2}, {4000000000, 1}}, "")),
      (std::vector<Row>{
          {kLongAgo, -100, 0}, {-3000000000, 3600, 0}, {500, 7200, 1}, {4000000000, 3600, 0}}));
}

TEST(TzifFile, LeavesOutWhatChangesNothing) {
  EXPECT_EQ(Rows(File({{-100, 0}, {-100, 0}, {50, 0}, {50, 1}},
                      {{1, 1}, {2, 2}, {3, 2}, {4, 3}, {5, 3}}, "")),
            (std::vector<Row>{{kLongAgo, -100, 0}, {2, 50, 0}, {4, 50, 1}}));
}

TEST(TzifFile, BeginsWithTheFirstStandardTime) {
  EXPECT_EQ(Rows(File({{7200, 1}, {3600, 0}}, {{10, 0}}, "")),
            (std::vector<Row>{{kLongAgo, 3600, 0}, {10, 7200, 1}}));
  EXPECT_EQ(Rows(File({{7200, 1}}, {}, "")), (std::vector<Row>{{kLongAgo, 7200, 1}}));
}

TEST(TzifFile, GoesOnByItsRuleToTheEndOf2100) {
  std::int64_t const last = Utc(2025, 3, 30, 1);
  auto const rows = Rows(File(kKinds, {{0, 1}, {last, 2}}, "CET-1CEST,M3.5.0,M10.5.0/3"));
  ASSERT_EQ(rows.size(), 3u + 1 + 75 * 2);
  EXPECT_EQ(rows[2], (Row{last, 7200, 1}));
  EXPECT_EQ(rows[3], (Row{Utc(2025, 10, 26, 1), 3600, 0}));
  EXPECT_EQ(rows[4], (Row{Utc(2026, 3, 29, 1), 7200, 1}));
  // The last Sunday of March and October 2100.
  EXPECT_EQ(rows[rows.size() - 2], (Row{4109878800, 7200, 1}));
  EXPECT_EQ(rows.back(), (Row{4128627600, 3600, 0}));
}

// What the rule says holds from the last change on.
TEST(TzifFile, TakesTheLastChangeFromTheRule) {
  EXPECT_EQ(Rows(File(kKinds, {{100, 1}, {200, 2}}, "CET-1")),
            (std::vector<Row>{{kLongAgo, -100, 0}, {100, 3600, 0}}));
  // Of a file without changes, from 1900 on.
  EXPECT_EQ(Rows(File(kKinds, {}, "<+05>-5")),
            (std::vector<Row>{{kLongAgo, -100, 0}, {-2208988800, 18000, 0}}));
}

// Behind the years of the rule nothing is added.
TEST(TzifFile, MayChangeLaterThanItsRuleIsWrittenOut) {
  EXPECT_EQ(Rows(File(kKinds, {{5000000000, 1}}, "CET-1CEST,M3.5.0,M10.5.0/3")),
            (std::vector<Row>{{kLongAgo, -100, 0}, {5000000000, 3600, 0}}));
}

TEST(TzifFile, CutAnywhereIsNone) {
  std::string const whole = File(kKinds, {{-5, 1}, {500, 2}}, "CET-1CEST,0,365/25");
  ASSERT_GT(Rows(whole).size(), 3u);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_TRUE(Rows(whole.substr(0, size)).empty()) << size;
  }
}

TEST(TzifFile, WithAnyByteChangedStaysWithinItsBytes) {
  std::string const whole = File(kKinds, {{-5, 1}, {500, 2}}, "CET-1CEST,M3.5.0,M10.5.0/3");
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (int const value : {0x00, 0x7F, 0x80, 0xFF}) {
      std::string broken = whole;
      broken[at] = static_cast<char>(value);
      auto const rows = Rows(broken);
      for (std::size_t row = 1; row < rows.size(); ++row) {
        ASSERT_LT(std::get<0>(rows[row - 1]), std::get<0>(rows[row])) << at << ' ' << value;
      }
    }
  }
}

TEST(TzifFile, IsNoneWhereItsPartsDoNotFit) {
  std::string const whole = File(kKinds, {{-5, 1}}, "CET-1");
  std::string broken = whole;
  broken[0] = 'x';
  EXPECT_TRUE(Rows(broken).empty()) << "another kind of file";
  broken = whole;
  broken[4] = '\0';
  EXPECT_TRUE(Rows(broken).empty()) << "version 1";
  EXPECT_TRUE(Rows(File({}, {}, "CET-1")).empty()) << "no kind";
  EXPECT_TRUE(Rows(File(kKinds, {{1, 3}}, "CET-1")).empty()) << "a kind that is not there";
  EXPECT_TRUE(Rows(File(kKinds, {{2, 1}, {2, 2}}, "CET-1")).empty()) << "no order of time";
  EXPECT_TRUE(Rows(File({{100000, 0}}, {}, "CET-1")).empty()) << "more than a day ahead";
  EXPECT_TRUE(Rows(File({{0, 2}}, {}, "CET-1")).empty()) << "neither daylight time nor standard";
  EXPECT_TRUE(Rows(File(kKinds, {{1, 1}}, "CET")).empty()) << "a rule without an offset";
  EXPECT_TRUE(Rows(File(kKinds, {{1, 1}}, "CET-1", 1)).empty()) << "leap seconds";
}

TEST(TzifFile, IsReadByItsPath) {
  TempFolder const folder;
  std::string const path = folder.File("zone", File(kKinds, {{500, 1}}, "CET-1"));
  EXPECT_EQ(zone_info::ChangesInFile(path).size(), 2u);
  EXPECT_TRUE(zone_info::ChangesInFile(path + "s").empty());
  EXPECT_TRUE(zone_info::ChangesInFile(folder.Path()).empty());
}

}  // namespace
}  // namespace test
