// Bands in a series: several tables of one interval, in order.
#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::IntervalAt;
using test::Translation;
using test::Utc;

struct SeriesRow {
  int number;  // in the body
  std::uint32_t owner;
  int last, sequence;
  std::int32_t time;
};

DataFile NineIntervals() {
  DataFile file = General();
  for (int i = 1; i <= 9; ++i) file.Item(1, IntervalAt({2024, 6, 21, i}));
  return file;
}

void ExpectSeries(DataFile file, const std::vector<SeriesRow>& rows) {
  for (const SeriesRow& row : rows) file.Item(132, Body().U16(row.number).PadTo(71));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(QV_INTERVAL_BAND_SERIES).size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(i);
    auto const record = run.As<QvIntervalBandSeries>(i, QV_INTERVAL_BAND_SERIES);
    EXPECT_EQ(record.OwnerNumber, rows[i].owner);
    EXPECT_EQ(record.LastOfOwner, rows[i].last);
    EXPECT_EQ(record.SequenceInOwner, rows[i].sequence);
    EXPECT_EQ(record.RecordTime, rows[i].time);
  }
}

// All but the last table of an owner bear the number of the interval before it. One look-up serves
// them: a second one for the same owner would find nothing.
TEST(IntervalBandSeries, ThreeOfOneOwner) {
  ExpectSeries(NineIntervals(), {{6, 7, 0, 0, Utc(2024, 6, 21, 7)},
                                 {6, 7, 0, 1, Utc(2024, 6, 21, 7)},
                                 {7, 7, 1, 2, Utc(2024, 6, 21, 7)}});
}

TEST(IntervalBandSeries, OwnersInARow) {
  ExpectSeries(NineIntervals(), {{0, 1, 0, 0, Utc(2024, 6, 21, 1)},
                                 {1, 1, 1, 1, Utc(2024, 6, 21, 1)},
                                 {1, 2, 0, 0, Utc(2024, 6, 21, 2)},
                                 {2, 2, 1, 1, Utc(2024, 6, 21, 2)},
                                 {7, 8, 0, 0, Utc(2024, 6, 21, 8)},
                                 {8, 8, 1, 1, Utc(2024, 6, 21, 8)}});
}

// An owner whose closing table is missing: the sequence goes on, the time is the next owner's.
TEST(IntervalBandSeries, OwnerWithoutItsLast) {
  ExpectSeries(NineIntervals(), {{2, 3, 0, 0, Utc(2024, 6, 21, 3)},
                                 {2, 3, 0, 1, Utc(2024, 6, 21, 3)},
                                 {4, 5, 0, 2, Utc(2024, 6, 21, 5)},
                                 {5, 5, 1, 3, Utc(2024, 6, 21, 5)},
                                 {5, 6, 0, 0, Utc(2024, 6, 21, 6)}});
}

// A look-up that failed is not repeated for the same owner either.
TEST(IntervalBandSeries, OwnerNotFound) {
  auto file = General();
  for (int const number : {6, 6, 7}) file.Item(132, Body().U16(number).PadTo(71));
  auto const before = std::time(nullptr);
  Translation const run(file.EndOfData());
  auto const after = std::time(nullptr);
  auto const first = run.As<QvIntervalBandSeries>(0);
  EXPECT_GE(first.RecordTime, before);
  EXPECT_LE(first.RecordTime, after);
  for (std::size_t i = 0; i < 3; ++i) {
    auto const record = run.As<QvIntervalBandSeries>(i);
    EXPECT_EQ(record.OwnerNumber, 7U);
    EXPECT_EQ(record.SequenceInOwner, i);
    EXPECT_EQ(record.LastOfOwner, i == 2 ? 1 : 0);
    EXPECT_EQ(record.RecordTime, first.RecordTime);
  }
}

// The largest number wraps nothing: its owner is 65536.
TEST(IntervalBandSeries, LargestNumber) {
  Translation const run(General().Item(132, Body().U16(65535).PadTo(71)).EndOfData());
  EXPECT_EQ(run.As<QvIntervalBandSeries>(0).OwnerNumber, 65536U);
  EXPECT_EQ(run.As<QvIntervalBandSeries>(0).LastOfOwner, 0);
}

TEST(IntervalBandSeries, BeginsAnewWithEachStart) {
  auto file = NineIntervals();
  test::TempFile const stored(test::Startable(file.Item(132, Body().U16(6).PadTo(71)).EndOfData()));
  test::Session session;
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    for (int i = 0; i < 10; ++i) ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.As<QvIntervalBandSeries>().SequenceInOwner, 0);
    EXPECT_EQ(session.As<QvIntervalBandSeries>().RecordTime, Utc(2024, 6, 21, 7));
  }
}

}  // namespace
