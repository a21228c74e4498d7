// Streams and lists that end around the highest offset of a file, 2,147,483,647. The test sets the
// place of the next item in the context, for to get there by steps takes a full file of 2 GiB.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "api/context.h"
#include "support/sparse_file.h"
#include "support/translation.h"

namespace test {
namespace {

using qvslm::i64;
using samples::Body;
using samples::DataFile;

constexpr i64 kHighest = 2147483647;

struct Row {
  const char* what;
  std::string item;
  i64 begin;
  std::vector<int> statuses;  // of the steps from there on
  i64 offset;                 // of the next item behind them
};

class HighestOffset : public testing::Test {
 protected:
  static void Expect(const Row& row, const DataFile& header) {
    SCOPED_TRACE(row.what);
    std::string const behind(600, '\0');
    SparseFile const file(Startable(header), row.begin, row.item + behind);
    if (!file.Written()) GTEST_SKIP() << "the disk holds no files of 2 GiB";
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    auto& state = *static_cast<qvslm::TranslateContext*>(session.Context());
    state.FileOffset = static_cast<qvslm::i32>(row.begin);
    for (int const status : row.statuses) EXPECT_EQ(session.Next(), status);
    EXPECT_EQ(state.FileOffset, row.offset);
    if (row.statuses.back() == QV_SEEK_FAILED) {
      EXPECT_STREQ(state.ErrorText, "Error <-314>");
    }
  }
};

// Two bytes a sample; the stream's 0 behind them.
std::string Stream(int samples) {
  Body entries;
  for (int i = 0; i < samples; ++i) entries.U8(60).U8(1);
  return DataFile().Stream(6, entries).Bytes();
}

TEST_F(HighestOffset, Streams) {
  const Row kRows[] = {
      {"ends right there", Stream(3), kHighest - 8, {QV_OK}, kHighest},
      {"ends one above", Stream(3), kHighest - 7, {QV_SEEK_FAILED}, kHighest - 6},
      {"has no room behind its type", Stream(3), kHighest, {QV_SEEK_FAILED}, kHighest},
      {"fails in its second record",
       Stream(70),
       kHighest - 130,
       {QV_OK, QV_SEEK_FAILED},
       kHighest - 130 + 1 + 120},
  };
  for (const Row& row : kRows) Expect(row, General());
}

TEST_F(HighestOffset, Lists) {
  std::string const list = DataFile().List(21, 5, {Body().Fill(5, 1), Body().Fill(5, 1)}).Bytes();
  const Row kRows[] = {
      // Two bytes, two blocks, and the closing 0.
      {"ends right there", list, kHighest - 13, {QV_OK, QV_OK}, kHighest},
      {"has no room for its closing 0", list, kHighest - 12, {QV_OK, QV_OK}, kHighest},
      {"has no room for its second block",
       list,
       kHighest - 11,
       {QV_OK, QV_SEEK_FAILED},
       kHighest - 11 + 2 + 5},
      {"has no room for its length", list, kHighest - 1, {QV_SEEK_FAILED}, kHighest - 1},
  };
  for (int const type : {21, 27}) {
    for (Row row : kRows) {
      row.item[0] = static_cast<char>(type);
      Expect(row, Model442("SSA").EndOfData());
    }
  }
}

}  // namespace
}  // namespace test
