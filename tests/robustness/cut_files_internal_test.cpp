// Files that a stopped transfer cut, and files whose last sectors a card never got.
//
// Linked against the objects, for the place in the file that each step leaves is opaque to hosts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "robustness/damage_check.h"
#include "robustness/every_sample.h"
#include "samples/sample_check.h"

namespace test {
namespace {

constexpr std::size_t kPositionsInLargeSamples = 150;

class CutFiles : public testing::TestWithParam<std::string> {};

// Cut to each length from the whole file down to nothing. Most are too short for the look at their
// tail, and cannot be translated; they can all be counted.
TEST_P(CutFiles, EndWithinTheirSize) {
  DamageCheck check(SamplePath(GetParam()));
  ASSERT_EQ(check.Try(check.Bytes().size(), true), "");
  std::vector<std::size_t> const lengths = check.Positions(kPositionsInLargeSamples);
  for (auto length = lengths.rbegin(); length != lengths.rend(); ++length) {
    check.File().Resize(*length);
    ASSERT_EQ(check.Try(*length, false), "") << "cut to " << *length << " bytes";
  }
}

// Erased from each position up to the results block at the end: the start finds what it looks for,
// and the walk comes to bytes that are none of the sample's.
TEST_P(CutFiles, DeliverWhatStandsBeforeErasedSectors) {
  DamageCheck check(SamplePath(GetParam()));
  std::vector<std::size_t> const positions = check.Positions(kPositionsInLargeSamples);
  std::size_t end = check.TailBegin();
  for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
    if (*position >= end) continue;
    check.File().Write(*position, std::string(end - *position, '\xFF'));
    end = *position;
    ASSERT_EQ(check.Try(*position, true), "") << "erased from " << *position;
  }
  // Half of the items stand before the erased bytes in the mean.
  EXPECT_GT(check.Compared(), static_cast<long>(positions.size()) / 2);
}

INSTANTIATE_TEST_SUITE_P(Samples, CutFiles, testing::ValuesIn(SampleNames()), TestName);

}  // namespace
}  // namespace test
