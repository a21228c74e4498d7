// qvslm info: what a file is and what it holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Mark;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::HasSubstr;
using testing::Not;

Body Event(int code, int hour) {
  return test::EventAt({2024, 6, 21, hour, 15}, code);
}

// Below 10 kB: 3.2 kB.
std::string SizeOf(const TempFile& file) {
  auto const tenths = (test::Contents(file.Path()).size() + 50) / 100;
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " kB";
}

TEST(Info, TellsWhatAFileIsAndHolds) {
  DataFile const file = DataFile()
                            .Titles("Bridge north", "second", "third")
                            .Header({.Model = 486, .Serial = " 1234", .Firmware = "1.100"})
                            .Q(157, "3")
                            .Item(4, Event(64, 12))
                            .Item(5, Mark())
                            .Item(5, Mark())
                            .Item(4, Event(0, 14))
                            .Stream(6, Body().Raw({60, 1, 61, 1, 62, 1}))
                            .R(6, "21Jun2024,14:15:00")
                            .EndOfData();
  TempFile const stored(Startable(file));
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, stored.Path() +
                            "\n"
                            "  model        486\n"
                            "  serial       1234\n"
                            "  firmware     1.100\n"
                            "  form         titles, then text header\n"
                            "  title        Bridge north\n"
                            "  title        second\n"
                            "  title        third\n"
                            "  sites        3\n"
                            "  size         " +
                            SizeOf(stored) +
                            "\n"
                            "  zone         UTC\n"
                            "  header time  2024-06-21T12:00:00+00:00\n"
                            "  start        2024-06-21T12:15:00+00:00\n"
                            "  last stop    2024-06-21T14:15:00+00:00\n"
                            "  last record  2024-06-21T14:15:00+00:00\n"
                            "  holds        2 level marks\n"
                            "               2 events\n"
                            "               1 block of settings\n"
                            "               3 entries of histories\n"
                            "               1 block of results\n");
}

TEST(Info, ModesAndModels) {
  TempFile const stored(Startable(test::Model442("LOG").EndOfData()));
  EXPECT_THAT(
      RunQvslm({"info", stored.Path()}).out,
      testing::AllOf(HasSubstr("  model        442\n"), HasSubstr("  mode         LOG\n"),
                     HasSubstr("  firmware     3.600\n"), HasSubstr("  form         text header\n"),
                     Not(HasSubstr("  sites")), Not(HasSubstr("  title"))));
}

TEST(Info, TheSettingsForm) {
  DataFile const file = DataFile()
                            .Q(5, "Yard")
                            .Q(6, "08:00:00")
                            .Q(7, "21Jun2024")
                            .Q(157, "2")
                            .Q(233, "77")
                            .EndOfData();
  TempFile const stored(Startable(file));
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out,
              testing::AllOf(HasSubstr("  model        486\n"), HasSubstr("  serial       A77\n"),
                             HasSubstr("  form         settings lines\n"),
                             HasSubstr("  title        Yard\n"), HasSubstr("  sites        2\n"),
                             HasSubstr("1 block of settings\n"), Not(HasSubstr("header time")),
                             Not(HasSubstr("firmware"))));
}

TEST(Info, AShortFileIsToldAsFarAsItCanBe) {
  TempFile const stored(test::General().Item(5, Mark()).EndOfData());
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("(-315)"));
  EXPECT_THAT(result.out, testing::AllOf(HasSubstr("  serial       1234\n"),
                                         HasSubstr("  holds        1 level mark\n")));
}

TEST(Info, ACutFileIsCountedAsFarAsItGoes) {
  DataFile file = test::Marks();
  TempFile const stored(file);
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("ended after 300 records at byte 3998: "));
  EXPECT_THAT(result.out, HasSubstr("  holds        300 level marks\n"));
}

TEST(Info, SeveralFiles) {
  TempFile const first(Startable(test::General().Item(5, Mark()).EndOfData()));
  TempFile const second(Startable(test::Model442("LOG").Item(5, Mark()).EndOfData()));
  Result const result = RunQvslm({"info", first.Path(), second.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, testing::StartsWith(first.Path() + "\n"));
  EXPECT_THAT(result.out, HasSubstr("\n" + second.Path() + "\n"));
  // Both files are of 2500 bytes and some more.
  EXPECT_THAT(test::Lines(result.out).back(),
              testing::MatchesRegex("2 files, 5\\.[0-9] kB: 2 level marks"));
}

TEST(Info, AsJson) {
  TempFile const first(
      Startable(test::General().Q(157, "3").Item(5, Mark()).Item(4, Event(64, 12)).EndOfData()));
  TempFile const second(Startable(test::Model442("LOG").EndOfData()));
  auto const objects = test::Objects(RunQvslm({"info", "--json", first.Path(), second.Path()}));
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(objects[0].at("file"), first.Path());
  EXPECT_EQ(objects[0].at("size"), test::Contents(first.Path()).size());
  EXPECT_EQ(objects[0].at("model"), 486);
  EXPECT_EQ(objects[0].at("serial"), "1234");
  EXPECT_EQ(objects[0].at("sites"), 3);
  EXPECT_EQ(objects[0].at("zone"), "UTC");
  EXPECT_EQ(objects[0].at("start"), "2024-06-21T12:15:00+00:00");
  EXPECT_EQ(objects[0].at("holds"),
            nlohmann::ordered_json({{"LevelMarks", 1}, {"Events", 1}, {"SettingsBlocks", 1}}));
  EXPECT_EQ(objects[0].at("whole"), true);
  EXPECT_EQ(objects[1].at("model"), 442);
  EXPECT_EQ(objects[1].at("mode"), "LOG");
}

TEST(Info, QuicklyWithoutAPassOverTheFile) {
  DataFile file = test::General().Q(157, "3");
  for (int i = 0; i < 300; ++i) file.Item(5, Mark());
  TempFile const cut(file);  // which only a pass over it shows
  Result const result = RunQvslm({"info", "--quick", cut.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out,
              testing::AllOf(HasSubstr("  model        486\n"), HasSubstr("  sites        3\n"),
                             HasSubstr("  header time  2024-06-21T12:00:00+00:00\n"),
                             Not(HasSubstr("holds")), Not(HasSubstr("start"))));
  TempFile const other("no measurement\n");
  EXPECT_EQ(RunQvslm({"info", "--quick", other.Path()}).exitCode, 1);
}

TEST(Info, TheZoneInForceIsShown) {
  TempFile const file(Startable(test::General().Item(4, Event(64, 12)).EndOfData()));
  std::string const out = RunQvslm({"info", "--tz", "Europe/Berlin", file.Path()}).out;
  EXPECT_THAT(out, testing::AllOf(HasSubstr("  zone         Europe/Berlin\n"),
                                  HasSubstr("  start        2024-06-21T12:15:00+02:00\n")));
  EXPECT_THAT(RunQvslm({"info", file.Path()}, {.zone = "America/New_York"}).out,
              HasSubstr("  zone         America/New_York\n"));
}

}  // namespace
