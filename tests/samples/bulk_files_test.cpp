// The large files for measurements of speed: of the size asked for, whole, and with the number of
// records that was asked for.
#include "bulk_files.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "clock.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Family;

// A whole walk that keeps nothing but counts.
struct Walk {
  int census = 0;
  int start = 0;
  int end = 0;
  QvRecordCensus counts{};
  std::array<int, 100> records{};  // by type code
  int streamEntries = 0;

  explicit Walk(const std::string& path) {
    Session session;
    census = session.Census(path);
    counts = session.Counts();
    start = session.Start(path);
    if (start != QV_OK) return;
    while ((end = session.Next()) >= 0) {
      ++records.at(static_cast<std::size_t>(session.Code()));
      if (session.Code() == QV_TIME_HISTORY)
        streamEntries += session.As<QvTimeHistory>().EntryCount;
    }
  }
  int Count(int code) const { return records.at(static_cast<std::size_t>(code)); }
};

struct FamilyRow {
  Family family;
  int code;
};

constexpr FamilyRow kRows[] = {
    {Family::kEvents, QV_EVENT},
    {Family::kLevelMarks, QV_LEVEL_MARK},
    {Family::kIntervals, QV_INTERVAL},
    {Family::kFullIntervals, QV_INTERVAL},
    {Family::kBandIntervals, QV_INTERVAL},
    {Family::kStreamOneByte, QV_TIME_HISTORY},
    {Family::kStreamOneByteSecond, QV_TIME_HISTORY},
    {Family::kStreamTwoByte, QV_TIME_HISTORY},
    {Family::kStreamTwoByteSecond, QV_TIME_HISTORY},
    {Family::kSummaries, QV_SUMMARY},
    {Family::kDaySummaries, QV_DAY_SUMMARY},
    {Family::kBandsNear, QV_INTERVAL_BANDS},
    {Family::kBandsFar, QV_INTERVAL_BANDS},
    {Family::kSetups, QV_SETUP_LOGGING},
    {Family::kSpectra, QV_TIMED_SPECTRUM},
    {Family::kFields, QV_FIELD_HISTORY},
    {Family::kResults, QV_RESULTS},
};

TEST(BulkFiles, HoldAsManyRecordsOfAFamilyAsAskedFor) {
  constexpr int kRecords = 730;
  static_assert(std::size(kRows) == std::size(samples::kFamilies));
  for (const FamilyRow& row : kRows) {
    SCOPED_TRACE(samples::FamilyName(row.family));
    TempFile const file("");
    samples::WriteFamilyFile(file.Path(), row.family, kRecords);
    Walk const walk(file.Path());
    EXPECT_EQ(walk.census, QV_OK);
    EXPECT_EQ(walk.start, QV_OK);
    EXPECT_EQ(walk.end, QV_END_OF_DATA);
    bool const stream = row.code == QV_TIME_HISTORY;
    EXPECT_EQ(stream ? walk.streamEntries : walk.Count(row.code), kRecords);
  }
}

TEST(BulkFiles, HoldListsBeyondThePlaceWhereModel442LooksForResults) {
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), Family::kFields, 15000);
  EXPECT_GT(std::filesystem::file_size(file.Path()), 2200000U);
  Walk const walk(file.Path());
  EXPECT_EQ(walk.end, QV_END_OF_DATA);
  EXPECT_EQ(walk.Count(QV_FIELD_HISTORY), 15000);
}

TEST(BulkFiles, LeadFarBandsToTheirOwners) {
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), Family::kBandsFar, 300);
  Translation const run(file.Path());
  ASSERT_EQ(run.Records(QV_INTERVAL_BANDS).size(), 300U);
  for (int i = 0; i < 300; ++i) {
    auto const bands = run.As<QvIntervalBands>(static_cast<std::size_t>(i), QV_INTERVAL_BANDS);
    EXPECT_EQ(bands.OwnerNumber, static_cast<std::uint32_t>(i + 1));
    EXPECT_EQ(bands.RecordTime, samples::At(2020, 1, 1, 0, i));
  }
}

TEST(BulkFiles, BeginWhenAskedTo) {
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), Family::kEvents, 3, samples::At(2020, 7, 1));
  Translation const run(file.Path());
  ASSERT_EQ(run.Records(QV_EVENT).size(), 3U);
  EXPECT_EQ(run.As<QvEvent>(0, QV_EVENT).RecordTime, 1593561600);  // 2020-07-01 00:00
  EXPECT_EQ(run.As<QvEvent>(2, QV_EVENT).RecordTime, 1593561720);

  samples::WriteMixedFile(file.Path(), 20000, samples::At(2020, 7, 1));
  Translation const mixed(file.Path());
  EXPECT_EQ(mixed.As<QvInterval>(0, QV_INTERVAL).RecordTime, 1593561600);
}

TEST(BulkFiles, MixRecordsUpToASize) {
  constexpr std::int64_t kBytes = 1500000;
  TempFile const file("");
  samples::WriteMixedFile(file.Path(), kBytes);
  auto const size = static_cast<std::int64_t>(std::filesystem::file_size(file.Path()));
  EXPECT_GE(size, kBytes);
  EXPECT_LT(size, kBytes + 30000);
  Walk const walk(file.Path());
  EXPECT_EQ(walk.census, QV_OK);
  EXPECT_EQ(walk.end, QV_END_OF_DATA);
  // Each hour has 60 intervals, a summary, a run with its events and 1203 entries of history.
  int const hours = walk.Count(QV_SUMMARY);
  EXPECT_GT(hours, 100);
  EXPECT_EQ(walk.Count(QV_INTERVAL), 60 * hours);
  EXPECT_EQ(walk.Count(QV_EVENT), 5 * hours);
  EXPECT_EQ(walk.streamEntries, 1203 * hours);
  EXPECT_EQ(walk.Count(QV_DAY_SUMMARY), hours / 24);
  EXPECT_EQ(walk.Count(QV_SETTINGS), (hours + 23) / 24);
  EXPECT_EQ(walk.Count(QV_RESULTS), 1);
  EXPECT_EQ(walk.counts.Intervals, static_cast<std::uint32_t>(60 * hours));
  EXPECT_EQ(walk.counts.StreamEntries, static_cast<std::uint32_t>(1203 * hours));
  EXPECT_EQ(walk.counts.LevelMarks, static_cast<std::uint32_t>(walk.Count(QV_LEVEL_MARK)));
  EXPECT_GT(walk.Count(QV_LEVEL_MARK), hours / 10);
}

TEST(BulkFiles, StayBelowTwoGigabytes) {
  TempFile const file("");
  EXPECT_THROW(samples::WriteMixedFile(file.Path(), std::int64_t{1} << 31), std::runtime_error);
  EXPECT_THROW(samples::WriteMixedFile("no/such/folder/file", 1000), std::runtime_error);
}

}  // namespace
}  // namespace test
