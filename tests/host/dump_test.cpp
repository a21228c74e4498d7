// qvslm dump: records as JSON, one object a line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "record_table.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Event;
using test::General;
using test::Lines;
using test::Mark;
using test::Names;
using test::Objects;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::ElementsAre;

Result DumpOf(const DataFile& file, const test::RunOptions& options = {}) {
  TempFile const stored(Startable(file));
  return RunQvslm({"dump", stored.Path()}, options);
}

TEST(Dump, WritesARecordFieldByField) {
  Result const result = DumpOf(General().Item(5, Mark(65.5)).Item(4, Event(32)).EndOfData());
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  std::vector<std::string> const lines = Lines(result.out);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0],
            R"({"record":"LevelMark","code":5,"SiteNumber":0,"RecordTime":1718973000,)"
            R"("RecordTimeLocal":"2024-06-21T12:30:00+00:00","SettingFormat":0,"LevelOffset":0.0,)"
            R"("Level":65.5,"StatusBit5":32,"Model":486,"RecordIndex":1,"StatusCode":0})");
  EXPECT_EQ(lines[1],
            R"({"record":"Event","code":4,"SiteNumber":0,"RecordTime":1718973065,)"
            R"("RecordTimeLocal":"2024-06-21T12:31:05+00:00","SettingFormat":0,"EventDetail":3,)"
            R"("EventValue24":70000,"Model":486,"EventValue16":515,"RecordIndex":1,)"
            R"("EventCode":32})");
  EXPECT_EQ(nlohmann::json::parse(lines[2]).at("record"), "End");
}

TEST(Dump, ALevelWithoutAValueIsNull) {
  DataFile const file =
      General().Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).NoLevel().U8(0)).EndOfData();
  EXPECT_TRUE(Objects(DumpOf(file)).at(0).at("Level").is_null());
}

// 65 and 26/256 decibels are 65.1015625; seven digits give the same 32-bit number back.
TEST(Dump, NumbersAreTheShortestThatGiveTheSameNumberBack) {
  Result const result = DumpOf(General().Item(5, Mark(65.1015625)).EndOfData());
  EXPECT_THAT(result.out, testing::HasSubstr("\"Level\":65.10156,"));
}

TEST(Dump, TimesCarryTheZoneOfTheHost) {
  struct Row {
    const char* zone;
    int seconds;
    const char* local;
  };
  constexpr Row rows[] = {
      {"UTC", 1718973000, "2024-06-21T12:30:00+00:00"},
      {"Europe/Berlin", 1718973000 - 7200, "2024-06-21T12:30:00+02:00"},
      {"America/New_York", 1718973000 + 14400, "2024-06-21T12:30:00-04:00"},
      {"Asia/Kolkata", 1718973000 - 19800, "2024-06-21T12:30:00+05:30"},
      {"America/St_Johns", 1718973000 + 9000, "2024-06-21T12:30:00-02:30"},
  };
  TempFile const file(Startable(General().Item(5, Mark(65.5)).EndOfData()));
  for (const Row& row : rows) {
    auto const mark = Objects(RunQvslm({"dump", file.Path()}, {.zone = row.zone})).at(0);
    EXPECT_EQ(mark.at("RecordTime"), row.seconds) << row.zone;
    EXPECT_EQ(mark.at("RecordTimeLocal"), row.local) << row.zone;
  }
}

TEST(Dump, NoTimeIsNull) {
  auto const settings = Objects(DumpOf(General().Q(157, "3").EndOfData())).at(0);
  EXPECT_EQ(settings.at("record"), "Settings");
  EXPECT_EQ(settings.at("BlockTime"), 0);
  EXPECT_TRUE(settings.at("BlockTimeLocal").is_null());
}

TEST(Dump, TextsAreUtf8) {
  Result const result = DumpOf(General().Q(2, "caf\xE9 \x80\xFF").Q(5, "a \"b\"").EndOfData());
  auto const settings = Objects(result).at(0);
  EXPECT_EQ(settings.at("Title2"), "caf\u00E9 \u0080\u00FF");
  EXPECT_EQ(settings.at("Title1"), "a \"b\"");
}

TEST(Dump, TablesAreArraysOfArrays) {
  auto const summary = Objects(DumpOf(General().Item(2, Body().PadTo(80)).EndOfData())).at(0);
  EXPECT_EQ(summary.at("record"), "Summary");
  EXPECT_EQ(summary.at("Aux").size(), 3u);
  for (const auto& row : summary.at("Aux")) EXPECT_EQ(row.size(), 3u);
  EXPECT_EQ(summary.at("PercentileLevels").size(), 6u);
}

TEST(Dump, RawBytesAreArraysOfNumbers) {
  DataFile const file = General().Item(7, Body().Fill(5120, 200)).EndOfData();
  auto const image = Objects(DumpOf(file)).at(0);
  EXPECT_EQ(image.at("record"), "BlockImage");
  EXPECT_EQ(image.at("Block1").size(), 5120u);
  EXPECT_EQ(image.at("Block1").at(0), 200);
  EXPECT_EQ(image.count("Unwritten14"), 0u);
}

// Code 1 is two structs; the mode of the file tells which.
TEST(Dump, BandAnalysersHaveTheirOwnInterval) {
  EXPECT_EQ(Names(DumpOf(test::Model442("RTA").Item(1, Body().PadTo(300)).EndOfData())).at(0),
            "BandInterval");
  EXPECT_EQ(Names(DumpOf(test::Model442("LOG").Item(1, Body().PadTo(300)).EndOfData())).at(0),
            "Interval");
  EXPECT_EQ(Names(DumpOf(General().Item(1, Body().PadTo(300)).EndOfData())).at(0), "Interval");
}

// What a model line is taken for is the library's to say: its numbers have 16 bits, and 65978 is
// 442.
TEST(Dump, TheModeThatTheLibraryTookTellsTheIntervals) {
  DataFile const file = DataFile()
                            .Line("L measurement file")
                            .Line("65978 1234")
                            .Line("3.600")
                            .Line("fourth line")
                            .Line("Date/Time:21Jun2024 12:00:00")
                            .Line("RTA")
                            .Line("seventh line")
                            .Line("last header line")
                            .Item(1, Body().PadTo(300))
                            .EndOfData();
  TempFile const stored(Startable(file));
  EXPECT_EQ(Names(RunQvslm({"dump", stored.Path()})).at(0), "BandInterval");
  EXPECT_THAT(RunQvslm({"info", stored.Path()}).out, testing::HasSubstr("  model        442\n"));
}

// A model line without a number is model 0, which has no mode line.
TEST(Dump, AModelLineWithoutANumberIsModel0) {
  DataFile const file = DataFile()
                            .Line("L measurement file")
                            .Line("")
                            .Line("3.600")
                            .Line("fourth line")
                            .Line("Date/Time:21Jun2024 12:00:00")
                            .Line("last header line")
                            .Item(1, Body().PadTo(300))
                            .EndOfData();
  TempFile const stored(Startable(file));
  auto const interval = Objects(RunQvslm({"dump", stored.Path()})).at(0);
  EXPECT_EQ(interval.at("record"), "Interval");
  EXPECT_EQ(interval.at("Model"), 0);
  EXPECT_THAT(RunQvslm({"info", stored.Path()}).out, testing::HasSubstr("  model        0\n"));
}

// Every object has exactly the members that the field table gives its record, in its order.
TEST(Dump, MembersAreTheFieldsOfTheTable) {
  DataFile const file = General()
                            .Q(157, "3")
                            .Item(5, Mark(60.0))
                            .Item(4, Event(64))
                            .Item(1, Body().PadTo(60))
                            .Item(2, Body().PadTo(80))
                            .Item(3, Body().PadTo(200))
                            .Item(7, Body().Fill(5120, 1))
                            .Stream(6, Body().Raw({60, 1, 61, 1, 62, 1}))
                            .EndOfData();
  Result const result = DumpOf(file);
  EXPECT_THAT(Names(result), ElementsAre("Settings", "LevelMark", "Event", "Interval", "Summary",
                                         "DaySummary", "BlockImage", "TimeHistory", "End"));
  for (const auto& object : Objects(result)) {
    std::string const name = object.at("record");
    std::vector<std::string> expected = {"record", "code"};
    for (const auto& record : record_fields::kRecords) {
      if (record.name != name) continue;
      for (const auto& field : record.fields.subspan(1)) {
        if (field.reserved) continue;
        expected.emplace_back(field.name);
        if (field.kind == record_fields::FieldKind::Time)
          expected.push_back(expected.back() + "Local");
      }
    }
    std::vector<std::string> members;
    for (const auto& item : object.items()) {
      if (item.key() != "short") members.push_back(item.key());
    }
    EXPECT_EQ(members, expected) << name;
  }
}

TEST(Dump, ShortItemsAreMarked) {
  DataFile const file = General()
                            .Item(4, Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5))
                            .Item(4, Event(0))
                            .EndOfData();
  Result const result = DumpOf(file);
  EXPECT_EQ(result.exitCode, 0);
  auto const objects = Objects(result);
  ASSERT_EQ(objects.size(), 3u);
  EXPECT_EQ(objects[0].at("short"), true);
  EXPECT_EQ(objects[0].at("EventValue16"), 0);
  EXPECT_EQ(objects[1].count("short"), 0u);
  EXPECT_THAT(result.err, testing::EndsWith(": 1 item was shorter than the layout; fields behind "
                                            "their end are zero (-313)\n"));
}

TEST(Dump, SeveralFilesAreTold) {
  TempFile const first(Startable(General().Item(5, Mark(60)).EndOfData()));
  TempFile const second(Startable(General().EndOfData()));
  Result const result = RunQvslm({"dump", first.Path(), second.Path()});
  EXPECT_EQ(result.exitCode, 0);
  auto const objects = Objects(result);
  ASSERT_EQ(objects.size(), 3u);
  EXPECT_EQ(objects[0].at("file"), first.Path());
  EXPECT_EQ(objects[1].at("file"), first.Path());
  EXPECT_EQ(objects[2].at("file"), second.Path());
}

// Nothing of one file is left for the next: the titles of the end record stay with the first.
TEST(Dump, FilesDoNotMix) {
  TempFile const first(Startable(General().Q(2, "first").EndOfData()));
  TempFile const second(Startable(General().EndOfData()));
  auto const objects = Objects(RunQvslm({"dump", "--records", "End", first.Path(), second.Path()}));
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(objects[0].at("Title2"), "first");
  EXPECT_EQ(objects[1].at("Title2"), "");
}

TEST(DumpSelection, RecordsByName) {
  TempFile const file(
      Startable(General().Item(5, Mark(60)).Item(4, Event(64)).Item(5, Mark(61)).EndOfData()));
  EXPECT_THAT(Names(RunQvslm({"dump", "--records", "Event", file.Path()})), ElementsAre("Event"));
  EXPECT_THAT(Names(RunQvslm({"dump", file.Path(), "--records", "LevelMark,End"})),
              ElementsAre("LevelMark", "LevelMark", "End"));
  EXPECT_THAT(Names(RunQvslm({"dump", file.Path(), "--records", "Interval"})), ElementsAre());
}

TEST(DumpSelection, AtMostSoMany) {
  TempFile const file(
      Startable(General().Item(5, Mark(60)).Item(4, Event(64)).Item(5, Mark(61)).EndOfData()));
  EXPECT_THAT(Names(RunQvslm({"dump", "--limit", "2", file.Path()})),
              ElementsAre("LevelMark", "Event"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--limit", "2", "--records", "LevelMark", file.Path()})),
              ElementsAre("LevelMark", "LevelMark"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--limit", "1", file.Path(), file.Path()})),
              ElementsAre("LevelMark", "LevelMark"));
  EXPECT_EQ(RunQvslm({"dump", "--limit", "1", file.Path()}).exitCode, 0);
}

// A run begun before the autumn change: the census finds its daylight time, and the stamp 02:30
// stays in it; without a census it is standard time.
TEST(DumpCensus, GivesTheDaylightOfTheNight) {
  auto const event = [](int code, int day, int hour) {
    return Body().U8(0).Date(day, 10, 2024).Time(hour, 30, 0).U8(code).U16(0).U24(0);
  };
  DataFile const night =
      General()
          .Item(4, event(64, 26, 22))
          .Item(5, Body().U8(0).Date(27, 10, 2024).Time(2, 30, 0).Level(50).U8(0))
          .Item(4, event(0, 27, 5))
          .EndOfData();
  TempFile const file(Startable(night));
  test::RunOptions const berlin = {.zone = "Europe/Berlin"};
  auto const with = Objects(RunQvslm({"dump", file.Path()}, berlin)).at(1);
  EXPECT_EQ(with.at("RecordTimeLocal"), "2024-10-27T02:30:00+02:00");
  auto const without = Objects(RunQvslm({"dump", "--no-census", file.Path()}, berlin)).at(1);
  EXPECT_EQ(without.at("RecordTimeLocal"), "2024-10-27T02:30:00+01:00");
}

}  // namespace
