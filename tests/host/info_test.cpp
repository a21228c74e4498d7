// qvslm info: what a file is and what it holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::HasSubstr;
using testing::Not;

Body Mark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0);
}

Body Event(int code, int hour) {
  return Body().U8(0).Date(21, 6, 2024).Time(hour, 15, 0).U8(code).U16(0).U24(0);
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
  EXPECT_EQ(result.out,
            stored.Path() +
                "\n"
                "  model        486\n"
                "  serial       1234\n"
                "  firmware     1.100\n"
                "  form         titles, then text header\n"
                "  title        Bridge north\n"
                "  title        second\n"
                "  title        third\n"
                "  sites        3\n"
                "  header time  2024-06-21T12:00:00+00:00\n"
                "  start        2024-06-21T12:15:00+00:00\n"
                "  last stop    2024-06-21T14:15:00+00:00\n"
                "  last record  2024-06-21T14:15:00+00:00\n"
                "  holds\n"
                "           2  LevelMarks          LevelMark records\n"
                "           2  Events              Event records, but those of the two other "
                "fields of that name\n"
                "           1  SettingsBlocks      Settings records\n"
                "           3  StreamEntries       entries of sample streams; list blocks but "
                "those of the three other fields\n"
                "           1  ResultsBlocksMode0  Results records of any model in mode 0\n");
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
                             HasSubstr("           1  SettingsBlocks "),
                             Not(HasSubstr("header time")), Not(HasSubstr("firmware"))));
}

TEST(Info, AShortFileIsToldAsFarAsItCanBe) {
  TempFile const stored(test::General().Item(5, Mark()).EndOfData());
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("(-315)"));
  EXPECT_THAT(result.out, testing::AllOf(HasSubstr("  serial       1234\n"),
                                         HasSubstr("           1  LevelMarks ")));
}

TEST(Info, ACutFileIsCountedAsFarAsItGoes) {
  DataFile file = test::General();
  for (int i = 0; i < 300; ++i) file.Item(5, Mark());
  TempFile const stored(file);
  Result const result = RunQvslm({"info", stored.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("ended after 300 records at byte 3998: "));
  EXPECT_THAT(result.out, HasSubstr("         300  LevelMarks "));
}

TEST(Info, SeveralFiles) {
  TempFile const first(Startable(test::General().EndOfData()));
  TempFile const second(Startable(test::Model442("LOG").EndOfData()));
  Result const result = RunQvslm({"info", first.Path(), second.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, testing::StartsWith(first.Path() + "\n"));
  EXPECT_THAT(result.out, HasSubstr("\n" + second.Path() + "\n"));
}

}  // namespace
