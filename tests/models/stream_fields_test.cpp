// The forms of the values in list 27, each by itself: one byte in streams of whole decibels, else
// two.
#include <gtest/gtest.h>

#include <vector>

#include "support/setup_block.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;

struct Stream {
  bool wholeDb = false;
  const char* levelOffset = "0.0";
  int referenceHigh = 0;  // the two bytes of the reference level
  int referenceLow = 0;
};

// Where the setup holds the masks of groups 1, 2 and 4.
constexpr std::size_t kMask1 = 182;
constexpr std::size_t kMask2 = 183;
constexpr std::size_t kMask4 = 185;

// The record of a block that holds a level, and behind it these bytes for the bits of one mask.
QvFieldHistory Read(const Stream& stream, std::size_t maskPosition, int mask,
                    std::initializer_list<int> bytes) {
  Body const reference = Body().PadTo(65).Set(37, {stream.referenceHigh, stream.referenceLow});
  Body const setup =
      EmptySetup(2).Set(47, {stream.wholeDb ? 4 : 0}).Set(140, {4, 1, 1}).Set(maskPosition, {mask});
  Body const block = (stream.wholeDb ? Body().Raw({60}) : Body().Raw({60, 128})).Raw(bytes);
  Translation const run(Model442("LOG")
                            .Q(227, stream.levelOffset)
                            .Item('C', reference)
                            .Item(kSetupItem, setup)
                            .List(27, static_cast<int>(block.Size()), {block})
                            .EndOfData());
  EXPECT_EQ(run.Records(QV_FIELD_HISTORY).size(), 1U);
  return run.As<QvFieldHistory>(0, QV_FIELD_HISTORY);
}

float ReadLevel(const Stream& stream, std::initializer_list<int> bytes) {
  return Read(stream, kMask1, 0x80, bytes).Group1[7];
}

TEST(StreamFields, LevelsOfTwoBytesTakeTheOffsetAsItIs) {
  EXPECT_EQ(ReadLevel({.levelOffset = "1.5"}, {50, 128}), 52.0F);
  EXPECT_EQ(ReadLevel({.levelOffset = "1.5"}, {255, 255}), 257.49609375F);
  EXPECT_EQ(ReadLevel({.levelOffset = "-2.25"}, {50, 128}), 48.25F);
}

TEST(StreamFields, LevelsOfOneByteTakeTheOffsetRoundedDown) {
  struct Row {
    const char* offset;
    float value;
  };
  constexpr Row rows[] = {
      {"0.0", 50},  {"1.0", 51},   {"1.9", 51},   {"-2.0", 48}, {"-2.5", 47},
      {"-2.3", 47}, {"-12.0", 38}, {"-0.05", 50}, {"-0.1", 49},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ReadLevel({.wholeDb = true, .levelOffset = row.offset}, {50}), row.value)
        << row.offset;
  }
}

TEST(StreamFields, NothingIsAddedToALevelOfZero) {
  EXPECT_EQ(ReadLevel({.levelOffset = "1.5"}, {0, 0}), 0.0F);
  EXPECT_EQ(ReadLevel({.wholeDb = true, .levelOffset = "1.5"}, {0}), 0.0F);
  // A second byte alone makes a level.
  EXPECT_EQ(ReadLevel({.levelOffset = "1.5"}, {0, 1}), 1.50390625F);
  EXPECT_EQ(ReadLevel({.wholeDb = true, .levelOffset = "1.5"}, {1}), 2.0F);
}

// 45590 stands for 8.
TEST(StreamFields, Ratios) {
  auto const ratio = [](bool wholeDb, std::initializer_list<int> bytes) {
    return Read({.wholeDb = wholeDb, .levelOffset = "1.5"}, kMask4, 4, bytes).Group4[2];
  };
  EXPECT_EQ(ratio(false, {0xB2, 0x16}), 8.0F);
  EXPECT_EQ(ratio(false, {0x59, 0x0B}), 4.0F);
  EXPECT_EQ(ratio(false, {0, 0}), 0.0F);
  EXPECT_EQ(ratio(true, {0xB2}), static_cast<float>(45568 / 45590.0 * 8.0));
}

// The second byte is passed over.
TEST(StreamFields, Sixteenths) {
  QvFieldHistory const twoBytes = Read({.levelOffset = "1.5"}, kMask4, 3, {33, 200, 50, 128});
  EXPECT_EQ(twoBytes.Group4[1], 2.0625F);
  EXPECT_EQ(twoBytes.Group4[0], 50.5F);
  QvFieldHistory const oneByte = Read({.wholeDb = true}, kMask4, 3, {33, 50});
  EXPECT_EQ(oneByte.Group4[1], 2.0625F);
  EXPECT_EQ(oneByte.Group4[0], 50.0F);
}

// Of two bytes the reference level is taken off as it is, of one byte without its fraction.
TEST(StreamFields, LevelsAboveTheReferenceLevel) {
  struct Row {
    int high, low;
    float twoBytes, oneByte;
  };
  constexpr Row rows[] = {
      {10, 0xC0, 39.75F, 40.0F},    // 10.75
      {0xFD, 0x40, 53.25F, 52.0F},  // -2.75
      {0xFF, 0x80, 51.0F, 50.0F},   // -0.5
      {0, 0, 50.5F, 50.0F},
  };
  for (const Row& row : rows) {
    Stream stream = {.levelOffset = "1.5", .referenceHigh = row.high, .referenceLow = row.low};
    EXPECT_EQ(Read(stream, kMask4, 1, {50, 128}).Group4[0], row.twoBytes);
    stream.wholeDb = true;
    EXPECT_EQ(Read(stream, kMask4, 1, {50}).Group4[0], row.oneByte);
  }
  EXPECT_EQ(Read({.referenceHigh = 10, .referenceLow = 0xC0}, kMask4, 1, {0, 0}).Group4[0],
            -10.75F);
}

// A count has a third byte only of two bytes, beside bit 0, whose plain byte follows it.
TEST(StreamFields, Counts) {
  EXPECT_EQ(Read({.levelOffset = "1.5"}, kMask2, 2, {1, 2, 64}).Group2[1], 258.0F);
  QvFieldHistory const fraction = Read({.levelOffset = "1.5"}, kMask2, 3, {255, 255, 64, 7});
  EXPECT_EQ(fraction.Group2[1], 65535.25F);
  EXPECT_EQ(fraction.Group2[0], 7.0F);
  QvFieldHistory const oneByte = Read({.wholeDb = true}, kMask2, 3, {200, 7, 9});
  EXPECT_EQ(oneByte.Group2[1], 200.0F);
  EXPECT_EQ(oneByte.Group2[0], 7.0F);
}

// The block ends within the value, or before it.
TEST(StreamFields, OfWhichSomethingIsMissingAreNotStored) {
  for (int const bit : {0, 1, 2, 7}) {
    EXPECT_EQ(Read({}, kMask4, 1 << bit, {50}).Group4[bit], 0.0F) << bit;
    EXPECT_EQ(Read({.referenceHigh = 1}, kMask4, 1 << bit, {}).Group4[bit], 0.0F) << bit;
    EXPECT_EQ(Read({.wholeDb = true, .referenceHigh = 1}, kMask4, 1 << bit, {}).Group4[bit], 0.0F)
        << bit;
  }
  EXPECT_EQ(Read({}, kMask2, 2, {50}).Group2[1], 0.0F);
  EXPECT_EQ(Read({}, kMask2, 3, {50, 128}).Group2[1], 0.0F);
  EXPECT_EQ(Read({}, kMask2, 3, {50, 128, 64}).Group2[1], 12928.25F);
}

// A level of what is there is stored in a table.
TEST(StreamFields, OfTablesAreStoredAllTheSame) {
  constexpr std::size_t kMask6 = 187;
  QvFieldHistory const record = Read({.levelOffset = "1.5"}, kMask6, 3, {50, 128, 70});
  EXPECT_EQ(record.Table1[0], 52.0F);
  EXPECT_EQ(record.Table1[1], 71.5F);
  EXPECT_EQ(record.Table1[2], 0.0F);
  EXPECT_EQ(record.Table2[0], 0.0F);
}

}  // namespace
}  // namespace test
