// What qvslm ends with, and what it says on stderr.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::General;
using test::Mark;
using test::Marks;
using test::Objects;
using test::Result;
using test::RunQvslm;
using test::TempFile;
using testing::HasSubstr;
using testing::StartsWith;

std::string Message(const TempFile& file, const std::string& what) {
  return "qvslm: " + file.Path() + ": " + what + "\n";
}

TEST(ExitCode, ZeroForAWholeFile) {
  TempFile const file(Marks().EndOfData());
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Objects(result).size(), 301u);
}

TEST(ExitCode, ThreeForAFileThatEndsEarly) {
  TempFile const file(Marks());
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(Objects(result).size(), 300u);
  EXPECT_EQ(result.err,
            Message(file,
                    "ended after 300 records at byte 3998: the file ends before the end of its "
                    "data (-312)"));
}

TEST(ExitCode, ThreeForAnItemLongerThanAny) {
  TempFile const file(Marks(1).Raw(Body().U8(9).U16(6201).Fill(6201).Bytes()).EndOfData());
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("ended after 1 record at byte 111: an item is longer than any "
                                    "can be (-312)\n"));
}

TEST(ExitCode, OneWhenNotARecordCanBeHad) {
  TempFile const file(General().Raw(Body().U8(9).U16(6201).Fill(6201).Bytes()));
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, Message(file, "at byte 98: an item is longer than any can be (-312)"));
}

TEST(ExitCode, OneForAFileThatIsNotThere) {
  for (const char* const command : {"info", "dump"}) {
    Result const result = RunQvslm({command, "no/such/file"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "qvslm: no/such/file: the file cannot be opened: No such file or directory (-302)\n");
  }
}

TEST(ExitCode, OneForAFolderWithoutFiles) {
  test::TempFolder const folder;
  for (const char* const command : {"info", "dump", "check"}) {
    Result const result = RunQvslm({command, folder.Path()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "qvslm: " + folder.Path() + ": the folder has no files that end in .qvd\n");
  }
}

TEST(ExitCode, OneForWhatIsNoMeasurementFile) {
  for (const std::string& bytes : {std::string(), std::string("<html>") + std::string(5000, 'x')}) {
    TempFile const file(bytes);
    for (const char* const command : {"info", "dump"}) {
      Result const result = RunQvslm({command, file.Path()});
      EXPECT_EQ(result.exitCode, 1);
      EXPECT_EQ(result.out, "");
      EXPECT_EQ(result.err, Message(file,
                                    "the file does not begin like a measurement file, or it cannot "
                                    "be read (-314)"));
    }
  }
}

TEST(ExitCode, OneForAShortFile) {
  TempFile const file(General().Item(5, Mark()).EndOfData());
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, Message(file,
                                "the file is shorter than the tail that is looked at first: 2500 "
                                "bytes, 1000 on model 431 (-315)"));
}

TEST(ExitCode, OneForAFileOfModel442WithoutResults) {
  TempFile const file(test::Model442("LOG").Item(5, Mark()).EndOfData());
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, Message(file,
                                "no results block with a level offset (register 106) in this file "
                                "of model 442: the file may be incomplete (-310)"));
}

TEST(ExitCode, TheWorstOfSeveralFiles) {
  TempFile const whole(Marks().EndOfData());
  TempFile const cut(Marks());
  struct Row {
    std::vector<std::string> files;
    int exitCode;
  };
  const Row rows[] = {
      {{whole.Path(), whole.Path()}, 0},
      {{whole.Path(), cut.Path()}, 3},
      {{cut.Path(), whole.Path()}, 3},
      {{cut.Path(), "no/such/file", whole.Path()}, 1},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"dump"};
    arguments.insert(arguments.end(), row.files.begin(), row.files.end());
    Result const result = RunQvslm(arguments);
    EXPECT_EQ(result.exitCode, row.exitCode);
    // A file that fails does not keep the others from being shown.
    if (row.files.back() == whole.Path()) {
      EXPECT_THAT(result.out, HasSubstr("\"End\""));
    }
  }
}

TEST(ExitCode, TwoForWrongUsage) {
  TempFile const file(Marks().EndOfData());
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"show", file.Path()},
      {"dump"},
      {"info"},
      {"dump", file.Path(), "--colour"},
      {"dump", file.Path(), "--records", "Nonsense"},
      {"dump", file.Path(), "--limit", "0"},
  };
  for (const auto& arguments : wrong) {
    Result const result = RunQvslm(arguments);
    EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, StartsWith("qvslm: "));
    EXPECT_THAT(result.err, testing::EndsWith(" tells how it is used.\n"));
  }
  EXPECT_THAT(RunQvslm({"dump", file.Path(), "--records", "Nonsense"}).err,
              testing::AllOf(HasSubstr("Nonsense"), HasSubstr("IntervalBandSeries")));
}

TEST(ExitCode, ZeroForHelpAndVersion) {
  Result const help = RunQvslm({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_THAT(help.out, testing::AllOf(HasSubstr("info"), HasSubstr("dump")));
  Result const version = RunQvslm({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out, "qvslm, translation 323\n");
}

TEST(ExitCode, OneWhenTheOutputCannotBeWritten) {
  TempFile const file(Marks().EndOfData());
  Result const result = test::RunProgram(
      {"sh", "-c", std::string(QVSLM_PROGRAM) + " dump " + file.Path() + " > /dev/full"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: standard output cannot be written: No space left on device\n");
}

TEST(ExitCode, OneWhenHelpAndVersionCannotBeWritten) {
  for (const char* const option : {"--help", "--version", "dump --help"}) {
    Result const result =
        test::RunProgram({"sh", "-c", QVSLM_PROGRAM + std::string(" ") + option + " > /dev/full"});
    EXPECT_EQ(result.exitCode, 1) << option;
    EXPECT_EQ(result.err, "qvslm: standard output cannot be written: No space left on device\n");
  }
}

}  // namespace
