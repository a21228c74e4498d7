// The data file: reads, lines and seeks over files longer than what is held of them in memory, and
// over files that grow, fail or are none. Internal: exports show records, not what was read how.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "fields/data_file.h"
#include "support/guarded_buffer.h"
#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"

namespace {

using qvslm::CurrentContext;
using qvslm::FilePosition;
using qvslm::i64;
using qvslm::LineRead;
using qvslm::ReadFailed;
using qvslm::ReadFileBlock;
using qvslm::ReadFileByte;
using qvslm::ReadLine;
using qvslm::SeekDataFile;
using qvslm::SeekFromEnd;
using qvslm::TranslateContext;
using test::TempFile;

// Longer than all that the library holds of a file at once.
constexpr std::size_t kLong = 300'000;

// A byte tells its place: no two stretches of a few bytes are alike.
char ByteAt(std::size_t place) {
  return static_cast<char>(place ^ (place >> 8) * 3 ^ (place >> 16) * 5);
}
std::string LongText() {
  std::string text(kLong, '\0');
  for (std::size_t place = 0; place < kLong; ++place) text[place] = ByteAt(place);
  return text;
}

class DataFile : public testing::Test {
 protected:
  DataFile() { CurrentContext = &context_; }
  ~DataFile() override {
    qvslm::CloseDataFile();
    CurrentContext = nullptr;
  }

  void Open(std::string_view bytes) {
    file_.Rewrite(bytes);
    ASSERT_TRUE(qvslm::OpenDataFile(file_.CPath()));
  }
  void Append(const std::string& bytes) const {
    std::ofstream(file_.Path(), std::ios::binary | std::ios::app) << bytes;
  }

  // Up to count bytes, through a buffer that ends where it should.
  static std::string Read(std::size_t count) {
    test::GuardedBuffer const buffer(count);
    std::size_t const came = ReadFileBlock(buffer.Data(), count);
    return {reinterpret_cast<const char*>(buffer.Data()), came};
  }

  TempFile file_{""};
  alignas(8) TranslateContext context_{};
};

TEST_F(DataFile, IsReadInPiecesOfAnyLength) {
  std::string const text = LongText();
  for (std::size_t const piece :
       {999U, 32767U, 32768U, 32769U, 65536U, 299999U, 300000U, 300001U}) {
    SCOPED_TRACE(piece);
    Open(text);
    std::string read;
    while (read.size() < text.size()) {
      std::string const came = Read(piece);
      ASSERT_FALSE(came.empty());
      read += came;
      ASSERT_EQ(FilePosition(), static_cast<i64>(read.size()));
    }
    EXPECT_TRUE(read == text);
    EXPECT_EQ(Read(piece), "");
    EXPECT_EQ(ReadFileByte(), -1);
    EXPECT_FALSE(ReadFailed());
    EXPECT_EQ(FilePosition(), static_cast<i64>(kLong));
    qvslm::CloseDataFile();
  }
}

// To and fro, near and far, up to behind the end: what is read is what stands there.
TEST_F(DataFile, IsReadFromWhereverItWasSoughtTo) {
  std::string const text = LongText();
  Open(text);
  std::mt19937 numbers(1);
  auto const below = [&](std::size_t end) { return numbers() % end; };
  std::size_t place = 0;
  for (int turn = 0; turn < 20000; ++turn) {
    bool const near = below(4) != 0;
    place = near ? place + below(300) - std::min<std::size_t>(place, 150) : below(kLong + 100);
    ASSERT_EQ(SeekDataFile(static_cast<i64>(place)), 0);
    ASSERT_EQ(FilePosition(), static_cast<i64>(place));
    std::size_t const count = below(turn % 100 == 0 ? 70000 : 40);
    std::string const want = place < kLong ? text.substr(place, count) : "";
    ASSERT_TRUE(Read(count) == want) << place << " " << count;
    place += want.size();
    ASSERT_EQ(FilePosition(), static_cast<i64>(place));
  }
}

TEST_F(DataFile, CannotBeSoughtInBeforeItsStart) {
  Open("abcdef");
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(SeekDataFile(-1), -1);
  EXPECT_EQ(SeekFromEnd(-7), -1);
  EXPECT_EQ(FilePosition(), 2);
  EXPECT_EQ(ReadFileByte(), 'c');
}

TEST_F(DataFile, IsSoughtInFromItsEnd) {
  std::string const text = LongText();
  Open(text);
  for (i64 const back : {1, 50, 32768, 32769, 299999, 300000, 0}) {
    ASSERT_EQ(SeekFromEnd(-back), 0);
    EXPECT_EQ(FilePosition(), i64{kLong} - back);
    auto const place = static_cast<std::size_t>(i64{kLong} - back);
    EXPECT_TRUE(Read(40000) == text.substr(place, 40000)) << back;
  }
}

// The end is where it is now, not where it was when the file was opened.
TEST_F(DataFile, MayGrow) {
  Open("abc");
  EXPECT_EQ(Read(10), "abc");
  EXPECT_EQ(ReadFileByte(), -1);
  Append("def");
  EXPECT_EQ(ReadFileByte(), 'd');
  EXPECT_EQ(SeekFromEnd(-2), 0);
  EXPECT_EQ(FilePosition(), 4);
  EXPECT_EQ(Read(10), "ef");
  Append(std::string(100'000, 'x'));
  EXPECT_EQ(Read(100'001).size(), 100'000U);
  EXPECT_EQ(FilePosition(), 100'006);
}

// A look at the end shows what the file holds now.
TEST_F(DataFile, IsReadAnewFromItsEnd) {
  Open("abcdef");
  EXPECT_EQ(Read(6), "abcdef");
  file_.Rewrite("uvwxyz");
  ASSERT_EQ(SeekFromEnd(-3), 0);
  EXPECT_EQ(Read(6), "xyz");
}

// What is ahead may be looked at without a copy, as far as it is in memory; nothing is read for it.
TEST_F(DataFile, ShowsTheBytesAhead) {
  Open("abcdef");
  EXPECT_EQ(qvslm::BytesAhead(1), nullptr);
  EXPECT_EQ(ReadFileByte(), 'a');
  const qvslm::u8* const ahead = qvslm::BytesAhead(5);
  ASSERT_NE(ahead, nullptr);
  EXPECT_EQ(std::string(ahead, ahead + 5), "bcdef");
  EXPECT_EQ(qvslm::BytesAhead(6), nullptr);
  EXPECT_EQ(FilePosition(), 1);
  qvslm::PassBytes(2);
  EXPECT_EQ(FilePosition(), 3);
  char taken[2];
  qvslm::TakeBytesAhead(taken, 2);
  EXPECT_EQ(std::string(taken, 2), "de");
  EXPECT_EQ(ReadFileByte(), 'f');
  EXPECT_NE(qvslm::BytesAhead(0), nullptr);
  EXPECT_EQ(qvslm::BytesAhead(1), nullptr);
}

class Lines : public DataFile {
 protected:
  // The line that is read into a text of the given size, as far as its length goes; what it says of
  // its end stands in complete_.
  std::string Next(std::size_t size = 81) {
    test::GuardedBuffer const text(size, 'u');
    auto* const chars = reinterpret_cast<char*>(text.Data());
    LineRead const line = ReadLine(chars, size);
    complete_ = line.complete;
    if (line.length == 0) {
      EXPECT_EQ(chars[0], 'u') << "the text of a line that is not there";
      return "";
    }
    EXPECT_EQ(chars[line.length], '\0');
    return {chars, line.length};
  }

  bool complete_ = false;
};

TEST_F(Lines, EndAtTheirLineFeed) {
  Open("one\r\n\ntwo\nrest");
  EXPECT_EQ(Next(), "one\r\n");
  EXPECT_TRUE(complete_);
  EXPECT_EQ(Next(), "\n");
  EXPECT_EQ(Next(), "two\n");
  EXPECT_EQ(FilePosition(), 10);
  EXPECT_EQ(Next(), "rest");
  EXPECT_FALSE(complete_) << "ended by the file";
  EXPECT_EQ(Next(), "");
  EXPECT_FALSE(complete_);
}

// A line that has no room is complete all the same; what is left of it is the next one.
TEST_F(Lines, EndWithTheirRoom) {
  Open("abcdef\nxyz\nuvw");
  EXPECT_EQ(Next(5), "abcd");
  EXPECT_TRUE(complete_);
  EXPECT_EQ(Next(5), "ef\n");
  EXPECT_EQ(Next(5), "xyz\n");
  EXPECT_TRUE(complete_);
  EXPECT_EQ(Next(4), "uvw");
  EXPECT_TRUE(complete_) << "the room ended before the file did";
  EXPECT_EQ(Next(4), "");
}

TEST_F(Lines, MayHoldNuls) {
  std::string const line("a\0b\0\n", 5);
  Open(line + "next\n");
  EXPECT_EQ(Next(), line);
  EXPECT_EQ(Next(), "next\n");
}

// The parts of a line come from two windows, wherever the border between them falls.
TEST_F(Lines, StandAcrossTheBordersOfWindows) {
  for (std::size_t ahead = 32768 - 12; ahead <= 32768 + 2; ++ahead) {
    SCOPED_TRACE(ahead);
    Open(std::string(ahead, 'x') + "0123456789\nafter\n");
    EXPECT_EQ(Read(ahead).size(), ahead);
    EXPECT_EQ(Next(), "0123456789\n");
    EXPECT_TRUE(complete_);
    EXPECT_EQ(Next(), "after\n");
    qvslm::CloseDataFile();
  }
}

// Their room is that of both parts together.
TEST_F(Lines, EndWithTheirRoomAcrossWindows) {
  Open(std::string(32768 - 3, 'x') + "0123456789\n");
  EXPECT_EQ(Read(32768 - 3).size(), 32768U - 3);
  EXPECT_EQ(Next(8), "0123456");
  EXPECT_TRUE(complete_);
  EXPECT_EQ(Next(8), "789\n");
}

TEST_F(Lines, MayBeLongerThanAWindow) {
  std::string const line = std::string(100'000, 'x') + "\n";
  Open(line + "after\n");
  EXPECT_TRUE(Next(200'000) == line);
  EXPECT_TRUE(complete_);
  EXPECT_EQ(Next(), "after\n");
}

TEST_F(DataFile, KeepsItsPositionAsAnOffsetOf32Bits) {
  Open("abcdef");
  EXPECT_EQ(Read(4), "abcd");
  EXPECT_EQ(qvslm::KeepFilePosition(), 0);
  EXPECT_EQ(context_.FileOffset, 4);
  ASSERT_EQ(SeekDataFile(2147483647), 0);
  EXPECT_EQ(qvslm::KeepFilePosition(), 0);
  EXPECT_EQ(context_.FileOffset, 2147483647);
  ASSERT_EQ(SeekDataFile(2147483648), 0);
  EXPECT_EQ(qvslm::KeepFilePosition(), QV_SEEK_FAILED);
  EXPECT_STREQ(context_.ErrorText, "Error <-314>");
  EXPECT_EQ(context_.FileOffset, 2147483647);
}

// Each file has its own bytes, though what is held in memory is of one file at a time.
TEST_F(DataFile, TakesTurnsWithAnother) {
  TempFile const other(std::string(kLong, 'o'));
  TranslateContext otherContext{};
  std::string const text = LongText();
  Open(text);
  CurrentContext = &otherContext;
  ASSERT_TRUE(qvslm::OpenDataFile(other.CPath()));
  for (std::size_t place = 0; place < kLong; place += 50'000) {
    CurrentContext = &context_;
    ASSERT_EQ(SeekDataFile(static_cast<i64>(place)), 0);
    EXPECT_TRUE(Read(100) == text.substr(place, 100)) << place;
    CurrentContext = &otherContext;
    ASSERT_EQ(SeekDataFile(static_cast<i64>(place)), 0);
    EXPECT_EQ(Read(100), std::string(100, 'o')) << place;
  }
  qvslm::CloseDataFile();
  CurrentContext = &context_;
}

// The C library tends to give the handle of a file that was closed to the next one.
TEST_F(DataFile, IsNotMistakenForTheOneClosedBefore) {
  for (const char* const text : {"first", "other", "third"}) {
    Open(text);
    EXPECT_EQ(Read(5), text);
    ASSERT_EQ(SeekDataFile(0), 0);
    qvslm::CloseDataFile();
    EXPECT_EQ(context_.File, nullptr);
  }
}

TEST_F(DataFile, WithoutAFileHasNothing) {
  EXPECT_FALSE(qvslm::OpenDataFile(nullptr));
  EXPECT_FALSE(qvslm::OpenDataFile("/no/such/file.dat"));
  EXPECT_EQ(context_.File, nullptr);
  qvslm::CloseDataFile();
  EXPECT_EQ(Read(5), "");
  EXPECT_EQ(ReadFileByte(), -1);
  EXPECT_EQ(SeekDataFile(0), -1);
  EXPECT_EQ(SeekFromEnd(0), -1);
}

// A pipe can be read, and nothing else.
TEST_F(DataFile, MayBeAPipe) {
  test::FilledPipe const pipe("abc\ndef");
  ASSERT_TRUE(qvslm::OpenDataFile(pipe.Path().c_str()));
  EXPECT_EQ(ReadFileByte(), 'a');
  EXPECT_EQ(SeekDataFile(0), -1);
  EXPECT_EQ(SeekDataFile(1), -1) << "not even to where it stands";
  EXPECT_EQ(SeekFromEnd(-1), -1);
  EXPECT_EQ(Read(10), "bc\ndef");
  EXPECT_FALSE(ReadFailed());
}

TEST_F(DataFile, MayBeAFolder) {
  test::TempFolder const folder;
  ASSERT_TRUE(qvslm::OpenDataFile(folder.Path().c_str()));
  EXPECT_EQ(ReadFileByte(), -1);
  EXPECT_TRUE(ReadFailed());
}

// A stream of bytes of which one read fails: the first that would go beyond faultAt.
struct FaultyStream {
  std::string bytes;
  std::size_t faultAt;
  std::size_t position = 0;
  bool faulty = true;

  static ssize_t Read(void* cookie, char* target, std::size_t count) {
    auto& stream = *static_cast<FaultyStream*>(cookie);
    if (stream.faulty && stream.position == stream.faultAt) {
      stream.faulty = false;
      errno = EIO;
      return -1;
    }
    std::size_t const end = stream.faulty ? stream.faultAt : stream.bytes.size();
    std::size_t const came = stream.bytes.substr(0, end).copy(target, count, stream.position);
    stream.position += came;
    return static_cast<ssize_t>(came);
  }
  static int Seek(void* cookie, off64_t* offset, int origin) {
    auto& stream = *static_cast<FaultyStream*>(cookie);
    auto const from = origin == SEEK_SET   ? off64_t{0}
                      : origin == SEEK_CUR ? static_cast<off64_t>(stream.position)
                                           : static_cast<off64_t>(stream.bytes.size());
    *offset += from;
    stream.position = static_cast<std::size_t>(*offset);
    return 0;
  }
  std::FILE* Open() {
    std::FILE* const file = fopencookie(this, "rb", {Read, nullptr, Seek, nullptr});
    std::setvbuf(file, nullptr, _IONBF, 0);
    return file;
  }
};

// A fault that passes is not remembered: reading goes on where it struck, and the end of the file
// behind it is no fault. One that strikes behind some bytes is over before it is noticed.
TEST_F(DataFile, ReadsOnBehindAFaultThatPasses) {
  std::string const text(LongText(), 0, 50'000);
  {
    FaultyStream stream{text, 40};
    context_.File = stream.Open();
    EXPECT_TRUE(Read(60'000) == text);
    EXPECT_FALSE(stream.faulty);
    EXPECT_FALSE(ReadFailed());
    qvslm::CloseDataFile();
  }
  for (std::size_t const faultAt : {0U, 32768U}) {
    SCOPED_TRACE(faultAt);
    FaultyStream stream{text, faultAt};
    context_.File = stream.Open();
    EXPECT_TRUE(Read(50'000) == text.substr(0, faultAt));
    EXPECT_TRUE(ReadFailed());
    EXPECT_TRUE(Read(60'000) == text.substr(faultAt));
    EXPECT_FALSE(ReadFailed());
    EXPECT_EQ(FilePosition(), 50'000);
    qvslm::CloseDataFile();
  }
}

}  // namespace
