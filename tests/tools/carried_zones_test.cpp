// The zones that a program carries along are those of the machine that built it, all of them.
#include "carried_zones.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>

#include "tzif.h"

namespace {

using Changes = std::vector<QvZoneChange>;
using zone_info::CarriedZone;

constexpr const char* kFolder = "/usr/share/zoneinfo";

void ExpectAlike(const Changes& carried, const Changes& expected) {
  ASSERT_EQ(carried.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(carried[i].From, expected[i].From) << i;
    ASSERT_EQ(carried[i].Offset, expected[i].Offset) << i;
    ASSERT_EQ(carried[i].Daylight, expected[i].Daylight) << i;
  }
}

TEST(CarriedZones, AreThoseOfTheSystem) {
  int zones = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kFolder)) {
    std::string const name = entry.path().lexically_relative(kFolder).generic_string();
    bool const isCopy = name.starts_with("posix/") || name.starts_with("right/") ||
                        name == "posixrules" || name == "localtime";
    Changes const expected = isCopy ? Changes() : zone_info::ChangesInFile(entry.path().string());
    if (expected.empty()) continue;
    SCOPED_TRACE(name);
    ExpectAlike(CarriedZone(name), expected);
    ++zones;
  }
  EXPECT_GT(zones, 400);
}

// In 1996 the summer time of Berlin ended on the 27th of October at 01:00 UTC.
TEST(CarriedZones, TellTheChangesOfAZone) {
  constexpr std::int64_t kEnd = 846378000;
  Changes const berlin = CarriedZone("Europe/Berlin");
  ASSERT_GT(berlin.size(), 100u);
  EXPECT_EQ(berlin.front().From, std::numeric_limits<std::int64_t>::min());
  int found = 0;
  for (const QvZoneChange& change : berlin) {
    if (change.From != kEnd) continue;
    ++found;
    EXPECT_EQ(change.Offset, 3600);
    EXPECT_EQ(change.Daylight, 0);
  }
  EXPECT_EQ(found, 1);
}

TEST(CarriedZones, HaveNoOtherNames) {
  for (const char* const name : {"", "Europe", "Europe/", "europe/berlin", "Europe/Berlin ", "UTC0",
                                 "posix/Europe/Berlin", "right/Europe/Berlin", "localtime"}) {
    EXPECT_TRUE(CarriedZone(name).empty()) << name;
  }
}

}  // namespace
