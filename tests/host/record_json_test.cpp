// Fields of every kind as members of a JSON object, as they stand in the output.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/stamped_items.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;
using testing::HasSubstr;
using testing::Not;

// The object of the first record of that name.
std::string JsonOf(DataFile file, const std::string& name) {
  TempFile const stored(Startable(file.EndOfData()));
  Result const result = RunQvslm({"dump", "--records", name, stored.Path()});
  EXPECT_EQ(result.exitCode, 0);
  return Lines(result.out).at(0);
}

TEST(RecordJson, NameAndCodeComeFirst) {
  EXPECT_THAT(JsonOf(General().Q(157, "3"), "Settings"),
              testing::StartsWith(R"({"record":"Settings","code":7,"SiteNumber":3,)"));
}

TEST(RecordJson, WholeNumbersOfAllTypes) {
  // One byte; two; four without a sign; four with one.
  std::string const spectrum =
      JsonOf(General().Q(157, "65535").List(21, 6, {Body().Raw({200, 0, 0, 0, 60, 128})}),
             "TimedSpectrum");
  EXPECT_THAT(spectrum, HasSubstr(R"("SiteNumber":65535,)"));
  EXPECT_THAT(spectrum, HasSubstr(R"("BlockByte":200,)"));
  EXPECT_THAT(spectrum, HasSubstr(R"("RecordIndex":1,)"));
  EXPECT_THAT(
      JsonOf(General().Item(4, EventAt({2024, 6, 21}, 64).Set(10, {255, 255, 255})), "Event"),
      HasSubstr(R"("EventValue24":16777215,)"));
  std::string const results = JsonOf(General().R(31, "-2147483648").R(32, "2147483647"), "Results");
  EXPECT_THAT(results, HasSubstr(R"("SettingR31":-2147483648,)"));
  EXPECT_THAT(results, HasSubstr(R"("SettingR32":2147483647,)"));
}

TEST(RecordJson, CountsOfMoreThan16Bits) {
  DataFile file = General();
  for (int count = 0; count < 65537; ++count) file.Item(5, Body());
  TempFile const stored(Startable(file.EndOfData()));
  std::vector<std::string> const lines = Lines(RunQvslm({"dump", stored.Path()}).out);
  ASSERT_EQ(lines.size(), 65538U);
  EXPECT_THAT(lines[65536], HasSubstr(R"("RecordIndex":65537,)"));
}

// A fraction is what it takes to give the 32-bit number back; a whole number shows that it is one
// of those that may have a fraction.
TEST(RecordJson, NumbersWithAFraction) {
  std::string const results = JsonOf(General()
                                         .R(9, "0.1")
                                         .R(11, "-4096")
                                         .R(13, "0.333333333333333333333333")
                                         .R(14, "1000000000000000000000"),
                                     "Results");
  EXPECT_THAT(results, HasSubstr(R"("SettingR9":0.1,)"));
  EXPECT_THAT(results, HasSubstr(R"("SettingR11":-4096.0,)"));
  EXPECT_THAT(results, HasSubstr(R"("SettingR13":0.33333334,)"));
  EXPECT_THAT(results, HasSubstr(R"("SettingR14":1e+21,)"));
}

// JSON has no infinity: 39 digits are more than 32 bits reach.
TEST(RecordJson, WhatIsNoNumberIsNull) {
  EXPECT_THAT(JsonOf(General().R(9, std::string(39, '9')), "Results"),
              HasSubstr(R"("SettingR9":null,)"));
  EXPECT_THAT(JsonOf(General().R(9, "-" + std::string(39, '9')), "Results"),
              HasSubstr(R"("SettingR9":null,)"));
}

// 999.0 stands for no value in a level, and in nothing else.
TEST(RecordJson, OnlyLevelsHaveTheMarkerOfNoValue) {
  std::string const mark =
      JsonOf(General().Q(227, "999").Item(5, Body().PadTo(7).Raw({60, 0, 0})), "LevelMark");
  EXPECT_THAT(mark, HasSubstr(R"("LevelOffset":999.0,"Level":null,)"));
  EXPECT_THAT(JsonOf(General().R(9, "999"), "Results"), HasSubstr(R"("SettingR9":999.0,)"));
}

TEST(RecordJson, TextsAreEscaped) {
  EXPECT_THAT(JsonOf(General().Q(2, "a\"b\\c/\t\xE9"), "Settings"),
              HasSubstr("\"Title2\":\"a\\\"b\\\\c/\\t\xC3\xA9\","));
}

TEST(RecordJson, ATimeIsFollowedByItsClock) {
  std::string const results = JsonOf(General().R(8, "21Jun2024 12:00:08"), "Results");
  EXPECT_THAT(results, HasSubstr(R"("SettingR8":1718971208,)"
                                 R"("SettingR8Local":"2024-06-21T12:00:08+00:00",)"));
  EXPECT_THAT(results, HasSubstr(R"("SettingR6":0,"SettingR6Local":null,)"));
}

TEST(RecordJson, ArraysStandInOrder) {
  std::string const results = JsonOf(General().R(60, "0,1.5").R(60, "23,-2"), "Results");
  EXPECT_THAT(results, HasSubstr(R"(:[1.5,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,)"
                                 R"(0.0,0.0,0.0,0.0,0.0,0.0,0.0,0.0,-2.0],)"));
}

// Each channel goes from 0 to 256, three values of it behind a summary.
TEST(RecordJson, TablesStandRowByRow) {
  DataFile file = General("0.9").Q(78, "1");
  for (int const high : {123, 131, 139}) file.Q(high, "256");
  file.Item(2, SummaryAt({2024, 6, 21}).Raw({1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_THAT(JsonOf(file, "Summary"),
              HasSubstr(R"("Aux":[[1.0,4.0,7.0],[2.0,5.0,8.0],[3.0,6.0,9.0]],)"));
}

TEST(RecordJson, ReservedBytesAreLeftOut) {
  std::string const summary = JsonOf(General().Item(2, SummaryAt({2024, 6, 21})), "Summary");
  EXPECT_THAT(summary, Not(HasSubstr("Reserved")));
  EXPECT_THAT(summary, Not(HasSubstr("RecordType")));
  EXPECT_THAT(JsonOf(General().Item(7, Body().Fill(5120, 1)), "BlockImage"),
              Not(HasSubstr("Unwritten")));
}

}  // namespace
}  // namespace test
