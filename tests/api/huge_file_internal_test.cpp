// Items around the highest offset of a file. To get there by steps would take files of 2 GiB that
// are full, so the test sets the place of the next item in the context.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "api/context.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using qvslm::TranslateContext;
using samples::Body;
using samples::DataFile;
using test::General;
using test::Session;
using test::TempFile;

TranslateContext& StateOf(const Session& session) {
  return *static_cast<TranslateContext*>(session.Context());
}

constexpr qvslm::i64 kHighestOffset = 2147483647;

// A file of more than 2 GiB that takes next to no room: a header, and bytes at one place.
class HugeFile {
 public:
  HugeFile(const std::string& bytes, qvslm::i64 offset) : file_(General().Bytes()) {
    int const descriptor = open(file_.CPath(), O_WRONLY);
    written_ = ftruncate(descriptor, kHighestOffset + 10000) == 0 &&
               pwrite(descriptor, bytes.data(), bytes.size(), offset) ==
                   static_cast<ssize_t>(bytes.size());
    close(descriptor);
  }
  bool Written() const { return written_; }
  const std::string& Path() const { return file_.Path(); }

 private:
  TempFile file_;
  bool written_ = false;
};

// An item may end at the highest offset, and no further.
TEST(HugeFiles, ItemsThatEndAboveTheHighestOffset) {
  struct Row {
    const char* name;
    std::string bytes;
  };
  const Row kRows[] = {
      {"unknown", DataFile().Item(9, Body().Fill(44)).Bytes()},
      {"5", DataFile().Item(5, Body().Fill(10)).Bytes()},
      {"4", DataFile().Item(4, Body().Fill(13)).Bytes()},
      {"3", DataFile().Item(3, Body().Fill(800)).Bytes()},
      {"8", DataFile().Item(8, Body().Fill(5120)).Bytes()},
      {"129", DataFile().Item(129, Body().Fill(211)).Bytes()},
      {"M", DataFile().Item(77, Body().Fill(219)).Bytes()},
      {"E", DataFile().EndLines("nd", "second").Bytes()},
      {"Q", DataFile().Q(157, "3").Bytes()},
      {"R", DataFile().R(7, "01:00:00").Bytes()},
  };
  for (const Row& row : kRows) {
    auto const size = static_cast<qvslm::i64>(row.bytes.size());
    for (int const beyond : {0, 1, 5}) {
      qvslm::i64 const begin = kHighestOffset - size + beyond;
      HugeFile const file(row.bytes, begin);
      if (!file.Written()) GTEST_SKIP() << "the disk holds no files of 2 GiB";
      SCOPED_TRACE(testing::Message() << "item " << row.name << ", ends " << beyond << " above");
      Session session;
      ASSERT_EQ(session.Start(file.Path()), QV_OK);
      StateOf(session).FileOffset = static_cast<qvslm::i32>(begin);
      EXPECT_EQ(session.Next(), beyond == 0 ? QV_OK : QV_SEEK_FAILED);
      EXPECT_STREQ(StateOf(session).ErrorText, beyond == 0 ? "" : "Error <-314>");
      EXPECT_GE(StateOf(session).FileOffset, begin);  // never wrapped
    }
  }
}

}  // namespace
