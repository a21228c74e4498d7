// qvslm between other programs: standard input, pipes, and a reader that goes away.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace {

using test::Marks;
using test::Objects;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::TempFile;
using test::TempFolder;

TEST(Pipe, ReadsStandardInput) {
  TempFolder const temporary;
  test::RunOptions const options = {.input = Marks().EndOfData().Bytes(),
                                    .temporary = temporary.Path()};
  Result const result = RunQvslm({"dump", "-"}, options);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  ASSERT_EQ(Objects(result).size(), 301u);
  EXPECT_EQ(Objects(result).back().at("FileName"), "stdin");
  EXPECT_TRUE(temporary.Empty());
  EXPECT_THAT(RunQvslm({"info", "-"}, options).out, testing::StartsWith("-\n"));
}

TEST(Pipe, ReadsFromAProgram) {
  TempFile const file(Marks(9000).EndOfData());  // more than a pipe holds
  Result const result =
      RunProgram({"sh", "-c", "cat " + file.Path() + " | " + QVSLM_PROGRAM + " dump -"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Objects(result).size(), 9001u);
}

TEST(Pipe, ReadsANamedPipe) {
  TempFolder const folder;
  TempFolder const temporary;
  TempFile const file(Marks().EndOfData());
  std::string const pipe = folder.Path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  Result const result = RunProgram(
      {"sh", "-c", "cat " + file.Path() + " > " + pipe + " & " + QVSLM_PROGRAM + " dump " + pipe},
      {.temporary = temporary.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Objects(result).size(), 301u);
  EXPECT_TRUE(temporary.Empty());
}

TEST(Pipe, FaultsNameStandardInputAndLeaveNothing) {
  TempFolder const temporary;
  Result const result =
      RunQvslm({"dump", "-"}, {.input = "no measurement", .temporary = temporary.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err,
            "qvslm: -: the file does not begin like a measurement file, or it cannot be read "
            "(-314)\n");
  EXPECT_TRUE(temporary.Empty());
}

TEST(Pipe, WithoutATemporaryFolderItSaysSo) {
  Result const result = RunQvslm({"dump", "-"}, {.input = "x", .temporary = "/no/such/folder"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(
      result.err,
      "qvslm: -: there is no folder for a temporary copy: No such file or directory (-302)\n");
}

// 9000 records are far more than a pipe holds: head has gone long before they are written.
TEST(Pipe, EndsQuietlyWhenTheReaderHasGone) {
  TempFolder const temporary;
  TempFile const file(Marks(9000).EndOfData());
  for (const char* const input : {"-", "file"}) {
    std::string const name = std::string(input) == "-" ? "-" : file.Path();
    Result const result = RunProgram({"bash", "-c",
                                      "set -o pipefail; " + std::string(QVSLM_PROGRAM) + " dump " +
                                          name + " < " + file.Path() + " | head -n 2"},
                                     {.temporary = temporary.Path()});
    EXPECT_EQ(result.exitCode, 0) << input;
    EXPECT_EQ(result.err, "") << input;
    EXPECT_EQ(Objects(result).size(), 2u) << input;
    EXPECT_TRUE(temporary.Empty()) << input;
  }
}

}  // namespace
