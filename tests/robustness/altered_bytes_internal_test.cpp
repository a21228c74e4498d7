// Files of which one byte is another.
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

constexpr std::size_t kPositionsInLargeSamples = 60;
constexpr char kValues[] = {'\x00', '\x7F', '\x80', '\xFF'};
// The start reads a general file from 4999 bytes before its end at the farthest, and what a jump
// and a line add to that.
constexpr std::size_t kFarthestTail = 5200;

class AlteredBytes : public testing::TestWithParam<std::string> {};

TEST_P(AlteredBytes, LeaveTheRecordsBeforeThem) {
  DamageCheck check(SamplePath(GetParam()));
  std::size_t const size = check.Bytes().size();
  std::size_t const tail = size < kFarthestTail ? 0 : size - kFarthestTail;
  for (std::size_t const position : check.Positions(kPositionsInLargeSamples)) {
    char const original = check.Bytes()[position];
    for (char const value : kValues) {
      if (value == original) continue;
      check.File().Write(position, {&value, 1});
      bool const tailIsThere = position < check.TailBegin() && position < tail;
      ASSERT_EQ(check.Try(position, tailIsThere), "")
          << "byte " << position << " as " << static_cast<int>(static_cast<unsigned char>(value));
    }
    check.File().Write(position, {&original, 1});
  }
  EXPECT_EQ(check.Try(size, true), "");
  EXPECT_GT(check.Compared(), 0);
}

INSTANTIATE_TEST_SUITE_P(Samples, AlteredBytes, testing::ValuesIn(SampleNames()), TestName);

}  // namespace
}  // namespace test
