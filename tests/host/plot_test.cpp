// qvslm plot: pictures that are whole, or a word why there is none.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "host/qvslm_process.h"
#include "support/stamped_items.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Contents;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using test::TempFolder;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

Body Event(int code, int hour) {
  return test::EventAt({2024, 6, 21, hour}, code);
}

Body Mark(int minute) {
  return test::MarkAt({2024, 6, 21, 12, minute});
}

std::string Measured() {
  return Startable(test::General()
                       .Q(5, "Bridge 'north'")
                       .Item(4, Event(64, 12))
                       .Item(5, Mark(10))
                       .Item(5, Mark(20))
                       .Item(4, Event(0, 13))
                       .EndOfData());
}

TEST(Plot, LevelsOverLocalTime) {
  TempFolder const folder;
  TempFile const file(Measured());
  std::string const picture = folder.Path() + "/it's night.svg";
  Result const result = RunQvslm({"plot", "--tz", "Europe/Berlin", file.Path(), "-o", picture});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  std::string const svg = Contents(picture);
  EXPECT_THAT(svg,
              AllOf(HasSubstr("<svg"), HasSubstr("</svg>"), HasSubstr("level in dB"),
                    HasSubstr("local time, 2024-06-21 (UTC+02:00, Europe/Berlin)"),
                    HasSubstr("LevelMark Level"), HasSubstr("run starts"), HasSubstr("run ends"),
                    HasSubstr(">12:10<"), Not(HasSubstr("Interval LevelA"))));
  // The title as it stands; SVG writes the quotes as references.
  EXPECT_THAT(svg, testing::ContainsRegex("Bridge ('|&#39;|&apos;)north"));
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    ++files;
    EXPECT_EQ(entry.path(), picture);
  }
  EXPECT_EQ(files, 1u);
}

TEST(Plot, APng) {
  TempFolder const folder;
  TempFile const file(Measured());
  std::string const picture = folder.Path() + "/x.png";
  ASSERT_EQ(RunQvslm({"plot", file.Path(), "-o", picture}).exitCode, 0);
  EXPECT_THAT(Contents(picture), AllOf(testing::StartsWith("\x89PNG\r\n"), HasSubstr("IEND")));
}

TEST(Plot, RecordsAndFieldsAsAskedFor) {
  TempFolder const folder;
  TempFile const file(Measured());
  std::string const picture = folder.Path() + "/x.svg";
  ASSERT_EQ(
      RunQvslm({"plot", file.Path(), "--records", "Event", "--field", "EventCode", "-o", picture})
          .exitCode,
      0);
  EXPECT_THAT(Contents(picture), AllOf(HasSubstr("Event EventCode"), HasSubstr(">value<"),
                                       Not(HasSubstr("LevelMark"))));
  Result const none = RunQvslm({"plot", file.Path(), "--field", "Title1", "-o", picture});
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_THAT(none.err, HasSubstr("--field: \"Title1\" is not the name of a number over time"));
}

TEST(Plot, Spectra) {
  TempFolder const folder;
  std::string const picture = folder.Path() + "/x.svg";
  const char* const samples = std::getenv("SAMPLES");
  if (samples == nullptr) GTEST_SKIP() << "SAMPLES names no folder with sample files";
  std::string const file = std::string(samples) + "/model442_bands.qvd";
  ASSERT_EQ(RunQvslm({"plot", "--spectrum", file, "-o", picture}).exitCode, 0);
  EXPECT_THAT(Contents(picture), AllOf(HasSubstr("element of BandInterval Bands1"),
                                       HasSubstr("energy mean of 40 records")));
}

TEST(Plot, WithoutAnythingToDraw) {
  TempFolder const folder;
  TempFile const file(Startable(test::General().EndOfData()));
  std::string const picture = folder.Path() + "/x.svg";
  Result const result = RunQvslm({"plot", file.Path(), "-o", picture});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "qvslm: " + picture + ": not drawn: no file holds what it should show\n");
  EXPECT_TRUE(folder.Empty());
}

TEST(Plot, WithoutGnuplot) {
  TempFolder const folder;
  TempFile const file(Measured());
  Result const result = test::RunProgram({"env", "PATH=" + folder.Path(), QVSLM_PROGRAM, "plot",
                                          file.Path(), "-o", folder.Path() + "/x.svg"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err,
            "qvslm: gnuplot, which draws the picture, is not there; on Debian it comes with "
            "apt-get install gnuplot-nox\n");
  EXPECT_TRUE(folder.Empty());
}

TEST(Plot, WhereNothingCanBeWritten) {
  TempFile const file(Measured());
  TempFolder const folder;
  Result const result = RunQvslm({"plot", file.Path(), "-o", "/no/such/folder/x.svg"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("/no/such/folder/x.svg"));
  // A device keeps its place.
  std::filesystem::create_symlink("/dev/full", folder.Path() + "/full.svg");
  Result const full = RunQvslm({"plot", file.Path(), "-o", folder.Path() + "/full.svg"});
  EXPECT_EQ(full.exitCode, 1);
  EXPECT_THAT(full.err, AllOf(HasSubstr("full.svg"), HasSubstr("No space left on device")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() + "/full.svg"));
}

TEST(Plot, ACutFileIsDrawnAsFarAsItGoes) {
  TempFolder const folder;
  DataFile data = test::General();
  for (int i = 0; i < 300; ++i) data.Item(5, Mark(i % 60));
  TempFile const file(data);
  Result const result = RunQvslm({"plot", file.Path(), "-o", folder.Path() + "/x.svg"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr("ended after 300 records"));
  EXPECT_THAT(Contents(folder.Path() + "/x.svg"), HasSubstr("</svg>"));
}

// Six runs with pauses between them: six lines, of a hundred samples and more each.
TEST(Plot, PausesAreGaps) {
  const char* const samples = std::getenv("SAMPLES");
  if (samples == nullptr) GTEST_SKIP() << "SAMPLES names no folder with sample files";
  TempFolder const folder;
  std::string const picture = folder.Path() + "/x.svg";
  ASSERT_EQ(RunQvslm({"plot", std::string(samples) + "/general_time_history.qvd", "-o", picture})
                .exitCode,
            0);
  std::string const svg = Contents(picture);
  int lines = 0;
  for (std::size_t at = svg.find("d='M"); at != std::string::npos; at = svg.find("d='M", at + 4)) {
    if (svg.find('\'', at + 4) - at > 1000) ++lines;
  }
  EXPECT_EQ(lines, 6);
}

// Far more values than a picture can show, among them a single loud one: the axis reaches up to it.
TEST(Plot, ThinnedCurvesKeepTheirExtremes) {
  TempFolder const folder;
  DataFile data = test::General();
  for (int i = 0; i < 20000; ++i) {
    data.Item(5, Body()
                     .U8(0)
                     .Date(21 + i / 3600 / 24, 6, 2024)
                     .Time(i / 3600 % 24, i / 60 % 60, i % 60)
                     .Level(i == 7777 ? 95.5 : 65.5)
                     .U8(0));
  }
  TempFile const file(data.EndOfData());
  std::string const picture = folder.Path() + "/x.svg";
  ASSERT_EQ(RunQvslm({"plot", file.Path(), "-o", picture}).exitCode, 0);
  std::string const svg = Contents(picture);
  EXPECT_THAT(svg, AllOf(HasSubstr("> 70<"), HasSubstr("> 95<")));
  EXPECT_LT(svg.size(), 2000000u);
}

}  // namespace
