// --tz: the zone by whose clock times are read and shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using test::Objects;
using test::Result;
using test::RunQvslm;
using test::TempFile;

// A level mark of 21 June 2024, 12:30:00.
const TempFile& Mark() {
  static TempFile const file(test::Startable(test::Marks(1).EndOfData()));
  return file;
}

// The local time of the mark, and its seconds.
std::pair<std::string, int> TimeOf(const Result& result) {
  auto const objects = Objects(result);
  if (objects.empty()) return {};
  return {objects[0].at("RecordTimeLocal"), objects[0].at("RecordTime")};
}

TEST(TimeZone, IsTheOneOfTheOption) {
  constexpr int noonInUtc = 1718973000;
  struct Row {
    const char* zone;
    const char* local;
    int seconds;
  };
  constexpr Row rows[] = {
      {"UTC", "2024-06-21T12:30:00+00:00", noonInUtc},
      {"Europe/Berlin", "2024-06-21T12:30:00+02:00", noonInUtc - 2 * 3600},
      {"America/St_Johns", "2024-06-21T12:30:00-02:30", noonInUtc + 9000},
      {"Asia/Kathmandu", "2024-06-21T12:30:00+05:45", noonInUtc - 20700},
  };
  for (const Row& row : rows) {
    // Whatever the environment says.
    for (const char* const environment : {"UTC", "America/New_York"}) {
      Result const result =
          RunQvslm({"dump", "--tz", row.zone, Mark().Path()}, {.zone = environment});
      EXPECT_EQ(TimeOf(result), std::pair(std::string(row.local), row.seconds)) << row.zone;
    }
  }
  EXPECT_EQ(TimeOf(RunQvslm({"dump", Mark().Path()}, {.zone = "Europe/Berlin"})).first,
            "2024-06-21T12:30:00+02:00");
}

// The C library would take them for UTC.
TEST(TimeZone, MustBeKnown) {
  for (const char* const name : {"Europe/Nowhere", "Europe", "CEST-2", "zone.tab", "../UTC",
                                 "/usr/share/zoneinfo/Europe/Berlin"}) {
    Result const result = RunQvslm({"dump", "--tz", name, Mark().Path()});
    EXPECT_EQ(result.exitCode, 2) << name;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, testing::HasSubstr(name));
  }
}

}  // namespace
