// qvslm started with stdin, stdout or stderr closed: no file of its own takes their places.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace {

using test::Marks;
using test::Result;
using test::RunProgram;
using test::TempFile;
using test::TempFolder;

constexpr const char* cannotWrite =
    "qvslm: standard output cannot be written: Bad file descriptor\n";

// qvslm in the shell, with its redirections behind it.
Result RunInShell(const std::string& arguments, const TempFolder& temporary) {
  return RunProgram({"sh", "-c", QVSLM_PROGRAM + std::string(" ") + arguments},
                    {.temporary = temporary.Path()});
}

TEST(ClosedStreams, StandardInputCannotBeRead) {
  TempFolder const temporary;
  Result const result = RunInShell("dump - <&-", temporary);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "qvslm: -: the file cannot be read: Bad file descriptor (-302)\n");
  EXPECT_TRUE(temporary.Empty());
}

// Neither the copy nor the file is written to: a cut stream would meet its own records as data.
TEST(ClosedStreams, StandardOutputCannotBeWritten) {
  TempFolder const temporary;
  TempFile const file(Marks(3000));
  for (const std::string& source : {"- <" + file.Path(), file.Path() + " <&-"}) {
    for (const char* const command : {"dump ", "info "}) {
      Result const result = RunInShell(command + source + " >&-", temporary);
      EXPECT_EQ(result.exitCode, 1) << source;
      EXPECT_THAT(result.err, testing::EndsWith(cannotWrite)) << source;
      EXPECT_TRUE(temporary.Empty()) << source;
    }
  }
  EXPECT_EQ(test::Contents(file.Path()), Marks(3000).Bytes());
  EXPECT_EQ(RunInShell("--help >&-", temporary).exitCode, 1);
  EXPECT_EQ(RunInShell("--version >&-", temporary).err, cannotWrite);
}

// Errors and progress are lost, and go nowhere else.
TEST(ClosedStreams, StandardErrorIsNotNeeded) {
  TempFolder const temporary;
  TempFile const file(Marks());
  Result const result = RunInShell("dump " + file.Path() + " 2>&-", temporary);
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(test::Objects(result).size(), 300u);
  Result const copied = RunInShell("dump - 2>&- < " + file.Path(), temporary);
  EXPECT_EQ(copied.exitCode, 3);
  EXPECT_EQ(test::Objects(copied).size(), 300u);
  EXPECT_EQ(test::Contents(file.Path()), Marks().Bytes());
}

TEST(ClosedStreams, AllOfThem) {
  TempFolder const temporary;
  TempFile const file(Marks());
  EXPECT_EQ(RunInShell("dump " + file.Path() + " <&- >&- 2>&-", temporary).exitCode, 1);
  EXPECT_EQ(test::Contents(file.Path()), Marks().Bytes());
}

}  // namespace
