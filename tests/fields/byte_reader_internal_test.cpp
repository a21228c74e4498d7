// The byte reader at the ends of records, blocks and files. Internal: no export shows how far a
// decoder has read.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "support/temp_file.h"

namespace {

using qvslm::CurrentContext;
using qvslm::ReadByte;
using qvslm::TranslateContext;

class ByteReader : public testing::Test {
 protected:
  ByteReader() { CurrentContext = &context_; }
  ~ByteReader() override {
    qvslm::CloseDataFile();
    CurrentContext = nullptr;
  }

  void Record(const std::string& bytes) {
    std::memcpy(context_.RecordBuffer, bytes.data(), bytes.size());
    context_.RecordLength = static_cast<qvslm::u32>(bytes.size());
    context_.RecordPos = 0;
  }

  alignas(8) TranslateContext context_{};
};

TEST_F(ByteReader, GivesTheBytesInOrder) {
  Record(std::string("\x00\x01\x7F\x80\xFF", 5));
  qvslm::i32 status = -1;
  for (int const expected : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
    status = -1;
    EXPECT_EQ(ReadByte(status), expected);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(context_.RecordPos, 5);
}

TEST_F(ByteReader, StopsAtTheEndOfTheRecord) {
  Record("ab");
  qvslm::i32 status = 0;
  ReadByte(status);
  ReadByte(status);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ReadByte(status), 0);
    EXPECT_EQ(status, QV_RECORD_TOO_SHORT);
    EXPECT_EQ(context_.RecordPos, 2);
  }
}

TEST_F(ByteReader, EmptyRecordHasNoByte) {
  Record("");
  context_.RecordBuffer[0] = 'x';
  qvslm::i32 status = 0;
  EXPECT_EQ(ReadByte(status), 0);
  EXPECT_EQ(status, QV_RECORD_TOO_SHORT);
  EXPECT_EQ(context_.RecordPos, 0);
}

// Each byte sets the status anew: one that can be read clears the failure before it.
TEST_F(ByteReader, StatusIsThatOfTheLastByte) {
  qvslm::i32 status = -1;
  Record("a");
  EXPECT_EQ(ReadByte(status), 'a');
  EXPECT_EQ(status, 0);
  ReadByte(status);
  EXPECT_EQ(status, QV_RECORD_TOO_SHORT);
  Record("b");
  ReadByte(status);
  EXPECT_EQ(status, 0);
}

class BlockReader : public ByteReader {
 protected:
  // The record's first block is the file's first bytes; AutoRefill is on.
  void Open(const std::string& bytes, qvslm::u32 block, int fileOffset = 0) {
    file_.Rewrite(bytes);
    ASSERT_TRUE(qvslm::OpenDataFile(file_.CPath()));
    context_.RecordLength = block;
    context_.FileOffset = fileOffset;
    context_.AutoRefill = 1;
    ASSERT_EQ(qvslm::ReadFileBlock(context_.RecordBuffer, block), block);
    context_.RecordPos = 0;
  }

  test::TempFile file_{""};
};

TEST_F(BlockReader, RefillsBlockAfterBlock) {
  Open("abcdefghijkl", 4, 100);
  qvslm::i32 status = -1;
  std::string read;
  for (int i = 0; i < 4; ++i) read += static_cast<char>(ReadByte(status));
  EXPECT_EQ(context_.FileOffset, 100);  // moves when the next block is needed, not before
  EXPECT_EQ(context_.RecordPos, 4);
  read += static_cast<char>(ReadByte(status));
  EXPECT_EQ(context_.FileOffset, 104);
  EXPECT_EQ(context_.RecordPos, 1);
  for (int i = 0; i < 7; ++i) read += static_cast<char>(ReadByte(status));
  EXPECT_EQ(read, "abcdefghijkl");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(context_.FileOffset, 108);
  EXPECT_EQ(context_.RecordPos, 4);
}

// A block cut by the end of the file keeps the old bytes behind the new ones.
TEST_F(BlockReader, ShortBlockKeepsTheOldTail) {
  Open("abcdXY", 4);
  qvslm::i32 status = -1;
  std::string read;
  for (int i = 0; i < 8; ++i) {
    read += static_cast<char>(ReadByte(status));
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(read, "abcdXYcd");
}

// At the end of the file not one byte comes: the record has ended.
TEST_F(BlockReader, EndOfFileEndsTheRecord) {
  Open("abcd", 4);
  qvslm::i32 status = -1;
  for (int i = 0; i < 4; ++i) ReadByte(status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ReadByte(status), 0);
  EXPECT_EQ(status, QV_RECORD_TOO_SHORT);
}

TEST_F(BlockReader, LengthsAreHighByteFirst) {
  Open(std::string("\x01\x02\xFF\xFE\x00\x07", 6), 0);
  EXPECT_EQ(qvslm::ReadLengthU16(), 0x0102U);
  EXPECT_EQ(qvslm::ReadLengthU16(), 0xFFFEU);
  EXPECT_EQ(qvslm::ReadLengthU16(), 7U);
}

// The length comes from the file, whatever the record in hand.
TEST_F(BlockReader, LengthsPassTheRecordBy) {
  Open("abcd", 2);
  EXPECT_EQ(qvslm::ReadLengthU16(), 'c' * 256U + 'd');
  EXPECT_EQ(context_.RecordPos, 0);
}

TEST_F(BlockReader, LengthAtTheEndOfTheFileIsTooLong) {
  Open("", 0);
  EXPECT_EQ(qvslm::ReadLengthU16(), 4294967039U);  // -257: both bytes read as -1
}

// A second byte that is not there counts as -1 as well.
TEST_F(BlockReader, LengthCutByTheEndOfTheFile) {
  Open("\x01", 0);
  EXPECT_EQ(qvslm::ReadLengthU16(), 255U);
}

class ItemsAhead : public BlockReader {
 protected:
  // Passes the items ahead and returns the first bytes of what RecordBuffer holds then.
  std::string Pass(const std::string& items, qvslm::u32 expected) {
    Open("x" + items, 1);
    EXPECT_NE(qvslm::BytesAhead(1), nullptr);
    EXPECT_EQ(qvslm::PassItemsAhead(7), expected);
    return {context_.RecordBuffer, context_.RecordBuffer + 6};
  }

  static std::string Item(int type, std::size_t length, char filling) {
    return std::string{static_cast<char>(type), 0, static_cast<char>(length)} +
           std::string(length, filling);
  }
};

TEST_F(ItemsAhead, OfOneLength) {
  std::string items;
  for (int index = 0; index < 12; ++index) items += Item(7, 3, static_cast<char>('a' + index));
  EXPECT_EQ(Pass(items + Item(8, 3, '-'), 12), std::string("lll\0\0\0", 6));
  EXPECT_EQ(qvslm::FilePosition(), 1 + 12 * 6);
}

// The buffer is as if each had been read: a body leaves what lies behind it.
TEST_F(ItemsAhead, OfSeveralLengths) {
  EXPECT_EQ(Pass(Item(7, 5, 'a') + Item(7, 3, 'b') + Item(7, 4, 'c') + Item(7, 2, 'd'), 4),
            std::string("ddcca\0", 6));
}

TEST_F(ItemsAhead, OfOneLengthBehindALongerOne) {
  std::string items = Item(7, 5, 'a');
  for (int index = 1; index < 9; ++index) items += Item(7, 2, static_cast<char>('a' + index));
  EXPECT_EQ(Pass(items, 9), std::string("iiaaa\0", 6));
}

TEST_F(ItemsAhead, OfOneLengthBeforeALongerOne) {
  std::string items;
  for (int index = 0; index < 8; ++index) items += Item(7, 2, static_cast<char>('a' + index));
  EXPECT_EQ(Pass(items + Item(7, 4, 'z') + Item(7, 1, 'y'), 10), std::string("yzzz\0\0", 6));
}

TEST_F(ItemsAhead, WithoutABody) {
  std::string items;
  for (int index = 0; index < 9; ++index) items += Item(7, 0, '-');
  EXPECT_EQ(Pass(items, 9), std::string("x\0\0\0\0\0", 6));
}

// An item that the file's end cuts is left where it is.
TEST_F(ItemsAhead, UpToTheEndOfTheFile) {
  std::string items;
  for (int index = 0; index < 8; ++index) items += Item(7, 2, static_cast<char>('a' + index));
  for (std::size_t cut = 1; cut < 5; ++cut) {
    EXPECT_EQ(Pass(items.substr(0, items.size() - cut), 7), std::string("gg\0\0\0\0", 6)) << cut;
    EXPECT_EQ(qvslm::FilePosition(), 1 + 7 * 5) << cut;
  }
}

TEST_F(ItemsAhead, UpToTheEndOfTheFileInAnotherLength) {
  std::string const items = Item(7, 3, 'a') + Item(7, 2, 'b');
  for (std::size_t cut = 1; cut < 5; ++cut) {
    EXPECT_EQ(Pass(items.substr(0, items.size() - cut), 1), std::string("aaa\0\0\0", 6)) << cut;
    EXPECT_EQ(qvslm::FilePosition(), 1 + 6) << cut;
  }
}

TEST_F(ItemsAhead, NoneOfTheType) {
  EXPECT_EQ(Pass(Item(8, 2, 'a'), 0), std::string("x\0\0\0\0\0", 6));
  EXPECT_EQ(qvslm::FilePosition(), 1);
}

}  // namespace
