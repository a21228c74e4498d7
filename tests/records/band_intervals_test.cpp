// Intervals of the band analyser: item 1 in mode 4.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Difference;
using test::RecordImage;
using test::Translation;

constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// Noon, 25 hours, 2 minutes and 3.5 seconds; band k of table j is 40 * j + k + 0.5.
Body BandBody(int bands) {
  Body body;
  body.Date(21, 6, 2024).Time(12, 0, 0).Duration6(90123.5);
  body.Raw({1, 2, 3});  // dropped
  body.U16(0x1234).U16(0x5678).U8(0x9A);
  for (int table = 0; table < 3; ++table) {
    body.Level(130.25 + table);
    for (int band = 0; band < bands; ++band) body.Level(40 * table + band + 0.5);
  }
  return body;
}

RecordImage BandImage(int bands, int trailer) {
  RecordImage image(440);
  image.U16(0, 1).U16(4, 442).I32(8, kNoon).F32(12, 90123.5);
  image.U8(16, 0x9A).U16(18, 0x5678).I32(20, 1).U16(24, 0x1234).U16(436, trailer);
  for (std::size_t table = 0; table < 3; ++table) {
    std::size_t const offset = 28 + 136 * table;
    image.F32(offset, 130.25F + static_cast<float>(table));
    for (int band = 0; band < bands; ++band) {
      image.F32(offset + 4 + 4 * static_cast<std::size_t>(band),
                static_cast<float>(40 * table) + static_cast<float>(band) + 0.5F);
    }
  }
  return image;
}

TEST(BandIntervals, HoldElevenBandsUnlessTheSetupSaysOtherwise) {
  Translation const run(test::Model442("RTA", "2.0").Item(1, BandBody(11)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{1, 15}));
  EXPECT_EQ(Difference(BandImage(11, 0), run.Records()[0]), "");
}

TEST(BandIntervals, HoldTheBandsOfTheLastSetup) {
  struct Row {
    int flags;
    int bands;
  };
  for (const Row& row : {Row{0, 11}, {127, 11}, {128, 33}, {255, 33}}) {
    SCOPED_TRACE(row.flags);
    DataFile file = test::Model442("RTA", "2.0");
    file.Item(test::kSetupItem, test::FlagsOnlySetup(row.flags)).Item(1, BandBody(row.bands));
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{1, 15}));
    EXPECT_EQ(Difference(BandImage(row.bands, 0), run.Records()[0]), "");
  }
}

TEST(BandIntervals, EndWithATrailerAboveFirmware2Point10599) {
  struct Row {
    const char* firmware;
    int trailer;
  };
  for (const Row& row :
       {Row{"2.10", 0}, {"2.10599", 0}, {"2.106", 0xBC}, {"3.6", 0xBC}, {"10", 0xBC}}) {
    SCOPED_TRACE(row.firmware);
    DataFile file = test::Model442("RTA", row.firmware).Item(1, BandBody(11).U8(0xBC));
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{1, 15}));
    EXPECT_EQ(Difference(BandImage(11, row.trailer), run.Records()[0]), "");
  }
}

TEST(BandIntervals, TakeNoneOfTheIntervalSettings) {
  DataFile file = test::Model442("RTA", "2.0");
  for (int const number : {69, 71, 119, 145, 163}) file.Q(number, "1");
  file.Q(61, "70").Q(62, "10").Q(157, "9").Q(162, "2").Q(206, "1").Q(210, "255");
  Translation const run(file.Item(1, BandBody(11)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 15}));
  EXPECT_EQ(Difference(BandImage(11, 0).U16(2, 9), run.Records()[1]), "");
}

TEST(BandIntervals, AddTheLevelOffsetAndMarkMissingValues) {
  Body body = BandBody(11);
  body.Set(20, {70, 0}).Set(22, {71, 0});  // the first overall level and its first band
  Translation const run(test::Model442("RTA", "2.0").Q(227, "1.25").Item(1, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 1, 15}));
  auto const interval = run.As<QvBandInterval>(1);
  EXPECT_EQ(interval.Overall1, 999.0F);
  EXPECT_EQ(interval.Bands1[0], 999.0F);
  EXPECT_EQ(interval.Bands1[1], 2.75F);
  EXPECT_EQ(interval.Overall2, 132.5F);
  EXPECT_EQ(interval.Bands3[10], 91.75F);
}

TEST(BandIntervals, AreCountedAndLeaveTheLatestTime) {
  DataFile file = test::Model442("RTA", "2.0").Item(1, BandBody(11)).Item(1, BandBody(11));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{1, 1, 15}));
  EXPECT_EQ(run.As<QvBandInterval>(0).RecordIndex, 1U);
  EXPECT_EQ(run.As<QvBandInterval>(1).RecordIndex, 2U);
  EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, 0);
}

TEST(BandIntervals, TellAShortBodyOnlyByTheirTrailer) {
  struct Row {
    const char* name;
    const char* firmware;
    Body body;
    int status;
  };
  const std::vector<Row> rows = {
      {"empty", "2.0", Body(), 0},
      {"no last band", "2.0", Body().Raw(BandBody(11).Bytes().substr(0, 90)), 0},
      {"empty, with a trailer due", "2.106", Body(), -313},
      {"no trailer", "2.106", BandBody(11), -313},
      {"whole", "2.106", BandBody(11).U8(0xBC), 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Translation const run(test::Model442("RTA", row.firmware).Item(1, row.body).EndOfData());
    ASSERT_GE(run.steps.size(), 1U);
    EXPECT_EQ(run.steps[0].Code(), QV_INTERVAL);
    EXPECT_EQ(run.steps[0].status, row.status);
  }
}

TEST(BandIntervals, ReadMissingBytesAsZero) {
  Translation const run(
      test::Model442("RTA", "2.0").Item(1, Body().Date(21, 6, 2024).Time(12, 0, 0)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{1, 15}));
  RecordImage image(440);
  image.U16(0, 1).U16(4, 442).I32(8, kNoon).I32(20, 1);
  for (std::size_t const table : {28U, 164U, 300U}) {
    for (std::size_t i = 0; i < 12; ++i) image.F32(table + 4 * i, 999.0F);
  }
  EXPECT_EQ(Difference(image, run.Records()[0]), "");
}

}  // namespace
