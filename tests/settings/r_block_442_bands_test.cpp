// The band arrays of model 442's results block: third-octave levels and their octaves.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/record_image.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::Model442;
using test::RecordImage;
using test::Translation;

constexpr float kNone = 999.0F;
constexpr float kSumOfZeros = 4.77121254719662F;  // 10 log10(3)

DataFile Start() {
  return Model442("SSA");
}

RecordImage Results() {
  RecordImage image(5316);
  return image.U16(0, 55).U16(620, 442);
}

QvResults442 OneBlock(const DataFile& file) {
  Translation const run(DataFile(file).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{55, 15}));
  return run.As<QvResults442>(0);
}

struct ArrayRow {
  int Number;
  std::size_t Thirds;
  std::size_t Octaves;
};

constexpr ArrayRow kBandLists[] = {
    {171, 1172, 1308}, {172, 976, 1112}, {173, 1736, 1872}, {188, 1368, 1504}, {206, 1552, 1688}};

constexpr ArrayRow kCountedLists[] = {
    {207, 1172, 1308}, {210, 976, 1112}, {213, 1368, 1504}, {214, 1552, 1688}, {219, 2304, 2440}};

constexpr ArrayRow kResets[] = {{221, 1924, 2060}, {222, 2108, 2244}};

// The three bands of octave k stand at 40 + k dB; the last band, of no octave, at 99 dB.
constexpr const char* kThirtyFour =
    "40,40,40,41,41,41,42,42,42,43,43,43,44,44,44,45,45,45,46,46,46,47,47,47,48,48,48,49,49,49,"
    "50,50,50,99";

std::vector<float> ThirtyFour() {
  std::vector<float> bands;
  for (int k = 0; k < 11; ++k) bands.insert(bands.end(), 3, static_cast<float>(40 + k));
  bands.push_back(99.0F);
  return bands;
}

std::vector<float> ThirtyFourOctaves() {
  return {44.77121254719662F, 45.77121254719662F, 46.77121254719662F, 47.77121254719662F,
          48.77121254719662F, 49.77121254719662F, 50.77121254719662F, 51.77121254719662F,
          52.77121254719662F, 53.77121254719662F, 54.77121254719662F, 0.0F};
}

TEST(RBlock442Bands, BandListFillsBothArraysAndNoMore) {
  for (const ArrayRow& row : kBandLists) {
    RecordImage image = Results();
    image.Floats(row.Thirds, ThirtyFour()).Floats(row.Octaves, ThirtyFourOctaves());
    Translation const whole(Start().R(row.Number, kThirtyFour).EndOfData());
    EXPECT_EQ(Difference(image, whole.steps.at(0)), "") << "register " << row.Number;
    Translation const longer(
        Start().R(row.Number, std::string(kThirtyFour) + ",1,2,3").EndOfData());
    EXPECT_EQ(Difference(image, longer.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442Bands, OctavesOfAShortBandListAreSumsOfZeros) {
  for (const ArrayRow& row : kBandLists) {
    RecordImage image = Results();
    image.Floats(row.Thirds, {60.0F, 63.0F, 66.0F});
    image.Floats(row.Octaves, std::vector<float>(11, kSumOfZeros));
    image.F32(row.Octaves, 68.43627266045621F);
    Translation const run(Start().R(row.Number, "60,63,66").EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442Bands, FourthCharacterDashIsNoValue) {
  auto const record =
      OneBlock(Start().R(171, "----,60,60, 60.0,60, ---.-,60,  --,60,999,60,60, 60.0,-60.5,60"));
  EXPECT_EQ(record.SettingR171[0], kNone);
  EXPECT_EQ(record.SettingR171[1], 60.0F);
  EXPECT_EQ(record.SettingR171[3], 60.0F);
  EXPECT_EQ(record.SettingR171[5], kNone);
  EXPECT_EQ(record.SettingR171[7], kNone);
  EXPECT_EQ(record.SettingR171[9], kNone) << "the number itself";
  EXPECT_EQ(record.SettingR171[13], -60.5F);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(record.SettingR171Octaves[k], kNone) << k;
  EXPECT_EQ(record.SettingR171Octaves[4], 63.0102999566417F) << "two bands of 60, one of -60.5";
  EXPECT_EQ(record.SettingR171Octaves[5], kSumOfZeros);
}

// The fourth character may lie behind the next comma.
TEST(RBlock442Bands, FourthCharacterIsCountedAcrossTheComma) {
  auto const record = OneBlock(Start().R(172, "60,-5,1,2,-3"));
  EXPECT_EQ(record.SettingR172[0], kNone);
  EXPECT_EQ(record.SettingR172[1], -5.0F);
  EXPECT_EQ(record.SettingR172[2], 1.0F);
  EXPECT_EQ(record.SettingR172[3], 2.0F);
  EXPECT_EQ(record.SettingR172[4], -3.0F);
  EXPECT_EQ(record.SettingR172Octaves[0], kNone);
}

// Of the last item, too: four characters are enough, three are a number.
TEST(RBlock442Bands, FourthCharacterOfTheLastItem) {
  EXPECT_EQ(OneBlock(Start().R(172, "60,  --")).SettingR172[1], kNone);
  EXPECT_EQ(OneBlock(Start().R(172, "60,60.-")).SettingR172[1], kNone);
  EXPECT_EQ(OneBlock(Start().R(172, "60, --")).SettingR172[1], 0.0F);
  EXPECT_EQ(OneBlock(Start().R(207, "60,60.-")).SettingR171[1], kNone);
}

TEST(RBlock442Bands, EmptyBandListStoresAZero) {
  auto const record = OneBlock(Start().R(173, "7,7").R(173, ""));
  EXPECT_EQ(record.SettingR173[0], 0.0F);
  EXPECT_EQ(record.SettingR173[1], 7.0F);
}

TEST(RBlock442Bands, LastOctaveUsesBands30To32) {
  std::string bands = "60";
  for (int i = 1; i < 33; ++i) bands += i == 32 ? ",   -" : ",60";
  auto const record = OneBlock(Start().R(188, bands + ",60"));
  EXPECT_EQ(record.SettingR188[32], kNone);
  EXPECT_EQ(record.SettingR188[33], 60.0F);
  EXPECT_EQ(record.SettingR188Octaves[9], 64.77121254719662F);
  EXPECT_EQ(record.SettingR188Octaves[10], kNone);
  EXPECT_EQ(record.SettingR188Octaves[11], 0.0F);
}

TEST(RBlock442Bands, CountedListIsNotSummed) {
  // Long enough not to be taken for octaves.
  std::string const value = std::string(kThirtyFour) + "." + std::string(40, '0');
  for (const ArrayRow& row : kCountedLists) {
    RecordImage image = Results();
    image.Floats(row.Thirds, ThirtyFour());
    Translation const whole(Start().R(row.Number, value).EndOfData());
    EXPECT_EQ(Difference(image, whole.steps.at(0)), "") << "register " << row.Number;
    Translation const longer(Start().R(row.Number, value + ",1,2,3").EndOfData());
    EXPECT_EQ(Difference(image, longer.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442Bands, ShortCountedListIsAnOctaveList) {
  for (const ArrayRow& row : kCountedLists) {
    RecordImage image = Results();
    std::vector<float> const twelve = {1, 2, 3, 4, kNone, 6, 7, 8, 9, 10, 11, 12};
    image.Floats(row.Thirds, twelve).Floats(row.Octaves, twelve);
    Translation const run(Start().R(row.Number, "1,2,3,4,   -,6,7,8,9,10,11,12").EndOfData());
    EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
  }
}

TEST(RBlock442Bands, CountedListIsShortBelow130Characters) {
  for (const ArrayRow& row : kCountedLists) {
    std::string const short_value = "1,2,3." + std::string(123, '0');
    ASSERT_EQ(short_value.size(), 129U);
    RecordImage image = Results();
    image.Floats(row.Thirds, {1, 2, 3});
    Translation const long_run(Start().R(row.Number, short_value + "0").EndOfData());
    EXPECT_EQ(Difference(image, long_run.steps.at(0)), "") << "register " << row.Number;
    image.Floats(row.Octaves, {1, 2, 3});
    Translation const short_run(Start().R(row.Number, short_value).EndOfData());
    EXPECT_EQ(Difference(image, short_run.steps.at(0)), "") << "register " << row.Number;
  }
}

std::string Sevens(int count) {
  std::string value = "7";
  for (int i = 1; i < count; ++i) value += ",7";
  return value;
}

// 33 bands and 11 octaves are one short of the array: register 219 closes them with no value.
TEST(RBlock442Bands, Register219ClosesListsOf33And11) {
  struct Row {
    int Count;
    bool Closed;
  };
  constexpr Row kRows[] = {{1, false},  {10, false}, {11, true},  {12, false},
                           {32, false}, {33, true},  {34, false}, {36, false}};
  for (const ArrayRow& row : kCountedLists) {
    for (const Row& list : kRows) {
      std::size_t const count = static_cast<std::size_t>(std::min(list.Count, 34));
      std::vector<float> bands(count, 7.0F);
      if (list.Closed && row.Number == 219) bands.push_back(kNone);
      RecordImage image = Results();
      image.Floats(row.Thirds, bands);
      bands.resize(12, 0.0F);
      image.Floats(row.Octaves, bands);
      Translation const run(Start().R(row.Number, Sevens(list.Count)).EndOfData());
      EXPECT_EQ(Difference(image, run.steps.at(0)), "")
          << "register " << row.Number << ", " << list.Count << " values";
    }
  }
}

TEST(RBlock442Bands, LongListOf33IsClosedWithoutACopy) {
  RecordImage image = Results();
  std::vector<float> bands(33, 7.0F);
  bands.push_back(kNone);
  image.Floats(2304, bands);
  Translation const run(Start().R(219, Sevens(33) + "." + std::string(80, '0')).EndOfData());
  EXPECT_EQ(Difference(image, run.steps.at(0)), "");
}

TEST(RBlock442Bands, NewerListOverwritesElementByElement) {
  std::string const long_value = "1,2.";
  auto const record =
      OneBlock(Start().R(172, kThirtyFour).R(210, long_value + std::string(130, '0')));
  EXPECT_EQ(record.SettingR172[0], 1.0F);
  EXPECT_EQ(record.SettingR172[1], 2.0F);
  EXPECT_EQ(record.SettingR172[2], 40.0F);
  EXPECT_EQ(record.SettingR172[33], 99.0F);
  EXPECT_EQ(record.SettingR172Octaves[0], 44.77121254719662F);

  auto const copied = OneBlock(Start().R(172, kThirtyFour).R(210, "1,2"));
  EXPECT_EQ(copied.SettingR172[1], 2.0F);
  EXPECT_EQ(copied.SettingR172[2], 40.0F);
  float const octaves[] = {1, 2, 40, 41, 41, 41, 42, 42, 42, 43, 43, 43};
  for (int i = 0; i < 12; ++i) EXPECT_EQ(copied.SettingR172Octaves[i], octaves[i]) << i;
}

TEST(RBlock442Bands, ResetSetsEveryBandToNoValue) {
  for (const ArrayRow& row : kResets) {
    RecordImage image = Results();
    image.Floats(row.Thirds, std::vector<float>(34, kNone));
    image.Floats(row.Octaves, std::vector<float>(12, kNone));
    for (const char* const value : {"", "1,2,3", "x"}) {
      Translation const run(Start().R(row.Number, value).EndOfData());
      EXPECT_EQ(Difference(image, run.steps.at(0)), "") << "register " << row.Number;
    }
  }
}

}  // namespace
