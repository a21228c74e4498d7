// The blocks of list item 21.
#include <gtest/gtest.h>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kList = 21;
constexpr int kThirdsFlag = 128;
constexpr int kLengthOf11 = 28;
constexpr int kLengthOf33 = 72;

// A block whose byte i holds first + i.
Body Block(int first, int length) {
  Body body;
  for (int i = 0; i < length; ++i) body.U8(first + i);
  return body;
}

TEST(TimedSpectrum, ElevenBandsWithoutTheFlag) {
  for (int const model : {431, 442, 486}) {
    SCOPED_TRACE(model);
    DataFile file = model == 431 ? Model431("OBA ") : model == 442 ? Model442("LOG") : General();
    Translation const run(file.Q(157, "7")
                              .Q(227, "1.5")
                              .List(kList, kLengthOf11, {Block(100, kLengthOf11)})
                              .EndOfData());
    RecordImage expected(152);
    expected.U16(0, 21).U16(2, 7);
    // 101 seconds, then 102 and 103 as their fraction; the level of 104 and 105.
    expected.F32(4, 101 + (102 * 256 + 103) / 65536.0f).F32(8, 105.5f + 105 / 256.0f);
    expected.U8(12, 100).I32(16, 1);
    expected.Floats(20, {107.5f + 107 / 256.0f, 109.5f + 109 / 256.0f, 111.5f + 111 / 256.0f,
                         113.5f + 113 / 256.0f, 115.5f + 115 / 256.0f, 117.5f + 117 / 256.0f,
                         119.5f + 119 / 256.0f, 121.5f + 121 / 256.0f, 123.5f + 123 / 256.0f,
                         125.5f + 125 / 256.0f, 127.5f + 127 / 256.0f});
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 21, 15}));
    EXPECT_EQ(run.Records(21)[0].status, 0);
    EXPECT_EQ(Difference(expected, run.Records(21)[0]), "");
  }
}

TEST(TimedSpectrum, ThirtyThreeBandsWithTheFlag) {
  Translation const run(General()
                            .Item('M', FlagsOnlySetup(kThirdsFlag))
                            .List(kList, kLengthOf33, {Block(1, kLengthOf33)})
                            .EndOfData());
  RecordImage expected(152);
  expected.U16(0, 21).F32(4, 2 + (3 * 256 + 4) / 65536.0f).F32(8, 5 + 6 / 256.0f);
  expected.U8(12, 1).I32(16, 1);
  for (int i = 0; i < 33; ++i) {
    float const hi = static_cast<float>(7 + 2 * i);
    expected.F32(static_cast<std::size_t>(20 + 4 * i), hi + (hi + 1) / 256.0f);
  }
  ASSERT_EQ(run.Records(21).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(21)[0]), "");
}

TEST(TimedSpectrum, OnlyTheFlagOfTheLastSetupDecides) {
  // All other flags, in the modes of each model; the mode of the file is of no regard.
  DataFile general = Model442("RTA");
  general.Item('M', FlagsOnlySetup(127)).List(kList, kLengthOf33, {Block(1, kLengthOf33)});
  general.Item('M', FlagsOnlySetup(255)).List(kList, kLengthOf33, {Block(1, kLengthOf33)});
  general.Item('M', FlagsOnlySetup(0)).List(kList, kLengthOf33, {Block(1, kLengthOf33)});
  Translation const run(general.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 21, 21, 15}));
  EXPECT_EQ(run.As<QvTimedSpectrum>(0).Bands[10], 27 + 28 / 256.0f);
  EXPECT_EQ(run.As<QvTimedSpectrum>(0).Bands[11], 0.0f);
  EXPECT_EQ(run.As<QvTimedSpectrum>(1).Bands[11], 29 + 30 / 256.0f);
  EXPECT_EQ(run.As<QvTimedSpectrum>(1).Bands[32], 71 + 72 / 256.0f);
  EXPECT_EQ(run.As<QvTimedSpectrum>(2).Bands[11], 0.0f);

  Translation const run431(Model431("sSLM")
                               .Item('M', FlagsOnlySetup431(kThirdsFlag))
                               .List(kList, kLengthOf33, {Block(1, kLengthOf33)})
                               .EndOfData());
  ASSERT_EQ(run431.Records(21).size(), 1u);
  EXPECT_EQ(run431.As<QvTimedSpectrum>(0).Bands[32], 71 + 72 / 256.0f);
}

TEST(TimedSpectrum, LevelsWithoutSecondByteHaveNoValue) {
  Body const block = Body().Raw({1, 0, 0, 0, 75, 0, 75, 0, 75, 128});
  Translation const run(General().List(kList, kLengthOf11, {block}).EndOfData());
  ASSERT_EQ(run.Records(21).size(), 1u);
  auto const record = run.As<QvTimedSpectrum>(0, 21);
  EXPECT_EQ(record.Level, 999.0f);
  EXPECT_EQ(record.Bands[0], 999.0f);
  EXPECT_EQ(record.Bands[1], 75.5f);
  EXPECT_EQ(record.Bands[2], 999.0f);
}

TEST(TimedSpectrum, AShortBlockReadsAsZerosWithStatusZero) {
  Translation const run(General()
                            .List(kList, 7, {Body().Raw({9, 1, 128, 0, 60, 128, 70})})
                            .Item(9, Body().Fill(40, 0x55))
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 15}));
  EXPECT_EQ(run.steps[0].status, 0);
  RecordImage expected(152);
  expected.U16(0, 21).F32(4, 1.5f).F32(8, 60.5f).U8(12, 9).I32(16, 1);
  expected.Floats(20, std::vector<float>(11, 999.0f));
  EXPECT_EQ(Difference(expected, run.steps[0]), "");
}

TEST(TimedSpectrum, BytesBehindTheBandsAreNotRead) {
  Translation const run(
      General().List(kList, 255, {Block(1, 255), Block(50, 205).PadTo(255)}).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 21, 15}));
  EXPECT_EQ(run.As<QvTimedSpectrum>(0).BlockByte, 1);
  EXPECT_EQ(run.As<QvTimedSpectrum>(1).BlockByte, 50);
  EXPECT_EQ(run.As<QvTimedSpectrum>(1).Level, 54 + 55 / 256.0f);
}

TEST(TimedSpectrum, TheFirstBlockIsDeliveredWhateverItsFirstByteIs) {
  Translation const run(General()
                            .List(kList, kLengthOf11, {Block(0, kLengthOf11)})
                            .List(kList, kLengthOf11, {Block(200, kLengthOf11)})
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 21, 15}));
  EXPECT_EQ(run.As<QvTimedSpectrum>(0).BlockByte, 0);
  EXPECT_EQ(run.As<QvTimedSpectrum>(0).Level, 4 + 5 / 256.0f);
  EXPECT_EQ(run.As<QvTimedSpectrum>(1).BlockByte, 200);
}

TEST(TimedSpectrum, TheCountGoesOnThroughLaterTranslationsInTheContext) {
  TempFile const file(Startable(General().List(kList, 6, {Block(1, 6), Block(2, 6)}).EndOfData()));
  Session session;
  for (unsigned const base : {0u, 2u, 4u}) {
    ASSERT_EQ(session.Start(file.Path()), 0);
    ASSERT_EQ(session.Next(), 0);
    EXPECT_EQ(session.As<QvTimedSpectrum>().RecordIndex, base + 1);
    ASSERT_EQ(session.Next(), 0);
    EXPECT_EQ(session.As<QvTimedSpectrum>().RecordIndex, base + 2);
    EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  }
}

TEST(TimedSpectrum, AListOfLengthZeroEndsAtOnceWhereTheBufferIsStillEmpty) {
  // Nothing is read, so what stands first in the buffer decides: zero behind the start.
  Translation const run(General().Raw(std::string("\x15\0\0", 3)).EndOfData(), {.mostSteps = 9});
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 15}));
  RecordImage expected(152);
  expected.U16(0, 21).F32(8, 999.0f).I32(16, 1);
  expected.Floats(20, std::vector<float>(11, 999.0f));
  EXPECT_EQ(Difference(expected, run.steps[0]), "");
}

TEST(TimedSpectrum, RaisesNoLatestTime) {
  Translation const run(General().List(kList, kLengthOf11, {Block(90, kLengthOf11)}).EndOfData());
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, 0);
}

}  // namespace
}  // namespace test
