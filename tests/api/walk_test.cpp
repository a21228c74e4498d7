// The walk of qvslm_walk.h: what it tells of each record, what it does with its buffers, and what it
// cannot start.
//
// A header of the general model is 98 bytes long.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support/open_files.h"
#include "support/walker.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

TEST(Walk, GoesToTheEndOfTheData) {
  Walker walker;
  EXPECT_EQ(walker.Tell(Long(Plain())),
            (Tale{{QV_SETTINGS, 98, 1}, {QV_LEVEL_MARK, 112, 1}, {QV_END, 125, 1}}));
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_AT_END);
  EXPECT_EQ(walk.Status, QV_END_OF_DATA);
  EXPECT_EQ(walk.CensusStatus, QV_OK);
  EXPECT_EQ(walk.CutOffset, -1);
  EXPECT_EQ(walk.CutCode, QV_NO_RECORD);
  EXPECT_EQ(walk.Records, 3U);
  EXPECT_EQ(walk.Context, walker.Context().Data());
  EXPECT_EQ(walk.Record, walker.Record().Data());
  EXPECT_TRUE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(), "the end of the data was reached");
}

TEST(Walk, TellsStepByStep) {
  TempFile const file(Long(Plain()));
  Walker walker;
  EXPECT_EQ(walker.Open(file.Path()), QV_OK);
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_GOES_ON);
  EXPECT_EQ(walk.Code, QV_NO_RECORD);
  EXPECT_EQ(walk.Records, 0U);
  EXPECT_EQ(walk.Whole, 1);
  EXPECT_EQ(walker.Why(), "the walk goes on");
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  ASSERT_EQ(walker.Next(), 1);
  EXPECT_EQ(walk.Status, QV_OK);
  EXPECT_EQ(QvFileOffset(walk.Context), 106);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  ASSERT_EQ(walker.Next(), 1);
  ASSERT_EQ(walker.Next(), 1);
  EXPECT_EQ(walk.Code, QV_END);
  EXPECT_EQ(walk.End, QV_WALK_AT_END);
  // It has ended, and stays so.
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(walker.Next(), 0);
    EXPECT_EQ(walk.Code, QV_NO_RECORD);
    EXPECT_EQ(walk.Records, 3U);
    EXPECT_EQ(walk.Offset, 125);
    EXPECT_TRUE(QvWalkWasWhole(&walk));
  }
  walker.Close();
}

TEST(Walk, TakesACensusFirst) {
  TempFile const file(Long(Plain()));
  Walker walker;
  QvRecordCensus census;
  EXPECT_EQ(walker.Open(file.Path(), &census), QV_OK);
  EXPECT_EQ(walker.Walk().CensusStatus, QV_OK);
  EXPECT_EQ(census.LevelMarks, 1U);
  EXPECT_EQ(census.SettingsBlocks, 1U);
  EXPECT_EQ(walker.Tell(), (Tale{{QV_SETTINGS, 98, 1}, {QV_LEVEL_MARK, 112, 1}, {QV_END, 125, 1}}));
}

TEST(Walk, GoesOnWhateverTheCensusSays) {
  TempFile const file(Plain().Bytes().substr(0, 125) + std::string(2600, '\x09'));
  Walker walker;
  QvRecordCensus census;
  EXPECT_EQ(walker.Open(file.Path(), &census), QV_OK);
  EXPECT_EQ(walker.Walk().CensusStatus, QV_BAD_LENGTH);
  Tale const tale = walker.Tell();
  ASSERT_EQ(tale.size(), 2U);
  EXPECT_EQ(tale[1], (Told{QV_LEVEL_MARK, 112, 1}));
}

// What the census leaves in a context is of the whole file: here the flags of a setup behind the
// item 8, which has no blocks before it.
TEST(Walk, ForgetsTheCensus) {
  DataFile const data = Model431("OBA ")
                            .Item(8, Body().Fill(1100, 7))
                            .Item('M', Body().PadTo(186).Set(39, {0}).Set(41, {0x70}))
                            .R(106, "0.0")
                            .EndOfData();
  TempFile const file(Long(data));
  for (bool const counts : {false, true}) {
    Walker walker;
    QvRecordCensus census;
    walker.Open(file.Path(), counts ? &census : nullptr);
    Tale const tale = walker.Tell();
    ASSERT_GE(tale.size(), 2U);
    EXPECT_EQ(tale[0].code, QV_BLOCK_IMAGE);
    EXPECT_EQ(tale[1].code, QV_SETUP_BAND_431);
    QvBlockImage image;
    std::memcpy(&image, walker.records[0].data(), sizeof image);
    EXPECT_EQ(image.BlockFlags, 0) << counts;
  }
}

// The buffers are full of 0xEE before the walk; behind each record they are 0.
TEST(Walk, ClearsTheBuffers) {
  Walker walker;
  walker.Tell(Long(Plain()));
  ASSERT_EQ(walker.records.size(), 3U);
  const std::size_t sizes[] = {sizeof(QvSettings), sizeof(QvLevelMark), sizeof(QvEnd)};
  for (std::size_t at = 0; at < 3; ++at) {
    const std::vector<std::uint8_t>& record = walker.records[at];
    EXPECT_TRUE(std::all_of(record.begin() + static_cast<std::ptrdiff_t>(sizes[at]), record.end(),
                            [](int byte) { return byte == 0; }))
        << at;
  }
  QvEnd end;
  std::memcpy(&end, walker.records[2].data(), sizeof end);
  EXPECT_EQ(end.Title1[0], '\0');
  EXPECT_EQ(end.Title2[0], '\0');
}

// File A leaves a setting and bytes in the buffers; file B has a settings line and a band record
// that are too short to fill their own.
TEST(Walk, LeavesNothingForTheNext) {
  DataFile const first = General()
                             .Q(24, "of file A")
                             .Q(5, "title of A")
                             .Item(kSkipped, Body().Fill(500, 'A'))
                             .EndOfData();
  // Its tail is of lines that have no fifth character either.
  std::string const second = General()
                                 .Line("Q24")
                                 .Item(129, Body().U16(0))
                                 .EndOfData()
                                 .Raw(std::string(2600, '\n'))
                                 .Bytes();
  TempFile const a(Long(first));
  std::string text = second;
  text.erase(text.find("Q24\r") + 3, 1);  // 'Q24' and a line feed: four characters
  TempFile const b(text);
  Walker fresh;
  fresh.Open(b.Path());
  Tale const expected = fresh.Tell();
  ASSERT_EQ(expected.size(), 3U);
  Walker used;
  QvRecordCensus census;
  used.Open(a.Path(), &census);
  used.Tell();
  used.records.clear();
  used.Open(b.Path());
  EXPECT_EQ(used.Tell(), expected);
  ASSERT_EQ(used.records.size(), 3U);
  EXPECT_EQ(used.records[0], fresh.records[0]);
  QvIntervalBands bands;
  std::memcpy(&bands, used.records[1].data(), sizeof bands);
  EXPECT_EQ(bands.BandsA[0], 0.0F);
  EXPECT_EQ(bands.BandsB[0], 0.0F);
  QvEnd end;
  std::memcpy(&end, used.records[2].data(), sizeof end);
  EXPECT_STREQ(end.Title1, "");
  // A walk that stopped half way leaves nothing either.
  used.Open(a.Path());
  used.Next();
  used.Close();
  used.records.clear();
  used.Open(b.Path());
  EXPECT_EQ(used.Tell(), expected);
  EXPECT_EQ(used.records[0], fresh.records[0]);
}

TEST(Walk, ClosesTheFile) {
  TempFile const file(Long(Plain()));
  Walker walker;
  QvRecordCensus census;
  long const before = OpenFiles();
  walker.Open(file.Path(), &census);
  EXPECT_EQ(OpenFiles(), before + 1);
  walker.Next();
  walker.Close();
  EXPECT_EQ(OpenFiles(), before);
  // What cannot be started is closed at once.
  TempFile const tooShort(General().EndOfData());
  walker.Open(tooShort.Path(), &census);
  EXPECT_EQ(OpenFiles(), before);
  // So is what the census could not seek in.
  {
    FilledPipe const pipe(Plain().Bytes());
    long const withPipe = OpenFiles();
    EXPECT_EQ(walker.Open(pipe.Path(), &census), QV_SEEK_FAILED);
    EXPECT_EQ(walker.Walk().CensusStatus, QV_SEEK_FAILED);
    EXPECT_EQ(OpenFiles(), withPipe);
  }
  QvWalk const never{};
  QvWalkClose(&never);
}

TEST(Walk, NeedsItsBuffers) {
  TempFile const file(Long(Plain()));
  Walker walker;
  walker.Open(file.Path());
  QvWalk walk;
  for (bool const context : {false, true}) {
    void* const one = context ? walker.Context().Data() : nullptr;
    void* const other = context ? nullptr : walker.Record().Data();
    EXPECT_EQ(QvWalkOpen(&walk, file.CPath(), one, other, nullptr), QV_NO_ARGUMENT);
    EXPECT_EQ(walk.End, QV_WALK_NOT_STARTED);
    EXPECT_EQ(QvWalkNext(&walk), 0);
    EXPECT_STREQ(QvWalkWhy(&walk), "a buffer is missing");
    QvWalkClose(&walk);
  }
}

void ExpectNotStarted(const std::string& path, int status, const std::string& why) {
  Walker walker;
  QvRecordCensus census;
  EXPECT_EQ(walker.Open(path, &census), status);
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_NOT_STARTED);
  EXPECT_EQ(walk.Status, status);
  EXPECT_EQ(walker.Tell(), Tale{});
  EXPECT_EQ(walk.Records, 0U);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(), why);
}

TEST(Walk, CannotStart) {
  ExpectNotStarted("/no such file", QV_CANNOT_OPEN, "the file cannot be opened");
  TempFile const empty("");
  ExpectNotStarted(empty.Path(), QV_SEEK_FAILED,
                   "the file does not begin like a measurement file, or it cannot be read");
  TempFile const other("no measurement");
  ExpectNotStarted(other.Path(), QV_SEEK_FAILED,
                   "the file does not begin like a measurement file, or it cannot be read");
  TempFile const tooShort(Plain());
  ExpectNotStarted(tooShort.Path(), QV_TAIL_SEEK_FAILED,
                   "the file is shorter than the tail that is looked at first: 2500 bytes, 1000 on "
                   "model 431");
  TempFile const noResults(Model442("LOG").EndOfData());
  ExpectNotStarted(noResults.Path(), QV_NOT_FOUND,
                   "no results block with a level offset (register 106) in this file of model 442: "
                   "the file may be incomplete");
}

TEST(Walk, CannotStartWithoutAPath) {
  Walker walker;
  QvWalk walk;
  EXPECT_EQ(QvWalkOpen(&walk, nullptr, walker.Context().Data(), walker.Record().Data(), nullptr),
            QV_CANNOT_OPEN);
  EXPECT_EQ(QvWalkNext(&walk), 0);
  EXPECT_EQ(walk.End, QV_WALK_NOT_STARTED);
}

TEST(Walk, TellsTheCensusStatusOfWhatCannotBeOpened) {
  Walker walker;
  QvRecordCensus census;
  walker.Open("/no such file", &census);
  EXPECT_EQ(walker.Walk().CensusStatus, QV_CANNOT_OPEN);
}

TEST(Walk, SettingsForm) {
  Walker walker;
  EXPECT_EQ(walker.Tell(DataFile().Q(157, "3").Item(5, MarkAt({2024, 6, 21})).EndOfData().Bytes()),
            (Tale{{QV_SETTINGS, 0, 1}, {QV_LEVEL_MARK, 8, 1}, {QV_END, 21, 1}}));
  EXPECT_TRUE(QvWalkWasWhole(&walker.Walk()));
}

// An event that ends before its last field is whole as the file has it. A level mark does so
// without a word.
TEST(Walk, TellsOfShortItems) {
  Walker walker;
  DataFile const file = DataFile()
                            .Q(157, "3")
                            .Item(4, Body().Fill(4))
                            .Item(5, Body().Fill(4))
                            .Item(5, MarkAt({2024, 6, 21}))
                            .EndOfData();
  EXPECT_EQ(walker.Tell(file.Bytes()), (Tale{{QV_SETTINGS, 0, 1},
                                             {QV_EVENT, 8, 1, 0, 1},
                                             {QV_LEVEL_MARK, 15, 1},
                                             {QV_LEVEL_MARK, 22, 1},
                                             {QV_END, 35, 1}}));
  EXPECT_TRUE(QvWalkWasWhole(&walker.Walk()));
}
}  // namespace
}  // namespace test
