// What qvslm takes as a file: one that can be sought in as it is, others by a copy.
#include <gtest/gtest.h>

#include <filesystem>

#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::Result;
using test::RunQvslm;
using test::TempFile;

std::string MarksFile() {
  samples::DataFile file = test::General();
  for (int i = 0; i < 300; ++i) {
    file.Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0));
  }
  return file.EndOfData().Bytes();
}

// What stands before the last record, which tells the file's name.
std::string MarksOf(const Result& result) {
  return result.out.substr(0, result.out.find("{\"record\":\"End\""));
}

TEST(InputFile, StandardInputGivesWhatTheFileDoes) {
  TempFile const file(MarksFile());
  Result const named = RunQvslm({"dump", file.Path()});
  ASSERT_EQ(named.exitCode, 0);
  ASSERT_NE(MarksOf(named), "");
  Result const piped = RunQvslm({"dump", "-"}, {.input = MarksFile()});
  EXPECT_EQ(piped.exitCode, 0);
  EXPECT_TRUE(MarksOf(piped) == MarksOf(named));
}

TEST(InputFile, AFileOfTheName) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/-";
  std::filesystem::copy_file(TempFile(MarksFile()).Path(), path);
  EXPECT_EQ(RunQvslm({"dump", path}).exitCode, 0);
}

TEST(InputFile, OneThatIsNotThere) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/none.qvd";
  Result const result = RunQvslm({"dump", path});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find(path + ": the file cannot be opened: No such file or directory"),
            std::string::npos)
      << result.err;
}

}  // namespace
