// How the census goes through a file: streams and lists to their end, what ends it, and what it
// returns.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/census.h"
#include "support/guarded_buffer.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Count;
using test::ExpectCensus;
using test::General;
using test::Model431;
using test::Model442;

// Every entry form of the stream: its entries, and that the item behind it is found.
TEST(CensusStream, EntryForms) {
  struct {
    const char* what;
    const char* wholeDb;
    const char* secondKind;
    Body stream;  // with its end
    std::uint32_t entries;
  } const rows[] = {
      {"empty", "0", "0", Body().U8(0), 0},
      {"one byte", "1", "0", Body().Raw({60, 127, 1, 0}), 3},
      {"one byte, up to the block's end", "1", "0", Body().Fill(499, 60).U8(0), 499},
      {"one byte, end in the next block", "1", "0", Body().Fill(500, 60).U8(0), 500},
      {"one byte, many blocks", "1", "0", Body().Fill(12345, 60).U8(0), 12345},
      {"two bytes", "0", "0", Body().Raw({60, 0, 61, 5, 62, 0, 0}), 3},
      {"two bytes, up to the block's end", "0", "0", Body().Fill(500, 60).U8(0), 250},
      {"two levels of one byte", "1", "1", Body().Raw({60, 0, 61, 5, 62, 0, 0}), 3},
      {"two levels of two bytes", "0", "1", Body().Raw({60, 0, 0, 0, 61, 1, 1, 1, 0}), 2},
      {"two levels of two bytes, many blocks", "0", "3", Body().Fill(4000, 60).U8(0), 1000},
      {"marker of one byte", "1", "0", Body().Raw({60, 0x80, 0xFF, 61, 0}), 4},
      {"marker of two bytes", "0", "0", Body().Raw({0x80, 1, 60, 0, 0}), 2},
      {"marker of two bytes, the second above 127", "0", "0", Body().Raw({0x80, 0x90, 60, 0, 0}),
       2},
      {"marker with a detail", "1", "2", Body().Raw({0xC0, 60, 61, 62, 0}), 2},
      {"marker of four bytes", "0", "2", Body().Raw({0xC0, 0, 0, 1, 60, 0, 0, 0, 0}), 2},
      // The last byte of a marker decides: 0 closes the stream, and it is no entry.
      {"closed on a marker of two bytes", "0", "0", Body().Raw({60, 0, 0xC0, 0}), 1},
      {"closed on a marker with a detail", "1", "2", Body().Raw({60, 0, 0xC0, 0}), 1},
      {"closed on a marker of four bytes", "0", "2", Body().Raw({60, 0, 5, 5, 0xC0, 9, 9, 0}), 1},
      {"closed on a marker at once", "0", "0", Body().Raw({0xC0, 0}), 0},
      {"whole decibels by any value", "7", "0", Body().Raw({60, 61, 0}), 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    auto const rest = DataFile().Item(5, Body().Fill(10)).EndOfData().Bytes();
    for (const auto& [head, type] :
         {std::pair{General(), 6}, std::pair{Model431("ENV "), 7}, std::pair{Model442("LOG"), 7}}) {
      DataFile file = head;
      file.Q(81, row.wholeDb)
          .Q(82, row.secondKind)
          .Raw(Body().U8(type).Raw(row.stream.Bytes()).Bytes())
          .Raw(rest);
      ExpectCensus(file, {{48, 1}, {56, row.entries}, {0, 1}});
    }
  }
}

// Markers of runs, samples below 0 decibels: the census does not care.
TEST(CensusStream, LevelsDoNotMatter) {
  ExpectCensus(General()
                   .Q(81, "1")
                   .Q(227, "-100")
                   .Stream(6, Body().Fill(130, 36).Fill(120, 0xC0).Fill(10, 60))
                   .EndOfData(),
               {{48, 1}, {56, 260}});
}

// The settings in force count, those of setups included.
TEST(CensusStream, BySetup) {
  auto const setup = [](int position47) {
    return Body().PadTo(219).Set(39, {2}).Set(47, {position47});
  };
  ExpectCensus(Model442("LOG")
                   .Item('M', setup(0x04))
                   .Stream(7, Body().Raw({60, 61}))
                   .Item('M', setup(0x00))
                   .Stream(7, Body().Raw({60, 61}))
                   .EndOfData(),
               {{96, 2}, {56, 3}});
}

TEST(CensusList, BlocksUpToAZero) {
  // Zeros within a block end nothing; the length is that of the list.
  auto const block = Body().Raw({1, 0, 0, 0});
  ExpectCensus(General()
                   .List(21, 4, {block, block, block})
                   .Item(5, Body().Fill(10))
                   .List(27, 255, {Body().Fill(255, 9), Body().Fill(255, 0xFF)})
                   .Item(5, Body().Fill(10))
                   .EndOfData(),
               {{56, 5}, {0, 2}});
}

TEST(CensusList, EmptyListIsPassed) {
  ExpectCensus(General().List(21, 4, {}).List(27, 1, {}).Item(5, Body()).EndOfData(), {{0, 1}});
}

// Model 431 reads a second block behind each results block, with the parser of the general models.
TEST(CensusModel431, RunsTwoParsersOverResults) {
  auto const mark = Body().Fill(10, 5);
  // Without a second block nothing is passed over.
  ExpectCensus(Model431("OBA ").R(1, "model").R(2, "two").Item(5, mark).EndOfData(),
               {{160, 1}, {0, 1}});
  // The first line of the second block follows a line: all up to its end is passed over, and the
  // block is not counted.
  ExpectCensus(Model431("OBA ")
                   .R(1, "model")
                   .Item(5, mark)
                   .EndLines("one", "two")
                   .R(1, "model")
                   .R(6, "21Jun2024,12:00:00")
                   .Item(4, Body().Fill(13, 5))
                   .EndOfData(),
               {{160, 1}, {44, 1}});
  ExpectCensus(Model431("ENV ")
                   .R(1, "model")
                   .Item(5, mark)
                   .EndLines("one", "two")
                   .R(1, "model")
                   .Item(4, Body().Fill(13, 5))
                   .EndLines("one", "two")
                   .R(1, "model")
                   .Item(4, Body().Fill(13, 5))
                   .EndOfData(),
               {{52, 2}, {44, 2}});
  // A settings block between the two is passed over like anything else.
  ExpectCensus(Model431("OBA ")
                   .R(1, "model")
                   .Q(2, "title")
                   .R(1, "model")
                   .Item(4, Body().Fill(13, 5))
                   .EndOfData(),
               {{160, 1}, {44, 1}});
}

// Other models read one block.
TEST(CensusModel431, AloneRunsTwoParsers) {
  for (const auto& [head, offset] : {std::pair{General(), 160}, std::pair{Model442("SSA"), 160},
                                     std::pair{Model442("TAL"), 52}}) {
    DataFile file = head;
    file.R(1, "model").Item(5, Body().Fill(10, 5)).EndLines("one", "two").R(1, "model").EndOfData();
    ExpectCensus(file, {{offset, 2}, {0, 1}});
  }
}

TEST(CensusEnd, StopsAtTheFirstEndOfData) {
  ExpectCensus(General().Item(5, Body()).EndOfData().Item(5, Body()).EndOfData(), {{0, 1}});
}

TEST(CensusEnd, FileWithoutAnEndOfData) {
  ExpectCensus(General().Item(5, Body().Fill(10)), {{0, 1}}, QV_BAD_LENGTH);
  ExpectCensus(General(), {}, QV_BAD_LENGTH);
}

// The file ends behind a type byte, in a length, in a body, in the lines of a block.
TEST(CensusEnd, FileEndsWithinAnItem) {
  struct {
    const char* what;
    std::string rest;
    std::vector<Count> counts;
  } const rows[] = {
      {"interval without a length", Body().U8(1).Bytes(), {{12, 1}}},
      {"summary without a length", Body().U8(2).Bytes(), {}},
      {"day summary without a length", Body().U8(3).Bytes(), {{8, 1}}},
      {"event without a length", Body().U8(4).Bytes(), {{44, 1}}},
      {"mark without a length", Body().U8(5).Bytes(), {{0, 1}}},
      {"129 without a length", Body().U8(129).Bytes(), {{20, 1}}},
      {"setup without a length", Body().U8('M').Bytes(), {}},
      {"unknown without a length", Body().U8(200).Bytes(), {}},
      {"interval cut", Body().U8(1).U16(25).Fill(10).Bytes(), {{12, 1}}},
      {"summary cut", Body().U8(2).U16(25).Fill(10).Bytes(), {{32, 1}}},
      {"E alone", "E", {}},
      {"results block", "R  1,model", {{160, 1}}},
      {"settings block", "Q  1,model", {{48, 1}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ExpectCensus(General().Raw(row.rest), row.counts, QV_BAD_LENGTH);
  }
}

// A length above 6200 ends the walk. Most items are counted before their length is read, summaries
// and setups behind it.
TEST(CensusEnd, LengthAbove6200) {
  struct {
    int type;
    std::vector<Count> tooLong;
  } const rows[] = {
      {1, {{12, 1}}},   {2, {}},          {3, {{8, 1}}},    {4, {{44, 1}}},   {5, {{0, 1}}},
      {7, {{28, 3}}},   {8, {}},          {9, {}},          {'C', {{64, 1}}}, {'M', {}},
      {'S', {{60, 1}}}, {129, {{20, 1}}}, {130, {{36, 1}}}, {131, {{4, 1}}},  {132, {{24, 1}}},
      {133, {}},        {255, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type);
    ExpectCensus(General().Item(row.type, Body().Fill(6201)).Item(5, Body()).EndOfData(),
                 row.tooLong, QV_BAD_LENGTH);
    test::TempFile const longest(
        General().Item(row.type, Body().Fill(6200)).Item(5, Body()).EndOfData());
    test::Session session;
    EXPECT_EQ(session.Census(longest.Path()), QV_OK);
    EXPECT_EQ(session.Counts().LevelMarks, row.type == 5 ? 2U : 1U);
  }
  // The blocks of an item 8 too.
  ExpectCensus(General()
                   .Item('M', Body().PadTo(219).Set(39, {8}).Set(41, {0x70}))
                   .Item(8, Body().Fill(6201))
                   .EndOfData(),
               {{88, 1}, {28, 3}}, QV_BAD_LENGTH);
}

// An event without its last byte ends the walk; it is counted.
TEST(CensusEnd, ShortEvent) {
  for (std::size_t const length : {0U, 7U, 12U}) {
    ExpectCensus(General().Item(4, Body().Fill(length)).Item(5, Body()).EndOfData(), {{44, 1}},
                 QV_RECORD_TOO_SHORT);
  }
  ExpectCensus(General().Item(4, Body().Fill(13)).Item(5, Body()).EndOfData(), {{44, 1}, {0, 1}});
}

// So does a setup that ends early; in modes without a form only its frame is read.
TEST(CensusEnd, ShortSetup) {
  auto const cut = [](int mode, std::size_t length) {
    std::string const whole = Body().PadTo(219).Set(39, {mode}).Bytes();
    return Body().Raw(std::string_view(whole).substr(0, length));
  };
  struct {
    DataFile head;
    int mode, offset;
    std::size_t enough;
  } const rows[] = {
      {General(), 0, 88, 219},        {Model442("LOG"), 2, 96, 219},
      {Model442("RTA"), 4, 100, 219}, {Model442("AUD"), 6, 108, 42},
      {Model431("OBA "), 0, 68, 186}, {Model431("sSLM"), 1, 72, 186},
      {Model431("ENV "), 3, 76, 186}, {Model431("OBA "), 4, 68, 42},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.offset << " " << row.mode);
    DataFile whole = row.head;
    whole.Item('M', cut(row.mode, row.enough)).Item(5, Body()).EndOfData();
    ExpectCensus(whole, {{row.offset, 1}, {0, 1}});
    DataFile shorter = row.head;
    shorter.Item('M', cut(row.mode, row.enough - 1)).Item(5, Body()).EndOfData();
    ExpectCensus(shorter, {{row.offset, 1}}, QV_RECORD_TOO_SHORT);
  }
}

// The number of a band record that ends before it is without effect.
TEST(CensusEnd, ShortBandsEndNothing) {
  for (int const type : {129, 130, 131, 132}) {
    test::TempFile const stored(
        General().Item(type, Body()).Item(type, Body().U8(1)).Item(5, Body()).EndOfData());
    test::Session session;
    EXPECT_EQ(session.Census(stored.Path()), QV_OK) << type;
    EXPECT_EQ(session.Counts().LevelMarks, 1U) << type;
  }
}

// Items that the walk cannot get past end it: nothing goes on for ever.
TEST(CensusEnd, ItemSixOfTheTwoModels) {
  for (const DataFile& head : {Model431("OBA "), Model431("ENV "), Model442("SSA")}) {
    DataFile file = head;
    file.Item(5, Body()).Item(6, Body().Fill(10)).Item(5, Body()).EndOfData();
    ExpectCensus(file, {{0, 1}}, QV_BAD_LENGTH);
  }
}

TEST(CensusEnd, StreamWithoutAnEnd) {
  for (std::size_t const samples : {0U, 1U, 2U, 499U, 500U, 501U, 1000U, 12345U}) {
    SCOPED_TRACE(samples);
    test::TempFile const stored(General()
                                    .Item(9, Body().Fill(1000, 60))
                                    .Q(81, "1")
                                    .Raw(Body().U8(6).Fill(samples, 60).Bytes()));
    test::Session session;
    EXPECT_EQ(session.Census(stored.Path()), QV_BAD_LENGTH);
    EXPECT_GE(session.Counts().StreamEntries, samples);
  }
}

TEST(CensusEnd, ListWithoutAnEnd) {
  struct {
    const char* what;
    std::string rest;
    std::uint32_t blocks;
  } const rows[] = {
      {"no length", Body().U8(21).Bytes(), 0},
      {"no block", Body().U8(21).U8(5).Bytes(), 0},
      {"one block", Body().U8(21).U8(5).Fill(5, 7).Bytes(), 1},
      {"two blocks", Body().U8(27).U8(5).Fill(10, 7).Bytes(), 2},
      {"a block cut short", Body().U8(27).U8(5).Fill(7, 7).Bytes(), 2},
      {"blocks of no byte", Body().U8(27).U8(0).Fill(7, 7).Bytes(), 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ExpectCensus(General().Item(9, Body().Fill(300, 7)).Raw(row.rest), {{56, row.blocks}},
                 QV_BAD_LENGTH);
  }
}

TEST(CensusStatus, FileThatCannotBeOpened) {
  test::Session session;
  EXPECT_EQ(session.Census("/no/such/file.dat"), QV_CANNOT_OPEN);
  EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({}));
  QvRecordCensus census;
  EXPECT_EQ(QV_GetRecordCount(nullptr, session.Context(), &census, session.Record()),
            QV_CANNOT_OPEN);
}

TEST(CensusStatus, NullArguments) {
  test::Session session;
  test::TempFile const stored(General().Item(5, Body()).EndOfData());
  QvRecordCensus census;
  std::memset(&census, 0x5A, sizeof census);
  QvRecordCensus const untouched = census;
  EXPECT_EQ(QV_GetRecordCount(stored.CPath(), nullptr, &census, session.Record()), QV_NO_ARGUMENT);
  EXPECT_EQ(QV_GetRecordCount(stored.CPath(), session.Context(), nullptr, session.Record()),
            QV_NO_ARGUMENT);
  EXPECT_EQ(QV_GetRecordCount(stored.CPath(), session.Context(), &census, nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(test::AsArray(census), test::AsArray(untouched));
}

TEST(CensusStatus, FileWithoutAHeader) {
  ExpectCensus(DataFile(), {}, QV_SEEK_FAILED);
  ExpectCensus(DataFile().Line("no data file"), {}, QV_SEEK_FAILED);
}

// The counts begin anew with each call.
TEST(CensusStatus, CountsBeginAnew) {
  test::TempFile const stored(
      General().Q(157, "1").Item(5, Body()).Stream(6, Body().Raw({60, 0})).EndOfData());
  test::Session session;
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(session.Census(stored.Path()), QV_OK);
    EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({{0, 1}, {48, 1}, {56, 1}}));
  }
  EXPECT_EQ(session.Census("/no/such/file.dat"), QV_CANNOT_OPEN);
  EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({}));
}

// Nor does a context keep the model and the settings of the file that it was used for before.
TEST(CensusStatus, ForgetsTheFileBefore) {
  test::TempFile const before(Model442("TAL").Q(81, "1").Item(2, Body()).EndOfData());
  test::TempFile const stored(
      DataFile().Q(157, "1").Item(2, Body()).Stream(6, Body().Raw({60, 0, 61, 0})).EndOfData());
  test::Session session;
  EXPECT_EQ(session.Census(before.Path()), QV_OK);
  EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({{48, 1}, {140, 1}}));
  // A summary of a general model, and two samples of two bytes.
  EXPECT_EQ(session.Census(stored.Path()), QV_OK);
  EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({{32, 1}, {48, 1}, {56, 2}}));
}

// A census in the middle of a walk that was left: the stream in progress is forgotten.
TEST(CensusStatus, BehindAnUnfinishedTranslation) {
  test::TempFile const stored(test::Startable(
      General().Stream(6, Body().Fill(300, 60)).Item(5, Body().Fill(10)).EndOfData()));
  test::Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  ASSERT_EQ(session.Next(), QV_OK);
  ASSERT_EQ(session.Code(), QV_TIME_HISTORY);
  EXPECT_EQ(session.Census(stored.Path()), QV_OK);
  EXPECT_EQ(test::AsArray(session.Counts()), test::CountsOf({{0, 1}, {56, 150}}));
}

}  // namespace
