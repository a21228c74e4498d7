// The command line: what is a file, what an option, and what is neither.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::Names;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::TempFile;
using test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

std::string TwoMarks() {
  auto const mark = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0);
  return test::Startable(test::General().Item(5, mark).Item(5, mark).EndOfData());
}

// Runs qvslm in the folder, so that names stand alone.
Result RunIn(const TempFolder& folder, std::vector<std::string> arguments) {
  std::vector<std::string> command = {"sh", "-c", "cd \"$0\" && exec \"$@\"", folder.Path(),
                                      QVSLM_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return RunProgram(command);
}

std::string FirstLine(const Result& result) {
  return result.out.substr(0, result.out.find('\n'));
}

TEST(Arguments, AFileIsTakenByItsName) {
  TempFolder const folder;
  for (const std::string name : {"[night]", "[a,b]", "a,b", "[]", "{}", "%%", "++", "@file", "a=b",
                                 "dump", "info", "caf\xC3\xA9", "a b", " "}) {
    folder.File(name, TwoMarks());
    Result const result = RunIn(folder, {"info", name});
    EXPECT_EQ(result.exitCode, 0) << name << result.err;
    EXPECT_EQ(FirstLine(result), name);
  }
}

TEST(Arguments, BehindTwoDashesEveryArgumentIsAFile) {
  TempFolder const folder;
  for (const char* const name : {"-x.qvd", "--limit", "--", "-h", "--help", "-5"}) {
    folder.File(name, TwoMarks());
    Result const result = RunIn(folder, {"info", "--", name});
    EXPECT_EQ(result.exitCode, 0) << name << result.err;
    EXPECT_EQ(FirstLine(result), name);
  }
  folder.File("a", TwoMarks());
  EXPECT_THAT(Names(RunIn(folder, {"dump", "--limit", "1", "--", "-x.qvd", "--limit"})),
              ElementsAre("LevelMark", "LevelMark"));
  EXPECT_THAT(Names(RunIn(folder, {"dump", "--limit", "1", "a", "--", "-x.qvd"})),
              ElementsAre("LevelMark", "LevelMark"));
  EXPECT_THAT(Names(RunIn(folder, {"dump", "a", "--limit", "1", "--"})), ElementsAre("LevelMark"));
}

TEST(Arguments, OptionsStandBeforeAndBehindFiles) {
  TempFile const file(TwoMarks());
  EXPECT_THAT(Names(RunQvslm({"dump", file.Path(), "--limit=1", file.Path()})),
              ElementsAre("LevelMark", "LevelMark"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--records", "End", file.Path(), "--records=LevelMark"})),
              ElementsAre("LevelMark", "LevelMark", "End"));
}

TEST(Arguments, ALimitIsANumberOf64Bits) {
  TempFile const file(TwoMarks());
  EXPECT_THAT(Names(RunQvslm({"dump", "--limit", "18446744073709551615", file.Path()})),
              ElementsAre("LevelMark", "LevelMark", "End"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--limit", "01", file.Path()})), ElementsAre("LevelMark"));
  for (const char* const limit :
       {"18446744073709551616", "-18446744073709551615", "99999999999999999999999", "0", "-3", "+3",
        " 3", "3 ", "0x3", "1e3", "1.5", "[3]", "many", ""}) {
    Result const result = RunQvslm({"dump", "--limit", limit, file.Path()});
    EXPECT_EQ(result.exitCode, 2) << limit;
    EXPECT_EQ(result.out, "") << limit;
    EXPECT_EQ(result.err, "qvslm: --limit: \"" + std::string(limit) +
                              "\" is no number from 1 to 18446744073709551615\n"
                              "qvslm --help tells how it is used.\n");
  }
}

TEST(Arguments, WhatIsWrongIsTold) {
  TempFile const file(TwoMarks());
  struct Row {
    std::vector<std::string> arguments;
    const char* what;
  };
  const Row rows[] = {
      {{}, "a command is required: info or dump"},
      {{""}, "the command is info or dump, not "},
      {{"--", "info", file.Path()}, "the command is info or dump, not --"},
      {{"info"}, "a FILE is required"},
      {{"info", "--"}, "a FILE is required"},
      {{"info", "--limit", "1", file.Path()},
       "there is no option --limit; a file of such a name is written behind --"},
      {{"dump", "-x.qvd"}, "there is no option -x.qvd; a file of such a name is written behind --"},
      {{"dump", file.Path(), "-xh"},
       "there is no option -xh; a file of such a name is written behind --"},
      {{"dump", "--no-census=no", file.Path()},
       "there is no option --no-census=no; a file of such a name is written behind --"},
      {{"dump", file.Path(), "--limit"}, "--limit needs a value"},
  };
  for (const Row& row : rows) {
    Result const result = RunQvslm(row.arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "qvslm: " + std::string(row.what) + "\nqvslm --help tells how it is used.\n");
  }
  for (const char* const names : {"", "End,", ",End", "[End]", "end", "RecordCensus"}) {
    Result const result = RunQvslm({"dump", "--records", names, file.Path()});
    EXPECT_EQ(result.exitCode, 2) << names;
    EXPECT_THAT(result.err, HasSubstr("--records: no record has the name \""));
  }
}

TEST(Arguments, HelpIsGivenWhereItIsAskedFor) {
  std::string const help = RunQvslm({"--help"}).out;
  EXPECT_THAT(
      help, testing::AllOf(HasSubstr("qvslm info FILE..."), HasSubstr("--brief"),
                           HasSubstr("--records"), HasSubstr("--limit"), HasSubstr("--no-census")));
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"-h"}, {"info", "--help"}, {"dump", "-h"}, {"dump", "no/such/file", "--help"}}) {
    Result const result = RunQvslm(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, help);
    EXPECT_EQ(result.err, "");
  }
}

}  // namespace
