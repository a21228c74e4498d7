// How the blocks of lists 21 and 27 follow one another, and how their lists end: both alike.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/item_bodies.h"
#include "support/stamped_items.h"
#include "support/steps.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

class ListBlocks : public testing::TestWithParam<int> {
 protected:
  bool IsSpectrum() const { return GetParam() == 21; }
  int Code() const { return IsSpectrum() ? QV_TIMED_SPECTRUM : QV_FIELD_HISTORY; }
  int Length() const { return IsSpectrum() ? 6 : 2; }
  // A block of a level and a half decibel: in a spectrum behind a byte and a duration, in a history
  // alone, where the second byte counts twice.
  Body Block(int level) const {
    return IsSpectrum() ? Body().Raw({1, 0, 0, 0, level, 128}) : Body().Raw({level, 64});
  }
  float LevelOf(const Step& step) const {
    return IsSpectrum() ? Translation::Copy<QvTimedSpectrum>(step).Level
                        : Translation::Copy<QvFieldHistory>(step).Level;
  }
  unsigned IndexOf(const Step& step) const {
    return IsSpectrum() ? Translation::Copy<QvTimedSpectrum>(step).RecordIndex
                        : Translation::Copy<QvFieldHistory>(step).RecordIndex;
  }
  // Type and length, and blocks without an end.
  std::string Opened(const std::vector<Body>& blocks) const {
    std::string bytes = Body().U8(GetParam()).U8(Length()).Bytes();
    for (const Body& block : blocks) bytes += block.Bytes();
    return bytes;
  }
  // So many steps are records of the list, counted from 1 on, with these levels.
  void ExpectLevels(const std::vector<Step>& steps, const std::vector<float>& levels) const {
    ASSERT_EQ(steps.size(), levels.size());
    for (std::size_t i = 0; i < levels.size(); ++i) {
      EXPECT_EQ(steps[i].status, QV_OK) << i;
      ASSERT_EQ(steps[i].Code(), Code()) << i;
      EXPECT_EQ(LevelOf(steps[i]), levels[i]) << i;
      EXPECT_EQ(IndexOf(steps[i]), i + 1) << i;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Types, ListBlocks, testing::Values(21, 27),
                         testing::PrintToStringParamName());

TEST_P(ListBlocks, EachStepTakesOne) {
  Translation const run(
      General().List(GetParam(), Length(), {Block(60), Block(61), Block(62)}).EndOfData());
  ExpectLevels(run.Records(Code()), {60.5F, 61.5F, 62.5F});
  EXPECT_EQ(run.steps.size(), 4U);
}

TEST_P(ListBlocks, AZeroWhereTheNextWouldBeginEndsThem) {
  Translation const run(General()
                            .List(GetParam(), Length(), {Block(60)})
                            .Item(5, MarkAt({2024, 6, 21}))
                            .List(GetParam(), Length(), {Block(61)})
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{Code(), QV_LEVEL_MARK, Code(), QV_END}));
  ExpectLevels(run.Records(Code()), {60.5F, 61.5F});
}

// Nothing is read of them, so what stands first in the buffer decides: the item before.
TEST_P(ListBlocks, OfNoLengthDoNotEndBehindAnItem) {
  Translation const run(General()
                            .Item(kSkipped, Body().Raw({1, 2, 3}))
                            .Raw(Body().U8(GetParam()).U8(0).Bytes())
                            .EndOfData(),
                        {.mostSteps = 9});
  EXPECT_EQ(run.steps.size(), 9U);
  for (const Step& step : run.steps) EXPECT_EQ(step.status, QV_OK);
}

// Without the 0 of the list's end the last block is read again and again.
TEST_P(ListBlocks, CutBehindOneRepeatTheLast) {
  ExpectLevels(StepsToTheEnd(Opened({Block(60), Block(70)}), 5),
               {60.5F, 70.5F, 70.5F, 70.5F, 70.5F});
}

TEST_P(ListBlocks, CutWithinOneKeepTheEndOfTheOneBefore) {
  std::string const bytes = Opened({Block(60), Block(70)});
  ExpectLevels(StepsToTheEnd(bytes.substr(0, bytes.size() - 1), 4), {60.5F, 70.5F, 70.5F, 70.5F});
}

TEST_P(ListBlocks, CutBeforeTheirLengthAreABadLength) {
  auto const steps = StepsToTheEnd(Body().U8(GetParam()).Bytes(), 2);
  EXPECT_EQ(Statuses(steps), (std::vector<int>{QV_BAD_LENGTH, QV_BAD_LENGTH}));
  EXPECT_EQ(CodesOf(steps), (std::vector<int>{QV_NO_RECORD, QV_NO_RECORD}));
}

}  // namespace
}  // namespace test
