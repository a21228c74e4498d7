// Many files at once: folders, jobs, and files that are broken.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using test::Lines;
using test::Marks;
using test::Result;
using test::RunQvslm;
using test::TempFolder;
using testing::ElementsAre;

std::string WholeFile(int marks) {
  return test::Startable(Marks(marks).EndOfData());
}

// The names of the files that are told of, in order.
std::vector<std::string> FilesOf(const Result& result) {
  std::vector<std::string> files;
  for (const auto& object : test::Objects(result)) {
    files.push_back(std::filesystem::path(object.at("file").get<std::string>()).filename());
  }
  return files;
}

TEST(Folders, StandForTheirFilesInOrder) {
  TempFolder const folder;
  std::filesystem::create_directory(folder.Path() + "/inner");
  for (const char* const name : {"b.qvd", "a.QVD", "inner/c.qvd", "notes.txt", ".hidden.qvd"}) {
    folder.File(name, WholeFile(1));
  }
  EXPECT_THAT(FilesOf(RunQvslm({"info", "--json", folder.Path()})), ElementsAre("a.QVD", "b.qvd"));
  EXPECT_THAT(FilesOf(RunQvslm({"check", "--json", "-r", folder.Path()})),
              ElementsAre("a.QVD", "b.qvd", "c.qvd"));
  EXPECT_THAT(FilesOf(RunQvslm({"info", "--json", "--ending", "txt", folder.Path()})),
              ElementsAre("notes.txt"));
  EXPECT_THAT(FilesOf(RunQvslm({"info", "--json", "--ending", "*", folder.Path()})),
              ElementsAre("a.QVD", "b.qvd", "notes.txt"));
  EXPECT_THAT(FilesOf(RunQvslm({"dump", "--limit", "1", "-r", folder.Path()})),
              ElementsAre("a.QVD", "b.qvd", "c.qvd"));
}

// Files 0, 40, 80, 120 and 160 of 200 are broken: two are cut, two no measurement, one empty.
class TwoHundredFiles : public testing::Test {
 protected:
  TwoHundredFiles() {
    std::string const whole = WholeFile(3);
    for (int i = 0; i < 200; ++i) {
      std::string const name = "file" + std::to_string(1000 + i) + ".qvd";
      std::string const bytes = i % 80 == 0   ? Marks().Bytes()
                                : i == 40     ? ""
                                : i % 40 == 0 ? std::string(5000, 'x')
                                              : whole;
      folder_.File(name, bytes);
    }
  }
  TempFolder folder_;
};

TEST_F(TwoHundredFiles, FiveBadOnesStopNoOther) {
  Result const alone = RunQvslm({"check", folder_.Path()});
  EXPECT_EQ(alone.exitCode, 1);
  EXPECT_EQ(Lines(alone.out).back(), "200 files: 195 whole, 3 damaged, 2 unreadable");
  Result const together = RunQvslm({"check", "--jobs", "4", folder_.Path()});
  EXPECT_EQ(together.exitCode, 1);
  EXPECT_EQ(together.out, alone.out);
  EXPECT_EQ(together.err, alone.err);
}

TEST_F(TwoHundredFiles, AreToldInTheirOrderByAnyNumberOfJobs) {
  Result const alone = RunQvslm({"info", folder_.Path()});
  EXPECT_EQ(alone.exitCode, 1);
  // Each whole file has three marks, each cut one 300.
  EXPECT_THAT(Lines(alone.out).back(), testing::EndsWith(": 1485 level marks"));
  EXPECT_THAT(Lines(alone.out).back(), testing::StartsWith("198 files, "));
  Result const together = RunQvslm({"info", "-j", "3", folder_.Path()});
  EXPECT_EQ(together.out, alone.out);
  EXPECT_EQ(together.err, alone.err);
  EXPECT_EQ(Lines(together.err).size(), 5u);
}

TEST(Jobs, ProgressIsNotShownInAPipe) {
  TempFolder const folder;
  for (const char* const name : {"a.qvd", "b.qvd", "c.qvd"}) folder.File(name, WholeFile(1));
  EXPECT_EQ(RunQvslm({"check", "-j", "2", folder.Path()}).err, "");
}

TEST(Jobs, AReaderThatHasGoneEndsThemQuietly) {
  TempFolder const folder;
  for (int i = 0; i < 50; ++i) folder.File(std::to_string(i) + ".qvd", WholeFile(1));
  Result const result = test::RunProgram(
      {"sh", "-c", "\"$0\" check -j 2 \"$1\" | head -n 1", QVSLM_PROGRAM, folder.Path()});
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Lines(result.out).size(), 1u);
}

// The files are named pipes into which nobody writes: the jobs wait for ever.
TEST(Jobs, AnInterruptEndsAllProcessesAndLeavesNothing) {
  TempFolder const folder;
  TempFolder const temporary;
  std::vector<std::string> command = {
      "sh",
      "-c",
      "export TMPDIR=$1; shift; \"$@\" & job=$!; sleep 0.7; workers=$(pgrep -P $job); "
      "echo $workers | wc -w; kill -TERM $job; wait $job; echo $?; "
      "for worker in $workers; do kill -0 $worker 2>/dev/null && echo alive; done; echo done",
      "sh",
      temporary.Path(),
      QVSLM_PROGRAM,
      "check",
      "-j2"};
  for (const char* const name : {"a", "b", "c"}) {
    std::string const pipe = folder.Path() + '/' + name;
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    command.push_back(pipe);
  }
  Result const result = test::RunProgram(command);
  // Two processes at work; ended by signal 15; none is left.
  EXPECT_THAT(Lines(result.out), ElementsAre("2", "143", "done"));
  EXPECT_TRUE(temporary.Empty());
}

}  // namespace
