// The head of the context: where the next step begins, and how many bytes of the last one the file
// does not have. Here behind framed items and blocks of text lines.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/context_heads.h"
#include "support/stamped_items.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

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

TEST(ContextHead, LeadsBehindTheEndOfData) {
  DataFile const file = SettingsForm().EndOfData().Item(5, MarkAt({2024, 6, 21}));
  Head const end{QV_END_OF_DATA, QV_END, 9, 0};
  EXPECT_EQ(LastHeads(file.Bytes(), 2, 4),
            (Heads{end, {QV_OK, QV_LEVEL_MARK, 22, 0}, {QV_BAD_LENGTH, QV_NO_RECORD, 22, 3}}));
  EXPECT_EQ(LastHeads(CutTo(file, 15), 2, 3), (Heads{end, {QV_OK, QV_LEVEL_MARK, 15, 7}}));
  EXPECT_EQ(LastHeads(CutTo(file, 9), 2, 3), (Heads{end, {QV_BAD_LENGTH, QV_NO_RECORD, 9, 3}}));
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

}  // namespace
}  // namespace test
