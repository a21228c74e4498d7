// The census: each of its counts, in each model and mode.
#include "support/census.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/stamped_items.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::ExpectCensus;
using test::General;
using test::Model431;
using test::Model442;
using test::Translation;

struct Head {
  const char* name;
  DataFile file;
};
const std::vector<Head>& Heads() {
  static const std::vector<Head> heads = {
      {"general", General()},
      {"general, another number", DataFile().Header({.Model = 480})},
      {"431 mode 0", Model431("OBA ")},
      {"431 mode 1", Model431("sSLM")},
      {"431 mode 2", Model431("iSLM")},
      {"431 mode 3", Model431("ENV ")},
      {"442 mode 0", Model442("SSA")},
      {"442 mode 1", Model442("ISM")},
      {"442 mode 2", Model442("LOG")},
      {"442 mode 3", Model442("ENV")},
      {"442 mode 4", Model442("RTA")},
      {"442 mode 5", Model442("FFT")},
      {"442 mode 6", Model442("AUD")},
      {"442 mode 7", Model442("TAL")},
      {"442 mode 8", Model442("VIB")},
  };
  return heads;
}
constexpr std::size_t kFirst431 = 2;
constexpr std::size_t kFirst442 = 6;

// For each of these heads the offset of the count that an item goes to; kNowhere for none.
using Places = std::array<int, 15>;
constexpr int kNowhere = -1;

Places Everywhere(int offset) {
  Places places{};
  places.fill(offset);
  return places;
}

void ExpectAt(const Head& head, const DataFile& items, int offset, std::uint32_t count) {
  SCOPED_TRACE(head.name);
  DataFile file = head.file;
  file.Raw(items.Bytes()).EndOfData();
  if (offset == kNowhere) {
    ExpectCensus(file, {});
  } else {
    ExpectCensus(file, {{offset, count}});
  }
}

void ExpectPlaces(const DataFile& items, const Places& places, std::uint32_t count) {
  for (std::size_t i = 0; i < places.size(); ++i) ExpectAt(Heads()[i], items, places[i], count);
}

TEST(Census, NothingButTheEnd) {
  ExpectPlaces(DataFile(), Everywhere(kNowhere), 0);
}

TEST(Census, ItemsCountedAlikeEverywhere) {
  struct {
    const char* what;
    int type;
    Body body;
    int offset;
  } const rows[] = {
      {"level mark", 5, Body().Fill(10), 0},   {"day summary", 3, Body().Fill(90), 8},
      {"129", 129, Body().Fill(211), 20},      {"130", 130, Body().Fill(211), 36},
      {"131", 131, Body().Fill(71), 4},        {"132", 132, Body().Fill(71), 24},
      {"empty 131", 131, Body(), 4},           {"short 132", 132, Body().U8(1), 24},
      {"reference", 'C', Body().Fill(44), 64}, {"site", 'S', Body().Fill(44), 60},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ExpectPlaces(DataFile().Item(row.type, row.body).Item(row.type, row.body),
                 Everywhere(row.offset), 2);
  }
}

TEST(Census, ItemsThatAreNotCounted) {
  ExpectPlaces(DataFile().EndLines("one", "two"), Everywhere(kNowhere), 0);
  for (int const type : {9, 10, 20, 22, 26, 28, 66, 68, 76, 78, 80, 84, 128, 133, 200, 255}) {
    SCOPED_TRACE(type);
    ExpectPlaces(DataFile().Item(type, Body().Fill(6200, 5)).Item(type, Body()),
                 Everywhere(kNowhere), 0);
  }
}

TEST(Census, Intervals) {
  Places places = Everywhere(12);
  places[10] = 16;  // mode 4
  ExpectPlaces(DataFile().Item(1, Body().Fill(25)).Item(1, Body()), places, 2);
}

TEST(Census, Summaries) {
  ExpectPlaces(DataFile().Item(2, Body().Fill(27)).Item(2, Body()),
               {32, 32, 80, 84, 32, 32, 120, kNowhere, 32, 32, 156, 144, kNowhere, 140, kNowhere},
               2);
}

TEST(Census, Events) {
  Places places = Everywhere(44);
  places[6] = 132;   // model 442 in mode 0
  places[11] = 148;  // mode 5
  ExpectPlaces(DataFile().Item(4, Body().Fill(13)).Item(4, Body().Fill(14)), places, 2);
}

constexpr Places kSetups = {88, 88, 68, 72, 76, 76, 88, 92, 96, 96, 100, 104, 108, 112, 116};

TEST(Census, Setups) {
  ExpectPlaces(DataFile().Item('M', Body().Fill(219)).Item('M', Body().Fill(219)), kSetups, 2);
}

// The mode of the file says where a setup is counted, not the one that stands in the setup.
TEST(Census, SetupsOfAnotherMode) {
  for (int const mode : {1, 2, 3, 4, 5, 6, 7, 8, 255}) {
    SCOPED_TRACE(mode);
    ExpectPlaces(DataFile().Item('M', Body().PadTo(219).Set(39, {mode})), kSetups, 1);
  }
}

TEST(Census, ResultsBlocks) {
  ExpectPlaces(DataFile().R(1, "model").R(6, "21Jun2024,12:00:00").EndLines("1", "2"),
               {160, 160, 160, 52, 52, 52, 160, 52, 52, 52, 52, 52, 52, 52, 52}, 1);
}

TEST(Census, SettingsBlocks) {
  ExpectPlaces(DataFile().Q(2, "title").Q(157, "1").EndLines("1", "2").Q(2, "title"),
               Everywhere(48), 2);
}

// A settings block behind another kind of block begins where that ended.
TEST(Census, BlocksInARow) {
  ExpectCensus(General()
                   .Q(2, "title")
                   .R(1, "model")
                   .Q(2, "title")
                   .R(1, "model")
                   .R(6, "21Jun2024,12:00:00")
                   .EndOfData(),
               {{48, 2}, {160, 2}});
}

// Entries of sample streams: samples and markers, item 6 or 7 by the model.
TEST(Census, StreamEntries) {
  auto const entries = Body().Raw({60, 1, 61, 1, 0x80, 1, 0xFF, 0xFF, 62, 255});
  for (std::size_t i = 0; i < Heads().size(); ++i) {
    int const type = i < kFirst431 ? 6 : 7;
    ExpectAt(Heads()[i], DataFile().Stream(type, entries).Stream(type, Body().Raw({60, 0})), 56, 6);
  }
}

TEST(Census, ListBlocks) {
  Places places = Everywhere(56);
  places[6] = 124;   // model 442 in mode 0
  places[10] = 152;  // in mode 4
  places[13] = 136;  // in mode 7
  for (int const type : {21, 27}) {
    ExpectPlaces(DataFile()
                     .List(type, 5, {Body().U8(1), Body().U8(0x80), Body().U8(255)})
                     .List(type, 1, {})
                     .List(type, 1, {Body().U8(7)}),
                 places, 4);
  }
}

// An item 7 of general models has three blocks.
TEST(Census, BlockImagesOfItem7) {
  for (std::size_t i = 0; i < kFirst431; ++i) {
    ExpectAt(Heads()[i], DataFile().Item(7, Body().Fill(5120)).Item(7, Body()), 28, 6);
  }
}

// The blocks of an item 8 are counted by the flags of the last setup, whatever its body holds.
TEST(Census, BlockImagesOfItem8) {
  struct {
    int flags;
    std::uint32_t blocks;
  } constexpr kRows[] = {{0x00, 0}, {0x10, 1}, {0x20, 1}, {0x40, 1}, {0x30, 2},
                         {0x50, 2}, {0x60, 2}, {0x70, 3}, {0xFF, 3}, {0x8F, 0}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.flags);
    for (std::size_t i = 0; i < Heads().size(); ++i) {
      SCOPED_TRACE(Heads()[i].name);
      DataFile file = Heads()[i].file;
      file.Item(8, Body().Fill(6144))  // no setup yet: no flags
          .Item('M', Body().PadTo(219).Set(39, {255}).Set(41, {row.flags}))
          .Item(8, Body().Fill(6144))
          .Item(8, Body())
          .EndOfData();
      int const place = i == kFirst442 ? 128 : 28;
      ExpectCensus(file, {{kSetups[i], 1}, {place, 2 * row.blocks}});
    }
  }
}

// Every setup replaces the flags of the one before.
TEST(Census, BlockImagesByTheLastSetup) {
  auto const setup = [](int flags) { return Body().PadTo(219).Set(41, {flags}); };
  ExpectCensus(Model442("LOG")
                   .Item('M', setup(0x70))
                   .Item(8, Body())
                   .Item('M', setup(0x20))
                   .Item(8, Body())
                   .EndOfData(),
               {{96, 2}, {28, 4}});
}

// Everything at once: each item of a file finds its own count.
TEST(Census, MixedFile) {
  ExpectCensus(General()
                   .Q(157, "1")
                   .Item(4, Body().Fill(13))
                   .Item(5, Body().Fill(10))
                   .Item(131, Body().Fill(71))
                   .Item(1, Body().Fill(25))
                   .Item(1, Body().Fill(25))
                   .Item(129, Body().Fill(211))
                   .Item(132, Body().Fill(71))
                   .Item(2, Body().Fill(27))
                   .Item(130, Body().Fill(211))
                   .Item(3, Body().Fill(90))
                   .Stream(6, Body().Raw({60, 0, 61, 0}))
                   .List(27, 3, {Body().U8(1)})
                   .Item(7, Body().Fill(100))
                   .Item('C', Body().Fill(20))
                   .Item('S', Body().Fill(20))
                   .Item('M', Body().Fill(219))
                   .Item(9, Body().Fill(20))
                   .R(1, "model")
                   .EndLines("1", "2")
                   .EndOfData(),
               {{0, 1},
                {4, 1},
                {8, 1},
                {12, 2},
                {20, 1},
                {24, 1},
                {28, 3},
                {32, 1},
                {36, 1},
                {44, 1},
                {48, 1},
                {56, 3},
                {60, 1},
                {64, 1},
                {88, 1},
                {160, 1}});
}

// A file in the settings form is counted from its first 'Q' line on, as model 486.
TEST(Census, SettingsForm) {
  auto const items = DataFile().Q(157, "1").Item(4, Body().Fill(13)).Item(2, Body()).EndOfData();
  ExpectCensus(items, {{48, 1}, {44, 1}, {32, 1}});
  ExpectCensus(DataFile().Titles("one", "two", "three").Raw(items.Bytes()),
               {{48, 1}, {44, 1}, {32, 1}});
  ExpectCensus(
      DataFile().Titles("one", "two", "three").Raw(Model442("TAL").Bytes()).Raw(items.Bytes()),
      {{48, 1}, {44, 1}, {140, 1}});
}

// The counts of a well-formed file are the records that its translation delivers.
TEST(Census, AgreesWithTheTranslation) {
  DataFile file = General();
  file.Q(81, "1").Q(82, "0");
  for (int i = 0; i < 3; ++i) file.Item(4, test::EventAt({2024, 6, 21, i}, 64));
  for (int i = 0; i < 4; ++i) file.Item(5, test::MarkAt({2024, 6, 21, i}));
  for (int i = 0; i < 5; ++i) file.Item(1, test::IntervalAt({2024, 6, 21, i}));
  for (int i = 0; i < 6; ++i) file.Item(2, test::SummaryAt({2024, 6, 21, i}));
  file.Item(131, Body().U16(1).PadTo(71)).Item(129, Body().U16(1).PadTo(211));
  file.Stream(6, Body().Fill(1234, 60)).R(1, "model").EndOfData();
  Translation const run(file, {.census = true});
  EXPECT_EQ(run.census, QV_OK);
  EXPECT_EQ(run.counts.Events, run.Records(QV_EVENT).size());
  EXPECT_EQ(run.counts.LevelMarks, run.Records(QV_LEVEL_MARK).size());
  EXPECT_EQ(run.counts.Intervals, run.Records(QV_INTERVAL).size());
  EXPECT_EQ(run.counts.Summaries, run.Records(QV_SUMMARY).size());
  EXPECT_EQ(run.counts.LevelMarkBands, run.Records(QV_LEVEL_MARK_BANDS).size());
  EXPECT_EQ(run.counts.IntervalBands, run.Records(QV_INTERVAL_BANDS).size());
  EXPECT_EQ(run.counts.SettingsBlocks, run.Records(QV_SETTINGS).size());
  EXPECT_EQ(run.counts.ResultsBlocksMode0, run.Records(QV_RESULTS).size());
  std::uint32_t entries = 0;
  for (std::size_t i = 0; i < run.Records(QV_TIME_HISTORY).size(); ++i) {
    entries += run.As<QvTimeHistory>(i, QV_TIME_HISTORY).EntryCount;
  }
  EXPECT_EQ(entries, 1234U);
  EXPECT_EQ(run.counts.StreamEntries, 1234U);
}

}  // namespace
