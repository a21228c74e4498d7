// Which record each item yields, by type byte, model and mode, and what the step counts.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "support/steps.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Model431;
using test::Model442;
using test::Step;
using test::TakeSteps;
using test::Translation;

Body Mark(int hour, int number = 1) {
  return Body().U8(0).Date(21, 6, 2024).Time(hour, 0, 0).Level(65.5).U8(number);
}

// 21 June 2024 at the given hour, in UTC.
constexpr int AtHour(int hour) {
  return 1718928000 + 3600 * hour;
}

// An item 1 or 2, whose body begins with its time.
Body Stamped(int hour) {
  return Body().Date(21, 6, 2024).Time(hour, 0, 0).PadTo(200);
}

// An item 129 to 132 of the owner with this number.
Body BandsOf(int owner) {
  return Body().U16(owner).PadTo(211);
}

struct Row {
  int model;
  const char* modeTag;
  int type;
  std::size_t bodySize;
  int code;
};

// Every row of the dispatch that takes an item framed by a length. The bodies are zeros: all begin
// with a date, a number or flags, and a setup of zeros is one of mode 0.
constexpr Row kFramedItems[] = {
    {486, "", 1, 200, 1},        {486, "", 2, 600, 2},       {486, "", 3, 800, 3},
    {486, "", 4, 13, 4},         {486, "", 5, 10, 5},        {486, "", 7, 5120, 9},
    {486, "", 8, 5120, 9},       {486, "", 67, 65, 50},      {486, "", 77, 219, 51},
    {486, "", 83, 226, 54},      {486, "", 129, 211, 11},    {486, "", 129, 138, 11},
    {486, "", 130, 211, 12},     {486, "", 131, 71, 10},     {486, "", 132, 71, 13},
    {500, "", 2, 600, 2},        {500, "", 7, 5120, 9},      {500, "", 67, 65, 50},
    {500, "", 77, 219, 51},      {500, "", 83, 226, 54},     {431, "OBA ", 1, 200, 1},
    {431, "OBA ", 2, 72, 31},    {431, "sSLM", 2, 38, 32},   {431, "iSLM", 2, 600, 2},
    {431, "ENV ", 2, 600, 2},    {431, "OBA ", 3, 800, 3},   {431, "OBA ", 4, 13, 4},
    {431, "OBA ", 5, 10, 5},     {431, "OBA ", 8, 20, 9},    {431, "OBA ", 67, 129, 30},
    {431, "OBA ", 77, 186, 33},  {431, "OBA ", 83, 226, 36}, {431, "OBA ", 129, 211, 11},
    {431, "OBA ", 130, 211, 12}, {431, "OBA ", 131, 71, 10}, {431, "OBA ", 132, 71, 13},
    {442, "SSA", 1, 200, 1},     {442, "RTA", 1, 400, 1},    {442, "SSA", 2, 2000, 56},
    {442, "LOG", 2, 600, 2},     {442, "ENV", 2, 600, 2},    {442, "RTA", 2, 200, 72},
    {442, "FFT", 2, 813, 69},    {442, "TAL", 2, 145, 66},   {442, "SSA", 3, 800, 3},
    {442, "SSA", 4, 13, 4},      {442, "SSA", 5, 10, 5},     {442, "SSA", 8, 20, 9},
    {442, "SSA", 67, 65, 50},    {442, "SSA", 77, 219, 51},  {442, "SSA", 83, 226, 54},
    {442, "SSA", 129, 211, 11},  {442, "SSA", 130, 211, 12}, {442, "SSA", 131, 71, 10},
    {442, "SSA", 132, 71, 13},
};

DataFile FileOf(int model, const char* modeTag) {
  return DataFile().Header({.Model = model, .ModeTag = modeTag});
}

TEST(Dispatch, FramedItemsYieldTheirRecordAndThenTheNextItemComes) {
  for (const Row& row : kFramedItems) {
    DataFile const file = FileOf(row.model, row.modeTag)
                              .Item(row.type, Body().Fill(row.bodySize))
                              .Item(5, Mark(12, 6))
                              .EndOfData();
    Translation const run(file);
    SCOPED_TRACE(testing::Message()
                 << "model " << row.model << ' ' << row.modeTag << " item " << row.type);
    ASSERT_EQ(run.steps.size(), 3u);
    EXPECT_EQ(run.steps[0].status, QV_OK);
    EXPECT_EQ(run.steps[0].Code(), row.code);
    EXPECT_EQ(run.steps[1].Code(), QV_LEVEL_MARK);
    EXPECT_EQ(Translation::Copy<QvLevelMark>(run.steps[1]).StatusCode, 6);
    EXPECT_EQ(Translation::Copy<QvLevelMark>(run.steps[1]).Model, row.model);
    EXPECT_EQ(run.steps[2].Code(), QV_END);
  }
}

// Mode 4 has a form of item 1 of its own, with the model where the others have the time.
TEST(Dispatch, IntervalsOfTheBandMode) {
  Translation const bands(Model442("RTA").Item(1, Stamped(9).PadTo(400)).EndOfData());
  EXPECT_EQ(bands.As<QvBandInterval>(0).RecordTime, AtHour(9));
  EXPECT_EQ(bands.As<QvBandInterval>(0).Model, 442);
  Translation const plain(Model442("FFT").Item(1, Stamped(9).PadTo(400)).EndOfData());
  EXPECT_EQ(plain.As<QvInterval>(0).RecordTime, AtHour(9));
  EXPECT_EQ(plain.As<QvInterval>(0).Model, 442);
}

TEST(Dispatch, SettingsAndResultsBlocks) {
  struct BlockRow {
    DataFile head;
    int results;
  };
  const BlockRow kRows[] = {
      {General(), QV_RESULTS},
      {FileOf(500, ""), QV_RESULTS},
      {Model431("sSLM"), QV_RESULTS_431},
      {Model442("TAL"), QV_RESULTS_442},
  };
  for (const BlockRow& row : kRows) {
    DataFile const file = DataFile(row.head)
                              .Q(157, "3")
                              .Q(4, "text")
                              .Item(5, Mark(12, 1))
                              .R(7, "01:00:00")
                              .R(13, "1.5")
                              .Item(5, Mark(12, 2))
                              .EndOfData();
    Translation const run(file);
    EXPECT_EQ(run.Codes(), (std::vector<int>{QV_SETTINGS, 5, row.results, 5, 15}));
    EXPECT_EQ(run.end, QV_END_OF_DATA);
    EXPECT_EQ(run.As<QvLevelMark>(1).StatusCode, 1);
    EXPECT_EQ(run.As<QvLevelMark>(3).StatusCode, 2);
    EXPECT_EQ(run.As<QvLevelMark>(3).SiteNumber, 3);
  }
}

TEST(Dispatch, BlocksDirectlyBehindEachOther) {
  Translation const run(General().R(7, "01:00:00").Q(157, "3").R(7, "01:00:00").EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{8, 7, 8, 15}));
}

// Two-byte levels: whole decibels, then a fraction.
TEST(Dispatch, StreamsOfSamples) {
  Body const samples = Body().U8(60).U8(0).U8(61).U8(1).U8(62).U8(2);
  struct StreamRow {
    DataFile head;
    int type;
  };
  const StreamRow kRows[] = {
      {General(), 6},
      {Model431("OBA "), 7},
      {Model442("SSA"), 7},
  };
  for (const StreamRow& row : kRows) {
    Translation const run(
        DataFile(row.head).Stream(row.type, samples).Item(5, Mark(12, 2)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{16, 5, 15})) << row.type;
    EXPECT_EQ(run.steps.size(), 3u);
    EXPECT_EQ(run.As<QvTimeHistory>(0).EntryCount, 3);
    EXPECT_EQ(run.As<QvTimeHistory>(0).FirstLevels[0], 60.0f);
    EXPECT_EQ(run.As<QvLevelMark>(1).StatusCode, 2);
  }
}

TEST(Dispatch, AStreamTakesSeveralSteps) {
  Body samples;
  for (int i = 0; i < 400; ++i) samples.U8(40 + i % 60).U8(0);
  Translation const run(General()
                            .Item(5, Mark(11, 1))
                            .Stream(6, samples)
                            .Item(5, Mark(12, 2))
                            .Stream(6, Body())
                            .Stream(6, Body().U8(70).U8(1))
                            .EndOfData());
  // Six full records and one of forty samples; an empty stream yields none.
  EXPECT_EQ(run.Codes(), (std::vector<int>{5, 16, 16, 16, 16, 16, 16, 16, 5, 16, 15}));
  ASSERT_EQ(run.steps.size(), 12u);
  EXPECT_EQ(run.steps[9].Code(), QV_NO_RECORD);
  EXPECT_EQ(run.steps[9].status, QV_OK);
  for (std::size_t i = 1; i <= 6; ++i) {
    EXPECT_EQ(run.As<QvTimeHistory>(i).EntryCount, 60);
    EXPECT_EQ(run.As<QvTimeHistory>(i).FirstLevels[59], 99.0f);
  }
  EXPECT_EQ(run.As<QvTimeHistory>(7).EntryCount, 40);
  EXPECT_EQ(run.As<QvTimeHistory>(9).EntryCount, 1);
}

// One step for each block; the list ends at a block that begins with 0, and that 0 is one byte.
TEST(Dispatch, Lists) {
  for (const DataFile& head : {General(), Model431("OBA "), Model442("SSA")}) {
    for (int const type : {21, 27}) {
      int const code = type == 21 ? QV_TIMED_SPECTRUM : QV_FIELD_HISTORY;
      std::vector<Body> const blocks = {Body().U8(60), Body().U8(61), Body().U8(62)};
      Translation const run(DataFile(head).List(type, 40, blocks).Item(5, Mark(12, 2)).EndOfData());
      EXPECT_EQ(run.Codes(), (std::vector<int>{code, code, code, 5, 15})) << type;
      EXPECT_EQ(run.steps.size(), 5u);
      EXPECT_EQ(run.As<QvLevelMark>(3).StatusCode, 2);
    }
  }
}

TEST(Dispatch, BlocksOfAListMayBeAsLongAsOneByteTells) {
  for (int const length : {1, 2, 200, 255}) {
    std::vector<Body> const blocks = {Body().U8(60), Body().U8(61)};
    Translation const run(General().List(27, length, blocks).Item(5, Mark(12, 2)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{57, 57, 5, 15})) << length;
  }
}

TEST(Dispatch, AListWithoutItsLengthByte) {
  for (int const type : {21, 27}) {
    test::TempFile const file(
        General().Item(9, Body().Fill(2600)).Raw(Body().U8(type).Bytes()).Bytes());
    std::vector<Step> const steps = TakeSteps(file.Path(), 3);
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[1].status, QV_BAD_LENGTH);
    EXPECT_EQ(steps[1].Code(), QV_NO_RECORD);
    EXPECT_EQ(steps[2].status, QV_BAD_LENGTH);
  }
}

struct CountRow {
  DataFile head;
  int type;
  std::size_t bodySize;
  std::size_t offset;  // of the sequence field in the record
};

TEST(Dispatch, SequenceNumbersCountFromOne) {
  const CountRow kRows[] = {
      {General(), 1, 200, offsetof(QvInterval, RecordIndex)},
      {Model442("RTA"), 1, 400, offsetof(QvBandInterval, RecordIndex)},
      {General(), 2, 600, offsetof(QvSummary, RecordIndex)},
      {Model431("OBA "), 2, 72, offsetof(QvBands431, RecordIndex)},
      {Model431("sSLM"), 2, 38, offsetof(QvSummary431, RecordIndex)},
      {Model431("ENV "), 2, 600, offsetof(QvSummary, RecordIndex)},
      {Model442("SSA"), 2, 2000, offsetof(QvSpectrumSummary, RecordIndex)},
      {Model442("LOG"), 2, 600, offsetof(QvSummary, RecordIndex)},
      {Model442("RTA"), 2, 200, offsetof(QvBandTable, RecordIndex)},
      {Model442("FFT"), 2, 813, offsetof(QvNarrowTable, RecordIndex)},
      {Model442("TAL"), 2, 145, offsetof(QvTallyLevels, RecordIndex)},
      {General(), 3, 800, offsetof(QvDaySummary, RecordIndex)},
      {General(), 4, 13, offsetof(QvEvent, RecordIndex)},
      {General(), 5, 10, offsetof(QvLevelMark, RecordIndex)},
      {General(), 129, 211, offsetof(QvIntervalBands, RecordIndex)},
      {General(), 130, 211, offsetof(QvSummaryBands, RecordIndex)},
      {General(), 131, 71, offsetof(QvLevelMarkBands, RecordIndex)},
      {General(), 132, 71, offsetof(QvIntervalBandSeries, RecordIndex)},
  };
  for (const CountRow& row : kRows) {
    DataFile file = row.head;
    for (int i = 0; i < 3; ++i) file.Item(row.type, Body().Fill(row.bodySize));
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.steps.size(), 4u) << row.type;
    for (std::size_t i = 0; i < 3; ++i) {
      uint32_t index = 0;
      std::memcpy(&index, run.steps[i].record.data() + row.offset, sizeof index);
      EXPECT_EQ(index, i + 1) << "item " << row.type << " offset " << row.offset;
    }
  }
}

TEST(Dispatch, EachFamilyHasItsOwnCountAndTheBandItemsShareOne) {
  Translation const run(General()
                            .Item(5, Mark(9))
                            .Item(1, Stamped(9))
                            .Item(131, BandsOf(1))
                            .Item(2, Body().Fill(600))
                            .Item(129, BandsOf(1))
                            .Item(5, Mark(10))
                            .Item(130, BandsOf(1))
                            .Item(4, Body().Fill(13))
                            .Item(132, BandsOf(0))
                            .Item(3, Body().Fill(800))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{5, 1, 10, 2, 11, 5, 12, 4, 13, 3, 15}));
  EXPECT_EQ(run.As<QvLevelMark>(0).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvInterval>(1).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvLevelMarkBands>(2).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvSummary>(3).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvIntervalBands>(4).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvLevelMark>(5).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvSummaryBands>(6).RecordIndex, 3u);
  EXPECT_EQ(run.As<QvEvent>(7).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvIntervalBandSeries>(8).RecordIndex, 4u);
  EXPECT_EQ(run.As<QvDaySummary>(9).RecordIndex, 1u);
}

// A tally item without its kind byte has no form, and so no place for the sequence value.
TEST(Dispatch, TallyItems) {
  Body const tally = Body().Date(21, 6, 2024).Time(9, 0, 0).PadTo(145);
  Translation const run(Model442("TAL")
                            .Item(2, Body(tally).Set(12, {0}))
                            .Item(2, Body(tally).Set(12, {1}))
                            .Item(2, Body(tally).Set(12, {2}))
                            .Item(2, Body(tally).Set(12, {255}))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{66, 67, 68, 68, 15}));
  EXPECT_EQ(run.As<QvTallyLevels>(0).RecordIndex, 1u);
  EXPECT_EQ(run.As<QvTallyBands>(1).RecordIndex, 2u);
  EXPECT_EQ(run.As<QvTallyTotals>(2).RecordIndex, 3u);
  EXPECT_EQ(run.As<QvTallyTotals>(3).RecordIndex, 4u);

  std::vector<Step> const steps =
      TakeSteps(Model442("TAL").Item(2, Body().Fill(12)).EndOfData(), 2);
  ASSERT_EQ(steps.size(), 2u);
  for (const Step& step : steps) {
    EXPECT_EQ(step.status, QV_RECORD_TOO_SHORT);
    EXPECT_EQ(step.Code(), QV_NO_RECORD);
    EXPECT_EQ(Translation::Copy<QvTallyLevels>(step).RecordIndex, 0u);
  }
}

// The sequence value counts the items passed, also where an item 130 has looked for its owner among
// the tallies in between.
TEST(Dispatch, TallyItemsAroundALookUp) {
  Body const tally = Body().Date(21, 6, 2024).Time(9, 0, 0).PadTo(145);
  Translation const run(Model442("TAL")
                            .Item(2, tally)
                            .Item(130, BandsOf(1))
                            .Item(2, tally)
                            .Item(2, tally)
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{66, 12, 66, 66, 15}));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(run.As<QvTallyLevels>(i, QV_TALLY_LEVELS).RecordIndex, i + 1);
  }
}

// The look-ups of the band items show where a family's walk begins: at its first item, or behind
// the latest 'Q' block.
TEST(Dispatch, OwnersAreCountedFromTheFirstItemOfTheirFamily) {
  Translation const run(General()
                            .Item(1, Stamped(8))
                            .Item(1, Stamped(9))
                            .Item(2, Stamped(10))
                            .Item(5, Mark(11))
                            .Item(129, BandsOf(1))
                            .Item(130, BandsOf(1))
                            .Item(131, BandsOf(1))
                            .Item(132, BandsOf(1))
                            .EndOfData());
  EXPECT_EQ(run.As<QvIntervalBands>(0, QV_INTERVAL_BANDS).RecordTime, AtHour(8));
  EXPECT_EQ(run.As<QvSummaryBands>(0, QV_SUMMARY_BANDS).RecordTime, AtHour(10));
  EXPECT_EQ(run.As<QvLevelMarkBands>(0, QV_LEVEL_MARK_BANDS).RecordTime, AtHour(11));
  EXPECT_EQ(run.As<QvIntervalBandSeries>(0, QV_INTERVAL_BAND_SERIES).RecordTime, AtHour(9));
}

TEST(Dispatch, ASettingsBlockMovesTheFirstItemOfEachFamilyBehindIt) {
  Translation const run(General()
                            .Item(1, Stamped(1))
                            .Item(2, Stamped(2))
                            .Item(5, Mark(3))
                            .Q(157, "3")
                            .Item(1, Stamped(8))
                            .Item(1, Stamped(9))
                            .Item(2, Stamped(10))
                            .Item(5, Mark(11))
                            .Item(129, BandsOf(1))
                            .Item(130, BandsOf(1))
                            .Item(131, BandsOf(1))
                            .Item(132, BandsOf(1))
                            .EndOfData());
  EXPECT_EQ(run.As<QvIntervalBands>(0, QV_INTERVAL_BANDS).RecordTime, AtHour(8));
  EXPECT_EQ(run.As<QvSummaryBands>(0, QV_SUMMARY_BANDS).RecordTime, AtHour(10));
  EXPECT_EQ(run.As<QvLevelMarkBands>(0, QV_LEVEL_MARK_BANDS).RecordTime, AtHour(11));
  EXPECT_EQ(run.As<QvIntervalBandSeries>(0, QV_INTERVAL_BAND_SERIES).RecordTime, AtHour(9));
  // The counts do not begin anew.
  EXPECT_EQ(run.As<QvInterval>(2, QV_INTERVAL).RecordIndex, 3u);
  EXPECT_EQ(run.As<QvLevelMark>(1, QV_LEVEL_MARK).RecordIndex, 2u);
}

}  // namespace
