// The walk of qvslm_walk.h in a program of C.
#include "api/walk_in_c.h"

#include <gtest/gtest.h>

#include "support/walker.h"

namespace test {
namespace {

TEST(WalkInC, IsTheSame) {
  TempFile const whole(Long(Plain()));
  WalkInCResult const all = WalkInC(whole.CPath());
  EXPECT_EQ(all.Whole, 3U);
  EXPECT_EQ(all.Others, 0U);
  EXPECT_EQ(all.LevelOfMarks, 65.5);
  EXPECT_EQ(all.WasWhole, 1);
  EXPECT_EQ(all.Walk.End, QV_WALK_AT_END);
  EXPECT_STREQ(all.Why, "the end of the data was reached");
  TempFile const cut(TwoMarks(30));
  WalkInCResult const part = WalkInC(cut.CPath());
  EXPECT_EQ(part.Whole, 2U);
  EXPECT_EQ(part.Others, 1U);
  EXPECT_EQ(part.LevelOfMarks, 65.5);
  EXPECT_EQ(part.WasWhole, 0);
  EXPECT_EQ(part.Walk.End, QV_WALK_CUT);
  EXPECT_EQ(part.Walk.CensusStatus, QV_BAD_LENGTH);
  EXPECT_STREQ(part.Why, "the file ends before the end of its data");
  WalkInCResult const none = WalkInC("/no such file");
  EXPECT_EQ(none.Whole + none.Others, 0U);
  EXPECT_EQ(none.Walk.End, QV_WALK_NOT_STARTED);
  EXPECT_STREQ(none.Why, "the file cannot be opened");
}

}  // namespace
}  // namespace test
