// Seconds as the clock of the measurement showed them, by the zone of the host.
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/stamped_items.h"
#include "support/translation.h"

namespace test {
namespace {

// What qvslm makes of a level mark's stamp.
nlohmann::ordered_json Local(const Clock& clock, const std::string& zone) {
  TempFile const file(Startable(General().Item(5, MarkAt(clock)).EndOfData()));
  auto const marks =
      Objects(RunQvslm({"dump", "--records", "LevelMark", file.Path()}, {.zone = zone}));
  return marks.at(0).at("RecordTimeLocal");
}

TEST(StampText, HasTheOffsetThatWasInForce) {
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "Europe/Berlin"), "2024-01-05T07:08:09+01:00");
  EXPECT_EQ(Local({2024, 7, 5, 7, 8, 9}, "Europe/Berlin"), "2024-07-05T07:08:09+02:00");
  EXPECT_EQ(Local({2024, 12, 31, 23, 59, 59}, "Australia/Sydney"), "2024-12-31T23:59:59+11:00");
}

TEST(StampText, OffsetsOfPartsOfAnHour) {
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "America/St_Johns"), "2024-01-05T07:08:09-03:30");
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "Asia/Kathmandu"), "2024-01-05T07:08:09+05:45");
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "XXX0:30"), "2024-01-05T07:08:09-00:30");
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "XXX-0:30"), "2024-01-05T07:08:09+00:30");
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "XXX12"), "2024-01-05T07:08:09-12:00");
  EXPECT_EQ(Local({2024, 1, 5, 7, 8, 9}, "XXX-14"), "2024-01-05T07:08:09+14:00");
}

// 0 and below stand for no time.
TEST(StampText, BeginsBehind1970) {
  EXPECT_EQ(Local({1970, 1, 1, 0, 0, 1}, "UTC"), "1970-01-01T00:00:01+00:00");
  EXPECT_TRUE(Local({1970, 1, 1, 0, 0, 0}, "UTC").is_null());
  EXPECT_TRUE(Local({1970, 1, 1, 0, 30, 0}, "XXX-1").is_null());
  EXPECT_EQ(Local({1970, 1, 1, 0, 0, 0}, "XXX1"), "1970-01-01T00:00:00-01:00");
}

TEST(StampText, EndsWith32Bits) {
  EXPECT_EQ(Local({2038, 1, 19, 3, 14, 7}, "UTC"), "2038-01-19T03:14:07+00:00");
  EXPECT_EQ(Local({2038, 1, 19, 4, 14, 7}, "XXX-1"), "2038-01-19T04:14:07+01:00");
}

}  // namespace
}  // namespace test
