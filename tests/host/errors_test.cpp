// How qvslm says what went wrong: one line of plain text on stderr, with the program's name.
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/temp_folder.h"

namespace {

using test::Result;
using test::RunQvslm;

TEST(Errors, AreOneLineWithThePlaceAndTheCode) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/none.qvd";
  EXPECT_EQ(RunQvslm({"dump", path}).err,
            "qvslm: " + path + ": the file cannot be opened: No such file or directory (-302)\n");
}

TEST(Errors, AFileNameCannotForgeASecondLine) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/a\nqvslm: b\x1B[2J";
  EXPECT_EQ(RunQvslm({"dump", path}).err,
            "qvslm: " + folder.Path() +
                "/a\\u000aqvslm: b\\u001b[2J: the file cannot be opened: No such file or directory "
                "(-302)\n");
}

TEST(Errors, EachFileHasItsOwn) {
  test::TempFolder const folder;
  std::string const a = folder.Path() + "/a";
  std::string const b = folder.Path() + "/b";
  Result const result = RunQvslm({"info", a, b});
  EXPECT_NE(result.err.find("qvslm: " + a + ": "), std::string::npos) << result.err;
  EXPECT_NE(result.err.find("qvslm: " + b + ": "), std::string::npos) << result.err;
}

}  // namespace
