// A step that delivers a measurement record takes no memory and formats no text, and the stream is
// asked for nothing but the bytes behind those it has read: no seek, no tell, one read for each
// block of the file. Local time is converted by the day, not by the record.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "bulk_files.h"
#include "robustness/counted_calls.h"
#include "robustness/faulty_calls.h"
#include "support/scoped_zone.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Family;

constexpr int kRecords = 600;

// What the steps did together that delivered records of one code.
struct Steps {
  int delivered = 0;
  Costs costs;
  int allocations = 0;
  int reads = 0;
  int seeks = 0;
  int tells = 0;
  int otherCalls = 0;  // lines, single bytes, opening, closing
};

// Steps over the whole file, in buffers that the translation does not pay for.
Steps WalkFor(int code, const std::string& path) {
  Session session;
  EXPECT_EQ(session.Census(path), QV_OK);
  EXPECT_EQ(session.Start(path), QV_OK);
  Steps steps;
  int status = QV_OK;
  while (status >= 0) {
    ArmFault();
    Costs const before = CostsSoFar();
    {
      InLibrary const within;
      status = QV_TranslateNextRec(session.Record(), session.Context());
    }
    if (session.Code() != code || status < 0) continue;
    ++steps.delivered;
    steps.costs += CostsSoFar() - before;
    steps.allocations += CallsOf(CCall::Allocate);
    steps.reads += CallsOf(CCall::Read);
    steps.seeks += CallsOf(CCall::Seek);
    steps.tells += CallsOf(CCall::Tell);
    steps.otherCalls += CallsOf(CCall::Line) + CallsOf(CCall::Byte) + CallsOf(CCall::Open) +
                        CallsOf(CCall::Close) + CallsOf(CCall::Buffer);
  }
  EXPECT_EQ(status, QV_END_OF_DATA);
  return steps;
}

struct FamilyRow {
  Family family;
  int code;
  int records;    // as written
  int delivered;  // steps that deliver one
  int days;       // by the records' dates
};

constexpr FamilyRow kRows[] = {
    {Family::kEvents, QV_EVENT, kRecords, kRecords, 1},
    {Family::kLevelMarks, QV_LEVEL_MARK, kRecords, kRecords, 1},
    {Family::kIntervals, QV_INTERVAL, kRecords, kRecords, 1},
    {Family::kFullIntervals, QV_INTERVAL, kRecords, kRecords, 1},
    {Family::kBandIntervals, QV_INTERVAL, kRecords, kRecords, 1},
    // Six items of 10,000 samples, each 167 records.
    {Family::kStreamOneByte, QV_TIME_HISTORY, 60000, 1002, 1},
    {Family::kStreamOneByteSecond, QV_TIME_HISTORY, 60000, 1002, 1},
    {Family::kStreamTwoByte, QV_TIME_HISTORY, 60000, 1002, 1},
    {Family::kStreamTwoByteSecond, QV_TIME_HISTORY, 60000, 1002, 1},
    {Family::kSummaries, QV_SUMMARY, kRecords, kRecords, 1},
    {Family::kDaySummaries, QV_DAY_SUMMARY, 30, 30, 30},
    {Family::kSpectra, QV_TIMED_SPECTRUM, kRecords, kRecords, 1},
    {Family::kFields, QV_FIELD_HISTORY, kRecords, kRecords, 1},
};

class QuietSteps : public testing::TestWithParam<FamilyRow> {};

INSTANTIATE_TEST_SUITE_P(Families, QuietSteps, testing::ValuesIn(kRows), [](const auto& row) {
  return std::string(samples::FamilyName(row.param.family));
});

TEST_P(QuietSteps, TakeNothingButTheNextBytes) {
  const FamilyRow& row = GetParam();
  ScopedZone const zone("Europe/Berlin");
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), row.family, row.records);
  Steps const steps = WalkFor(row.code, file.Path());
  EXPECT_EQ(steps.delivered, row.delivered);
  EXPECT_EQ(steps.allocations, 0);
  EXPECT_EQ(steps.costs.allocations, 0);
  EXPECT_EQ(steps.costs.formats, 0);
  EXPECT_EQ(steps.seeks, 0);
  EXPECT_EQ(steps.tells, 0);
  EXPECT_EQ(steps.otherCalls, 0);
  // Blocks of at least 4 KiB, and one read at the end of the file.
  auto const size = static_cast<int>(std::filesystem::file_size(file.Path()));
  EXPECT_LE(steps.reads, size / 4096 + 1);
  // First and last second of a day, by each of three daylight flags.
  EXPECT_LE(steps.costs.conversions, row.days * 6);
}

// Owners that lie near are found in bytes that were read already.
TEST(QuietBandSteps, StayAmongBytesReadWhenTheOwnerIsNear) {
  TempFile const file("");
  samples::WriteFamilyFile(file.Path(), Family::kBandsNear, kRecords);
  Steps const steps = WalkFor(QV_INTERVAL_BANDS, file.Path());
  EXPECT_EQ(steps.delivered, kRecords);
  EXPECT_EQ(steps.allocations + steps.costs.allocations, 0);
  EXPECT_EQ(steps.costs.formats, 0);
  EXPECT_EQ(steps.seeks, 0);
  EXPECT_EQ(steps.tells, 0);
}

// Level marks with stamps of every day that they can name, in an order in which no two that follow
// one another are near, so many times over.
std::string StampsOfAllDays(int times) {
  samples::DataFile file = General();
  for (int round = 0; round < times; ++round) {
    for (int day = 1; day <= 31; ++day) {
      for (int month = 1; month <= 12; ++month) {
        for (int year = 1970; year < 2070; ++year) {
          file.Item(
              5, samples::Body().U8(0).Date(day, month, year).Time(1, 75, round).Level(60).U8(0));
        }
      }
    }
  }
  return Startable(file.EndOfData());
}

int ConversionsOf(const std::string& path) {
  Session session;
  Costs const before = CostsSoFar();
  EXPECT_EQ(session.Census(path), QV_OK);
  EXPECT_EQ(session.Start(path), QV_OK);
  while (session.Next() >= 0) continue;
  return (CostsSoFar() - before).conversions;
}

// However many stamps a file holds, and of however many days, it is learned once a year what the
// zone makes of them.
TEST(QuietConversions, AreBoundedForEachFile) {
  for (const char* const name : {"Europe/Berlin", "Europe/Moscow", "UTC"}) {
    ScopedZone const zone(name);
    TempFile const once(StampsOfAllDays(1));
    TempFile const thrice(StampsOfAllDays(3));
    int const conversions = ConversionsOf(once.Path());
    EXPECT_LE(conversions, 100 * 1000) << name;
    EXPECT_EQ(ConversionsOf(thrice.Path()), conversions) << name;
  }
}

TEST(QuietStepCounters, SeeWhatIsDone) {
  Costs const before = CostsSoFar();
  auto const memory = std::make_unique<int>(7);
  char text[16];
  std::snprintf(text, sizeof text, "%d", *memory);
  std::time_t seconds = 0;
  std::tm stamp = *std::localtime(&seconds);
  seconds = std::mktime(&stamp);
  Costs const costs = CostsSoFar() - before;
  EXPECT_EQ(costs.allocations, 1);
  EXPECT_EQ(costs.formats, 1);
  EXPECT_EQ(costs.conversions, 2);
}

}  // namespace
}  // namespace test
