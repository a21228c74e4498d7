// Item 2 of model 442 in mode 7: types 66, 67 and 68 by the kind byte.
#include <gtest/gtest.h>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/steps.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;

constexpr std::size_t kSizeOfLevels = 83;
constexpr std::size_t kSizeOfBands = 145;
constexpr std::size_t kSizeOfTotals = 23;

// Byte i holds i but for the stamp and the kind.
Body Tally(int kind, std::size_t size, int month = 3, int day = 5) {
  return CountingBody(size).Set(0, {day, month, 0x24, 0x06, 0x07, 0x08}).Set(12, {kind});
}

RecordImage HeadImage(int code, int index = 1) {
  RecordImage image(284);
  image.U16(0, code).I32(4, index).I32(8, kMarch).U16(16, 11);
  // Hours 6 * 256 + 7, minutes 8, seconds 9 and 10 / 256.
  return image.F32(12, static_cast<float>(1543 * 3600 + 8 * 60 + 9 + 10 / 256.0));
}

// Levels from one position on, with a level offset of 1.5 dB.
void PutLevels(RecordImage& image, int offset, int count, int position) {
  for (; count-- > 0; offset += 4, position += 2) {
    image.F32(static_cast<std::size_t>(offset),
              static_cast<float>(position) + 1.5f + static_cast<float>(position + 1) / 256);
  }
}

TEST(Tally, LevelsOfKind0) {
  Translation const run(
      Model442("TAL").Q(157, "7").Q(227, "1.5").Item(2, Tally(0, kSizeOfLevels)).EndOfData());
  RecordImage expected = HeadImage(66);
  PutLevels(expected, 20, 9, 13);
  PutLevels(expected, 56, 9, 31);
  PutLevels(expected, 92, 3, 49);
  PutLevels(expected, 108, 1, 55);
  PutLevels(expected, 104, 1, 57);
  expected.Floats(112, {59 + 60 / 256.0f, 61 + 62 / 256.0f, 63 + 64 / 256.0f, 65 + 66 / 256.0f,
                        67 + 68 / 256.0f, 69 + 70 / 256.0f});
  PutLevels(expected, 136, 6, 71);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 66, 15}));
  EXPECT_EQ(run.Records(66)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(66)[0]), "");
}

TEST(Tally, BandsOfKind1) {
  Translation const run(Model442("TAL").Q(227, "1.5").Item(2, Tally(1, kSizeOfBands)).EndOfData());
  RecordImage expected = HeadImage(67);
  PutLevels(expected, 20, 33, 13);
  PutLevels(expected, 152, 33, 79);
  ASSERT_EQ(run.Records(67).size(), 1u);
  EXPECT_EQ(run.Records(67)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(67)[0]), "");
}

TEST(Tally, TotalsOfEveryOtherKind) {
  for (int const kind : {2, 3, 128, 255}) {
    SCOPED_TRACE(kind);
    Translation const run(
        Model442("TAL").Q(227, "1.5").Item(2, Tally(kind, kSizeOfTotals)).EndOfData());
    RecordImage expected = HeadImage(68);
    expected.U16(18, 13 * 256 + 14).U16(20, 16 * 256 + 17);
    PutLevels(expected, 24, 1, 19);
    PutLevels(expected, 28, 1, 21);
    ASSERT_EQ(run.Records(68).size(), 1u);
    EXPECT_EQ(run.Records(68)[0].status, 0);
    EXPECT_EQ(Difference(expected, run.Records(68)[0]), "");
  }
}

TEST(Tally, FormsOfHighBytes) {
  Translation const levels(
      Model442("TAL").Q(227, "1.5").Item(2, HighBody(kSizeOfLevels).Set(12, {0})).EndOfData());
  RecordImage expected(284);
  expected.U16(0, 66).I32(4, 1).I32(8, kFirstOfJanuary2000).U16(16, 200);
  expected.F32(12, static_cast<float>(51400.0 * 3600 + 12000 + 200.78125));
  expected.Floats(20, std::vector<float>(23, 202.28125f));
  expected.Floats(112, std::vector<float>(6, -55.21875f));
  expected.Floats(136, std::vector<float>(6, 202.28125f));
  ASSERT_EQ(levels.Records(66).size(), 1u);
  EXPECT_EQ(Difference(expected, levels.Records(66)[0]), "");

  Translation const totals(
      Model442("TAL").Q(227, "1.5").Item(2, HighBody(kSizeOfTotals)).EndOfData());
  ASSERT_EQ(totals.Records(68).size(), 1u);
  EXPECT_EQ(totals.As<QvTallyTotals>(0, 68).Word13, 51400);
  EXPECT_EQ(totals.As<QvTallyTotals>(0, 68).Level19, 202.28125f);
}

TEST(Tally, ShortBodyReadsAsZerosWithStatusZero) {
  struct {
    int kind, code;
    std::size_t size;
  } constexpr kRows[] = {
      {0, 66, 13}, {0, 66, kSizeOfLevels - 1}, {1, 67, 13}, {1, 67, kSizeOfBands - 1},
      {2, 68, 13}, {2, 68, kSizeOfTotals - 1},
  };
  for (auto const& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.code << " of " << row.size);
    Translation const run(
        Model442("TAL").Item(2, Body().Fill(row.size).Set(12, {row.kind})).EndOfData());
    RecordImage expected(284);
    expected.U16(0, row.code).I32(4, 1).I32(8, kFirstOfJanuary2000);
    if (row.code == 66) {
      expected.Floats(20, std::vector<float>(23, 999.0f));
      expected.Floats(136, std::vector<float>(6, 999.0f));
    } else if (row.code == 67) {
      expected.Floats(20, std::vector<float>(66, 999.0f));
    } else {
      expected.Floats(24, std::vector<float>(2, 999.0f));
    }
    ASSERT_EQ(run.Codes(), (std::vector<int>{row.code, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(Tally, WithoutAKindByteThereIsNoRecordAndTheItemComesAgain) {
  for (std::size_t const size : {0u, 6u, 12u}) {
    SCOPED_TRACE(size);
    auto const steps = TakeSteps(Model442("TAL")
                                     .Item(2, Tally(0, kSizeOfLevels))
                                     .Item(2, Body().Fill(size, 0x11))
                                     .Item(2, Tally(0, kSizeOfLevels)),
                                 4);
    ASSERT_EQ(steps.size(), 4u);
    EXPECT_EQ(steps[0].Code(), 66);
    for (std::size_t i = 1; i < 4; ++i) {
      EXPECT_EQ(steps[i].status, QV_RECORD_TOO_SHORT);
      auto const record = Translation::Copy<QvTallyLevels>(steps[i]);
      EXPECT_EQ(record.RecordType, 0);
      EXPECT_EQ(record.RecordIndex, 0u);
    }
  }
}

TEST(Tally, KindsCountTogether) {
  Translation const run(Model442("TAL")
                            .Item(2, Tally(2, kSizeOfTotals))
                            .Item(2, Tally(0, kSizeOfLevels))
                            .Item(kSetupItem, EmptySetup(0))
                            .Item(2, Tally(1, kSizeOfBands))
                            .Item(2, Tally(0, 300))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{68, 66, 51, 67, 66, 15}));
  EXPECT_EQ(run.As<QvTallyTotals>(0).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvTallyLevels>(1).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvTallyBands>(3).RecordIndex, 3u);
  EXPECT_EQ(run.As<QvTallyLevels>(4).RecordIndex, 4u);
}

}  // namespace
}  // namespace test
