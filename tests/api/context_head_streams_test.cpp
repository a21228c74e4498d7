// The head of the context behind the steps through sample streams and lists.
#include <gtest/gtest.h>

#include <string>

#include "support/context_heads.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

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

}  // namespace
}  // namespace test
