// qvslm between other programs: standard input, pipes, and a reader that goes away.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Objects;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::TempFile;

DataFile Marks(int count) {
  DataFile file = General();
  for (int i = 0; i < count; ++i) {
    file.Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0));
  }
  return file.EndOfData();
}

// A folder of its own, so that what is left in it shows.
class Folder {
 public:
  Folder() : path_((std::filesystem::temp_directory_path() / "qvslm-test-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("cannot make a folder");
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  const std::string& Path() const { return path_; }
  bool Empty() const { return std::filesystem::is_empty(path_); }

 private:
  std::string path_;
};

TEST(Pipe, ReadsStandardInput) {
  Folder const temporary;
  test::RunOptions const options = {.input = Marks(300).Bytes(), .temporary = temporary.Path()};
  Result const result = RunQvslm({"dump", "-"}, options);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  ASSERT_EQ(Objects(result).size(), 301u);
  EXPECT_EQ(Objects(result).back().at("FileName"), "stdin");
  EXPECT_TRUE(temporary.Empty());
  EXPECT_THAT(RunQvslm({"info", "-"}, options).out, testing::StartsWith("-\n"));
}

TEST(Pipe, ReadsFromAProgram) {
  TempFile const file(Marks(9000));  // more than a pipe holds
  Result const result =
      RunProgram({"sh", "-c", "cat " + file.Path() + " | " + QVSLM_PROGRAM + " dump -"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(Objects(result).size(), 9001u);
}

TEST(Pipe, ReadsANamedPipe) {
  Folder const folder;
  Folder const temporary;
  TempFile const file(Marks(300));
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
  Folder const temporary;
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

// Ended by a signal while it still reads, it is ended by that signal and leaves no copy.
TEST(Pipe, LeavesNothingWhenItIsInterrupted) {
  for (const char* const signal : {"INT", "TERM", "HUP"}) {
    Folder const temporary;
    std::string const folder = temporary.Path();
    // Job control keeps the shell from making the program deaf to INT.
    Result const result = RunProgram(
        {"bash", "-c",
         std::string("set -m; ") + QVSLM_PROGRAM + " dump - < <(sleep 5) & until [ -e " + folder +
             "/*/stdin ]; do sleep 0.02; done; kill -" + signal + " $!; wait $!; echo $?"},
        {.temporary = folder});
    int const expected = 128 + (signal[0] == 'I' ? 2 : signal[0] == 'T' ? 15 : 1);
    EXPECT_EQ(result.out, std::to_string(expected) + "\n") << signal << result.err;
    EXPECT_TRUE(temporary.Empty()) << signal;
  }
}

// 9000 records are far more than a pipe holds: head has gone long before they are written.
TEST(Pipe, EndsQuietlyWhenTheReaderHasGone) {
  Folder const temporary;
  TempFile const file(Marks(9000));
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
