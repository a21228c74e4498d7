// The walk of qvslm_walk.h: what it tells of each record, and how it ends.
//
// A header of the general model is 98 bytes long, one of model 431 in mode iSLM 118, one of model
// 442 with a tag of three characters 117.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "api/walk_in_c.h"
#include "qvslm_walk.h"
#include "support/guarded_buffer.h"
#include "support/open_files.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::GuardedBuffer;
using test::MarkAt;
using test::Model431;
using test::Model442;
using test::TempFile;

constexpr int kSkipped = 9;  // an item that yields no record

// What a walk tells of a record.
struct Told {
  int code;
  int offset;
  int whole;
  unsigned missing = 0;
  int isShort = 0;
  bool operator==(const Told&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Told& told) {
  return out << "{code " << told.code << ", offset " << told.offset << ", whole " << told.whole
             << ", missing " << told.missing << ", short " << told.isShort << "}";
}

using Tale = std::vector<Told>;

// Buffers for walks, full of 0xEE at first.
class Walker {
 public:
  ~Walker() {
    // The library must not remember a context that is gone.
    test::Session const last;
  }

  int Open(const std::string& path, QvRecordCensus* census = nullptr) {
    return QvWalkOpen(&walk_, path.c_str(), context_.Data(), record_.Data(), census);
  }
  int Next() { return QvWalkNext(&walk_); }
  void Close() const { QvWalkClose(&walk_); }
  const QvWalk& Walk() const { return walk_; }
  const GuardedBuffer& Record() const { return record_; }
  const GuardedBuffer& Context() const { return context_; }
  std::string Why() const { return QvWalkWhy(&walk_); }

  // To the end.
  Tale Tell() {
    Tale tale;
    while (Next() != 0) {
      tale.push_back({walk_.Code, walk_.Offset, walk_.Whole, walk_.Missing, walk_.Short});
      records.emplace_back(record_.Data(), record_.Data() + record_.Size());
      EXPECT_EQ(walk_.Records, tale.size());
    }
    EXPECT_EQ(walk_.Code, QV_NO_RECORD);
    Close();
    return tale;
  }
  Tale Tell(const std::string& bytes) {
    TempFile const file(bytes);
    Open(file.Path());
    return Tell();
  }

  std::vector<std::vector<std::uint8_t>> records;  // those told of

 private:
  QvWalk walk_{};
  GuardedBuffer context_{QV_GetBufferSize(), 0xEE};
  GuardedBuffer record_{QV_OUTPUT_RECORD_SIZE, 0xEE};
};

std::string Long(const DataFile& file) {
  std::string bytes = file.Bytes();
  if (bytes.size() < 2600) bytes.resize(2600, '\0');
  return bytes;
}

// Settings at 98, an item without a record at 106, a level mark at 112, the end at 125.
DataFile Plain() {
  return General()
      .Q(157, "3")
      .Item(kSkipped, Body().Fill(3))
      .Item(5, MarkAt({2024, 6, 21}))
      .EndOfData();
}

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
  long const before = test::OpenFiles();
  walker.Open(file.Path(), &census);
  EXPECT_EQ(test::OpenFiles(), before + 1);
  walker.Next();
  walker.Close();
  EXPECT_EQ(test::OpenFiles(), before);
  // What cannot be started is closed at once.
  TempFile const tooShort(General().EndOfData());
  walker.Open(tooShort.Path(), &census);
  EXPECT_EQ(test::OpenFiles(), before);
  // So is what the census could not seek in.
  {
    test::FilledPipe const pipe(Plain().Bytes());
    long const withPipe = test::OpenFiles();
    EXPECT_EQ(walker.Open(pipe.Path(), &census), QV_SEEK_FAILED);
    EXPECT_EQ(walker.Walk().CensusStatus, QV_SEEK_FAILED);
    EXPECT_EQ(test::OpenFiles(), withPipe);
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

void ExpectCut(const Walker& walker, int offset, int code) {
  const QvWalk& walk = walker.Walk();
  EXPECT_EQ(walk.End, QV_WALK_CUT);
  EXPECT_EQ(walk.Whole, 0);
  EXPECT_EQ(walk.CutOffset, offset);
  EXPECT_EQ(walk.CutCode, code);
  EXPECT_FALSE(QvWalkWasWhole(&walk));
  EXPECT_EQ(walker.Why(), "the file ends before the end of its data");
}

// Settings at 0, a level mark at 8, another at 21 (its body at 24) to 34.
std::string TwoMarks(std::size_t size) {
  return DataFile()
      .Q(157, "3")
      .Item(5, MarkAt({2024, 6, 21}))
      .Item(5, MarkAt({2024, 6, 22}))
      .Bytes()
      .substr(0, size);
}

TEST(Walk, EndsWhereTheFileIsCut) {
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
TEST(Walk, KnowsNothingForCertainBehindTheFirstThatIsMissing) {
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

TEST(Walk, DoubtsABlockOfLinesAtTheEnd) {
  Walker walker;
  EXPECT_EQ(walker.Tell("Q157,3\r\n"), (Tale{{QV_SETTINGS, 0, 0, 1}}));
  ExpectCut(walker, 0, QV_SETTINGS);
}

TEST(Walk, EndsInAStream) {
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

TEST(Walk, EndsInAList) {
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
TEST(Walk, InventsNoRecordsOfACutList) {
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

TEST(Walk, StandsStillAtItemsWithoutARecord) {
  for (const char* const tag : {"ISM", "AUD", "VIB"}) {
    Walker walker;
    EXPECT_EQ(walker.Tell(test::Startable(Model442(tag).Item(2, Body().Fill(20)).EndOfData())),
              Tale{});
    ExpectStandsStill(walker, 117);
  }
  // Items 6 of models 431 and 442.
  Walker walker431;
  EXPECT_EQ(walker431.Tell(Long(Model431("iSLM").Item(6, Body().Fill(20)).EndOfData())), Tale{});
  ExpectStandsStill(walker431, 118);
  // A tally without its kind.
  Walker tally;
  EXPECT_EQ(tally.Tell(test::Startable(Model442("TAL").Item(2, Body()).EndOfData())), Tale{});
  ExpectStandsStill(tally, 117);
}

TEST(Walk, StandsStillAtBlocksWithoutLength) {
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
TEST(Walk, IsCutInAnItemWithoutARecord) {
  std::string bytes = Model431("iSLM").Item(kSkipped, Body().Fill(1000)).Bytes();  // 118 to 1121
  bytes += DataFile().Item(6, Body().Fill(20)).Bytes().substr(0, 10);
  Walker walker;
  EXPECT_EQ(walker.Tell(bytes), Tale{});
  ExpectCut(walker, 1121, QV_NO_RECORD);
}

TEST(Walk, CannotPassAnItemThatIsTooLong) {
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
TEST(Walk, TellsOfAFileThatIsGone) {
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
TEST(Walk, LacksALevelOffsetOfModel431) {
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
TEST(Walk, DoesNotWalkWithAnUncertainLevelOffset) {
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

TEST(Walk, IsTheSameInC) {
  TempFile const whole(Long(Plain()));
  WalkInCResult const all = WalkInC(whole.CPath());
  EXPECT_EQ(all.Whole, 3U);
  EXPECT_EQ(all.Others, 0U);
  EXPECT_EQ(all.LevelOfMarks, 65.5);
  EXPECT_EQ(all.WasWhole, 1);
  EXPECT_EQ(all.Walk.End, QV_WALK_AT_END);
  EXPECT_STREQ(all.Why, "the end of the data was reached");
  TempFile const cut(TwoMarks(30));
  WalkInCResult const part = WalkInC(cut.CPath());
  EXPECT_EQ(part.Whole, 2U);
  EXPECT_EQ(part.Others, 1U);
  EXPECT_EQ(part.LevelOfMarks, 65.5);
  EXPECT_EQ(part.WasWhole, 0);
  EXPECT_EQ(part.Walk.End, QV_WALK_CUT);
  EXPECT_EQ(part.Walk.CensusStatus, QV_BAD_LENGTH);
  EXPECT_STREQ(part.Why, "the file ends before the end of its data");
  WalkInCResult const none = WalkInC("/no such file");
  EXPECT_EQ(none.Whole + none.Others, 0U);
  EXPECT_EQ(none.Walk.End, QV_WALK_NOT_STARTED);
  EXPECT_STREQ(none.Why, "the file cannot be opened");
}

}  // namespace
