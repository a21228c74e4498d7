// What qvslm writes to standard output: whole lines, all of them, or a word about why not.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace test {
namespace {

Result RunInShell(const std::string& command) {
  return RunProgram({"bash", "-c", command});
}

TEST(Output, EveryLineIsEnded) {
  TempFile const file(Marks(1000).EndOfData());
  for (const char* const command : {"dump", "info"}) {
    std::string const out = RunQvslm({command, file.Path()}).out;
    EXPECT_THAT(out, testing::EndsWith("\n")) << command;
    EXPECT_THAT(out, testing::Not(testing::HasSubstr("\n\n"))) << command;
  }
}

// More than buffers hold, in the order of the file.
TEST(Output, NothingIsLostOnTheWay) {
  TempFile const file(Marks(5000).EndOfData());
  auto const objects = Objects(RunQvslm({"dump", file.Path()}));
  ASSERT_EQ(objects.size(), 5001U);
  for (std::size_t i = 0; i < 5000; ++i) ASSERT_EQ(objects[i].at("RecordIndex"), i + 1);
}

constexpr const char* kDiskIsFull =
    "qvslm: standard output cannot be written: No space left on device\n";

// Little waits in a buffer until the end; much fails on the way. Either is told once.
TEST(Output, AFullDiskIsToldOnce) {
  for (int const count : {300, 9000}) {
    TempFile const file(Marks(count).EndOfData());
    for (const char* const command : {" dump ", " info "}) {
      Result const result = RunInShell(QVSLM_PROGRAM + std::string(command) + file.Path() + " " +
                                       file.Path() + " > /dev/full");
      EXPECT_EQ(result.exitCode, 1) << count << command;
      EXPECT_EQ(result.err, kDiskIsFull) << count << command;
    }
  }
}

// A limit on the size of files ends the output in the middle of a line.
TEST(Output, AFileThatMayNotGrowIsTold) {
  TempFile const file(Marks(9000).EndOfData());
  TempFolder const folder;
  std::string const target = folder.Path() + "/out";
  Result const result = RunInShell("trap '' XFSZ; ulimit -f 16; " + std::string(QVSLM_PROGRAM) +
                                   " dump " + file.Path() + " > " + target);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: standard output cannot be written: File too large\n");
  EXPECT_EQ(Contents(target).size(), 16384U);
}

TEST(Output, AReaderThatHasGoneIsNoFault) {
  TempFile const file(Marks(9000).EndOfData());
  Result const result = RunInShell("set -o pipefail; " + std::string(QVSLM_PROGRAM) + " dump " +
                                   file.Path() + " " + file.Path() + " | true");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
}

}  // namespace
}  // namespace test
