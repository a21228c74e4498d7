// Progress stands on a terminal, and nowhere else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>

#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::TempFile;
using testing::HasSubstr;
using testing::Not;

DataFile Marks(int count) {
  DataFile file = test::General();
  for (int i = 0; i < count; ++i) {
    file.Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0));
  }
  return file.EndOfData();
}

// What a command of the shell writes to a terminal of its own.
std::string OnTerminal(const std::string& command) {
  int terminal = -1;
  pid_t const child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    alarm(60);
    execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  std::string text;
  char block[4096];
  ssize_t count;
  while ((count = read(terminal, block, sizeof block)) > 0) {
    text.append(block, static_cast<std::size_t>(count));
  }
  close(terminal);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  return text;
}

TEST(Progress, StandsOnATerminal) {
  TempFile const file(Marks(400));
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
  DataFile file = test::General();
  for (int i = 0; i < 300; ++i) {
    file.Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0));
  }
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
  TempFile const file(Marks(200));
  std::string const text =
      OnTerminal(std::string(QVSLM_PROGRAM) + " dump --limit 2 " + file.Path());
  EXPECT_THAT(text, HasSubstr("%\r\033[K{\"record\":\"LevelMark\""));
  EXPECT_THAT(text, Not(HasSubstr("%{")));
}

TEST(Progress, ShowsTheNameOfTheFileAsPlainText) {
  test::TempFolder const folder;
  folder.File("a\nb\x1B[2J.qvd", Marks(400).Bytes());
  std::string const text =
      OnTerminal("cd " + folder.Path() + " && " + QVSLM_PROGRAM + " info *.qvd > /dev/null");
  EXPECT_THAT(text, HasSubstr("\r\033[Ka\\u000ab\\u001b[2J.qvd: counting"));
  EXPECT_THAT(text, Not(HasSubstr("\x1B[2J")));
  EXPECT_THAT(text, Not(HasSubstr("\n")));
}

TEST(Progress, IsSilentInAPipe) {
  TempFile const file(Marks(200));
  EXPECT_EQ(test::RunQvslm({"dump", file.Path()}).err, "");
  EXPECT_EQ(
      OnTerminal(std::string(QVSLM_PROGRAM) + " dump " + file.Path() + " 2>&1 >/dev/null | cat"),
      "");
}

}  // namespace
