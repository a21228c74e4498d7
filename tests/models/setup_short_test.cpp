#include <gtest/gtest.h>

#include "support/setup_block.h"

namespace {

using test::Difference;
using test::General;
using test::kSetupItem;
using test::kSetupSize431;
using test::Model431;
using test::Model442;
using test::NumberedSetup;
using test::NumberedSetupImage;
using test::RecordImage;
using test::Translation;

constexpr test::ByteRow kShortBytes[] = {
    {62, 74}, {64, 75}, {66, 86}, {68, 87},  {70, 88},  {72, 89},
    {74, 90}, {76, 91}, {78, 92}, {80, 145}, {82, 146}, {84, 147},
};

constexpr test::ByteRow kShort431Bytes[] = {
    {62, 74}, {64, 75}, {66, 76}, {68, 86},  {70, 87},  {72, 88},  {74, 89},
    {76, 90}, {78, 91}, {80, 92}, {82, 145}, {84, 146}, {86, 147},
};

constexpr const char* kFirmware[] = {"0.500", "2.01", "2.02", "3.115", "3.6"};

template <std::size_t Count>
RecordImage WithBytes(RecordImage image, const test::ByteRow (&rows)[Count]) {
  for (const test::ByteRow& row : rows) {
    image.U16(static_cast<std::size_t>(row.Offset), row.Position);
  }
  return image;
}

TEST(SetupShort, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  RecordImage const image = WithBytes(NumberedSetupImage(52, 442, 1), kShortBytes);
  for (const char* const firmware : kFirmware) {
    SCOPED_TRACE(firmware);
    Translation const run(
        Model442("ISM", firmware).Q(157, "7").Item(kSetupItem, NumberedSetup(1)).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 52, 15}));
    EXPECT_EQ(run.Records(52).at(0).status, 0);
    EXPECT_EQ(Difference(image, run.Records(52).at(0)), "");
  }
}

TEST(SetupShort, FormIsTheSameOnGeneralModels) {
  Translation const run(General().Q(157, "7").Item(kSetupItem, NumberedSetup(1)).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 52, 15}));
  EXPECT_EQ(
      Difference(WithBytes(NumberedSetupImage(52, 486, 1), kShortBytes), run.Records(52).at(0)),
      "");
}

TEST(SetupShort431, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  RecordImage const image = WithBytes(NumberedSetupImage(34, 431, 1), kShort431Bytes);
  for (const char* const firmware : kFirmware) {
    SCOPED_TRACE(firmware);
    Translation const run(Model431("sSLM", firmware)
                              .Q(157, "7")
                              .Item(kSetupItem, NumberedSetup(1, kSetupSize431))
                              .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 34, 15}));
    EXPECT_EQ(run.Records(34).at(0).status, 0);
    EXPECT_EQ(Difference(image, run.Records(34).at(0)), "");
  }
}

}  // namespace
