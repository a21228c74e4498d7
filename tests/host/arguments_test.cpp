// The command line: what is a file, what an option, and what is neither.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using test::Names;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::TempFile;
using test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

std::string TwoMarks() {
  return test::Startable(test::Marks(2).EndOfData());
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
                              "qvslm help dump tells how it is used.\n");
  }
}

TEST(Arguments, WhatIsWrongIsTold) {
  TempFile const file(TwoMarks());
  constexpr const char* commands = "info, dump, export, check or plot";
  struct Row {
    std::vector<std::string> arguments;
    std::string what;
    const char* help;
  };
  const Row rows[] = {
      {{}, std::string("a command is required: ") + commands, "--help"},
      {{""}, std::string("the command is ") + commands + ", not ", "--help"},
      {{"--", "info", file.Path()},
       std::string("the command is ") + commands + ", not --",
       "--help"},
      {{"help", "me"},
       std::string("there is no command me; the commands are ") + commands,
       "--help"},
      {{"info"}, "a FILE is required", "help info"},
      {{"info", "--"}, "a FILE is required", "help info"},
      {{"info", "--limit", "1", file.Path()},
       "there is no option --limit; a file of such a name is written behind --",
       "help info"},
      {{"dump", "-x.qvd"},
       "there is no option -x.qvd; a file of such a name is written behind --",
       "help dump"},
      {{"dump", file.Path(), "-xh"},
       "there is no option -xh; a file of such a name is written behind --",
       "help dump"},
      {{"dump", "--lim", "1", file.Path()},
       "there is no option --lim; a file of such a name is written behind --",
       "help dump"},
      {{"dump", "--no-census=no", file.Path()},
       "no-census was given a disallowed flag override",
       "help dump"},
      {{"dump", file.Path(), "--limit"}, "--limit: 1 required N missing", "help dump"},
      {{"dump", "--limit=", file.Path()}, "--limit= has no value behind it", "help dump"},
      {{"dump", "--tz", "Europe/Atlantis", file.Path()},
       "--tz: there is no zone \"Europe/Atlantis\"; zones are named like Europe/Berlin",
       "help dump"},
      {{"dump", "--tz", "../../etc/passwd", file.Path()},
       "--tz: there is no zone \"../../etc/passwd\"; zones are named like Europe/Berlin",
       "help dump"},
      {{"export", file.Path()}, "--to PLACE is required: where to write", "help export"},
      {{"export", file.Path(), "--to", "x", "--format", "doc"},
       "--format: \"doc\" is no format: csv, jsonl, sqlite, xlsx or mat",
       "help export"},
      {{"check", "--jobs", "0", file.Path()},
       "--jobs: \"0\" is no number from 1 to 256",
       "help check"},
      {{"plot", file.Path()}, "-o PICTURE is required: where to draw", "help plot"},
      {{"plot", file.Path(), "-o", "x.gif"},
       "-o: \"x.gif\" ends neither in .svg nor in .png",
       "help plot"},
  };
  for (const Row& row : rows) {
    Result const result = RunQvslm(row.arguments);
    EXPECT_EQ(result.exitCode, 2) << row.what;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "qvslm: " + row.what + "\nqvslm " + row.help + " tells how it is used.\n");
  }
  for (const char* const names : {"", "End,", ",End", "[End]", "end", "RecordCensus"}) {
    Result const result = RunQvslm({"dump", "--records", names, file.Path()});
    EXPECT_EQ(result.exitCode, 2) << names;
    EXPECT_THAT(result.err, HasSubstr("--records: no record has the name \""));
  }
}

TEST(Arguments, ATimeIsADayOrADayWithItsClock) {
  TempFile const file(TwoMarks());
  for (const char* const time : {"2024-02-29", "2024-06-21T08:30", "2024-06-21 08:30",
                                 "2024-06-21T08:30:15", "2024-06-21 23:59:59"}) {
    EXPECT_EQ(RunQvslm({"dump", "--since", time, file.Path()}).exitCode, 0) << time;
  }
  for (const char* const time :
       {"", "2024", "2024-06", "2024-02-30", "2023-02-29", "2024-13-01", "2024-06-21T24:00",
        "2024-06-21T08:60", "2024-06-21T08:30:15Z", "21.06.2024", "2024-06-21T", " 2024-06-21",
        "2024-6-1", "2024-06-21  08:30"}) {
    Result const result = RunQvslm({"dump", "--since", time, file.Path()});
    EXPECT_EQ(result.exitCode, 2) << time;
    EXPECT_THAT(result.err, HasSubstr("is no date and time such as 2024-06-21"));
  }
}

TEST(Arguments, HelpIsGivenWhereItIsAskedFor) {
  std::string const help = RunQvslm({"--help"}).out;
  for (const char* const command : {"info", "dump", "export", "check", "plot"}) {
    EXPECT_THAT(help, HasSubstr("qvslm " + std::string(command) + " [OPTION] FILE..."));
    Result const result = RunQvslm({"help", command});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, testing::StartsWith("qvslm " + std::string(command) + " "));
    // Two examples, each of this command.
    EXPECT_THAT(
        test::Lines(result.out),
        testing::Contains(testing::StartsWith("  qvslm " + std::string(command) + " ")).Times(2));
    EXPECT_EQ(RunQvslm({command, "--help"}).out, result.out);
    EXPECT_EQ(RunQvslm({command, "no/such/file", "-h"}).out, result.out);
  }
  EXPECT_EQ(RunQvslm({"-h"}).out, help);
  EXPECT_EQ(RunQvslm({"help"}).out, help);
  EXPECT_THAT(RunQvslm({"help", "dump"}).out, HasSubstr("\n  --until, --to TIME "));
  EXPECT_THAT(RunQvslm({"help", "plot"}).out, HasSubstr("\n  -o, --output PICTURE "));
  for (const std::string& line : test::Lines(RunQvslm({"help", "dump"}).out)) {
    EXPECT_TRUE(line.size() <= 80 || line.starts_with("  qvslm")) << line;
  }
}

}  // namespace
