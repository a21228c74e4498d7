// qvslm dump: records chosen by time, and numbers as they stand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Names;
using test::Objects;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::ElementsAre;

Body Mark(int hour, int minute) {
  return Body().U8(0).Date(21, 6, 2024).Time(hour, minute, 0).Level(60).U8(0);
}

std::vector<std::string> Clocks(const test::Result& result) {
  std::vector<std::string> clocks;
  for (const auto& object : Objects(result)) {
    clocks.push_back(object.at("RecordTimeLocal").get<std::string>().substr(11, 5));
  }
  return clocks;
}

TEST(DumpTimes, FromIsWithinAndToIsNot) {
  TempFile const file(Startable(
      test::General().Item(5, Mark(8, 0)).Item(5, Mark(9, 30)).Item(5, Mark(11, 0)).EndOfData()));
  auto const times = [&](std::vector<std::string> options) {
    options.insert(options.begin(), {"dump", "--records", "LevelMark", file.Path()});
    return Clocks(RunQvslm(options, {.zone = "America/New_York"}));
  };
  EXPECT_THAT(times({"--from", "2024-06-21T09:30"}), ElementsAre("09:30", "11:00"));
  EXPECT_THAT(times({"--since", "2024-06-21T09:30:01"}), ElementsAre("11:00"));
  EXPECT_THAT(times({"--to", "2024-06-21T09:30"}), ElementsAre("08:00"));
  EXPECT_THAT(times({"--until", "2024-06-21T09:30:01"}), ElementsAre("08:00", "09:30"));
  EXPECT_THAT(times({"--from", "2024-06-21 09:00", "--to", "2024-06-21 10:00"}),
              ElementsAre("09:30"));
  EXPECT_THAT(times({"--from", "2024-06-21", "--to", "2024-06-22"}),
              ElementsAre("08:00", "09:30", "11:00"));
  EXPECT_THAT(times({"--from", "2024-06-22"}), ElementsAre());
  EXPECT_THAT(times({"--limit", "1", "--from", "2024-06-21T09:00"}), ElementsAre("09:30"));
}

TEST(DumpTimes, AreTakenInTheZoneAskedFor) {
  TempFile const file(Startable(test::General().Item(5, Mark(8, 0)).EndOfData()));
  for (const char* const zone : {"Asia/Kolkata", "Europe/Berlin", "UTC"}) {
    EXPECT_THAT(Names(RunQvslm({"dump", "--tz", zone, "--from", "2024-06-21T08:00", "--to",
                                "2024-06-21T08:01", file.Path()})),
                ElementsAre("LevelMark"))
        << zone;
  }
}

// A piece of history is wanted when one of its samples is: these three come at 12:30:00, 12:30:01
// and 12:30:02.
TEST(DumpTimes, AHistoryIsTakenByItsSamples) {
  DataFile const data =
      test::General()
          .Q(7, "21Jun2024")
          .Q(6, "12:30:00")
          .Item(4, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).U8(64).U16(0).U24(0))
          .Stream(6, Body().Raw({60, 1, 61, 1, 62, 1}))
          .EndOfData();
  TempFile const file(Startable(data));
  auto const history = Objects(RunQvslm({"dump", "--records", "TimeHistory", file.Path()})).at(0);
  ASSERT_EQ(history.at("RecordTimeLocal"), "2024-06-21T12:30:00+00:00");
  ASSERT_EQ(history.at("EntryCount"), 3);
  ASSERT_EQ(history.at("StreamPeriod"), 1.0);
  auto const count = [&](const char* option, const char* time) {
    return Names(RunQvslm({"dump", "--records", "TimeHistory", option, time, file.Path()})).size();
  };
  EXPECT_EQ(count("--from", "2024-06-21T12:30:02"), 1u);
  EXPECT_EQ(count("--from", "2024-06-21T12:30:03"), 0u);
  EXPECT_EQ(count("--to", "2024-06-21T12:30:00"), 0u);
  EXPECT_EQ(count("--to", "2024-06-21T12:30:01"), 1u);
}

TEST(DumpTimes, RecordsWithoutATimeAreLeftOut) {
  TempFile const file(
      Startable(test::General().Item(7, Body().Fill(5120, 200)).Item(5, Mark(8, 0)).EndOfData()));
  EXPECT_THAT(Names(RunQvslm({"dump", file.Path()})),
              ElementsAre("BlockImage", "LevelMark", "End"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--from", "2024-06-21", file.Path()})),
              ElementsAre("LevelMark"));
}

TEST(DumpRaw, NumbersStandAsTheyAre) {
  TempFile const file(
      Startable(test::General().Item(1, Body().U8(0).Date(21, 6, 2024).Time(8, 0, 0)).EndOfData()));
  auto const told = Objects(RunQvslm({"dump", file.Path()})).at(0);
  auto const raw = Objects(RunQvslm({"dump", "--raw", file.Path()})).at(0);
  ASSERT_TRUE(told.at("LevelE").is_null());
  EXPECT_EQ(raw.at("LevelE"), 999.0);
  EXPECT_EQ(told.count("RecordTimeLocal"), 1u);
  EXPECT_EQ(raw.count("RecordTimeLocal"), 0u);
  EXPECT_EQ(raw.at("RecordTime"), 1718956800);
}

}  // namespace
