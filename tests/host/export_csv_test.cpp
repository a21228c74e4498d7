// qvslm export to CSV: a folder with one table a kind of record.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/export_files.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Contents;
using test::Event;
using test::General;
using test::Lines;
using test::Mark;
using test::NamesIn;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// The folder of an export.
class Tables {
 public:
  explicit Tables(const DataFile& file, const std::vector<std::string>& options = {},
                  const std::string& zone = "UTC") {
    TempFile const stored(Startable(file));
    std::vector<std::string> command = {"export", stored.Path(), "--to", Path()};
    command.insert(command.end(), options.begin(), options.end());
    result_ = RunQvslm(command, {.zone = zone});
    EXPECT_EQ(result_.exitCode, 0) << result_.err;
  }
  std::string Path() const { return folder_.Path() + "/out"; }
  std::string Table(const std::string& name) const { return Contents(Path() + '/' + name); }
  const std::string& Errors() const { return result_.err; }

 private:
  TempFolder folder_;
  Result result_;
};

DataFile Titled(std::string_view title) {
  return General().Q(5, title).EndOfData();
}

// The text of Title1 in the one row of the settings.
std::string Title(const std::string& title, const std::vector<std::string>& options = {}) {
  std::vector<std::string> all = {"--records", "Settings", "--separator", "|"};
  all.insert(all.end(), options.begin(), options.end());
  Tables const tables(Titled(title), all);
  std::vector<std::string> const lines = Lines(tables.Table("Settings.csv"));
  if (lines.size() != 2) return std::to_string(lines.size()) + " lines";
  auto const column = [](const std::string& line, std::size_t index) {
    std::size_t at = 0;
    for (; index > 0; --index) at = line.find('|', at) + 1;
    return line.substr(at, line.find('|', at) - at);
  };
  for (std::size_t i = 0; i < 20; ++i) {
    if (column(lines[0], i) == "Title1") return column(lines[1], i);
  }
  return "(no column)";
}

TEST(ExportCsv, ATableARecordName) {
  Tables const tables(
      General().Item(5, Mark(65.5)).Item(4, Event(32)).Item(5, Mark(60.5)).EndOfData(), {},
      "Europe/Berlin");
  EXPECT_THAT(NamesIn(tables.Path()), ElementsAre("End.csv", "Event.csv", "LevelMark.csv"));
  EXPECT_EQ(tables.Table("LevelMark.csv"),
            "Record,Short,SiteNumber,RecordTime (s since 1970 UTC),RecordTimeLocal,SettingFormat,"
            "LevelOffset (dB),Level (dB),StatusBit5,Model,RecordIndex,StatusCode\r\n"
            "1,0,0,1718965800,2024-06-21T12:30:00+02:00,0,0,65.5,32,486,1,0\r\n"
            "3,0,0,1718965800,2024-06-21T12:30:00+02:00,0,0,60.5,32,486,2,0\r\n");
  EXPECT_EQ(tables.Table("Event.csv"),
            "Record,Short,SiteNumber,RecordTime (s since 1970 UTC),RecordTimeLocal,SettingFormat,"
            "EventDetail,EventValue24,Model,EventValue16,RecordIndex,EventCode\r\n"
            "2,0,0,1718965865,2024-06-21T12:31:05+02:00,0,3,70000,486,515,1,32\r\n");
  EXPECT_EQ(tables.Errors(), "");
}

TEST(ExportCsv, ALevelWithoutAValueIsEmpty) {
  Tables const tables(General()
                          .Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).NoLevel().U8(0))
                          .EndOfData());
  EXPECT_THAT(tables.Table("LevelMark.csv"), HasSubstr(",0,0,,0,486,1,0\r\n"));
}

TEST(ExportCsv, NoTimeIsEmpty) {
  Tables const tables(General().Q(157, "3").EndOfData());
  EXPECT_THAT(tables.Table("Settings.csv"), HasSubstr("\r\n1,0,3,0,,0,486,"));
}

TEST(ExportCsv, ShortItemsAreTold) {
  Tables const tables(General()
                          .Item(4, Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5))
                          .Item(4, Event(0))
                          .EndOfData());
  std::vector<std::string> const lines = Lines(tables.Table("Event.csv"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_THAT(lines[1], StartsWith("1,1,"));
  EXPECT_THAT(lines[2], StartsWith("2,0,"));
}

// 65 and 26/256 decibels are 65.1015625; seven digits give the same 32-bit number back.
TEST(ExportCsv, NumbersAreTheShortestThatGiveTheSameNumberBack) {
  Tables const tables(General().Item(5, Mark(65.1015625)).EndOfData());
  EXPECT_THAT(tables.Table("LevelMark.csv"), HasSubstr(",65.10156,"));
}

TEST(ExportCsv, ArraysAreNumberedColumns) {
  Tables const tables(General().Item(2, Body().PadTo(80)).EndOfData());
  std::string const table = tables.Table("Summary.csv");
  EXPECT_THAT(table, HasSubstr(",Aux[0][0],Aux[0][1],Aux[0][2],Aux[1][0],"));
  EXPECT_THAT(table, HasSubstr(",PercentileLevels[0] (dB),PercentileLevels[1] (dB),"));
  EXPECT_THAT(table, HasSubstr(",PercentileNumbers[5] (%),"));
}

// A summary with auxiliary channels and one without have the same columns.
TEST(ExportCsv, ColumnsDoNotDependOnTheFile) {
  auto const heading = [](const DataFile& file) {
    return Lines(Tables(file).Table("Summary.csv")).at(0);
  };
  EXPECT_EQ(heading(General().Item(2, Body().PadTo(80)).EndOfData()),
            heading(General().Item(2, Body().PadTo(30)).EndOfData()));
}

TEST(ExportCsv, OneRowAnElement) {
  Tables const tables(General().Item(5, Mark(65.5)).Item(2, Body().PadTo(80)).EndOfData(),
                      {"--long"});
  EXPECT_EQ(Lines(tables.Table("LevelMark.csv")).at(0),
            "Record,Short,RecordTime (s since 1970 UTC),RecordTimeLocal,Field,Index,Index2,Unit,"
            "Value\r");
  EXPECT_THAT(tables.Table("LevelMark.csv"),
              HasSubstr("\r\n1,0,1718973000,2024-06-21T12:30:00+00:00,Level,,,dB,65.5\r\n"));
  EXPECT_THAT(tables.Table("Summary.csv"), HasSubstr(",Aux,1,2,,0\r\n"));
  EXPECT_THAT(tables.Table("Summary.csv"), HasSubstr(",Distribution,383,,,0\r\n"));
}

TEST(ExportCsv, SeparatorAndDecimalSign) {
  Tables const tables(General().Item(5, Mark(65.5)).EndOfData(),
                      {"--separator", ";", "--decimal", ","});
  EXPECT_THAT(tables.Table("LevelMark.csv"), StartsWith("Record;Short;SiteNumber;"));
  EXPECT_THAT(tables.Table("LevelMark.csv"), HasSubstr(";0;65,5;32;486;1;0\r\n"));
}

TEST(ExportCsv, ColumnsAndDecimalsNeedSignsOfTheirOwn) {
  TempFile const file(Startable(General().EndOfData()));
  TempFolder const folder;
  Result const result =
      RunQvslm({"export", file.Path(), "--to", folder.Path() + "/out", "--decimal", ","});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.err, HasSubstr("--separator and --decimal cannot be the same sign"));
  EXPECT_TRUE(folder.Empty());
}

TEST(ExportCsv, NoTextRunsAsAFormula) {
  EXPECT_EQ(Title("=1+1"), "'=1+1");
  EXPECT_EQ(Title("+1"), "'+1");
  EXPECT_EQ(Title("-1"), "'-1");
  EXPECT_EQ(Title("@SUM(A1)"), "'@SUM(A1)");
  EXPECT_EQ(Title("\tx"), "'\tx");
  EXPECT_EQ(Title("a=1"), "a=1");
  EXPECT_EQ(Title("=1+1", {"--no-csv-guard"}), "=1+1");
  EXPECT_EQ(Title("-1", {"--no-csv-guard"}), "-1");
}

TEST(ExportCsv, NumbersAreNeverGuarded) {
  Tables const tables(General().Stream(6, Body().Raw({60, 1, 192, 1})).EndOfData());
  EXPECT_THAT(tables.Table("TimeHistory.csv"), HasSubstr(",-64,"));
}

TEST(ExportCsv, TextsAreQuotedWhereTheyMustBe) {
  EXPECT_EQ(Title("plain, and more"), "plain, and more");
  EXPECT_EQ(Title("say \"no\""), "\"say \"\"no\"\"\"");
  Tables const tables(Titled("one, two"));
  EXPECT_THAT(tables.Table("Settings.csv"), HasSubstr(",\"one, two\","));
}

// What a terminal would obey is written as JSON writes it.
TEST(ExportCsv, TextsAreUtf8WithoutControls) {
  EXPECT_EQ(Title("caf\xE9 \x80\xFF"), "caf\u00E9 \\u0080\u00FF");
  EXPECT_EQ(Title("a\x1B[2J"), "a\\u001b[2J");
}

// Samples at 1 s, of two bytes each; a marker takes no time.
TEST(ExportCsv, SamplesHaveTheirOwnTimes) {
  Tables const tables(General()
                          .Q(83, "1")
                          .Q(84, "1")
                          .Stream(6, Body().Raw({60, 1, 61, 1, 160, 1, 62, 1}))
                          .EndOfData());
  std::vector<std::string> const samples = Lines(tables.Table("TimeHistorySamples.csv"));
  ASSERT_EQ(samples.size(), 4u);
  EXPECT_EQ(samples[0],
            "Record,Time (s since 1970 UTC),TimeLocal,FirstLevel (dB),SecondLevel (dB)\r");
  EXPECT_THAT(samples[1], StartsWith("2,1718971200,2024-06-21T12:00:00.000+00:00,"));
  EXPECT_THAT(samples[2], StartsWith("2,1718971201,2024-06-21T12:00:01.000+00:00,"));
  EXPECT_THAT(samples[3], StartsWith("2,1718971202,"));
  // 60 and 1/128 decibels, in the shortest digits; there are no second levels.
  EXPECT_THAT(samples[1], testing::EndsWith(",60.007812,\r"));
  EXPECT_THAT(tables.Table("TimeHistoryMarkers.csv"),
              HasSubstr("\r\n2,1718971202,2024-06-21T12:00:02.000+00:00,32,0\r\n"));
}

// 32 samples a second: the record of 60 ends within a second, and the next goes on from there.
TEST(ExportCsv, SamplesGoOnWithinASecond) {
  Body entries;
  for (int i = 0; i < 70; ++i) entries.U8(60).U8(1);
  Tables const tables(General().Q(83, "1").Q(84, "0").Stream(6, entries).EndOfData());
  std::vector<std::string> const samples = Lines(tables.Table("TimeHistorySamples.csv"));
  ASSERT_EQ(samples.size(), 71u);
  EXPECT_THAT(samples[2], StartsWith("2,1718971200.03125,2024-06-21T12:00:00.031+00:00,"));
  EXPECT_THAT(samples[60], StartsWith("2,1718971201.84375,2024-06-21T12:00:01.843+00:00,"));
  EXPECT_THAT(samples[61], StartsWith("3,1718971201.875,2024-06-21T12:00:01.875+00:00,"));
}

TEST(ExportCsv, OnlyTheRecordsAskedFor) {
  Tables const tables(General().Item(5, Mark(65.5)).Item(4, Event(32)).EndOfData(),
                      {"--records", "Event"});
  EXPECT_THAT(NamesIn(tables.Path()), ElementsAre("Event.csv"));
}

// Tables of an earlier export do not stay beside those of this one; what others put there does.
TEST(ExportCsv, TablesTakeThePlaceOfEarlierOnes) {
  TempFile const first(Startable(General().Item(5, Mark(65.5)).EndOfData()));
  TempFile const second(Startable(General().Item(4, Event(32)).EndOfData()));
  TempFolder const folder;
  folder.File("notes.txt", "mine");
  EXPECT_EQ(RunQvslm({"export", first.Path(), "--to", folder.Path()}).exitCode, 0);
  EXPECT_EQ(RunQvslm({"export", second.Path(), "--to", folder.Path()}).exitCode, 0);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("End.csv", "Event.csv", "notes.txt"));
}

TEST(ExportCsv, EqualsTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    EXPECT_EQ(test::Differences(file, "csv", "csv", {"--no-csv-guard"}), "");
  }
}

TEST(ExportCsv, OneRowAnElementEqualsTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    EXPECT_EQ(test::Differences(file, "long", "csv", {"--no-csv-guard", "--long"}), "");
  }
}

TEST(ExportLines, AreThoseOfTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    TempFolder const folder;
    std::string const place = folder.Path() + "/out.jsonl";
    Result const result = RunQvslm({"export", file, "--to", place});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Contents(place), RunQvslm({"dump", file}).out) << file;
  }
}

}  // namespace
