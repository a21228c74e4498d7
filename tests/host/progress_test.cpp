// Progress stands on a terminal, and nowhere else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "host/terminal.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Marks;
using test::OnTerminal;
using test::TempFile;
using testing::HasSubstr;
using testing::Not;

TEST(Progress, StandsOnATerminal) {
  TempFile const file(Marks(400).EndOfData());
  for (const char* const command : {" dump ", " info "}) {
    std::string const text =
        OnTerminal(std::string(QVSLM_PROGRAM) + command + file.Path() + " > /dev/null");
    EXPECT_THAT(text, HasSubstr("\r\033[K" + file.Path() + ": counting"));
    EXPECT_THAT(text, HasSubstr("\r\033[K" + file.Path() + ": 2 %"));
    EXPECT_THAT(text, HasSubstr("\r\033[K" + file.Path() + ": 50 %"));
    EXPECT_THAT(text, HasSubstr("\r\033[K" + file.Path() + ": 99 %"));
    EXPECT_THAT(text, testing::EndsWith("\r\033[K"));  // nothing of it is left
  }
}

// How far a walk has come is its place in the file: 300 marks of 13 bytes are half of it.
TEST(Progress, IsThePlaceInTheFile) {
  DataFile file = Marks();
  file.Item(9, Body().PadTo(file.Size()));
  TempFile const stored(file.EndOfData());
  for (const char* const option : {"--limit 300", "--no-census --limit 300"}) {
    std::string const text = OnTerminal(std::string(QVSLM_PROGRAM) + " dump " + option + " " +
                                        stored.Path() + " > /dev/null");
    EXPECT_THAT(text, HasSubstr(": 49 %"));
    EXPECT_THAT(text, Not(HasSubstr(": 50 %")));
  }
}

TEST(Progress, DoesNotMixWithRecordsOnTheSameTerminal) {
  TempFile const file(Marks(200).EndOfData());
  std::string const text =
      OnTerminal(std::string(QVSLM_PROGRAM) + " dump --limit 2 " + file.Path());
  EXPECT_THAT(text, HasSubstr("%\r\033[K{\"record\":\"LevelMark\""));
  EXPECT_THAT(text, Not(HasSubstr("%{")));
}

TEST(Progress, ShowsTheNameOfTheFileAsPlainText) {
  test::TempFolder const folder;
  folder.File("a\nb\x1B[2J.qvd", Marks(400).EndOfData().Bytes());
  std::string const text =
      OnTerminal("cd " + folder.Path() + " && " + QVSLM_PROGRAM + " info *.qvd > /dev/null");
  EXPECT_THAT(text, HasSubstr("\r\033[Ka\\u000ab\\u001b[2J.qvd: counting"));
  EXPECT_THAT(text, Not(HasSubstr("\x1B[2J")));
  EXPECT_THAT(text, Not(HasSubstr("\n")));
}

TEST(Progress, IsSilentInAPipe) {
  TempFile const file(Marks(200).EndOfData());
  EXPECT_EQ(test::RunQvslm({"dump", file.Path()}).err, "");
  EXPECT_EQ(
      OnTerminal(std::string(QVSLM_PROGRAM) + " dump " + file.Path() + " 2>&1 >/dev/null | cat"),
      "");
}

TEST(Progress, CountsTheFilesOfAFolder) {
  test::TempFolder const folder;
  for (const char* const name : {"a.qvd", "b.qvd", "c.qvd"})
    folder.File(name, Marks().EndOfData().Bytes());
  for (const char* const jobs : {"1", "2"}) {
    std::string const text = OnTerminal(std::string(QVSLM_PROGRAM) + " check --jobs " + jobs + " " +
                                        folder.Path() + " > /dev/null");
    EXPECT_THAT(text, HasSubstr("\r\033[K1 of 3 files"));
    EXPECT_THAT(text, HasSubstr("\r\033[K3 of 3 files"));
    EXPECT_THAT(text, testing::EndsWith("\r\033[K"));
    EXPECT_THAT(text, Not(HasSubstr("\n")));
  }
}

TEST(Progress, TellsRateAndTimeLeftOfLongWork) {
  // A pipe gives its bytes within two seconds, of which the copy takes no notice; what is shown are
  // the files behind it.
  test::TempFolder const folder;
  folder.File("a.qvd", Marks().EndOfData().Bytes());
  folder.File("b.qvd", Marks().EndOfData().Bytes());
  std::string const command = "cd " + folder.Path() + "; (sleep 1.2; cat a.qvd) | " +
                              QVSLM_PROGRAM + " check - a.qvd b.qvd > /dev/null";
  std::string const text = OnTerminal(command);
  EXPECT_THAT(text, testing::ContainsRegex("2 of 3 files, [0-9.]+ kB/s, 0:0[0-9] left"));
}

TEST(Colour, StandsOnATerminalAlone) {
  TempFile const file(test::Startable(Marks(3).EndOfData()));
  std::string const check = std::string(QVSLM_PROGRAM) + " check " + file.Path();
  EXPECT_THAT(OnTerminal(check), HasSubstr(file.Path() + ": \033[32mwhole\033[0m, 4 records"));
  EXPECT_THAT(OnTerminal("NO_COLOR=1 " + check), HasSubstr(file.Path() + ": whole, 4 records"));
  EXPECT_THAT(OnTerminal(check + " | cat"), HasSubstr(file.Path() + ": whole, 4 records"));
}

}  // namespace
