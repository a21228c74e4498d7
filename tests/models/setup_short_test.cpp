#include <gtest/gtest.h>

#include "support/setup_block.h"

namespace {

using test::ExpectSetup;
using test::General;
using test::kSetupSize431;
using test::Model431;
using test::Model442;
using test::NumberedSetup;
using test::NumberedSetupImage;
using test::RecordImage;

constexpr test::ByteRow kShortBytes[] = {
    {62, 74}, {64, 75}, {66, 86}, {68, 87},  {70, 88},  {72, 89},
    {74, 90}, {76, 91}, {78, 92}, {80, 145}, {82, 146}, {84, 147},
};

constexpr test::ByteRow kShort431Bytes[] = {
    {62, 74}, {64, 75}, {66, 76}, {68, 86},  {70, 87},  {72, 88},  {74, 89},
    {76, 90}, {78, 91}, {80, 92}, {82, 145}, {84, 146}, {86, 147},
};

constexpr const char* kFirmware[] = {"0.500", "2.01", "2.02", "3.115", "3.6"};

RecordImage WithBytes(RecordImage image, std::span<const test::ByteRow> rows) {
  PutBytes(image, rows);
  return image;
}

TEST(SetupShort, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  RecordImage const image = WithBytes(NumberedSetupImage(52, 442, 1), kShortBytes);
  for (const char* const firmware : kFirmware) {
    SCOPED_TRACE(firmware);
    ExpectSetup(Model442("ISM", firmware), NumberedSetup(1), 52, image);
  }
}

TEST(SetupShort, FormIsTheSameOnGeneralModels) {
  ExpectSetup(General(), NumberedSetup(1), 52,
              WithBytes(NumberedSetupImage(52, 486, 1), kShortBytes));
}

TEST(SetupShort431, EveryFieldStandsAtItsPlaceInEveryFirmware) {
  RecordImage const image = WithBytes(NumberedSetupImage(34, 431, 1), kShort431Bytes);
  for (const char* const firmware : kFirmware) {
    SCOPED_TRACE(firmware);
    ExpectSetup(Model431("sSLM", firmware), NumberedSetup(1, kSetupSize431), 34, image);
  }
}

}  // namespace
