// How the walk of qvslm_walk.h ends, and where and why.
//
// A header of model 431 in mode iSLM is 118 bytes long, one of model 442 with a tag of three
// characters 117.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/walker.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

void ExpectCut(const Walker& walker, int offset, int code) {
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_CUT);
  EXPECT_EQ(walk.Whole, 0);
  EXPECT_EQ(walk.CutOffset, offset);
  EXPECT_EQ(walk.CutCode, code);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(), "the file ends before the end of its data");
}

TEST(WalkEnds, WhereTheFileIsCut) {
  Tale const two{{QV_SETTINGS, 0, 1}, {QV_LEVEL_MARK, 8, 1}};
  {
    Walker walker;
    EXPECT_EQ(walker.Tell(TwoMarks(34)), (Tale{two[0], two[1], {QV_LEVEL_MARK, 21, 1}}));
    ExpectCut(walker, 34, QV_NO_RECORD);
    EXPECT_EQ(walker.Walk().Status, QV_BAD_LENGTH);
    EXPECT_EQ(walker.Walk().Missing, 3U);
    EXPECT_EQ(walker.Walk().Offset, 34);
  }
  for (std::size_t size : {std::size_t{24}, std::size_t{30}, std::size_t{33}}) {
    Walker walker;
    EXPECT_EQ(walker.Tell(TwoMarks(size)),
              (Tale{two[0], two[1], {QV_LEVEL_MARK, 21, 0, static_cast<unsigned>(34 - size)}}));
    ExpectCut(walker, 21, QV_LEVEL_MARK);
    EXPECT_EQ(walker.Walk().Offset, static_cast<int>(size));
  }
  for (std::size_t size : {std::size_t{21}, std::size_t{22}, std::size_t{23}}) {
    Walker walker;
    EXPECT_EQ(walker.Tell(TwoMarks(size)), two);
    ExpectCut(walker, 21, QV_NO_RECORD);
  }
}

// The band record at 8 looks for an interval that is not there; the level mark behind it is, but is
// not whole any more.
TEST(WalkEnds, KnowsNothingForCertainBehindTheFirstThatIsMissing) {
  DataFile const file =
      DataFile().Q(157, "3").Item(129, Body().U16(1).PadTo(211)).Item(5, MarkAt({2024, 6, 21}));
  Walker walker;
  EXPECT_EQ(walker.Tell(file.Bytes()),
            (Tale{{QV_SETTINGS, 0, 1}, {QV_INTERVAL_BANDS, 8, 0, 1}, {QV_LEVEL_MARK, 222, 0}}));
  ExpectCut(walker, 8, QV_INTERVAL_BANDS);
  // With the end of the data there is no such interval, and that is certain.
  Walker again;
  EXPECT_EQ(again.Tell(DataFile(file).EndOfData().Bytes()), (Tale{{QV_SETTINGS, 0, 1},
                                                                  {QV_INTERVAL_BANDS, 8, 1},
                                                                  {QV_LEVEL_MARK, 222, 1},
                                                                  {QV_END, 235, 1}}));
}

TEST(WalkEnds, DoubtsABlockOfLinesAtTheEnd) {
  Walker walker;
  EXPECT_EQ(walker.Tell("Q157,3\r\n"), (Tale{{QV_SETTINGS, 0, 0, 1}}));
  ExpectCut(walker, 0, QV_SETTINGS);
}

TEST(WalkEnds, InAStream) {
  std::string const stream = DataFile()
                                 .Q(81, "1")
                                 .Item(kSkipped, Body().Fill(500, 60))
                                 .Stream(6, Body().Fill(100, 70))
                                 .Bytes();  // the type at 511, entries from 512 on
  Walker between;
  EXPECT_EQ(between.Tell(stream.substr(0, 572)),
            (Tale{{QV_SETTINGS, 0, 1}, {QV_TIME_HISTORY, 511, 1}}));
  ExpectCut(between, 572, QV_TIME_HISTORY);
  Walker within;
  EXPECT_EQ(within.Tell(stream.substr(0, 600)),
            (Tale{{QV_SETTINGS, 0, 1}, {QV_TIME_HISTORY, 511, 1}, {QV_TIME_HISTORY, 572, 0, 32}}));
  ExpectCut(within, 572, QV_TIME_HISTORY);
  Walker whole;
  EXPECT_EQ(whole.Tell(stream + '\0'), (Tale{{QV_SETTINGS, 0, 1},
                                             {QV_TIME_HISTORY, 511, 1},
                                             {QV_TIME_HISTORY, 572, 1},
                                             {QV_END, 613, 1}}));
}

TEST(WalkEnds, InAList) {
  for (int const type : {21, 27}) {
    int const code = type == 21 ? QV_TIMED_SPECTRUM : QV_FIELD_HISTORY;
    Body const block = Body().U8(70).Fill(3, 1);
    // Type and length at 8, blocks at 10 and 14, the 0 at 18.
    std::string const list = DataFile().Q(157, "3").List(type, 4, {block, block}).Bytes();
    Walker between;
    EXPECT_EQ(between.Tell(list.substr(0, 14)), (Tale{{QV_SETTINGS, 0, 1}, {code, 8, 1}}));
    ExpectCut(between, 14, code);
    Walker within;
    EXPECT_EQ(within.Tell(list.substr(0, 16)),
              (Tale{{QV_SETTINGS, 0, 1}, {code, 8, 1}, {code, 14, 0, 2}}));
    ExpectCut(within, 14, code);
    Walker last;
    EXPECT_EQ(last.Tell(list.substr(0, 18)),
              (Tale{{QV_SETTINGS, 0, 1}, {code, 8, 1}, {code, 14, 1}}));
    ExpectCut(last, 18, code);
  }
}

// A list of blocks of one byte whose end is cut off: without the walk it goes on for ever.
TEST(WalkEnds, InventsNoRecordsOfACutList) {
  std::string bytes = DataFile().Q(157, "3").Raw("\x15\x01").Bytes();
  bytes.append(1000, 'x');
  Walker walker;
  Tale const tale = walker.Tell(bytes);
  ASSERT_EQ(tale.size(), 1001U);
  EXPECT_TRUE(std::all_of(tale.begin(), tale.end(), [](const Told& t) { return t.whole == 1; }));
  ExpectCut(walker, 1010, QV_TIMED_SPECTRUM);
}

void ExpectStandsStill(const Walker& walker, int offset) {
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_STANDS_STILL);
  EXPECT_EQ(walk.Offset, offset);
  EXPECT_EQ(walk.Missing, 0U);
  EXPECT_EQ(walk.Whole, 1);
  EXPECT_EQ(walk.CutOffset, -1);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(),
            "the file does not lead on: an item that its mode knows no record for, or a list "
            "without a block length");
}

TEST(WalkEnds, StandsStillAtItemsWithoutARecord) {
  for (const char* const tag : {"ISM", "AUD", "VIB"}) {
    Walker walker;
    EXPECT_EQ(walker.Tell(Startable(Model442(tag).Item(2, Body().Fill(20)).EndOfData())), Tale{});
    ExpectStandsStill(walker, 117);
  }
  // Items 6 of models 431 and 442.
  Walker walker431;
  EXPECT_EQ(walker431.Tell(Long(Model431("iSLM").Item(6, Body().Fill(20)).EndOfData())), Tale{});
  ExpectStandsStill(walker431, 118);
  // A tally without its kind.
  Walker tally;
  EXPECT_EQ(tally.Tell(Startable(Model442("TAL").Item(2, Body()).EndOfData())), Tale{});
  ExpectStandsStill(tally, 117);
}

TEST(WalkEnds, StandsStillAtBlocksWithoutLength) {
  // The item before leaves a byte above 0 in the buffer, which does not end the list.
  DataFile const file = DataFile().Q(157, "3").Item(kSkipped, Body().U8(0x40));
  Walker spectra;
  EXPECT_EQ(spectra.Tell(DataFile(file).Raw(Body().U8(21).U8(0).Bytes()).Bytes()),
            (Tale{{QV_SETTINGS, 0, 1}, {QV_TIMED_SPECTRUM, 12, 1}}));
  ExpectStandsStill(spectra, 14);
  Walker fields;
  EXPECT_EQ(fields.Tell(DataFile(file).Raw(Body().U8(27).U8(0).Bytes()).Bytes()),
            (Tale{{QV_SETTINGS, 0, 1}}));
  ExpectStandsStill(fields, 14);
}

// Such an item is cut: then that is why.
TEST(WalkEnds, IsCutInAnItemWithoutARecord) {
  std::string bytes = Model431("iSLM").Item(kSkipped, Body().Fill(1000)).Bytes();  // 118 to 1121
  bytes += DataFile().Item(6, Body().Fill(20)).Bytes().substr(0, 10);
  Walker walker;
  EXPECT_EQ(walker.Tell(bytes), Tale{});
  ExpectCut(walker, 1121, QV_NO_RECORD);
}

TEST(WalkEnds, CannotPassAnItemThatIsTooLong) {
  std::string const bytes =
      DataFile().Q(157, "3").Item(kSkipped, Body().Fill(6201)).EndOfData().Bytes();
  Walker walker;
  EXPECT_EQ(walker.Tell(bytes), (Tale{{QV_SETTINGS, 0, 1}}));
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_UNREADABLE);
  EXPECT_EQ(walk.Status, QV_BAD_LENGTH);
  EXPECT_EQ(walk.Offset, 8);
  EXPECT_EQ(walk.Whole, 1);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(), "an item is longer than any can be");
}

// The file goes while it is walked: the end record's step would open it anew.
TEST(WalkEnds, TellsOfAFileThatIsGone) {
  TempFile const file(Long(Plain()));
  Walker walker;
  walker.Open(file.Path());
  walker.Next();
  QV_StopTranslate();
  file.Rewrite("");
  EXPECT_EQ(walker.Next(), 0);
  EXPECT_EQ(walker.Walk().End, QV_WALK_CUT);
  EXPECT_EQ(walker.Walk().CutOffset, 106);
}

// Model 431: the reference record at 1021 finds no level offset before the file ends.
TEST(WalkEnds, LacksALevelOffsetOfModel431) {
  DataFile const file =
      Model431("iSLM").Item(kSkipped, Body().Fill(900)).Item('C', Body().Fill(129, 1));
  std::string const why =
      "the file ends before the results block with the level offset (register 106) of this model "
      "431";
  Walker cut;
  EXPECT_EQ(cut.Tell(DataFile(file).Item(5, MarkAt({2024, 6, 21})).Bytes()),
            (Tale{{QV_REFERENCE_431, 1021, 0, 1}, {QV_LEVEL_MARK, 1153, 0}}));
  EXPECT_EQ(cut.Walk().End, QV_WALK_CUT);
  EXPECT_EQ(cut.Walk().CutOffset, 1021);
  EXPECT_EQ(cut.Walk().CutCode, QV_REFERENCE_431);
  EXPECT_EQ(cut.Why(), why);

  Walker whole;
  EXPECT_EQ(whole.Tell(DataFile(file).R(106, "1.5").EndOfData().Bytes()),
            (Tale{{QV_REFERENCE_431, 1021, 1}, {QV_RESULTS_431, 1153, 1}, {QV_END, 1163, 1}}));
  EXPECT_TRUE(QvWalkWasWhole(&whole.Walk()));

  // At the end of the data, and yet not certain.
  Walker never;
  EXPECT_EQ(never.Tell(DataFile(file).EndOfData().Bytes()),
            (Tale{{QV_REFERENCE_431, 1021, 0, 1}, {QV_END, 1153, 0}}));
  EXPECT_EQ(never.Walk().End, QV_WALK_AT_END);
  EXPECT_FALSE(QvWalkWasWhole(&never.Walk()));
  EXPECT_EQ(never.Why(),
            "the end of the data was reached, but records rest on bytes that the file does not "
            "have");
}

// Model 442: started, but the level offset may have had more digits.
TEST(WalkEnds, DoesNotWalkWithAnUncertainLevelOffset) {
  std::string const bytes = Model442("LOG")
                                .Item(5, MarkAt({2024, 6, 21}))
                                .R(1, "Hedrom-Pulke Model 442")
                                .R(106, "1.25")
                                .Bytes();
  Walker walker;
  TempFile const file(bytes.substr(0, bytes.size() - 3));
  EXPECT_EQ(walker.Open(file.Path()), QV_OK);
  EXPECT_EQ(walker.Walk().End, QV_WALK_CUT);
  EXPECT_EQ(walker.Walk().Whole, 0);
  EXPECT_EQ(walker.Tell(), Tale{});
  EXPECT_EQ(walker.Walk().Missing, 1U);
  EXPECT_EQ(walker.Why(), "the file ends before the end of its data");
  // With its line end it is certain. The block ends with the file and is not.
  Walker whole;
  EXPECT_EQ(whole.Tell(bytes), (Tale{{QV_LEVEL_MARK, 117, 1}, {QV_RESULTS_442, 130, 0, 1}}));
}

}  // namespace
}  // namespace test
