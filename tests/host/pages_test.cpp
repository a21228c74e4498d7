// The manual page and the completions know every command and option.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "host/qvslm_process.h"

namespace {

using test::Contents;
using test::Lines;
using test::RunProgram;
using test::RunQvslm;
using testing::HasSubstr;

std::string PageFolder() {
  return std::filesystem::path(QVSLM_PROGRAM).parent_path().string() + "/pages/";
}

// The long names of a command's options, from its help.
std::vector<std::string> OptionsOf(const std::string& command) {
  std::vector<std::string> options;
  for (const std::string& line : Lines(RunQvslm({"help", command}).out)) {
    std::size_t const at = line.find("--");
    bool const isOption = line.starts_with("  -") && at != std::string::npos;
    if (isOption) options.push_back(line.substr(at, line.find_first_of(" ,", at) - at));
  }
  return options;
}

// What bash offers for the last of the words.
std::vector<std::string> Offered(const std::string& words) {
  return Lines(RunProgram({"bash", "-c",
                           ". \"$0\"; COMP_WORDS=(" + words +
                               "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _qvslm; "
                               "printf '%s\\n' \"${COMPREPLY[@]}\"",
                           PageFolder() + "qvslm.bash"})
                   .out);
}

TEST(Pages, TellEveryOption) {
  std::string const manual = Contents(PageFolder() + "qvslm.1");
  std::string const zsh = Contents(PageFolder() + "_qvslm");
  for (const std::string command : {"info", "dump", "export", "check", "plot"}) {
    EXPECT_THAT(manual, HasSubstr(".SS " + command + "\n"));
    std::vector<std::string> const options = OptionsOf(command);
    EXPECT_GE(options.size(), 5u);
    std::vector<std::string> const offered = Offered("qvslm " + command + " --");
    for (const std::string& option : options) {
      EXPECT_THAT(offered, testing::Contains(option)) << command;
      EXPECT_THAT(zsh, HasSubstr("'" + option + "["));
      std::string escaped;
      for (char const c : option) escaped += c == '-' ? "\\-" : std::string(1, c);
      EXPECT_THAT(manual, HasSubstr(escaped));
    }
  }
}

TEST(Pages, TheManualIsFormattedWithoutAWarning) {
  test::Result const result =
      RunProgram({"groff", "-man", "-Tutf8", "-ww", PageFolder() + "qvslm.1"});
  if (result.exitCode == 127) GTEST_SKIP() << "groff is not there";
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
}

TEST(Completion, OffersCommandsAndValues) {
  EXPECT_THAT(Offered("qvslm ''"),
              testing::UnorderedElementsAre("info", "dump", "export", "check", "plot", "help",
                                            "--help", "--version"));
  EXPECT_THAT(Offered("qvslm export --format ''"),
              testing::ElementsAre("csv", "jsonl", "sqlite", "xlsx", "mat"));
  EXPECT_THAT(Offered("qvslm dump --records Level"),
              testing::ElementsAre("LevelMark", "LevelMarkBands"));
  EXPECT_THAT(Offered("qvslm dump --records End,Eve"), testing::ElementsAre("End,Event"));
}

}  // namespace
