// qvslm export to a SQLite database, read back by sqlite3.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bulk_files.h"
#include "host/export_files.h"

namespace {

using samples::Body;
using test::Contents;
using test::General;
using test::Mark;
using test::NamesIn;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::Startable;
using test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

std::string Marked(double level) {
  return Startable(General().Q(2, "the title").Item(5, Mark(level)).EndOfData());
}

class Database : public testing::Test {
 protected:
  std::string Path() const { return folder.Path() + "/out.sqlite"; }
  std::string Query(const std::string& query) const {
    Result const result = RunProgram({"sqlite3", Path(), query});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out;
  }
  Result Export(std::vector<std::string> files) const {
    files.insert(files.begin(), "export");
    files.insert(files.end(), {"--to", Path()});
    return RunQvslm(files, {.zone = "Europe/Berlin"});
  }

  TempFolder folder;
};

TEST_F(Database, HoldsARowARecord) {
  std::string const file = folder.File("a.qvd", Marked(65.1015625));
  EXPECT_EQ(Export({file}).exitCode, 0);
  EXPECT_EQ(Query("SELECT * FROM LevelMark"),
            "4294967298|1|2|0|0|1718965800|2024-06-21T12:30:00+02:00|0|0.0|65.10156|32|486|1|0\n");
  EXPECT_EQ(Query("SELECT count(*) FROM Interval"), "0\n");
}

// The sum is that of sha256sum.
TEST_F(Database, TellsOfTheFile) {
  std::string const file = folder.File("a.qvd", Marked(65.5));
  EXPECT_EQ(Export({file}).exitCode, 0);
  std::string const sum = RunProgram({"sha256sum", file}).out.substr(0, 64);
  EXPECT_EQ(Query("SELECT path, size, sha256, model, serial, firmware, title2, whole, records, "
                  "cut_offset, why, LevelMarks, Intervals FROM files"),
            file + '|' + std::to_string(Marked(65.5).size()) + '|' + sum +
                "|486|1234|1.100|the title|1|3|||1|0\n");
}

TEST_F(Database, TellsOfTheFields) {
  EXPECT_EQ(Export({folder.File("a.qvd", Marked(65.5))}).exitCode, 0);
  EXPECT_EQ(Query("SELECT unit, kind, elements, comment FROM fields WHERE record = 'LevelMark' AND "
                  "field = 'Level'"),
            "dB|level|1|level\n");
  EXPECT_EQ(Query("SELECT elements FROM fields WHERE field = 'Block1'"), "5120\n");
}

TEST_F(Database, NoValueIsNull) {
  std::string const file = folder.File(
      "a.qvd",
      Startable(General()
                    .Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).NoLevel().U8(0))
                    .EndOfData()));
  EXPECT_EQ(Export({file}).exitCode, 0);
  EXPECT_EQ(Query("SELECT Level IS NULL, LevelOffset IS NULL FROM LevelMark"), "1|0\n");
}

TEST_F(Database, RawBytesAreOneValue) {
  std::string const file =
      folder.File("a.qvd", Startable(General().Item(7, Body().Fill(5120, 200)).EndOfData()));
  EXPECT_EQ(Export({file}).exitCode, 0);
  EXPECT_EQ(
      Query("SELECT length(Block1), hex(substr(Block1, 1, 2)), typeof(Block1) FROM BlockImage"),
      "5120|C8C8|blob\n");
}

TEST_F(Database, HoldsTheSeriesOfSamples) {
  std::string const file =
      folder.File("a.qvd", Startable(General()
                                         .Q(83, "1")
                                         .Q(84, "1")
                                         .Stream(6, Body().Raw({60, 1, 61, 1, 192, 1}))
                                         .EndOfData()));
  EXPECT_EQ(Export({file}).exitCode, 0);
  EXPECT_EQ(Query("SELECT * FROM TimeHistorySamples"),
            "4294967297|1|2|1718964000.0|2024-06-21T12:00:00.000+02:00|60.007812|\n"
            "4294967298|1|2|1718964001.0|2024-06-21T12:00:01.000+02:00|61.007812|\n");
  EXPECT_EQ(Query("SELECT Time, EventCode, EventDetail FROM TimeHistoryMarkers"),
            "1718964002.0|64|0\n");
}

TEST_F(Database, RowsPointToTheirFiles) {
  std::string const first = folder.File("a.qvd", Marked(65.5));
  std::string const second = folder.File("b.qvd", Marked(66.5));
  Result const result = Export({first, second});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.err, HasSubstr("2 written, 0 there unchanged, 0 failed"));
  EXPECT_EQ(Query("SELECT files.path, Level FROM LevelMark JOIN files ON files.id = file "
                  "ORDER BY LevelMark.id"),
            first + "|65.5\n" + second + "|66.5\n");
}

TEST_F(Database, LeavesUnchangedFilesAlone) {
  std::string const first = folder.File("a.qvd", Marked(65.5));
  std::string const second = folder.File("b.qvd", Marked(66.5));
  EXPECT_EQ(Export({first, second}).exitCode, 0);
  Query("UPDATE LevelMark SET Level = 1");  // to see which rows are written anew
  folder.File("b.qvd", Marked(67.5));
  Result const result = Export({first, second});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.err, HasSubstr("1 written, 1 there unchanged, 0 failed"));
  EXPECT_EQ(Query("SELECT Level FROM LevelMark JOIN files ON files.id = file ORDER BY path"),
            "1.0\n67.5\n");
  EXPECT_EQ(Query("SELECT count(*) FROM files"), "2\n");
}

// What was chosen of a file is part of what is there.
TEST_F(Database, AnotherChoiceReplacesTheFile) {
  std::string const file = folder.File("a.qvd", Marked(65.5));
  EXPECT_EQ(Export({file}).exitCode, 0);
  EXPECT_EQ(Export({file, "--records", "End"}).exitCode, 0);
  EXPECT_EQ(Query("SELECT (SELECT count(*) FROM LevelMark), (SELECT count(*) FROM End)"), "0|1\n");
}

TEST_F(Database, TellsWhereAFileIsCut) {
  std::string const file = folder.File("a.qvd", test::HalfASample());
  EXPECT_EQ(Export({file}).exitCode, 3);
  EXPECT_THAT(Query("SELECT whole, why FROM files"), testing::StartsWith("0|"));
  EXPECT_EQ(Query("SELECT cut_offset > 0, length(why) > 0 FROM files"), "1|1\n");
}

TEST_F(Database, AFileThatCannotBeReadStopsNoOther) {
  std::string const bad = folder.File("bad.qvd", "");
  std::string const good = folder.File("good.qvd", Marked(65.5));
  Result const result = Export({bad, good});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(Query("SELECT path FROM files"), good + "\n");
}

TEST_F(Database, NothingIsLeftWhereNoFileCouldBeRead) {
  EXPECT_EQ(Export({folder.File("bad.qvd", "")}).exitCode, 1);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("bad.qvd"));
}

// Killed at any moment, the database holds whole files, and the next run brings the others.
TEST_F(Database, HoldsWholeFilesWhenTheRunIsKilled) {
  std::vector<std::string> files;
  for (int i = 0; i < 4; ++i) {
    files.push_back(folder.Path() + '/' + std::to_string(i) + ".qvd");
    samples::WriteFamilyFile(files.back(), samples::Family::kEvents, 3000,
                             samples::At(2020, 1, 1 + i));
  }
  std::string const command = QVSLM_PROGRAM " export " + files[0] + ' ' + files[1] + ' ' +
                              files[2] + ' ' + files[3] + " --to " + Path();
  for (const char* const moment : {"0.02", "0.05", "0.1", "0.15", "0.2", "0.3"}) {
    // The pipe ends when the killed process is gone.
    RunProgram({"bash", "-c", "timeout -s KILL " + std::string(moment) + ' ' + command + " | cat"});
    if (!std::filesystem::exists(Path())) continue;
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok\n") << moment;
    if (Query("SELECT name FROM sqlite_schema WHERE name = 'files'").empty()) continue;
    // Of a file there are all rows or none.
    EXPECT_EQ(Query("SELECT DISTINCT count(*) FROM Event GROUP BY file"),
              Query("SELECT DISTINCT Events FROM files"))
        << moment;
  }
  EXPECT_EQ(Export(files).exitCode, 0);
  EXPECT_EQ(Query("SELECT count(DISTINCT file), count(*) = sum(Events) / count(*) * 4 FROM Event "
                  "JOIN files ON "
                  "files.id = file"),
            "4|1\n");
}

TEST_F(Database, EqualsTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    EXPECT_EQ(test::Differences(file, "sqlite", "sqlite"), "");
  }
}

TEST_F(Database, HasARowForEachSampleOfTheTable) {
  for (const std::string& file : test::SampleFiles()) {
    std::filesystem::remove(Path());
    ASSERT_EQ(Export({file}).exitCode, 0);
    std::string const tables = folder.Path() + "/tables";
    ASSERT_EQ(RunQvslm({"export", file, "--to", tables}).exitCode, 0);
    std::string const series = Contents(tables + "/TimeHistorySamples.csv");
    auto const rows = std::count(series.begin(), series.end(), '\n');
    EXPECT_EQ(Query("SELECT count(*) FROM TimeHistorySamples"),
              std::to_string(std::max<std::ptrdiff_t>(rows - 1, 0)) + '\n')
        << file;
  }
}

}  // namespace
