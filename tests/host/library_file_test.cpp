// What qvslm has of a file from the library alone: the model, whatever form its head has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace test {
namespace {

std::string InfoOf(const samples::TextHeader& header) {
  TempFile const file(Startable(samples::DataFile().Header(header).EndOfData()));
  return RunQvslm({"info", file.Path()}).out;
}

// The lookup of the serial number passes over heads that open with a blank or '*', and has neither
// serial nor model for them.
TEST(LibraryFile, TheModelOfEveryHead) {
  for (const char* const first : {"L measurement file", "  measurement file", "* measurement"}) {
    std::string const info =
        InfoOf({.Model = 442, .Firmware = "3.600", .ModeTag = "LOG", .FirstLine = first});
    EXPECT_THAT(info, testing::HasSubstr("\n  model        442\n")) << first;
    EXPECT_THAT(info, testing::HasSubstr("\n  mode         LOG\n")) << first;
  }
  EXPECT_THAT(InfoOf({.Model = 123}), testing::HasSubstr("\n  model        123\n"));
}

TEST(LibraryFile, TheModelOfAFileWithoutAHead) {
  TempFile const file(Startable(samples::DataFile().Q(157, "3").EndOfData()));
  EXPECT_THAT(RunQvslm({"info", file.Path()}).out, testing::HasSubstr("\n  model        486\n"));
}

}  // namespace
}  // namespace test
