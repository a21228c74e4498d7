// What qvslm takes as a file: one that can be sought in as it is, others by a copy.
#include <gtest/gtest.h>

#include <filesystem>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace {

using test::Marks;
using test::Result;
using test::RunQvslm;
using test::TempFile;

// What stands before the last record, which tells the file's name.
std::string MarksOf(const Result& result) {
  return result.out.substr(0, result.out.find("{\"record\":\"End\""));
}

TEST(InputFile, StandardInputGivesWhatTheFileDoes) {
  TempFile const file(Marks().EndOfData().Bytes());
  Result const named = RunQvslm({"dump", file.Path()});
  ASSERT_EQ(named.exitCode, 0);
  ASSERT_NE(MarksOf(named), "");
  Result const piped = RunQvslm({"dump", "-"}, {.input = Marks().EndOfData().Bytes()});
  EXPECT_EQ(piped.exitCode, 0);
  EXPECT_TRUE(MarksOf(piped) == MarksOf(named));
}

TEST(InputFile, AFileOfTheName) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/-";
  std::filesystem::copy_file(TempFile(Marks().EndOfData().Bytes()).Path(), path);
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
