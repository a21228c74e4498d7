// qvslm export of many files: where they go, and what stays of runs that cannot end well.
#include "host/export_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bulk_files.h"

namespace {

using test::Contents;
using test::General;
using test::Mark;
using test::NamesIn;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::Startable;
using test::TempFolder;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

std::string Marked(double level) {
  return Startable(General().Item(5, Mark(level)).EndOfData());
}

class Files : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder.Path() + '/' + name; }
  Result Export(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "export");
    return RunQvslm(arguments);
  }
  // A file that takes a while: its tables are some megabytes.
  std::string LongFile(const std::string& name) const {
    samples::WriteFamilyFile(Path(name), samples::Family::kFullIntervals, 20000,
                             samples::At(2020, 1, 1));
    return Path(name);
  }

  TempFolder folder;
};

TEST_F(Files, OneGoesToThePlaceItself) {
  std::string const file = folder.File("a.qvd", Marked(65.5));
  EXPECT_EQ(Export({file, "--to", Path("tables")}).exitCode, 0);
  EXPECT_EQ(Export({file, "--to", Path("lines.jsonl")}).exitCode, 0);
  EXPECT_EQ(Export({file, "--to", Path("book.xlsx")}).exitCode, 0);
  EXPECT_EQ(Export({file, "--to", Path("base.db")}).exitCode, 0);
  EXPECT_EQ(Export({file, "--to", Path("vars.mat")}).exitCode, 0);
  EXPECT_THAT(NamesIn(folder.Path()),
              ElementsAre("a.qvd", "base.db", "book.xlsx", "lines.jsonl", "tables",
                          "tables/End.csv", "tables/LevelMark.csv", "vars.mat"));
}

TEST_F(Files, SeveralGoIntoAFolderEachUnderItsName) {
  std::string const first = folder.File("a.qvd", Marked(65.5));
  std::string const second = folder.File("b.qvd", Marked(66.5));
  EXPECT_EQ(Export({first, second, "--to", Path("out"), "--records", "LevelMark"}).exitCode, 0);
  EXPECT_EQ(Export({first, second, "--to", Path("lines"), "--format", "jsonl"}).exitCode, 0);
  EXPECT_THAT(NamesIn(Path("out")), ElementsAre("a", "a/LevelMark.csv", "b", "b/LevelMark.csv"));
  EXPECT_THAT(NamesIn(Path("lines")), ElementsAre("a.jsonl", "b.jsonl"));
}

TEST_F(Files, AFolderOfOneFileIsAFolderStill) {
  std::filesystem::create_directory(Path("card"));
  folder.File("card/a.qvd", Marked(65.5));
  EXPECT_EQ(Export({Path("card"), "--to", Path("out"), "--records", "End"}).exitCode, 0);
  EXPECT_THAT(NamesIn(Path("out")), ElementsAre("a", "a/End.csv"));
}

TEST_F(Files, FoldersKeepFilesOfOneNameApart) {
  std::filesystem::create_directories(Path("card/may"));
  std::filesystem::create_directories(Path("card/june"));
  folder.File("card/may/a.qvd", Marked(65.5));
  folder.File("card/june/a.qvd", Marked(66.5));
  EXPECT_EQ(Export({"-r", Path("card"), "--to", Path("out"), "--format", "jsonl"}).exitCode, 0);
  EXPECT_THAT(NamesIn(Path("out")), ElementsAre("june", "june/a.jsonl", "may", "may/a.jsonl"));
}

TEST_F(Files, EndingsKeepFilesOfOneNameApart) {
  std::string const first = folder.File("a.qvd", Marked(65.5));
  std::string const second = folder.File("a.old", Marked(66.5));
  EXPECT_EQ(Export({first, second, "--to", Path("out"), "--format", "jsonl"}).exitCode, 0);
  EXPECT_THAT(NamesIn(Path("out")), ElementsAre("a.old.jsonl", "a.qvd.jsonl"));
}

TEST_F(Files, WrongPlacesAreWrongUsage) {
  std::string const file = folder.File("a.qvd", Marked(65.5));
  EXPECT_EQ(Export({file, "--to", Path("out.csv")}).exitCode, 2);
  EXPECT_EQ(Export({file, "--to", Path("out.txt")}).exitCode, 2);
  EXPECT_EQ(Export({file, file, "--to", Path("out")}).exitCode, 2);
  EXPECT_EQ(Export({file, folder.File("b.qvd", ""), "--to", Path("out.xlsx")}).exitCode, 2);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("a.qvd", "b.qvd"));
}

TEST_F(Files, ABadOneStopsNoOther) {
  std::string const bad = folder.File("bad.qvd", "");
  std::string const good = folder.File("good.qvd", Marked(65.5));
  for (const char* const jobs : {"1", "2"}) {
    Result const result =
        Export({bad, good, "--to", Path("out"), "--format", "jsonl", "--jobs", jobs});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr(bad));
    EXPECT_THAT(result.err, HasSubstr("1 written, 0 there unchanged, 1 failed"));
    EXPECT_THAT(NamesIn(Path("out")), ElementsAre("good.jsonl"));
    std::filesystem::remove_all(Path("out"));
  }
}

TEST_F(Files, JobsChangeNothingOfWhatIsWritten) {
  std::vector<std::string> one = test::SampleFiles();
  std::vector<std::string> two = one;
  one.insert(one.end(), {"--to", Path("one"), "--jobs", "1"});
  two.insert(two.end(), {"--to", Path("two"), "--jobs", "3"});
  EXPECT_EQ(Export(one).exitCode, 0);
  EXPECT_EQ(Export(two).exitCode, 0);
  EXPECT_EQ(RunProgram({"diff", "-r", Path("one"), Path("two")}).out, "");
  EXPECT_GT(NamesIn(Path("one")).size(), 26u);
}

TEST_F(Files, ACutOneIsExportedAsFarAsItGoes) {
  std::string const file = folder.File("a.qvd", test::HalfASample());
  Result const result = Export({file, "--to", Path("lines.jsonl")});
  EXPECT_EQ(result.exitCode, 3);
  Result const dump = RunQvslm({"dump", file});
  EXPECT_EQ(dump.exitCode, 3);
  EXPECT_EQ(Contents(Path("lines.jsonl")), dump.out);
  EXPECT_EQ(result.err, dump.err);
}

// What was there stays, and nothing else.
TEST_F(Files, AFullDiskLeavesNothingHalf) {
  std::string const file = LongFile("long.qvd");
  for (const char* const name : {"out", "out.jsonl", "out.sqlite", "out.xlsx", "out.mat"}) {
    Result const result = RunProgram(
        {"unshare", "-rm", "bash", "-c",
         "mkdir -p $0/disk && mount -t tmpfs -o size=1m none $0/disk && cd $0/disk && echo kept > "
         "kept && " QVSLM_PROGRAM " export $1 --records Interval --to $0/disk/$2; echo $?; ls -A",
         folder.Path(), file, name});
    if (result.out.empty()) GTEST_SKIP() << "no file system can be mounted: " << result.err;
    EXPECT_EQ(result.out, "1\nkept\n") << name;
    EXPECT_THAT(result.err, HasSubstr("/disk/" + std::string(name))) << name;
  }
}

TEST_F(Files, ADeviceIsWrittenAndNotReplaced) {
  std::string const file = folder.File("a.qvd", Marked(65.5));
  Result const full = Export({file, "--to", "/dev/full", "--format", "jsonl"});
  EXPECT_EQ(full.exitCode, 1);
  EXPECT_THAT(full.err, EndsWith("/dev/full cannot be written: No space left on device\n"));
  EXPECT_FALSE(std::filesystem::is_regular_file("/dev/full"));
  Result const shown = RunProgram(
      {"bash", "-c", QVSLM_PROGRAM " export $0 --format jsonl --to /dev/stdout | cat", file});
  EXPECT_EQ(shown.out, RunQvslm({"dump", file}).out) << shown.err;
  for (const char* const format : {"csv", "xlsx", "mat", "sqlite"}) {
    EXPECT_EQ(Export({file, "--to", "/dev/full", "--format", format}).exitCode, 1) << format;
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  }
}

TEST_F(Files, AReaderWhoGoesEndsItQuietly) {
  Result const result = RunProgram(
      {"bash", "-c",
       QVSLM_PROGRAM " export $0 --format jsonl --to /dev/stdout | head -c 100 | wc -c; echo "
                     "${PIPESTATUS[0]}",
       LongFile("long.qvd")});
  EXPECT_EQ(result.out, "100\n0\n");
  EXPECT_EQ(result.err, "");
}

// At every moment, and whether one process works or several.
TEST_F(Files, CtrlCLeavesWholeOutputsOnly) {
  std::filesystem::create_directory(Path("card"));
  for (const char* const name : {"card/a.qvd", "card/b.qvd", "card/c.qvd"}) LongFile(name);
  std::string const whole = [&] {
    EXPECT_EQ(Export({Path("card/a.qvd"), "--to", Path("whole")}).exitCode, 0);
    return Contents(Path("whole/Interval.csv"));
  }();
  for (const char* const jobs : {"1", "2"}) {
    for (const char* const moment : {"0.03", "0.1", "0.2", "0.4", "0.6"}) {
      std::filesystem::remove_all(Path("out"));
      // To the process and to its group: twice, or once to each of the jobs. The pipe ends with the
      // last of them.
      RunProgram({"bash", "-c",
                  "timeout -s INT $0 " QVSLM_PROGRAM " export $1 --jobs $2 --to $3 | cat", moment,
                  Path("card"), jobs, Path("out")});
      if (!std::filesystem::exists(Path("out"))) continue;
      for (const std::string& name : NamesIn(Path("out"))) {
        EXPECT_TRUE(name == "a" || name == "b" || name == "c" || name[1] == '/') << name;
        if (name.size() == 1) {
          EXPECT_EQ(NamesIn(Path("out/" + name)), NamesIn(Path("whole"))) << name << moment;
          EXPECT_EQ(Contents(Path("out/" + name + "/Interval.csv")), whole) << name << moment;
        }
      }
    }
  }
}

}  // namespace
