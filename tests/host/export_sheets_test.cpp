// qvslm export to xlsx and mat, read back by openpyxl and by Octave.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bulk_files.h"
#include "host/export_files.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Lines;
using test::Mark;
using test::NamesIn;
using test::Result;
using test::RunProgram;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;

// What Python prints of a workbook that `w` stands for.
std::string Printed(const std::string& workbook, const std::string& script) {
  Result const result =
      RunProgram({"/usr/bin/python3", "-c",
                  "import openpyxl\nw = openpyxl.load_workbook('" + workbook + "')\n" + script});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  return result.out;
}

class Export : public testing::Test {
 protected:
  std::string Place(const std::string& name) const { return folder.Path() + '/' + name; }
  Result Run(const DataFile& file, const std::string& name) const {
    TempFile const stored(Startable(file));
    return RunQvslm({"export", stored.Path(), "--to", Place(name)}, {.zone = "Europe/Berlin"});
  }

  TempFolder folder;
};

class Workbook : public Export {};
class MatFile : public Export {};

TEST_F(Workbook, HasASheetARecordName) {
  EXPECT_EQ(Run(General().Item(5, Mark(65.1015625)).EndOfData(), "out.xlsx").exitCode, 0);
  EXPECT_EQ(
      Printed(Place("out.xlsx"),
              "print(w.sheetnames, w['LevelMark'].freeze_panes)\n"
              "for row in w['LevelMark'].iter_rows(values_only=True): print(*row[:8], sep='|')"),
      "['LevelMark', 'End'] A2\n"
      "Record|Short|SiteNumber|RecordTime (s since 1970 UTC)|RecordTimeLocal|SettingFormat|"
      "LevelOffset (dB)|Level (dB)\n"
      "1|0|0|1718965800|2024-06-21 12:30:00|0|0|65.10156\n");
}

TEST_F(Workbook, TimesAreDates) {
  EXPECT_EQ(Run(General().Item(5, Mark(65.5)).EndOfData(), "out.xlsx").exitCode, 0);
  EXPECT_EQ(Printed(Place("out.xlsx"),
                    "c = w['LevelMark']['E2']\nprint(c.is_date, repr(c.value), c.number_format)"),
            "True datetime.datetime(2024, 6, 21, 12, 30) yyyy-mm-dd hh:mm:ss\n");
}

TEST_F(Workbook, NoTextIsAFormula) {
  EXPECT_EQ(Run(General().Q(2, "=1+1").EndOfData(), "out.xlsx").exitCode, 0);
  EXPECT_EQ(
      Printed(Place("out.xlsx"),
              "c = [c for c in w['Settings'][2] if c.value == '=1+1'][0]\nprint(c.data_type)"),
      // openpyxl takes a text that begins so for a formula unless the file calls it a text.
      "s\n");
}

TEST_F(Workbook, TellsOfMoreRowsThanASheetTakes) {
  std::string const file = Place("long.qvd");
  samples::WriteFamilyFile(file, samples::Family::kStreamOneByte, 1048576, samples::At(2020, 1, 1));
  Result const result = RunQvslm({"export", file, "--to", Place("out.xlsx")});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("out.xlsx: a sheet takes 1048575 rows, and TimeHistorySamples "
                                    "has more: export to csv or sqlite"));
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("long.qvd"));
}

TEST_F(Workbook, EqualsTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    EXPECT_EQ(test::Differences(file, "xlsx", "xlsx"), "");
  }
}

TEST_F(MatFile, HasAStructArrayARecordName) {
  EXPECT_EQ(Run(General()
                    .Q(2, "caf\xE9")
                    .Item(5, Mark(65.5))
                    .Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).NoLevel().U8(0))
                    .EndOfData(),
                "out.mat")
                .exitCode,
            0);
  Result const octave = RunProgram(
      {"octave-cli", "-q", "--eval",
       "load '" + Place("out.mat") +
           "'; disp(size(LevelMark)); printf('%g %s %s\\n', LevelMark(1).Level, "
           "LevelMark(1).RecordTimeLocal, Units.LevelMark.Level); disp([LevelMark.Level]); "
           "disp(Settings.Title2)"});
  EXPECT_EQ(octave.exitCode, 0) << octave.err;
  EXPECT_THAT(Lines(octave.out), ElementsAre("   1   2", "65.5 2024-06-21T12:30:00+02:00 dB",
                                             testing::MatchesRegex(" +65.500 +NaN"), "caf\u00E9"));
}

TEST_F(MatFile, HoldsTheSeriesOfSamples) {
  EXPECT_EQ(Run(General()
                    .Q(83, "1")
                    .Q(84, "1")
                    .Stream(6, Body().Raw({60, 1, 61, 1, 160, 1, 62, 1}))
                    .EndOfData(),
                "out.mat")
                .exitCode,
            0);
  Result const octave =
      RunProgram({"octave-cli", "-q", "--eval",
                  "load '" + Place("out.mat") +
                      "'; printf('%.6f ', TimeHistorySamples.FirstLevel); printf('%.0f ', "
                      "TimeHistorySamples.Time); printf('%d', TimeHistoryMarkers.EventCode)"});
  EXPECT_EQ(octave.out, "60.007812 61.007812 62.007812 1718964000 1718964001 1718964002 32");
}

TEST_F(MatFile, EqualsTheDump) {
  for (const std::string& file : test::SampleFiles()) {
    EXPECT_EQ(test::Differences(file, "json", "mat"), "");
  }
}

}  // namespace
