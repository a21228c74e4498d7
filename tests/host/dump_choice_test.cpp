// qvslm dump: records chosen by time, and numbers as they stand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/stamped_items.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::Names;
using test::Objects;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::AllOf;
using testing::ElementsAre;
using testing::Not;

Body Mark(int hour, int minute) {
  return test::MarkAt({2024, 6, 21, hour, minute});
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

// A piece of history is wanted when one of its samples is. From 12:00:00 on pieces of the sample
// hold 60 samples, one in two seconds: the last of the first one comes at 12:01:58.
TEST(DumpTimes, AHistoryIsTakenByItsSamples) {
  const char* const samples = std::getenv("SAMPLES");
  if (samples == nullptr) GTEST_SKIP() << "SAMPLES names no folder with sample files";
  std::string const file = std::string(samples) + "/general_time_history.qvd";
  auto const pieces = [&](const char* from, const char* to) {
    return Clocks(RunQvslm({"dump", "--records", "TimeHistory", "--from",
                            "2024-06-21T12:" + std::string(from), "--to",
                            "2024-06-21T12:" + std::string(to), file}));
  };
  EXPECT_THAT(pieces("01:58", "02:00"), ElementsAre("12:00"));
  EXPECT_THAT(pieces("01:59", "02:01"), ElementsAre("12:02"));
  EXPECT_THAT(pieces("01:58", "02:01"), ElementsAre("12:00", "12:02"));
  EXPECT_THAT(pieces("01:59", "02:00"), ElementsAre());
}

TEST(DumpTimes, RecordsWithoutATimeAreLeftOut) {
  const char* const samples = std::getenv("SAMPLES");
  if (samples == nullptr) GTEST_SKIP() << "SAMPLES names no folder with sample files";
  std::string const file = std::string(samples) + "/model442_logging.qvd";
  EXPECT_THAT(Names(RunQvslm({"dump", file})), testing::Contains("SetupLogging"));
  EXPECT_THAT(Names(RunQvslm({"dump", "--from", "2000-01-01", file})),
              AllOf(testing::Contains("Interval"), Not(testing::Contains("SetupLogging"))));
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
}

}  // namespace
