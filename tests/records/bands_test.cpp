// The band records, items 129 to 132: their tables, and the time of the record that owns them.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Clock;
using test::General;
using test::IntervalAt;
using test::MarkAt;
using test::SummaryAt;
using test::Translation;
using test::Utc;

constexpr float kBel = 3.0103F;  // one step of a band level's first byte

// A table whose output entry i is first + i steps: entry 0 stands at the given position of the
// body, the others below it.
void AddTable(Body& body, int entry0, int first) {
  for (int i = 0; i < 34 && entry0 - 2 * i >= 0; ++i) {
    body.Set(static_cast<std::size_t>(entry0 - 2 * i), {first + i, 0});
  }
}

void ExpectTable(const float (&bands)[34], int first) {
  for (int i = 0; i < 34; ++i) EXPECT_EQ(bands[i], static_cast<float>(first + i) * kBel) << i;
}

bool OnlyWroteTo(const test::Step& step, std::ptrdiff_t size) {
  return std::all_of(step.record.begin() + size, step.record.end(),
                     [](int byte) { return byte == 0xEE; });
}

TEST(LevelMarkBands, EveryField) {
  Body body = Body().U16(1);
  AddTable(body, 69, 10);
  Translation const run(
      General().Q(157, "44").Item(5, MarkAt({2024, 6, 21, 8, 30, 15})).Item(131, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 5, 10, 15}));
  auto const record = run.As<QvLevelMarkBands>(2);
  EXPECT_EQ(record.RecordType, 10);
  EXPECT_EQ(record.SiteNumber, 44);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 8, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.Reserved10[0], 0);
  EXPECT_EQ(record.Reserved10[1], 0);
  EXPECT_EQ(record.OwnerNumber, 1U);
  EXPECT_EQ(record.RecordIndex, 1U);
  ExpectTable(record.Bands, 10);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(2), 156));
}

TEST(SummaryBands, EveryField) {
  Body body = Body().U16(1);
  AddTable(body, 71, 1);
  AddTable(body, 140, 40);
  AddTable(body, 209, 80);
  Translation const run(General()
                            .Q(157, "44")
                            .Item(2, SummaryAt({2024, 6, 21, 8, 30, 15}))
                            .Item(130, body)
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 2, 12, 15}));
  auto const record = run.As<QvSummaryBands>(2);
  EXPECT_EQ(record.RecordType, 12);
  EXPECT_EQ(record.SiteNumber, 44);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 8, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.Reserved10[0], 0);
  EXPECT_EQ(record.Reserved10[1], 0);
  EXPECT_EQ(record.OwnerNumber, 1U);
  EXPECT_EQ(record.RecordIndex, 1U);
  ExpectTable(record.BandsA, 1);
  ExpectTable(record.BandsB, 40);
  ExpectTable(record.BandsC, 80);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(2), 428));
}

TEST(IntervalBands, EveryFieldOfTheLongForm) {
  Body body = Body().U16(1);
  AddTable(body, 69, 1);
  AddTable(body, 138, 40);
  AddTable(body, 207, 80);
  body.Set(209, {0x10, 0x80});
  Translation const run(General()
                            .Q(157, "44")
                            .Item(1, IntervalAt({2024, 6, 21, 8, 30, 15}))
                            .Item(129, body)
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 1, 11, 15}));
  auto const record = run.As<QvIntervalBands>(2);
  EXPECT_EQ(record.RecordType, 11);
  EXPECT_EQ(record.SiteNumber, 44);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 8, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.BandFlags, 0);
  EXPECT_EQ(record.ShortByte, 0);
  EXPECT_EQ(record.Reserved14[0], 0);
  EXPECT_EQ(record.Reserved14[1], 0);
  EXPECT_EQ(record.OverallLevel, 49.66995F);  // 16.5 steps
  EXPECT_EQ(record.OwnerNumber, 1U);
  EXPECT_EQ(record.RecordIndex, 1U);
  EXPECT_EQ(record.LevelPair1, 0.0F);
  EXPECT_EQ(record.Value, 0.0F);
  ExpectTable(record.BandsA, 1);
  ExpectTable(record.BandsB, 40);
  ExpectTable(record.BandsC, 80);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(2), 444));
}

TEST(IntervalBands, EveryFieldOfTheShortForm) {
  Body body = Body().PadTo(138);
  AddTable(body, 129, 1);
  AddTable(body, 60, 40);
  body.Set(0, {0x00, 0x01});  // entry 30 of the second table, and the owner
  body.Set(131, {0x20, 0x40}).Set(133, {0x12, 0x35}).Set(135, {0x10, 0x80}).Set(137, {0xFD});
  Translation const run(General()
                            .Q(157, "44")
                            .Item(1, IntervalAt({2024, 6, 21, 8, 30, 15}))
                            .Item(129, body)
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 1, 11, 15}));
  auto const record = run.As<QvIntervalBands>(2);
  EXPECT_EQ(record.RecordType, 11);
  EXPECT_EQ(record.SiteNumber, 44);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 8, 30, 15));
  EXPECT_EQ(record.BandFlags, 0x2000);
  EXPECT_EQ(record.ShortByte, 0xFD);
  EXPECT_EQ(record.OverallLevel, 49.66995F);  // 16.5 steps
  EXPECT_EQ(record.LevelPair1, 97.082175F);   // 32.25 steps
  EXPECT_EQ(record.Value, 2330.5F);           // 0x1235 / 2
  EXPECT_EQ(record.OwnerNumber, 1U);
  EXPECT_EQ(record.RecordIndex, 1U);
  ExpectTable(record.BandsA, 1);
  for (int i = 0; i < 30; ++i) {
    EXPECT_EQ(record.BandsB[i], static_cast<float>(40 + i) * kBel) << i;
  }
  EXPECT_EQ(record.BandsB[30], 0.00390625F * kBel);
  for (int i = 31; i < 34; ++i) EXPECT_EQ(record.BandsB[i], 0.0F);
  for (float const band : record.BandsC) EXPECT_EQ(band, 0.0F);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(2), 444));
}

// The length of the item alone tells the form.
TEST(IntervalBands, ShortBelow200Bytes) {
  struct {
    std::size_t length;
    int flags;
  } constexpr kRows[] = {{138, 0x2000}, {199, 0x2000}, {200, 0}, {211, 0}, {400, 0}};
  for (const auto& row : kRows) {
    Translation const run(
        General()
            .Item(1, IntervalAt({2024, 6, 21}))
            .Item(129, Body().U16(1).PadTo(row.length).Set(69, {7, 0}).Set(129, {9, 0}))
            .EndOfData());
    auto const record = run.As<QvIntervalBands>(0, QV_INTERVAL_BANDS);
    EXPECT_EQ(record.BandFlags, row.flags) << row.length;
    EXPECT_EQ(record.BandsA[0], (row.flags != 0 ? 9.0F : 7.0F) * kBel) << row.length;
  }
}

// The first byte of a band level is signed, the second always adds; the file's offset does not.
TEST(Bands, Levels) {
  struct {
    int hi, lo;
    float level;
  } constexpr kRows[] = {
      {0x10, 0x80, 49.66995F}, {0xFF, 0x00, -3.0103F},   {0x00, 0x00, 0.0F},
      {0x01, 0x00, 3.0103F},   {0x7F, 0x00, 382.3081F},  {0x80, 0x00, -385.3184F},
      {0xFF, 0x80, -1.50515F}, {0xFE, 0x40, -5.268025F}, {0x00, 0x80, 1.50515F},
  };
  auto file = General();
  file.Q(227, "30.0").Item(5, MarkAt({2024, 6, 21}));
  Body body = Body().U16(1).PadTo(71);
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    body.Set(69 - 2 * i, {kRows[i].hi, kRows[i].lo});
  }
  Translation const run(file.Item(131, body).EndOfData());
  auto const record = run.As<QvLevelMarkBands>(0, QV_LEVEL_MARK_BANDS);
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_FLOAT_EQ(record.Bands[i], kRows[i].level) << i;
  }
}

TEST(IntervalBandSeries, EveryField) {
  Body body = Body().U16(0);  // the number of the interval before the owner
  AddTable(body, 69, 20);
  Translation const run(General()
                            .Q(157, "44")
                            .Item(1, IntervalAt({2024, 6, 21, 8, 30, 15}))
                            .Item(132, body)
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 1, 13, 15}));
  auto const record = run.As<QvIntervalBandSeries>(2);
  EXPECT_EQ(record.RecordType, 13);
  EXPECT_EQ(record.SiteNumber, 44);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 8, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.OwnerNumber, 1U);
  EXPECT_EQ(record.LastOfOwner, 0);
  EXPECT_EQ(record.RecordIndex, 1U);
  EXPECT_EQ(record.SequenceInOwner, 0);
  for (std::uint8_t const byte : record.Reserved10) EXPECT_EQ(byte, 0);
  for (std::uint8_t const byte : record.Reserved18) EXPECT_EQ(byte, 0);
  for (std::uint8_t const byte : record.Reserved30) EXPECT_EQ(byte, 0);
  ExpectTable(record.Bands, 20);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(2), 168));
}

// Items 129 to 132 share one count.
TEST(Bands, AreCountedTogether) {
  Translation const run(General()
                            .Item(131, Body().U16(1).PadTo(71))
                            .Item(129, Body().U16(1).PadTo(211))
                            .Item(132, Body().U16(1).PadTo(71))
                            .Item(130, Body().U16(1).PadTo(211))
                            .Item(131, Body().U16(1).PadTo(71))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{10, 11, 13, 12, 10, 15}));
  EXPECT_EQ(run.As<QvLevelMarkBands>(0).RecordIndex, 1U);
  EXPECT_EQ(run.As<QvIntervalBands>(1).RecordIndex, 2U);
  EXPECT_EQ(run.As<QvIntervalBandSeries>(2).RecordIndex, 3U);
  EXPECT_EQ(run.As<QvSummaryBands>(3).RecordIndex, 4U);
  EXPECT_EQ(run.As<QvLevelMarkBands>(4).RecordIndex, 5U);
}

// Without an owner the record bears the present time, and the step succeeds.
TEST(Bands, WithoutAnOwner) {
  for (int const type : {129, 130, 131, 132}) {
    auto const before = std::time(nullptr);
    Translation const run(General().Item(type, Body().U16(3).PadTo(211)).EndOfData());
    auto const after = std::time(nullptr);
    ASSERT_EQ(run.Records().size(), 2U) << type;
    EXPECT_EQ(run.steps.at(0).status, 0);
    auto const recordTime = run.As<QvLevelMarkBands>(0).RecordTime;
    EXPECT_GE(recordTime, before) << type;
    EXPECT_LE(recordTime, after) << type;
  }
}

// Times of the owners do not count for the end record, band records raise nothing.
TEST(Bands, LeaveTheLatestTime) {
  Translation const run(General()
                            .Item(5, MarkAt({2024, 6, 21}))
                            .Item(131, Body().U16(1).PadTo(71))
                            .Item(131, Body().U16(9).PadTo(71))
                            .EndOfData());
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, Utc(2024, 6, 21));
}

// A body without a whole owner number: no owner is looked for, there is no time.
TEST(Bands, ShorterThanTheOwnerNumber) {
  for (int const type : {129, 130, 131, 132}) {
    for (std::size_t const length : {0U, 1U}) {
      SCOPED_TRACE(testing::Message() << type << ", " << length);
      test::TempFile const stored(test::Startable(General()
                                                      .Item(5, MarkAt({2024, 6, 21}))
                                                      .Item(2, SummaryAt({2024, 6, 21}))
                                                      .Item(1, IntervalAt({2024, 6, 21}))
                                                      .Item(type, Body().Fill(length))
                                                      .Item(5, MarkAt({2024, 6, 22}))
                                                      .EndOfData()));
      test::Session session;
      ASSERT_EQ(session.Start(stored.Path()), QV_OK);
      for (int i = 0; i < 3; ++i) ASSERT_EQ(session.Next(), QV_OK);
      EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
      EXPECT_EQ(session.As<QvLevelMarkBands>().RecordTime, 0);
      EXPECT_NE(session.Code(), 0);
      ASSERT_EQ(session.Next(), QV_OK);
      EXPECT_EQ(session.As<QvLevelMark>().RecordTime, Utc(2024, 6, 22));
    }
  }
}

// Behind the end of a short body the tables hold what the buffer held before.
TEST(Bands, ShortBodyKeepsTheBuffersTail) {
  Translation const run(General()
                            .Item(5, MarkAt({2024, 6, 21}))
                            .Item(9, Body().Fill(300, 0x10))
                            .Item(131, Body().U16(1))
                            .EndOfData());
  auto const record = run.As<QvLevelMarkBands>(0, QV_LEVEL_MARK_BANDS);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21));
  for (float const band : record.Bands) EXPECT_EQ(band, 16.0625F * kBel);
}

// With times at the end of the interval the band record's time is its start, as the interval's is.
TEST(Bands, TimeIsEnd) {
  struct {
    double duration, percent;
    std::int32_t secondsBefore;
  } constexpr kRows[] = {
      {3600, 50, 1800}, {60, 100, 60}, {90, 0, 0}, {1, 50, 1} /* cut towards 0 */, {61, 25, 16},
  };
  for (const auto& row : kRows) {
    for (const char* const setting : {"0", "1"}) {
      bool const timeIsEnd = setting[0] == '1';
      Translation const run(General()
                                .Q(162, setting)
                                .Item(1, IntervalAt({2024, 6, 21, 8}, row.duration, row.percent))
                                .Item(1, IntervalAt({2024, 6, 21, 10}, row.duration, row.percent))
                                .Item(129, Body().U16(1).PadTo(211))
                                .Item(132, Body().U16(1).PadTo(71))
                                .EndOfData());
      auto const expected = Utc(2024, 6, 21, 8) - (timeIsEnd ? row.secondsBefore : 0);
      EXPECT_EQ(run.As<QvIntervalBands>(0, QV_INTERVAL_BANDS).RecordTime, expected);
      EXPECT_EQ(run.As<QvInterval>(0, QV_INTERVAL).RecordTime, expected);
      EXPECT_EQ(run.As<QvIntervalBandSeries>(0, QV_INTERVAL_BAND_SERIES).RecordTime,
                expected + 7200);
    }
  }
}

// An owner that is itself cut short: what it lacks of its time is 0, and the look-up's last status
// comes back. Of an interval the look-up reads 25 bytes.
TEST(Bands, OwnerIsShort) {
  Body const mark = Body().U8(0).Date(21, 6, 2024).Packed(8);
  Body const stamp = Body().Date(21, 6, 2024).Packed(8);
  Body const interval = Body().Date(21, 6, 2024).Time(8, 0, 0);
  struct {
    int ownerType;
    Body owner;
    int type, number;
    std::ptrdiff_t size;
    int status;
  } const rows[] = {
      {5, mark, 131, 1, 71, QV_RECORD_TOO_SHORT},
      {2, stamp, 130, 1, 211, QV_RECORD_TOO_SHORT},
      {1, Body(interval).PadTo(24), 129, 1, 211, QV_RECORD_TOO_SHORT},
      {1, Body(interval).PadTo(25), 129, 1, 211, QV_OK},
      {1, Body(interval).PadTo(24), 132, 0, 71, QV_RECORD_TOO_SHORT},
      {1, Body(interval).PadTo(25), 132, 0, 71, QV_OK},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type);
    auto const bands = Body().U16(row.number).PadTo(static_cast<std::size_t>(row.size));
    test::TempFile const stored(test::Startable(
        General().Item(row.ownerType, row.owner).Item(row.type, bands).EndOfData()));
    test::Session session;
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.Next(), row.status);
    // All four forms have their time at the same place.
    EXPECT_EQ(session.As<QvLevelMarkBands>().RecordTime, Utc(2024, 6, 21, 8));
    EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  }
}

}  // namespace
