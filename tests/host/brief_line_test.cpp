// qvslm dump --brief: a line for the eye for each record.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Lines;
using test::Mark;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

Body Event(int code) {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5).U8(code).U16(0).U24(70000);
}

std::vector<std::string> BriefOf(const DataFile& file, const std::string& zone = "UTC") {
  TempFile const stored(Startable(file));
  Result const result = RunQvslm({"dump", "--brief", stored.Path()}, {.zone = zone});
  EXPECT_EQ(result.exitCode, 0);
  return Lines(result.out);
}

TEST(BriefLine, HasANameAndWhatTellsSomething) {
  auto const lines = BriefOf(General().Item(5, Mark(65.1015625)).Item(4, Event(67)).EndOfData());
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0],
            "LevelMark  SiteNumber 0  RecordTime 2024-06-21T12:30:00+00:00  LevelOffset 0.00  "
            "Level 65.10  StatusBit5 32  Model 486  RecordIndex 1  StatusCode 0");
  EXPECT_EQ(lines[1],
            "Event  SiteNumber 0  RecordTime 2024-06-21T12:31:05+00:00  EventDetail 3  "
            "EventValue24 70000  Model 486  EventValue16 0  RecordIndex 1  EventCode 64");
  EXPECT_THAT(lines[2],
              StartsWith("End  SiteNumber 0  LatestRecordTime 2024-06-21T12:31:05+00:00  "));
}

// A code of 0 is a code.
TEST(BriefLine, ShowsZerosOfCodesAndCounts) {
  EXPECT_EQ(BriefOf(General().Item(4, Event(0)).EndOfData()).at(0),
            "Event  SiteNumber 0  RecordTime 2024-06-21T12:31:05+00:00  EventDetail 0  "
            "EventValue24 70000  Model 486  EventValue16 0  RecordIndex 1  EventCode 0");
}

TEST(BriefLine, ShowsLevelsOfZeroAndNoneWithoutAValue) {
  Body const zero = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Raw({0, 1}).U8(0);
  Body const none = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).NoLevel().U8(0);
  auto const lines = BriefOf(General().Item(5, zero).Item(5, none).EndOfData());
  EXPECT_THAT(lines.at(0), HasSubstr("  LevelOffset 0.00  Level 0.00  StatusBit5 0  "));
  EXPECT_THAT(lines.at(1), HasSubstr("  LevelOffset 0.00  StatusBit5 0  "));
}

// A length of time, a share and a channel that were not measured are 0, and left out.
TEST(BriefLine, LeavesOutWhatWasNotMeasured) {
  auto const lines = BriefOf(General().Item(1, Body().PadTo(60)).EndOfData());
  EXPECT_THAT(lines.at(0), AllOf(StartsWith("Interval  SiteNumber 0  "),
                                 HasSubstr("  Model 486  Byte2 0  Byte1 0  RecordIndex 1")));
  for (const char* const absent :
       {"SettingFormat", "Aux0", "Duration", "SampleSpacing", "Span1", "Samples"}) {
    EXPECT_THAT(lines.at(0), Not(HasSubstr(absent)));
  }
}

TEST(BriefLine, HasNoArraysAndNothingReserved) {
  auto const lines =
      BriefOf(General().Stream(6, Body().Raw({60, 1, 61, 1, 62, 1})).Item(2, Body()).EndOfData());
  EXPECT_THAT(lines.at(0), AllOf(StartsWith("TimeHistory  "), HasSubstr("  EntryCount 3")));
  EXPECT_THAT(lines.at(1), StartsWith("Summary  "));
  for (const std::string& line : lines) {
    EXPECT_THAT(line, AllOf(Not(HasSubstr("[")), Not(HasSubstr("Reserved"))));
  }
}

TEST(BriefLine, TimesAreTheClockOfTheZone) {
  EXPECT_THAT(BriefOf(General().Item(4, Event(0)).EndOfData(), "Europe/Berlin").at(0),
              HasSubstr("  RecordTime 2024-06-21T12:31:05+02:00  "));
}

TEST(BriefLine, OfSettingsHasTheRegistersThatAreSet) {
  EXPECT_EQ(BriefOf(General().Q(157, "3").Q(2, "caf\xE9 \"x\"\x1B").Q(9, "0").EndOfData()).at(0),
            "Settings  SiteNumber 3  Model 486  Title2 \"caf\xC3\xA9 \\\"x\\\"\\u001b\"  "
            "SettingQ157 3");
}

// Ended behind a whole member.
TEST(BriefLine, IsNoLongerThanTheEyeFollows) {
  DataFile file = General();
  for (int number = 46; number < 85; ++number) file.Q(number, "1234");
  std::string const line = BriefOf(file.EndOfData()).at(0);
  EXPECT_THAT(line, testing::EndsWith(" 1234  ..."));
  EXPECT_LE(line.size(), 485u);
  EXPECT_GE(line.size(), 460u);
}

TEST(BriefLine, TellsShortItemsAndTheFile) {
  TempFile const file(Startable(General()
                                    .Item(4, Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5))
                                    .Item(5, Mark(60))
                                    .EndOfData()));
  auto const lines = Lines(
      RunQvslm({"dump", "--brief", "--records", "Event,LevelMark", file.Path(), file.Path()}).out);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], file.Path() +
                          ": Event  SiteNumber 0  RecordTime 2024-06-21T12:31:05+00:00  "
                          "EventDetail 0  EventValue24 0  Model 486  EventValue16 0  RecordIndex 1 "
                          " EventCode 0  short");
  EXPECT_THAT(lines[1], AllOf(StartsWith(file.Path() + ": LevelMark  "),
                              testing::EndsWith("  StatusCode 0")));
}

}  // namespace
