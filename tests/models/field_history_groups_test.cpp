// The six groups and two tables that the masks choose in the blocks of list item 27.
#include <gtest/gtest.h>

#include <string>

#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr std::int32_t kHeaderTime = 1718971200;  // 21 June 2024 12:00:00

// The groups in reading order: where the setup holds the mask, where the record shows it, and where
// the values go.
struct Group {
  std::size_t setupPosition;
  std::size_t maskOffset;
  std::size_t valueOffset;
};
constexpr Group kGroup1 = {182, 12, 40};
constexpr Group kGroup2 = {183, 232, 136};
constexpr Group kGroup3 = {184, 14, 72};
constexpr Group kGroup4 = {185, 18, 168};
constexpr Group kGroup5 = {186, 16, 104};
constexpr Group kGroup6 = {187, 234, 200};
constexpr Group kGroups[] = {kGroup1, kGroup2, kGroup3, kGroup4, kGroup5, kGroup6};

constexpr std::size_t kTable1 = 236;
constexpr std::size_t kTable2 = 368;

// Model 442 with a level offset of 1.5 dB, a reference level of -2.5 and a level base of 20.
DataFile Head() {
  return Model442("LOG").Q(227, "1.5").Item('C', Body().PadTo(65).Set(37, {0xFD, 0x80}));
}

Body FieldsSetup(bool wholeDb) {
  return EmptySetup(2).Set(47, {wholeDb ? 4 : 0}).Set(140, {4, 1, 1}).Set(181, {20});
}

// The 500 bytes of a record with its head filled in.
RecordImage Image(float level) {
  return RecordImage(500)
      .U16(0, 57)
      .I32(4, kHeaderTime)
      .U16(10, 4)
      .F32(20, level)
      .F32(28, 1)
      .I32(32, 1);
}

std::size_t Element(Group const& group, int index) {
  return group.valueOffset + 4 * static_cast<std::size_t>(index);
}

float Narrow(double value) {
  return static_cast<float>(value);
}

std::string FirstDifference(const Body& setup, const Body& block, const RecordImage& expected) {
  Translation const run(
      Head().Item(kSetupItem, setup).List(27, static_cast<int>(block.Size()), {block}).EndOfData());
  if (run.end != QV_END_OF_DATA || run.Records(57).size() != 1) return "not one record";
  if (run.Records(57)[0].status != 0) return "status";
  return Difference(expected, run.Records(57)[0]);
}

// One bit of one mask, with the bytes 50 and 128 (two-byte form) or 50 (whole decibels) as value.
struct BitRow {
  Group group;
  int bit;
  double twoBytes;
  double oneByte;
};

// All bits but those of the plain form, which give 50.5 or 50 and the level offset.
constexpr BitRow kSpecialBits[] = {
    {kGroup2, 1, 12928, 50},
    {kGroup2, 0, 50, 50},
    {kGroup4, 2, 12928 / 45590.0 * 8.0, 12800 / 45590.0 * 8.0},
    {kGroup4, 1, 3.125, 3.125},
    {kGroup4, 0, 53, 52},
};

BitRow RowOf(Group const& group, int bit) {
  for (BitRow const& row : kSpecialBits) {
    if (row.group.setupPosition == group.setupPosition && row.bit == bit) return row;
  }
  return {group, bit, 52.0, 51.0};
}

TEST(FieldHistoryGroups, EachBitReadsOneValue) {
  for (Group const& group : kGroups) {
    for (int bit = 7; bit >= 0; --bit) {
      if (group.setupPosition == kGroup6.setupPosition && bit < 2) continue;  // the tables
      SCOPED_TRACE(testing::Message() << "position " << group.setupPosition << ", bit " << bit);
      BitRow const row = RowOf(group, bit);
      Body twoBytes = FieldsSetup(false).Set(group.setupPosition, {1 << bit});
      EXPECT_EQ(FirstDifference(twoBytes, Body().Raw({60, 128, 50, 128, 70, 128}),
                                Image(80.5f)
                                    .U16(group.maskOffset, 1 << bit)
                                    .F32(Element(group, bit), Narrow(row.twoBytes))),
                "");
      Body oneByte = FieldsSetup(true).Set(group.setupPosition, {1 << bit});
      EXPECT_EQ(FirstDifference(oneByte, Body().Raw({60, 50, 70, 80}),
                                Image(80.0f)
                                    .U16(group.maskOffset, 1 << bit)
                                    .F32(Element(group, bit), Narrow(row.oneByte))),
                "");
    }
  }
}

TEST(FieldHistoryGroups, TheLowBitsOfTheLastMaskReadTables) {
  struct {
    int bit;
    std::size_t offset;
  } constexpr kTables[] = {{2, kTable1}, {1, kTable2}};
  for (auto const& table : kTables) {
    SCOPED_TRACE(table.bit);
    RecordImage twoBytes = Image(80.5f).U16(234, table.bit);
    RecordImage oneByte = Image(80.0f).U16(234, table.bit);
    Body pairs = Body().Raw({60, 128});
    Body bytes = Body().Raw({60});
    for (int i = 0; i < 33; ++i) {
      pairs.U8(40 + i).U8(128);
      bytes.U8(40 + i);
      std::size_t const offset = table.offset + 4 * static_cast<std::size_t>(i);
      twoBytes.F32(offset, 42.0f + static_cast<float>(i));
      oneByte.F32(offset, 41.0f + static_cast<float>(i));
    }
    EXPECT_EQ(FirstDifference(FieldsSetup(false).Set(187, {table.bit}), pairs, twoBytes), "");
    EXPECT_EQ(FirstDifference(FieldsSetup(true).Set(187, {table.bit}), bytes, oneByte), "");
  }
}

// All bits of all masks, with a block whose byte at position p is p + 1.
Body FullSetup(bool wholeDb) {
  return FieldsSetup(wholeDb).Set(182, {255, 255, 255, 255, 255, 255});
}

Body FullBlock(int length) {
  Body block;
  for (int position = 0; position < length; ++position) block.U8(position + 1);
  return block;
}

RecordImage FullImage(float level) {
  RecordImage image = Image(level);
  for (Group const& group : kGroups) image.U16(group.maskOffset, 255);
  return image;
}

// Plain values for the elements first to last of a group, the first at the given position.
void PutPairs(RecordImage& image, Group const& group, int first, int last, int position) {
  for (int index = first; index >= last; --index, position += 2) {
    image.F32(Element(group, index), Narrow(position + 1 + (position + 2) / 256.0 + 1.5));
  }
}

void PutBytes(RecordImage& image, Group const& group, int first, int last, int position) {
  for (int index = first; index >= last; --index, ++position) {
    image.F32(Element(group, index), Narrow(position + 2));
  }
}

TEST(FieldHistoryGroups, AllBitsInTwoBytes) {
  RecordImage expected = FullImage(21 + 2 / 256.0f);
  PutPairs(expected, kGroup1, 7, 0, 2);
  PutPairs(expected, kGroup2, 7, 2, 18);
  // The count of positions 30 to 32, with its third byte, then the plain byte of position 33.
  expected.F32(Element(kGroup2, 1), Narrow(31 * 256 + 32 + 33 / 256.0));
  expected.F32(Element(kGroup2, 0), 34);
  PutPairs(expected, kGroup3, 7, 0, 34);
  PutPairs(expected, kGroup4, 7, 3, 50);
  expected.F32(Element(kGroup4, 2), Narrow((61 * 256 + 62) / 45590.0 * 8.0));
  expected.F32(Element(kGroup4, 1), 63 / 16.0f);
  expected.F32(Element(kGroup4, 0), 67.5f + 66 / 256.0f);
  PutPairs(expected, kGroup5, 7, 0, 66);
  PutPairs(expected, kGroup6, 7, 2, 82);
  for (int i = 0; i < 33; ++i) {
    std::size_t const offset = 4 * static_cast<std::size_t>(i);
    expected.F32(kTable1 + offset, Narrow(96.5 + 2 * i + (96 + 2 * i) / 256.0));
    expected.F32(kTable2 + offset, Narrow(162.5 + 2 * i + (162 + 2 * i) / 256.0));
  }
  EXPECT_EQ(FirstDifference(FullSetup(false), FullBlock(226), expected), "");
}

TEST(FieldHistoryGroups, AllBitsInOneByte) {
  RecordImage expected = FullImage(21);
  PutBytes(expected, kGroup1, 7, 0, 1);
  PutBytes(expected, kGroup2, 7, 2, 9);
  expected.F32(Element(kGroup2, 1), 16).F32(Element(kGroup2, 0), 17);
  PutBytes(expected, kGroup3, 7, 0, 17);
  PutBytes(expected, kGroup4, 7, 3, 25);
  expected.F32(Element(kGroup4, 2), Narrow(31 * 256 / 45590.0 * 8.0));
  expected.F32(Element(kGroup4, 1), 32 / 16.0f).F32(Element(kGroup4, 0), 35);
  PutBytes(expected, kGroup5, 7, 0, 33);
  PutBytes(expected, kGroup6, 7, 2, 41);
  for (int i = 0; i < 33; ++i) {
    std::size_t const offset = 4 * static_cast<std::size_t>(i);
    expected.F32(kTable1 + offset, static_cast<float>(49 + i));
    expected.F32(kTable2 + offset, static_cast<float>(82 + i));
  }
  EXPECT_EQ(FirstDifference(FullSetup(true), FullBlock(113), expected), "");
}

TEST(FieldHistoryGroups, NothingIsAddedToZeroBytes) {
  for (bool const wholeDb : {false, true}) {
    SCOPED_TRACE(wholeDb);
    RecordImage expected = FullImage(wholeDb ? 80 : 80.5f);
    // The reference level is taken off of whatever value stands there.
    expected.F32(Element(kGroup4, 0), wholeDb ? 2.0f : 2.5f);
    Body block = wholeDb ? Body().Raw({60}) : Body().Raw({60, 128});
    EXPECT_EQ(FirstDifference(FullSetup(wholeDb), block.PadTo(226), expected), "");
  }
}

TEST(FieldHistoryGroups, ValuesPastTheBlockAreNotStored) {
  // Seven bytes: the level, two values and half of a third.
  RecordImage expected = FullImage(80.5f);
  expected.F32(Element(kGroup1, 7), 52).F32(Element(kGroup1, 6), 72);
  EXPECT_EQ(
      FirstDifference(FullSetup(false), Body().Raw({60, 128, 50, 128, 70, 128, 90}), expected), "");
  RecordImage whole = FullImage(80);
  whole.F32(Element(kGroup1, 7), 51).F32(Element(kGroup1, 6), 71);
  EXPECT_EQ(FirstDifference(FullSetup(true), Body().Raw({60, 50, 70}), whole), "");
}

TEST(FieldHistoryGroups, TablesAreStoredPastTheBlock) {
  // The second value has only its first byte, the others none.
  RecordImage const expected = Image(80.5f).U16(234, 2).Floats(kTable1, {52, 71.5f});
  EXPECT_EQ(FirstDifference(FieldsSetup(false).Set(187, {2}), Body().Raw({60, 128, 50, 128, 70}),
                            expected),
            "");
}

// At old firmware the setup moves masks B and C one position down, and the lists have neither mask
// D nor mask F, whatever the context holds: the setup took both from the host's buffer.
TEST(FieldHistoryGroups, Firmware201HasFourMasks) {
  Body const setup = FieldsSetup(false).Set(182, {0x81, 0x42, 0x24, 0x18, 0xFF, 0xFF});
  Body const block =
      Body().Raw({60, 128}).Raw({50, 0, 51, 0, 52, 0, 53, 0, 54, 0, 55, 0, 56, 0, 57, 0});
  Translation const run(
      Model442("LOG", "2.01").Item(kSetupItem, setup).List(27, 18, {block}).EndOfData());
  RecordImage expected = Image(80.5f);
  expected.U16(12, 0x81).U16(14, 0x42).U16(16, 0x24).U16(18, 0x18);
  expected.F32(Element(kGroup1, 7), 50).F32(Element(kGroup1, 0), 51);
  expected.F32(Element(kGroup3, 6), 52).F32(Element(kGroup3, 1), 53);
  expected.F32(Element(kGroup4, 4), 54).F32(Element(kGroup4, 3), 55);
  expected.F32(Element(kGroup5, 5), 56).F32(Element(kGroup5, 2), 57);
  ASSERT_EQ(run.Records(57).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(57)[0]), "");
}

TEST(FieldHistoryGroups, FirmwareAbove201HasSixMasks) {
  Body const setup = FieldsSetup(false).Set(182, {0x80, 0x40, 0x20, 0x10, 0x08, 0x04});
  Body const block = Body().Raw({60, 128}).Raw({50, 0, 51, 0, 52, 0, 53, 0, 54, 0, 55, 0});
  Translation const run(
      Model442("LOG", "2.02").Item(kSetupItem, setup).List(27, 14, {block}).EndOfData());
  RecordImage expected = Image(80.5f);
  expected.U16(12, 0x80).U16(232, 0x40).U16(14, 0x20);
  expected.U16(18, 0x10).U16(16, 0x08).U16(234, 0x04);
  expected.F32(Element(kGroup1, 7), 50).F32(Element(kGroup2, 6), 51);
  expected.F32(Element(kGroup3, 5), 52).F32(Element(kGroup4, 4), 53);
  expected.F32(Element(kGroup5, 3), 54).F32(Element(kGroup6, 2), 55);
  ASSERT_EQ(run.Records(57).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(57)[0]), "");
}

}  // namespace
}  // namespace test
