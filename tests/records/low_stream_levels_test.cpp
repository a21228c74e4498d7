// Samples of two levels whose first comes out at or below 0, so that they count as markers. Their
// detail is then drawn from the second level as it reads, and they take as many bytes as samples.
#include <gtest/gtest.h>

#include <cmath>

#include "support/translation.h"

namespace test {
namespace {

using samples::Body;

TEST(LowStreamLevels, OfTwoLevels) {
  struct {
    const char* wholeDb;
    Body entries;  // 50 dB with 40 as second level; 127 dB with 33
  } const rows[] = {
      {"0", Body().Raw({50, 0, 40, 64, 127, 0, 33, 0})},
      {"1", Body().Raw({50, 40, 127, 33})},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.wholeDb);
    // Kind 4 takes the second level without the offset.
    Translation const run(
        General().Q(81, row.wholeDb).Q(82, "4").Q(227, "-60.0").Stream(6, row.entries).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 16, 15}));
    auto const history = run.As<QvTimeHistory>(1);
    EXPECT_EQ(history.EntryCount, 2);
    EXPECT_EQ(history.FirstLevels[0], 0.0F);  // code (10 - 128) & 0x70
    EXPECT_TRUE(std::signbit(history.FirstLevels[0]));
    EXPECT_EQ(history.SecondLevels[0], 8.0F);  // (40 - 128) & 15
    EXPECT_EQ(history.FirstLevels[1], 67.0F);
    EXPECT_EQ(history.SecondLevels[1], 33.0F);
  }
}

}  // namespace
}  // namespace test
