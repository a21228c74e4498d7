// Items that the end of the file cuts, or the end of what is held of it in memory, which is a
// multiple of 4096 bytes. The head of the context tells what they lack.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/context_heads.h"
#include "support/item_bodies.h"
#include "support/stamped_items.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

// Settings and items without a record up to the given size, and how many steps they are.
constexpr int kStepsBefore = 7;
DataFile FilledTo(std::size_t size) {
  DataFile file = SettingsForm();
  for (int item = 0; item < 4; ++item) file.Item(kSkipped, Body().Fill(6000, 0x40));
  file.Item(kSkipped, Body().Fill((size - file.Size()) / 2 - 3, 0x40));
  file.Item(kSkipped, Body().Fill(size - file.Size() - 3, 0x40));
  EXPECT_EQ(file.Size(), size);
  return file;
}
Head HeadOfItem(const std::string& bytes) {
  return HeadBehind(bytes, kStepsBefore + 1);
}

constexpr std::size_t kBoundary = 32768;

// The bytes of an image of three blocks, 4096 and twice 512, wherever it begins.
TEST(CutItems, AreWholeAcrossABoundary) {
  Body const body = CountingBody(5120);
  for (std::size_t before = 0; before <= 5124; before += before < 8 || before > 5115 ? 1 : 73) {
    SCOPED_TRACE(before);
    std::size_t const start = kBoundary - before;
    TempFile const file(FilledTo(start).Item(8, body).Item(5, MarkAt({2024, 6, 21})).EndOfData());
    Session session;
    session.Start(file.Path());
    for (int step = 0; step < kStepsBefore; ++step) session.Next();
    ASSERT_EQ(session.Next(), QV_OK);
    ASSERT_EQ(session.Code(), QV_BLOCK_IMAGE);
    auto const image = session.As<QvBlockImage>();
    const char* const bytes = body.Bytes().data();
    EXPECT_EQ(std::memcmp(image.Block1, bytes, 4096), 0);
    EXPECT_EQ(std::memcmp(image.Block2, bytes + 4096, 512), 0);
    EXPECT_EQ(std::memcmp(image.Block3, bytes + 4608, 512), 0);
    EXPECT_EQ(QvBytesMissing(session.Context()), 0U);
    EXPECT_EQ(QvFileOffset(session.Context()), static_cast<int>(start) + 5123);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.As<QvLevelMark>().Level, 65.5F);
  }
}

TEST(CutItems, OfNoLengthAreWholeAcrossABoundary) {
  for (std::size_t before = 0; before < 5; ++before) {
    std::size_t const start = kBoundary - before;
    EXPECT_EQ(HeadOfItem(FilledTo(start).Item(8, Body()).EndOfData().Bytes()),
              (Head{QV_OK, QV_BLOCK_IMAGE, static_cast<int>(start) + 3, 0}))
        << before;
  }
}

// A level mark of 13 bytes, 5 of them before the boundary, cut behind each.
TEST(CutItems, TellWhatTheyLack) {
  constexpr int kStart = kBoundary - 5;
  DataFile const file = FilledTo(kStart).Item(5, MarkAt({2024, 6, 21}));
  auto const cut = [&](int came) {
    return HeadOfItem(CutTo(file, static_cast<std::size_t>(kStart + came)));
  };
  EXPECT_EQ(cut(0), (Head{QV_BAD_LENGTH, QV_NO_RECORD, kStart, 3}));
  EXPECT_EQ(cut(1), (Head{QV_BAD_LENGTH, QV_NO_RECORD, kStart, 2}));
  EXPECT_EQ(cut(2), (Head{QV_BAD_LENGTH, QV_NO_RECORD, kStart, 1}));
  for (int came = 3; came <= 13; ++came) {
    EXPECT_EQ(cut(came),
              (Head{QV_OK, QV_LEVEL_MARK, kStart + came, static_cast<unsigned>(13 - came)}))
        << came;
  }
}

// A length of 6201 across the boundary: nothing of the body is looked for.
TEST(CutItems, ThatAreTooLongLackNothing) {
  for (std::size_t before = 1; before < 4; ++before) {
    std::size_t const start = kBoundary - before;
    Head const tooLong{QV_BAD_LENGTH, QV_NO_RECORD, static_cast<int>(start), 0};
    DataFile const file = FilledTo(start).Item(kSkipped, Body().Fill(6201));
    EXPECT_EQ(HeadOfItem(file.Bytes()), tooLong) << before;
    EXPECT_EQ(HeadOfItem(CutTo(file, start + 3)), tooLong) << before;
  }
  // The longest that may be.
  DataFile const longest = FilledTo(kBoundary - 2).Item(kSkipped, Body().Fill(6200));
  EXPECT_EQ(HeadOfItem(longest.Bytes()), (Head{QV_OK, QV_NO_RECORD, 38969, 0}));
}

// Samples of two bytes, the first of 60 from 8 bytes before the boundary on. What stood in the
// buffer before goes on behind the end of the file.
TEST(CutItems, StreamsTellWhatTheyLack) {
  constexpr int kEntries = kBoundary - 8;
  DataFile const file = FilledTo(kEntries - 1).Stream(6, Body().Fill(240, 60));
  for (int const came : {0, 1, 7, 8, 9, 119, 120, 121, 150}) {
    int const lacking = came < 120 ? 120 - came : 0;
    EXPECT_EQ(HeadOfItem(CutTo(file, static_cast<std::size_t>(kEntries + came))),
              (Head{QV_OK, QV_TIME_HISTORY, kEntries + 120, static_cast<unsigned>(lacking)}))
        << came;
  }
  EXPECT_EQ(HeadBehind(CutTo(file, kEntries + 150), kStepsBefore + 2),
            (Head{QV_OK, QV_TIME_HISTORY, kEntries + 240, 90}));
}

// Blocks of four bytes, the first from 2 bytes before the boundary on.
TEST(CutItems, ListsTellWhatTheyLack) {
  constexpr int kBlocks = kBoundary - 2;
  Body const block = Body().U8(70).Fill(3, 1);
  for (int const type : {21, 27}) {
    int const code = type == 21 ? QV_TIMED_SPECTRUM : QV_FIELD_HISTORY;
    DataFile const file = FilledTo(kBlocks - 2).List(type, 4, {block, block});
    for (int const came : {0, 1, 2, 3, 4, 7, 8}) {
      int const lacking = came < 4 ? 4 - came : 0;
      EXPECT_EQ(HeadOfItem(CutTo(file, static_cast<std::size_t>(kBlocks + came))),
                (Head{QV_OK, code, kBlocks + 4, static_cast<unsigned>(lacking)}))
          << came;
    }
    EXPECT_EQ(HeadBehind(CutTo(file, kBlocks + 5), kStepsBefore + 2),
              (Head{QV_OK, code, kBlocks + 8, 3}));
  }
}

}  // namespace
}  // namespace test
