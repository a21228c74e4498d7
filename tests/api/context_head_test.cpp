// The head of the context: where the next step begins, how many bytes of the last one the file does
// not have, and the mode of the file.
//
// Most files here are in the settings form, which needs no tail: "Q157,3" and its line end, 8
// bytes.
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::IntervalAt;
using test::MarkAt;
using test::Model431;
using test::Model442;
using test::Session;
using test::Startable;
using test::SummaryAt;
using test::TempFile;

// What a host sees behind the start (without a code) and behind each step.
struct Head {
  int status;
  int code;
  int offset;
  unsigned missing;
  bool operator==(const Head&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Head& head) {
  return out << "{" << head.status << ", " << head.code << ", " << head.offset << ", "
             << head.missing << "}";
}

using Heads = std::vector<Head>;

constexpr int kSkipped = 9;  // an item that yields no record
constexpr Head kSettingsForm{QV_NO_TEXT_HEADER, 0, 0, 0};
constexpr Head kSettings{QV_OK, QV_SETTINGS, 8, 0};

DataFile SettingsForm() {
  return DataFile().Q(157, "3");
}

// Behind the start, and behind so many steps.
Heads HeadsOf(const std::string& bytes, int steps) {
  TempFile const file(bytes);
  Session session;
  auto const head = [&](int status, int code) {
    return Head{status, code, QvFileOffset(session.Context()), QvBytesMissing(session.Context())};
  };
  Heads heads{head(session.Start(file.Path()), QV_NO_RECORD)};
  for (int step = 0; step < steps; ++step) {
    int const status = session.Next();
    heads.push_back(head(status, session.Code()));
  }
  return heads;
}

std::string CutTo(const DataFile& file, std::size_t size) {
  EXPECT_LE(size, file.Size());
  return file.Bytes().substr(0, size);
}

// The heads behind some of the last steps.
Heads LastHeads(const std::string& bytes, int from, int to) {
  Heads const heads = HeadsOf(bytes, to);
  return {heads.begin() + from, heads.end()};
}
Head HeadBehind(const std::string& bytes, int step) {
  return HeadsOf(bytes, step).back();
}

TEST(ContextHead, IsTheFirstTwelveBytes) {
  TempFile const file(Startable(Model442("TAL").Item(kSkipped, Body().Fill(5))));
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  session.Next();
  static_assert(sizeof(QvContextHead) == 12);
  std::int32_t numbers[3];
  std::memcpy(numbers, session.Context(), sizeof numbers);
  EXPECT_EQ(numbers[0], 125);  // a header of 117 bytes, an item of 8
  EXPECT_EQ(numbers[1], 0);
  EXPECT_EQ(numbers[2], 7);
  const std::int32_t written[] = {1234567, -2, 4};
  std::memcpy(session.Context(), written, sizeof written);
  EXPECT_EQ(QvFileOffset(session.Context()), 1234567);
  EXPECT_EQ(QvBytesMissing(session.Context()), 4294967294U);
  EXPECT_EQ(QvMode(session.Context()), 4);
  QvContextHead const head = QvReadHead(session.Context());
  EXPECT_EQ(head.FileOffset, 1234567);
  EXPECT_EQ(head.BytesMissing, 4294967294U);
  EXPECT_EQ(head.Mode, 4);
}

TEST(ContextHead, FollowsWholeItems) {
  DataFile const file =
      SettingsForm().Item(5, MarkAt({2024, 6, 21})).Item(kSkipped, Body().Fill(3)).EndOfData();
  EXPECT_EQ(HeadsOf(file.Bytes(), 5),
            (Heads{kSettingsForm,
                   kSettings,
                   {QV_OK, QV_LEVEL_MARK, 21, 0},
                   {QV_OK, QV_NO_RECORD, 27, 0},
                   {QV_END_OF_DATA, QV_END, 28, 0},
                   // Of the next item the type and the length are missing.
                   {QV_BAD_LENGTH, QV_NO_RECORD, 28, 3}}));
}

// An item that is skipped stands first (8 to 12), so that the block of settings does not end with a
// file that is cut behind it.
DataFile Before() {
  return SettingsForm().Item(kSkipped, Body().U8(1));
}

TEST(ContextHead, CountsWhatAnItemLacks) {
  DataFile const file = Before().Item(5, MarkAt({2024, 6, 21}));  // 12 to 25, the body from 15 on
  auto const cut = [&](std::size_t size) { return HeadBehind(CutTo(file, size), 3); };
  EXPECT_EQ(cut(25), (Head{QV_OK, QV_LEVEL_MARK, 25, 0}));
  EXPECT_EQ(cut(24), (Head{QV_OK, QV_LEVEL_MARK, 24, 1}));
  EXPECT_EQ(cut(20), (Head{QV_OK, QV_LEVEL_MARK, 20, 5}));
  EXPECT_EQ(cut(16), (Head{QV_OK, QV_LEVEL_MARK, 16, 9}));
  EXPECT_EQ(cut(15), (Head{QV_OK, QV_LEVEL_MARK, 15, 10}));
  EXPECT_EQ(cut(14), (Head{QV_BAD_LENGTH, QV_NO_RECORD, 12, 1}));
  EXPECT_EQ(cut(13), (Head{QV_BAD_LENGTH, QV_NO_RECORD, 12, 2}));
  EXPECT_EQ(cut(12), (Head{QV_BAD_LENGTH, QV_NO_RECORD, 12, 3}));
}

TEST(ContextHead, TellsTheNextStepFromTheOneBefore) {
  DataFile const file = Before().Item(5, MarkAt({2024, 6, 21}));
  EXPECT_EQ(LastHeads(CutTo(file, 20), 3, 5), (Heads{{QV_OK, QV_LEVEL_MARK, 20, 5},
                                                     {QV_BAD_LENGTH, QV_NO_RECORD, 20, 3},
                                                     {QV_BAD_LENGTH, QV_NO_RECORD, 20, 3}}));
}

// A missing byte reads as -1: lengths of 0x012C and 0x1838 become 255 and 6143.
TEST(ContextHead, CountsALengthThatIsCut) {
  DataFile const file = Before().Item(kSkipped, Body().Fill(300));
  EXPECT_EQ(HeadBehind(CutTo(file, 14), 3), (Head{QV_OK, QV_NO_RECORD, 14, 256}));
  DataFile const longest = Before().Item(kSkipped, Body().Fill(6200));
  EXPECT_EQ(HeadBehind(CutTo(longest, 14), 3), (Head{QV_OK, QV_NO_RECORD, 14, 6144}));
  EXPECT_EQ(HeadBehind(CutTo(longest, 6214), 3), (Head{QV_OK, QV_NO_RECORD, 6214, 1}));
  EXPECT_EQ(HeadBehind(longest.Bytes(), 3), (Head{QV_OK, QV_NO_RECORD, 6215, 0}));
}

TEST(ContextHead, LacksNothingOfAnItemThatIsTooLong) {
  DataFile const file = Before().Item(kSkipped, Body().Fill(6201));
  Head const tooLong{QV_BAD_LENGTH, QV_NO_RECORD, 12, 0};
  EXPECT_EQ(HeadBehind(file.Bytes(), 3), tooLong);
  EXPECT_EQ(HeadBehind(CutTo(file, 100), 3), tooLong);
  EXPECT_EQ(HeadBehind(CutTo(file, 15), 3), tooLong);
  // Of its length 0x1900 is read as 6399 where the second byte is missing.
  DataFile const longer = Before().Item(kSkipped, Body().Fill(6400));
  EXPECT_EQ(HeadBehind(CutTo(longer, 14), 3), (Head{QV_BAD_LENGTH, QV_NO_RECORD, 12, 1}));
}

// The four forms of entries: whole decibels or two bytes, without or with a second level.
struct EntryForm {
  const char* wholeDb;
  const char* secondKind;
  std::size_t width;
};
constexpr EntryForm kForms[] = {{"1", "0", 1}, {"0", "0", 2}, {"1", "1", 2}, {"0", "1", 4}};

class StreamHeads : public testing::TestWithParam<EntryForm> {
 protected:
  // Two settings (16 bytes), an item whose body of 500 bytes fills the buffer, and the stream.
  DataFile Stream(std::size_t entries, int filled) const {
    const EntryForm& form = GetParam();
    Body levels;
    for (std::size_t at = 0; at < entries * form.width; ++at) levels.U8(60);
    return DataFile()
        .Q(81, form.wholeDb)
        .Q(82, form.secondKind)
        .Item(kSkipped, Body().Fill(500, filled))
        .Stream(6, levels);
  }
  static constexpr std::size_t kStream = 16 + 503;
  static constexpr std::size_t kEntries = kStream + 1;
  static int Int(std::size_t number) { return static_cast<int>(number); }
};

INSTANTIATE_TEST_SUITE_P(Forms, StreamHeads, testing::ValuesIn(kForms), [](const auto& form) {
  return std::string(form.param.wholeDb[0] == '1' ? "WholeDecibels" : "TwoBytes") +
         (form.param.secondKind[0] == '1' ? "Second" : "");
});

TEST_P(StreamHeads, WholeStreams) {
  std::size_t const width = GetParam().width;
  DataFile const file = Stream(61, 0x40).EndOfData();
  int const end = Int(kEntries + 61 * width + 1);
  EXPECT_EQ(LastHeads(file.Bytes(), 3, 5),
            (Heads{{QV_OK, QV_TIME_HISTORY, Int(kEntries + 60 * width), 0},
                   {QV_OK, QV_TIME_HISTORY, end, 0},
                   {QV_END_OF_DATA, QV_END, end + 1, 0}}));
}

// The bytes behind the end of the file are those of the item before: 0x00 there ends the stream.
TEST_P(StreamHeads, CutWhereZerosStoodBefore) {
  std::size_t const width = GetParam().width;
  DataFile const file = Stream(3, 0);
  for (std::size_t came = 0; came <= 3 * width; ++came) {
    SCOPED_TRACE(came);
    std::size_t const used = (came + width - 1) / width * width + 1;  // entries begun, and the 0
    Head const cut{QV_OK, came == 0 ? QV_NO_RECORD : QV_TIME_HISTORY, Int(kEntries + used),
                   static_cast<unsigned>(used - came)};
    EXPECT_EQ(LastHeads(CutTo(file, kEntries + came), 3, 4),
              (Heads{cut, {QV_BAD_LENGTH, QV_NO_RECORD, cut.offset, 3}}));
  }
}

// Where other bytes stood the stream goes on, record by record.
TEST_P(StreamHeads, CutWhereLevelsStoodBefore) {
  std::size_t const width = GetParam().width;
  DataFile const file = Stream(100, 0x40);
  for (std::size_t came : {std::size_t{0}, std::size_t{1}, width, 7 * width + 1, 60 * width - 1}) {
    SCOPED_TRACE(came);
    int const first = Int(kEntries + 60 * width);
    auto const size = static_cast<unsigned>(60 * width);
    EXPECT_EQ(LastHeads(CutTo(file, kEntries + came), 3, 5),
              (Heads{{QV_OK, QV_TIME_HISTORY, first, size - static_cast<unsigned>(came)},
                     {QV_OK, QV_TIME_HISTORY, first + Int(60 * width), size},
                     {QV_OK, QV_TIME_HISTORY, first + Int(120 * width), size}}));
  }
}

TEST_P(StreamHeads, CutBetweenAndWithinLaterRecords) {
  std::size_t const width = GetParam().width;
  DataFile const file = Stream(100, 0);
  int const first = Int(kEntries + 60 * width);
  auto const size = static_cast<unsigned>(60 * width);
  for (std::size_t came : {std::size_t{0}, std::size_t{1}, 5 * width}) {
    SCOPED_TRACE(came);
    EXPECT_EQ(LastHeads(CutTo(file, kEntries + 60 * width + came), 3, 4),
              (Heads{{QV_OK, QV_TIME_HISTORY, first, 0},
                     {QV_OK, QV_TIME_HISTORY, first + Int(60 * width),
                      size - static_cast<unsigned>(came)}}));
  }
}

class ListHeads : public testing::TestWithParam<int> {
 protected:
  // From 8 on: type, length, blocks of four bytes from 10, 14 and 18 on, and a 0 at 22.
  DataFile List() const {
    Body const block = Body().U8(70).Fill(3, 1);
    return SettingsForm().List(GetParam(), 4, {block, block, block});
  }
  int Code() const { return GetParam() == 21 ? QV_TIMED_SPECTRUM : QV_FIELD_HISTORY; }
};

INSTANTIATE_TEST_SUITE_P(Types, ListHeads, testing::Values(21, 27),
                         testing::PrintToStringParamName());

TEST_P(ListHeads, WholeLists) {
  EXPECT_EQ(HeadsOf(List().EndOfData().Bytes(), 5), (Heads{kSettingsForm,
                                                           kSettings,
                                                           {QV_OK, Code(), 14, 0},
                                                           {QV_OK, Code(), 18, 0},
                                                           {QV_OK, Code(), 23, 0},
                                                           {QV_END_OF_DATA, QV_END, 24, 0}}));
}

TEST_P(ListHeads, CutBetweenBlocks) {
  Head const first{QV_OK, Code(), 14, 0};
  EXPECT_EQ(LastHeads(CutTo(List(), 14), 2, 4),
            (Heads{first, {QV_OK, Code(), 18, 4}, {QV_OK, Code(), 22, 4}}));
  EXPECT_EQ(LastHeads(CutTo(List(), 18), 2, 4),
            (Heads{first, {QV_OK, Code(), 18, 0}, {QV_OK, Code(), 22, 4}}));
  // Only the 0 is missing.
  EXPECT_EQ(LastHeads(CutTo(List(), 22), 2, 5),
            (Heads{first, {QV_OK, Code(), 18, 0}, {QV_OK, Code(), 22, 0}, {QV_OK, Code(), 26, 4}}));
}

TEST_P(ListHeads, CutWithinBlocks) {
  EXPECT_EQ(LastHeads(CutTo(List(), 11), 2, 3),
            (Heads{{QV_OK, Code(), 14, 3}, {QV_OK, Code(), 18, 4}}));
  EXPECT_EQ(LastHeads(CutTo(List(), 13), 2, 3),
            (Heads{{QV_OK, Code(), 14, 1}, {QV_OK, Code(), 18, 4}}));
  EXPECT_EQ(LastHeads(CutTo(List(), 16), 2, 4),
            (Heads{{QV_OK, Code(), 14, 0}, {QV_OK, Code(), 18, 2}, {QV_OK, Code(), 22, 4}}));
}

TEST_P(ListHeads, CutBeforeTheBlocks) {
  EXPECT_EQ(HeadBehind(CutTo(List(), 9), 2), (Head{QV_BAD_LENGTH, QV_NO_RECORD, 8, 1}));
  // The first block is what the buffer holds: its 0 ends the list.
  EXPECT_EQ(LastHeads(CutTo(List(), 10), 2, 3),
            (Heads{{QV_OK, Code(), 15, 4}, {QV_BAD_LENGTH, QV_NO_RECORD, 15, 3}}));
}

// Blocks of no length: a list 21 gives empty records, 27 none, and neither moves.
TEST_P(ListHeads, BlocksWithoutLengthDoNotMove) {
  DataFile const file =
      SettingsForm().Item(kSkipped, Body().Fill(1, 0x40)).Raw(Body().U8(GetParam()).U8(0).Bytes());
  int const code = GetParam() == 21 ? QV_TIMED_SPECTRUM : QV_NO_RECORD;
  EXPECT_EQ(LastHeads(file.Bytes(), 3, 5),
            (Heads{{QV_OK, code, 14, 0}, {QV_OK, code, 14, 0}, {QV_OK, code, 14, 0}}));
}

TEST(ContextHead, CountsAnEndLineWithoutAnEnd) {
  DataFile const file = Before().EndLines("nd", "two").EndOfData();  // 12 to 17, 17 to 22
  EXPECT_EQ(HeadBehind(file.Bytes(), 3), (Head{QV_OK, QV_NO_RECORD, 22, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 22), 3), (Head{QV_OK, QV_NO_RECORD, 22, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 21), 3), (Head{QV_OK, QV_NO_RECORD, 21, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 18), 3), (Head{QV_OK, QV_NO_RECORD, 18, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 17), 3), (Head{QV_OK, QV_NO_RECORD, 17, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 14), 3), (Head{QV_OK, QV_NO_RECORD, 14, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 13), 3), (Head{QV_OK, QV_NO_RECORD, 13, 1}));
}

// No more than 80 characters are a line.
TEST(ContextHead, TakesAFullLineForAWholeOne) {
  DataFile const file = Before().EndLines("nd", std::string(90, 'x'));
  EXPECT_EQ(HeadBehind(file.Bytes(), 3), (Head{QV_OK, QV_NO_RECORD, 97, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 97), 3), (Head{QV_OK, QV_NO_RECORD, 97, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 96), 3), (Head{QV_OK, QV_NO_RECORD, 96, 1}));
}

TEST(ContextHead, DoubtsSettingsThatEndWithTheFile) {
  DataFile const file = Before().Q(5, "one").Q(2, "two").EndOfData();  // 12 to 22, 22 to 32
  EXPECT_EQ(HeadBehind(file.Bytes(), 3), (Head{QV_OK, QV_SETTINGS, 32, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 32), 3), (Head{QV_OK, QV_SETTINGS, 32, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 31), 3), (Head{QV_OK, QV_SETTINGS, 31, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 25), 3), (Head{QV_OK, QV_SETTINGS, 25, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 22), 3), (Head{QV_OK, QV_SETTINGS, 22, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 13), 3), (Head{QV_OK, QV_SETTINGS, 13, 1}));
}

TEST(ContextHead, DoubtsResultsThatEndWithTheFile) {
  DataFile const file = Before().R(3, "one").R(10, "two").EndOfData();  // 12 to 22, 22 to 32
  EXPECT_EQ(HeadBehind(file.Bytes(), 3), (Head{QV_OK, QV_RESULTS, 32, 0}));
  EXPECT_EQ(HeadBehind(CutTo(file, 32), 3), (Head{QV_OK, QV_RESULTS, 32, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 31), 3), (Head{QV_OK, QV_RESULTS, 31, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 22), 3), (Head{QV_OK, QV_RESULTS, 22, 1}));
  EXPECT_EQ(HeadBehind(CutTo(file, 13), 3), (Head{QV_OK, QV_RESULTS, 13, 1}));
}

// One settings line is all of the file: it is no text header that ends.
TEST(ContextHead, SettingsAlone) {
  EXPECT_EQ(
      HeadsOf("Q157,3\r\n", 2),
      (Heads{kSettingsForm, {QV_OK, QV_SETTINGS, 8, 1}, {QV_BAD_LENGTH, QV_NO_RECORD, 8, 3}}));
  EXPECT_EQ(HeadsOf("Q157,3", 1), (Heads{kSettingsForm, {QV_OK, QV_SETTINGS, 6, 1}}));
}

// A band record, and the item that owns it.
struct BandForm {
  int type;
  int code;
  int owners;  // type of the owner; its code is the same
  int number;  // that names the owner in the body
  std::size_t body;
  Body owner;
};

class BandHeads : public testing::TestWithParam<BandForm> {
 protected:
  Body Bands() const { return Body().U16(GetParam().number).PadTo(GetParam().body); }
  int BandSize() const { return static_cast<int>(GetParam().body) + 3; }
  int OwnerSize() const { return static_cast<int>(GetParam().owner.Size()) + 3; }
  // The band record at 8, the owner behind it.
  DataFile OwnerBehind() const {
    return SettingsForm().Item(GetParam().type, Bands()).Item(GetParam().owners, GetParam().owner);
  }
  Head Band(int offset, unsigned missing) const {
    return {QV_OK, GetParam().code, offset, missing};
  }
};

INSTANTIATE_TEST_SUITE_P(
    Types, BandHeads,
    testing::Values(BandForm{129, QV_INTERVAL_BANDS, 1, 1, 211, IntervalAt({2024, 6, 21})},
                    BandForm{130, QV_SUMMARY_BANDS, 2, 1, 211, SummaryAt({2024, 6, 21})},
                    BandForm{131, QV_LEVEL_MARK_BANDS, 5, 1, 71, MarkAt({2024, 6, 21})},
                    BandForm{132, QV_INTERVAL_BAND_SERIES, 1, 0, 71, IntervalAt({2024, 6, 21})}),
    [](const auto& form) { return "Item" + std::to_string(form.param.type); });

TEST_P(BandHeads, OwnerBefore) {
  DataFile const file =
      SettingsForm().Item(GetParam().owners, GetParam().owner).Item(GetParam().type, Bands());
  int const owner = 8 + OwnerSize();
  int const end = owner + BandSize();
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 3),
            (Heads{{QV_OK, GetParam().owners, owner, 0}, Band(end, 0)}));
  // Its own body cut: the owner is there all the same.
  EXPECT_EQ(HeadBehind(CutTo(file, file.Size() - 7), 3), Band(end - 7, 7));
}

TEST_P(BandHeads, OwnerBehind) {
  int const band = 8 + BandSize();
  EXPECT_EQ(LastHeads(OwnerBehind().Bytes(), 2, 3),
            (Heads{Band(band, 0), {QV_OK, GetParam().owners, band + OwnerSize(), 0}}));
}

TEST_P(BandHeads, OwnerCut) {
  DataFile const file = OwnerBehind();
  int const band = 8 + BandSize();
  for (std::size_t size = static_cast<std::size_t>(band); size < file.Size(); ++size) {
    EXPECT_EQ(HeadBehind(CutTo(file, size), 2), Band(band, 1)) << size;
  }
  // Its own body cut, and so what is behind it.
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) - 7), 2), Band(band - 7, 8));
}

// Another item of 100 bytes between the two, cut too.
TEST_P(BandHeads, CutBeforeTheOwner) {
  DataFile const file = SettingsForm()
                            .Item(GetParam().type, Bands())
                            .Item(3, Body().Fill(100))
                            .Item(GetParam().owners, GetParam().owner);
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 103), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 50), 2), Band(band, 1));
}

// A stream between the two, cut: 40 samples behind its type.
TEST_P(BandHeads, CutInAStreamBeforeTheOwner) {
  DataFile const file = SettingsForm()
                            .Item(GetParam().type, Bands())
                            .Stream(6, Body().Fill(40, 60))
                            .Item(GetParam().owners, GetParam().owner);
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 42), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 41), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 20), 2), Band(band, 1));
  EXPECT_EQ(HeadBehind(CutTo(file, static_cast<std::size_t>(band) + 1), 2), Band(band, 1));
}

// The end of the file is met once: a later band record of the family does not look again.
TEST_P(BandHeads, CountOnce) {
  BandForm const form = GetParam();
  Body const later = Body().U16(form.number + 3).PadTo(form.body);
  DataFile const file = SettingsForm().Item(form.type, Bands()).Item(form.type, later);
  int const band = 8 + BandSize();
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 3), (Heads{Band(band, 1), Band(band + BandSize(), 0)}));
}

// Where the data ends, or a block of settings, no owner is missing: there is none.
TEST_P(BandHeads, NoOwner) {
  DataFile const file = SettingsForm().Item(GetParam().type, Bands());
  int const band = 8 + BandSize();
  EXPECT_EQ(HeadBehind(DataFile(file).EndOfData().Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(DataFile(file).EndLines("nd", "").Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(DataFile(file).Q(5, "x").Bytes(), 2), Band(band, 0));
  EXPECT_EQ(HeadBehind(file.Bytes(), 2), Band(band, 1));
}

TEST(ContextHead, LeadsBehindTheEndOfData) {
  DataFile const file = SettingsForm().EndOfData().Item(5, MarkAt({2024, 6, 21}));
  Head const end{QV_END_OF_DATA, QV_END, 9, 0};
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 4),
            (Heads{end, {QV_OK, QV_LEVEL_MARK, 22, 0}, {QV_BAD_LENGTH, QV_NO_RECORD, 22, 3}}));
  EXPECT_EQ(LastHeads(CutTo(file, 15), 2, 3), (Heads{end, {QV_OK, QV_LEVEL_MARK, 15, 7}}));
  EXPECT_EQ(LastHeads(CutTo(file, 9), 2, 3), (Heads{end, {QV_BAD_LENGTH, QV_NO_RECORD, 9, 3}}));
}

// Model 431: a header of 118 bytes, an item that makes the file long enough (to 1021), and the
// reference record (to 1153), which looks ahead for register 106.
class ReferenceHeads : public testing::Test {
 protected:
  static Head Behind(const std::string& ahead) {
    return HeadBehind(Reference().Bytes() + ahead, 2);
  }
  static DataFile Reference() {
    return Model431("iSLM").Item(kSkipped, Body().Fill(900)).Item('C', Body().Fill(129, 1));
  }
  static constexpr Head kCertain{QV_OK, QV_REFERENCE_431, 1153, 0};
  static constexpr Head kUncertain{QV_OK, QV_REFERENCE_431, 1153, 1};
};

TEST_F(ReferenceHeads, LevelOffsetAhead) {
  EXPECT_EQ(HeadsOf(Reference().R(106, "1.5").EndOfData().Bytes(), 2),
            (Heads{{QV_OK, 0, 118, 0}, {QV_OK, QV_NO_RECORD, 1021, 0}, kCertain}));
  EXPECT_EQ(Behind("R106,1.5\r\n"), kCertain);
  EXPECT_EQ(Behind("some text\nR  3,x\r\nR106,1.5\r\n"), kCertain);
}

TEST_F(ReferenceHeads, LevelOffsetCut) {
  EXPECT_EQ(Behind("R106,1.5\r"), kUncertain);
  EXPECT_EQ(Behind("R106,1."), kUncertain);
  EXPECT_EQ(Behind("R10"), kUncertain);
  EXPECT_EQ(Behind("R  3,x\r\n"), kUncertain);
  EXPECT_EQ(Behind(""), kUncertain);
  EXPECT_EQ(Behind(DataFile().Item(5, MarkAt({2024, 6, 21})).Bytes()), kUncertain);
}

// Another line ends the block: register 106 is not missing, the block has none.
TEST_F(ReferenceHeads, WholeBlockWithoutLevelOffset) {
  EXPECT_EQ(Behind(std::string("R  3,x\r\n\0", 9)), kCertain);
  EXPECT_EQ(Behind("R  3,x\r\nQ  5,y\r\n"), kCertain);
}

TEST_F(ReferenceHeads, OwnBodyCut) {
  EXPECT_EQ(HeadBehind(CutTo(Reference(), 1150), 2), (Head{QV_OK, QV_REFERENCE_431, 1150, 4}));
}

// Model 442: a header of 117 bytes, an item (to 121), and the results block that the start looks
// for: its opening line to 150, register 106 to 160.
TEST(ContextHead, StartDoubtsALevelOffsetThatEndsWithTheFile) {
  DataFile const file = Model442("LOG")
                            .Item(kSkipped, Body().Fill(1))
                            .R(1, "Hedrom-Pulke Model 442")
                            .R(106, "1.5")
                            .EndOfData();
  EXPECT_EQ(HeadsOf(file.Bytes(), 1), (Heads{{QV_OK, 0, 117, 0}, {QV_OK, QV_NO_RECORD, 121, 0}}));
  auto const start = [&](std::size_t size) { return HeadsOf(CutTo(file, size), 0)[0]; };
  EXPECT_EQ(start(160), (Head{QV_OK, 0, 117, 0}));
  EXPECT_EQ(start(159), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(157), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(155), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(154), (Head{QV_OK, 0, 117, 1}));
  EXPECT_EQ(start(153).status, QV_NOT_FOUND);
}

// The start looks at 2,100,000 bytes behind the header and no further: a line that ends behind them
// is cut for it, not for the file.
TEST(ContextHead, StartDoubtsNothingThatItDoesNotLookAt) {
  std::string bytes = Model442("LOG").Bytes();
  std::string const block = "R  1,Hedrom-Pulke Model 442\r\nR106,1.5";
  bytes.append(2100000 - block.size(), 'x').append(block).append("\r\n");
  EXPECT_EQ(HeadsOf(bytes, 0)[0], (Head{QV_OK, 0, 117, 0}));
}

// A header of 1179 bytes, long enough for the tail of model 431; its last line is of 18, the one
// before of 14.
TEST(ContextHead, StartDoubtsAHeaderThatEndsWithTheFile) {
  std::string const title(200, 't');
  DataFile const file = DataFile()
                            .Titles(title, title, title)
                            .Header({.Model = 431,
                                     .ModeTag = "ENV ",
                                     .FirstLine = "L" + std::string(240, 'x'),
                                     .FourthLine = std::string(240, 'y')});
  ASSERT_EQ(file.Size(), 1179U);
  auto const start = [&](std::size_t size) { return HeadsOf(CutTo(file, size), 0)[0]; };
  EXPECT_EQ(start(1179), (Head{QV_OK, 0, 1179, 0}));
  for (int const size : {1178, 1170, 1161, 1160, 1147}) {
    Head const cut = start(static_cast<std::size_t>(size));
    EXPECT_EQ(cut.status, QV_OK) << size;
    EXPECT_EQ(cut.offset, size);
    EXPECT_GT(cut.missing, 0U) << size;
  }
}

TEST(ContextHead, StartDoubtsTitlesThatEndWithTheFile) {
  DataFile const file = DataFile().Titles("a", "b", "c").Q(157, "3").EndOfData();
  EXPECT_EQ(HeadsOf(file.Bytes(), 1),
            (Heads{{QV_NO_TEXT_HEADER, 0, 12, 0}, {QV_OK, QV_SETTINGS, 20, 0}}));
  for (std::size_t const size : {std::size_t{12}, std::size_t{11}, std::size_t{4}}) {
    Head const cut = HeadsOf(CutTo(file, size), 0)[0];
    EXPECT_EQ(cut.status, QV_NO_TEXT_HEADER) << size;
    EXPECT_GT(cut.missing, 0U) << size;
  }
}

// Nothing of the step before is left when a start or a step begins.
TEST(ContextHead, CountsEachCallByItself) {
  TempFile const cut(CutTo(Before().Item(5, MarkAt({2024, 6, 21})), 20));
  TempFile const whole(Before().EndOfData());
  Session session;
  session.Start(cut.Path());
  while (session.Next() >= 0) continue;
  EXPECT_EQ(QvBytesMissing(session.Context()), 3U);
  QV_StopTranslate();
  EXPECT_EQ(session.Start(whole.Path()), QV_NO_TEXT_HEADER);
  EXPECT_EQ(QvBytesMissing(session.Context()), 0U);
  EXPECT_EQ(QvFileOffset(session.Context()), 0);
}

// A start forgets the mode of the file before.
TEST(ContextHead, ModeOfTheFileInHand) {
  TempFile const tallies(Startable(Model442("TAL").Item(kSkipped, Body().U8(1))));
  TempFile const general(Startable(General()));
  Session session;
  EXPECT_EQ(session.Start(tallies.Path()), QV_OK);
  EXPECT_EQ(QvMode(session.Context()), 7);
  QV_StopTranslate();
  EXPECT_EQ(session.Start(general.Path()), QV_OK);
  EXPECT_EQ(QvMode(session.Context()), 0);
}

int ModeOf(DataFile file) {
  TempFile const stored(Startable(file.Item(kSkipped, Body().U8(1))));
  Session session;
  EXPECT_EQ(session.Start(stored.Path()), QV_OK);
  return QvMode(session.Context());
}

TEST(ContextHead, ModeByModelAndTag) {
  EXPECT_EQ(ModeOf(Model431("OBA ")), 0);
  EXPECT_EQ(ModeOf(Model431("sSLM")), 1);
  EXPECT_EQ(ModeOf(Model431("iSLM")), 2);
  EXPECT_EQ(ModeOf(Model431("ENV ")), 3);
  EXPECT_EQ(ModeOf(Model442("SSA")), 0);
  EXPECT_EQ(ModeOf(Model442("ISM")), 1);
  EXPECT_EQ(ModeOf(Model442("LOG")), 2);
  EXPECT_EQ(ModeOf(Model442("ENV")), 3);
  EXPECT_EQ(ModeOf(Model442("RTA")), 4);
  EXPECT_EQ(ModeOf(Model442("FFT")), 5);
  EXPECT_EQ(ModeOf(Model442("AUD")), 6);
  EXPECT_EQ(ModeOf(Model442("TAL")), 7);
  EXPECT_EQ(ModeOf(Model442("VIB")), 8);
}

TEST(ContextHead, ModeIs0Elsewhere) {
  EXPECT_EQ(ModeOf(General()), 0);
  EXPECT_EQ(ModeOf(Model431("RTA ")), 0);
  EXPECT_EQ(ModeOf(Model442("xxx")), 0);
  // The tag of another model.
  EXPECT_EQ(ModeOf(Model431("LOG")), 0);
  EXPECT_EQ(ModeOf(Model442("iSLM")), 0);
}

}  // namespace
