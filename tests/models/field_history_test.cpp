// The blocks of list item 27: samples, markers, times, and how lists end.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/setup_block.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kList = 27;
constexpr std::int32_t kHeaderTime = 1718971200;  // 21 June 2024 12:00:00
constexpr std::int32_t kThirteen = 1718974800;    // the same day, 13:00:00

// A setup with the given selector, and the period in value and unit.
Body ListSetup(int selector, int period = 1, int unit = 1) {
  return EmptySetup(2).Set(140, {selector, period, unit});
}

QvFieldHistory Entry(const Translation& run, std::size_t index) {
  return run.As<QvFieldHistory>(index, QV_FIELD_HISTORY);
}

TEST(FieldHistory, SampleWithLevelOnly) {
  Translation const run(Model442("LOG")
                            .Q(157, "7")
                            .Q(227, "1.5")
                            .Item(kSetupItem, ListSetup(0).Set(181, {20, 1, 2, 3, 4, 5, 6}))
                            .List(kList, 4, {Body().Raw({60, 128, 50, 128})})
                            .EndOfData());
  RecordImage expected(500);
  expected.U16(0, 57).U16(2, 7).I32(4, kHeaderTime);
  expected.U16(12, 1).U16(14, 3).U16(16, 5).U16(18, 4).U16(232, 2).U16(234, 6);
  expected.F32(20, 80.5f).F32(28, 1).I32(32, 1);
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 53, 57, 15}));
  EXPECT_EQ(Difference(expected, run.Records(57)[0]), "");
}

TEST(FieldHistory, SampleWithSecondValue) {
  for (int const selector : {1, 2, 3, 5, 255}) {
    SCOPED_TRACE(selector);
    Translation const run(Model442("LOG")
                              .Q(227, "1.5")
                              .Item(kSetupItem, ListSetup(selector).Set(181, {20, 255, 255, 255}))
                              .List(kList, 4, {Body().Raw({60, 128, 50, 128})})
                              .EndOfData());
    RecordImage expected(500);
    expected.U16(0, 57).I32(4, kHeaderTime).U16(10, selector);
    expected.U16(12, 255).U16(14, 255).U16(232, 255);
    expected.F32(20, 80.5f).F32(24, 52).F32(28, 1).I32(32, 1);
    ASSERT_EQ(run.Records(57).size(), 1u);
    EXPECT_EQ(Difference(expected, run.Records(57)[0]), "");
  }
}

TEST(FieldHistory, SecondValueInWholeDecibels) {
  struct {
    const char* offset;
    float value;
  } constexpr kRows[] = {{"1.9", 51}, {"-2.0", 48}, {"-2.5", 47}};
  for (auto const& row : kRows) {
    SCOPED_TRACE(row.offset);
    Translation const run(Model442("LOG")
                              .Q(227, row.offset)
                              .Item(kSetupItem, ListSetup(1).Set(47, {4}).Set(181, {20}))
                              .List(kList, 2, {Body().Raw({60, 50}), Body().Raw({61, 0})})
                              .EndOfData());
    ASSERT_EQ(run.Records(57).size(), 2u);
    EXPECT_EQ(Entry(run, 0).Level, 80.0f);
    EXPECT_EQ(Entry(run, 0).SecondValue, row.value);
    EXPECT_EQ(Entry(run, 1).Level, 81.0f);
    EXPECT_EQ(Entry(run, 1).SecondValue, 0.0f);
  }
}

TEST(FieldHistory, LevelOfTheOtherModelsCountsItsSecondByteTwice) {
  for (int const model : {431, 486}) {
    SCOPED_TRACE(model);
    DataFile file = model == 431 ? Model431("iSLM") : General();
    Translation const run(file.Q(227, "-2.5").List(kList, 2, {Body().Raw({60, 64})}).EndOfData());
    RecordImage expected(500);
    expected.U16(0, 57).I32(4, kHeaderTime).F32(20, 58).I32(32, 1);
    ASSERT_EQ(run.Codes(), (std::vector<int>{7, 57, 15}));
    EXPECT_EQ(Difference(expected, run.Records(57)[0]), "");
  }
}

TEST(FieldHistory, LevelOfTheOtherModelsInWholeDecibels) {
  for (int const model : {431, 486}) {
    SCOPED_TRACE(model);
    DataFile file = model == 431 ? Model431("iSLM") : General();
    Translation const run(file.Q(81, "1")
                              .Q(227, "-2.5")
                              .List(kList, 1, {Body().Raw({60}), Body().Raw({127})})
                              .EndOfData());
    ASSERT_EQ(run.Records(57).size(), 2u);
    EXPECT_EQ(Entry(run, 0).Level, 57.0f);
    EXPECT_EQ(Entry(run, 1).Level, 124.0f);
  }
}

TEST(FieldHistory, ValuesPastTheBlockAreNotStored) {
  // A level without its second byte; a second value without its own.
  Translation const level(Model442("LOG")
                              .Item(kSetupItem, ListSetup(1).Set(181, {20}))
                              .List(kList, 1, {Body().Raw({60})})
                              .EndOfData());
  RecordImage expected(500);
  expected.U16(0, 57).I32(4, kHeaderTime).U16(10, 1).F32(28, 1).I32(32, 1);
  ASSERT_EQ(level.Records(57).size(), 1u);
  EXPECT_EQ(level.Records(57)[0].status, 0);
  EXPECT_EQ(Difference(expected, level.Records(57)[0]), "");

  Translation const second(Model442("LOG")
                               .Item(kSetupItem, ListSetup(1).Set(181, {20}))
                               .List(kList, 3, {Body().Raw({60, 128, 50})})
                               .EndOfData());
  ASSERT_EQ(second.Records(57).size(), 1u);
  EXPECT_EQ(second.Records(57)[0].status, 0);
  EXPECT_EQ(Difference(expected.F32(20, 80.5f), second.Records(57)[0]), "");
}

TEST(FieldHistory, SamplesFollowOneAnotherInThePeriod) {
  struct {
    int period, unit;
    float seconds;
    std::int32_t times[4];
  } constexpr kRows[] = {
      {16, 0, 0.5f, {0, 0, 1, 1}},        {3, 0, 0.09375f, {0, 0, 0, 0}},
      {2, 1, 2.0f, {0, 2, 4, 6}},         {2, 2, 20.0f, {0, 20, 40, 60}},
      {2, 3, 120.0f, {0, 120, 240, 360}},
  };
  for (auto const& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.period << " in unit " << row.unit);
    Body const block = Body().Raw({60, 1});
    Translation const run(Model442("LOG")
                              .Item(kSetupItem, ListSetup(0, row.period, row.unit))
                              .List(kList, 2, {block, block, block, block})
                              .EndOfData());
    ASSERT_EQ(run.Records(57).size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(Entry(run, i).StreamPeriod, row.seconds);
      EXPECT_EQ(Entry(run, i).RecordTime, kHeaderTime + row.times[i]);
      EXPECT_EQ(Entry(run, i).RecordIndex, i + 1);
    }
  }
}

TEST(FieldHistory, AnotherUnitLeavesThePeriod) {
  for (int const unit : {4, 255}) {
    SCOPED_TRACE(unit);
    Translation const run(Model442("LOG")
                              .Item(kSetupItem, ListSetup(0, 5, 1))
                              .Item(kSetupItem, ListSetup(0, 9, unit))
                              .List(kList, 2, {Body().Raw({60, 1})})
                              .EndOfData());
    ASSERT_EQ(run.Records(57).size(), 1u);
    EXPECT_EQ(Entry(run, 0).StreamPeriod, 5.0f);
  }
}

TEST(FieldHistory, MarkerHasKindAndDetail) {
  for (int first = 128; first < 256; ++first) {
    SCOPED_TRACE(first);
    int const kind = (first - 128) / 16;
    std::int32_t const time = kind == 4 || kind == 5 ? kThirteen : kThirteen + 1;
    Translation const run(Model442("LOG")
                              .Q(157, "7")
                              .Item(kSetupItem, ListSetup(4, 2).Set(182, {1, 2, 3, 4, 5, 6}))
                              .Item(4, Event(64, 21, 6, 2024, 13, 0, 0))
                              .Item(4, Event(0, 21, 6, 2024, 13, 0, 1))
                              .List(kList, 3, {Body().Raw({first, 50, 128})})
                              .EndOfData());
    RecordImage expected(500);
    expected.U16(0, 57).U16(2, 7).I32(4, time).U16(10, 4);
    expected.U16(12, 1).U16(14, 3).U16(16, 5).U16(18, 4).U16(232, 2).U16(234, 6);
    expected.F32(20, -1).F32(28, 2).I32(32, 1);
    expected.U16(36, first % 16).U16(38, kind);
    ASSERT_EQ(run.Records(57).size(), 1u);
    ASSERT_EQ(Difference(expected, run.Records(57)[0]), "");
  }
}

TEST(FieldHistory, MarkerC3HasKind4AndDetail3) {
  Translation const run(General().List(kList, 1, {Body().Raw({0xC3})}).EndOfData());
  ASSERT_EQ(run.Records(57).size(), 1u);
  EXPECT_EQ(Entry(run, 0).MarkerKind, 4);
  EXPECT_EQ(Entry(run, 0).MarkerDetail, 3);
}

TEST(FieldHistory, OnlyRunMarkersMoveTheTimeOfTheSamples) {
  Translation const run(Model442("LOG")
                            .Item(kSetupItem, ListSetup(0, 10).Set(47, {4}))
                            .Item(4, Event(16, 21, 6, 2024, 14))
                            .Item(4, Event(64, 21, 6, 2024, 13))
                            .Item(4, Event(112, 21, 6, 2024, 15))
                            .Item(4, Event(80, 21, 6, 2024, 16))
                            .List(kList, 1,
                                  {Body().Raw({60}), Body().Raw({0x80}), Body().Raw({61}),
                                   Body().Raw({0xC0}), Body().Raw({62}), Body().Raw({0xF0}),
                                   Body().Raw({63}), Body().Raw({0xD0}), Body().Raw({64})})
                            .EndOfData());
  std::int32_t const times[] = {
      kHeaderTime,           // a sample
      kThirteen + 3600,      // the first other event, of whatever kind
      kHeaderTime + 10,      // a sample
      kThirteen,             // the first run event
      kThirteen,             // a sample
      kThirteen + 2 * 3600,  // the second other event
      kThirteen + 10,        // a sample
      kThirteen + 3 * 3600,  // the second run event
      kThirteen + 3 * 3600,  // a sample
  };
  ASSERT_EQ(run.Records(57).size(), 9u);
  for (std::size_t i = 0; i < 9; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(Entry(run, i).RecordTime, times[i]);
    EXPECT_EQ(Entry(run, i).RecordIndex, i + 1);
  }
}

TEST(FieldHistory, MarkersWithoutAnEventTakeTimeZero) {
  Translation const run(Model442("LOG")
                            .Item(kSetupItem, ListSetup(0, 10).Set(47, {4}))
                            .List(kList, 1,
                                  {Body().Raw({0x80}), Body().Raw({60}), Body().Raw({0xC0}),
                                   Body().Raw({61}), Body().Raw({62})})
                            .EndOfData());
  std::int32_t const times[] = {0, kHeaderTime, 0, 0, 10};
  ASSERT_EQ(run.Records(57).size(), 5u);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(Entry(run, i).RecordTime, times[i]) << i;
}

// 300 events, a second apart, and as many markers of the kind and a sample.
Translation ThreeHundred(int code, int marker) {
  DataFile file = Model442("LOG");
  file.Item(kSetupItem, ListSetup(0, 10).Set(47, {4}));
  std::vector<Body> blocks;
  for (int i = 0; i < 300; ++i) {
    file.Item(4, Event(code, 21, 6, 2024, 13, i / 60, i % 60));
    blocks.push_back(Body().Raw({marker}));
  }
  blocks.push_back(Body().Raw({60}));
  return Translation(file.List(kList, 1, blocks).EndOfData());
}

TEST(FieldHistory, Keeps299RunEvents) {
  Translation const run = ThreeHundred(64, 0xC0);
  ASSERT_EQ(run.Records(57).size(), 301u);
  EXPECT_EQ(Entry(run, 0).RecordTime, kThirteen);
  EXPECT_EQ(Entry(run, 298).RecordTime, kThirteen + 298);
  EXPECT_EQ(Entry(run, 299).RecordTime, kThirteen + 298);
  EXPECT_EQ(Entry(run, 300).RecordTime, kThirteen + 298);
}

TEST(FieldHistory, Keeps299OtherEvents) {
  Translation const run = ThreeHundred(16, 0x90);
  ASSERT_EQ(run.Records(57).size(), 301u);
  EXPECT_EQ(Entry(run, 0).RecordTime, kThirteen);
  EXPECT_EQ(Entry(run, 298).RecordTime, kThirteen + 298);
  EXPECT_EQ(Entry(run, 299).RecordTime, kHeaderTime);
  EXPECT_EQ(Entry(run, 300).RecordTime, kHeaderTime);
}

TEST(FieldHistory, IndexesRunThroughTheFileAndStartAnewWithTheNext) {
  TempFile const file(Startable(Model442("LOG")
                                    .Item(kSetupItem, ListSetup(0, 10).Set(47, {4}))
                                    .Item(4, Event(64, 21, 6, 2024, 13))
                                    .Item(4, Event(80, 21, 6, 2024, 14))
                                    .List(kList, 1, {Body().Raw({0xC0}), Body().Raw({60})})
                                    .Item(9, Body().Fill(5))
                                    .List(kList, 1, {Body().Raw({61}), Body().Raw({0xC0})})
                                    .EndOfData()));
  std::int32_t const times[] = {kThirteen, kThirteen, kThirteen + 10, kThirteen + 3600};
  Session session;
  for (int translation = 0; translation < 2; ++translation) {
    ASSERT_EQ(session.Start(file.Path()), 0);
    unsigned count = 0;
    while (session.Next() == 0) {
      if (session.Code() != QV_FIELD_HISTORY) continue;
      ASSERT_LT(count, 4u);
      EXPECT_EQ(session.As<QvFieldHistory>().RecordTime, times[count]);
      EXPECT_EQ(session.As<QvFieldHistory>().RecordIndex, ++count);
    }
    EXPECT_EQ(count, 4u);
  }
}

TEST(FieldHistory, TheFirstBlockIsDeliveredWhateverItsFirstByteIs) {
  // Neither byte counts as a level, so nothing is added to it.
  Translation const run(Model442("LOG")
                            .Item(kSetupItem, ListSetup(0).Set(181, {20}))
                            .List(kList, 2, {Body().Raw({0, 0})})
                            .List(kList, 2, {Body().Raw({0, 64})})
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{53, 57, 57, 15}));
  EXPECT_EQ(Entry(run, 0).Level, 0.0f);
  EXPECT_EQ(Entry(run, 1).Level, 20.25f);
}

TEST(FieldHistory, ListsOfBothTypesKeepTheirOwnCounts) {
  Translation const run(General()
                            .List(21, 6, {Body().Raw({1, 0, 0, 0, 60, 128})})
                            .List(kList, 2, {Body().Raw({60, 1}), Body().Raw({61, 1})})
                            .List(21, 6, {Body().Raw({2, 0, 0, 0, 60, 128})})
                            .EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{21, 57, 57, 21, 15}));
  EXPECT_EQ(run.As<QvTimedSpectrum>(3).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvFieldHistory>(2).RecordIndex, 2u);
}

TEST(FieldHistory, AListOfLengthZeroEndsAtOnceWhereTheBufferIsStillEmpty) {
  // Nothing is read, so what stands first in the buffer decides: zero behind the start.
  Translation const run(
      General().Raw(std::string("\x1B\0\0", 3)).List(kList, 2, {Body().Raw({60, 1})}).EndOfData(),
      {.mostSteps = 9});
  ASSERT_EQ(run.steps.size(), 3u);
  EXPECT_EQ(run.steps[0].status, 0);
  EXPECT_EQ(Difference(RecordImage(500), run.steps[0]), "");
  ASSERT_EQ(run.Codes(), (std::vector<int>{57, 15}));
  EXPECT_EQ(Entry(run, 0).RecordIndex, 1u);
}

TEST(FieldHistory, RaisesNoLatestTime) {
  Translation const run(General().List(kList, 2, {Body().Raw({60, 1})}).EndOfData());
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, 0);
}

}  // namespace
}  // namespace test
