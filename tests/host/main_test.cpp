// How a run of qvslm over several files ends: when its output has no place to go to, and when the
// one who reads it has gone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"

namespace {

using test::Marks;
using test::Result;
using test::RunProgram;
using test::TempFile;

constexpr const char* kMissing = "no/such/file";
// More than a pipe holds.
constexpr int kManyMarks = 9000;

// In bash: qvslm with these arguments, then what its output goes to; its exit code is that of all.
Result RunInto(const std::string& arguments, const std::string& target) {
  return RunProgram(
      {"bash", "-c", "set -o pipefail; " + std::string(QVSLM_PROGRAM) + " " + arguments + target});
}

// The file behind is not even looked for: nothing is said of it.
TEST(Main, NoFurtherFileIsReadWhenNothingCanBeWritten) {
  TempFile const file(Marks(kManyMarks).EndOfData());
  Result const result = RunInto("dump " + file.Path() + " " + kMissing, " > /dev/full");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: standard output cannot be written: No space left on device\n");
}

TEST(Main, NoFurtherFileIsReadWhenTheReaderHasGone) {
  TempFile const file(Marks(kManyMarks).EndOfData());
  Result const result = RunInto("dump " + file.Path() + " " + kMissing, " | head -n 1");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
}

// Both are told, and the worse of the two is what the run ends with.
TEST(Main, AnOutputThatCannotBeWrittenIsWorseThanACutFile) {
  TempFile const cut(Marks());
  Result const result = RunInto("info " + cut.Path(), " > /dev/full");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(
      result.err,
      testing::EndsWith("qvslm: standard output cannot be written: No space left on device\n"));
}

}  // namespace
