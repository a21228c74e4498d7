// Files that change while they are read: cut, lengthened, overwritten, replaced, removed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "robustness/promised_statuses.h"
#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kMarks = 200;
constexpr std::size_t kMarkEvery = 1000;  // bytes

// Level mark number i, from 0: half a decibel more than the one before.
constexpr double LevelOf(int i) {
  return 50.25 + 0.5 * i;
}

Body Mark(int i) {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 0, 0).Level(LevelOf(i)).U8(0);
}

// One level mark in each 1000 bytes of the data, which the library cannot all hold in memory.
DataFile MarksWithoutEnd(int marks) {
  DataFile file = General();
  for (int i = 0; i < marks; ++i) {
    std::size_t const before = file.Size();
    file.Item(5, Mark(i));
    file.Item(9, Body().Fill(kMarkEvery - (file.Size() - before) - 3, 0x55));
  }
  return file;
}

std::string Marks() {
  return MarksWithoutEnd(kMarks).EndOfData().Bytes();
}

std::size_t DataBegin() {
  return General().Size();
}

void Cut(const std::string& path, std::size_t size) {
  std::filesystem::resize_file(path, size);
}

void Append(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file << bytes;
}

// Takes the next mark, passing the items between.
void ExpectMark(Session& session, int i) {
  do {
    ASSERT_EQ(session.Next(), QV_OK) << "mark " << i;
  } while (session.Code() == QV_NO_RECORD);
  ASSERT_EQ(session.Code(), QV_LEVEL_MARK);
  ASSERT_EQ(session.As<QvLevelMark>().Level, static_cast<float>(LevelOf(i)));
  ASSERT_EQ(session.As<QvLevelMark>().RecordIndex, static_cast<std::uint32_t>(i + 1));
}

void ExpectMarks(Session& session, int first, int last) {
  for (int i = first; i <= last; ++i) ASSERT_NO_FATAL_FAILURE(ExpectMark(session, i));
}

// Steps until one fails; what it returned.
int Failure(Session& session, int mostSteps) {
  int status = 0;
  while (status >= 0 && mostSteps-- > 0) {
    status = session.Next();
    EXPECT_TRUE(IsPromised(Export::TranslateNextRec, status)) << status;
  }
  return status;
}

TEST(ChangingFile, IsCutWhereItIsStillToBeRead) {
  TempFile const file(Marks());
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  ExpectMarks(session, 0, 9);
  // Behind mark 149, in front of the item between it and the next.
  Cut(file.Path(), DataBegin() + 149 * kMarkEvery + 3 + Mark(0).Size());
  ExpectMarks(session, 10, 149);
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
}

TEST(ChangingFile, IsCutWithinAnItem) {
  TempFile const file(Marks());
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  ExpectMarks(session, 0, 9);
  // Two bytes into the body of mark 150: the record comes with what was read last in its place.
  Cut(file.Path(), DataBegin() + 150 * kMarkEvery + 3 + 2);
  ExpectMarks(session, 10, 149);
  do {
    ASSERT_EQ(session.Next(), QV_OK);
  } while (session.Code() == QV_NO_RECORD);
  EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
}

// What has been read already may still be delivered, as it stood in the file.
TEST(ChangingFile, IsCutBeforeThePlaceInHand) {
  for (std::size_t const size : {std::size_t{0}, std::size_t{1}, DataBegin(), DataBegin() + 2000}) {
    TempFile const file(Marks());
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    ExpectMarks(session, 0, 9);
    Cut(file.Path(), size);
    EXPECT_EQ(Failure(session, 2 * kMarks), QV_BAD_LENGTH) << size;
    EXPECT_EQ(session.Next(), QV_BAD_LENGTH) << size;
  }
}

// A measurement that goes on: the end of the file is none of the data, and what is appended is read
// from there.
TEST(ChangingFile, GrowsAtItsEnd) {
  TempFile const file(MarksWithoutEnd(10).Bytes());
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  ExpectMarks(session, 0, 9);
  EXPECT_EQ(session.Next(), QV_OK);  // the item between
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  for (int i = 10; i < 20; ++i) {
    Append(file.Path(), DataFile().Item(5, Mark(i)).Bytes());
    ExpectMark(session, i);
    EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  }
  // Byte by byte: a type, a length that is still missing, a body that comes at once.
  std::string const item = DataFile().Item(5, Mark(20)).Bytes();
  Append(file.Path(), item.substr(0, 1));
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  Append(file.Path(), item.substr(1, 1));
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  Append(file.Path(), item.substr(2));
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvLevelMark>().Level, 60.25F);
  Append(file.Path(), std::string(1, '\0'));
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

TEST(ChangingFile, GrowsWhileItIsRead) {
  std::string const whole = Marks();
  std::size_t const half = DataBegin() + 100 * kMarkEvery;
  TempFile const file(whole.substr(0, half));
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  ExpectMarks(session, 0, 99);
  Append(file.Path(), whole.substr(half));
  ExpectMarks(session, 100, kMarks - 1);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

TEST(ChangingFile, GrowsBetweenCensusAndTranslation) {
  TempFile const file(MarksWithoutEnd(10).EndOfData().Bytes());
  Session session;
  ASSERT_EQ(session.Census(file.Path()), QV_OK);
  EXPECT_EQ(session.Counts().LevelMarks, 10U);
  file.Rewrite(Marks());
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  ExpectMarks(session, 0, kMarks - 1);
}

// The file that was opened is the one that is read, whatever its name leads to by then.
TEST(ChangingFile, IsRemovedWhileItIsRead) {
  TempFolder const folder;
  std::string const path = folder.File("data", Marks());
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  ExpectMarks(session, 0, 9);
  std::filesystem::remove(path);
  ExpectMarks(session, 10, kMarks - 1);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
}

TEST(ChangingFile, IsReplacedWhileItIsRead) {
  TempFolder const folder;
  std::string const path = folder.File("data", Marks());
  // Where the data of the first file end, the second has a mark of its own.
  DataFile second;
  second.Raw(Marks()).Item(5, Mark(7)).EndOfData();
  std::string const other = folder.File("other", second.Bytes());
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  ExpectMarks(session, 0, 9);
  std::filesystem::rename(other, path);
  ExpectMarks(session, 10, kMarks - 1);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  // The step behind the end opens the file by its name.
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
  EXPECT_EQ(session.As<QvLevelMark>().Level, 53.75F);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

// Overwritten in place: the walk meets bytes of two files, and ends.
TEST(ChangingFile, IsOverwrittenWhileItIsRead) {
  const std::string kOthers[] = {std::string(200000, '\0'),   std::string(200000, '\xFF'),
                                 std::string(200000, 'Q'),    std::string(200000, 'R'),
                                 std::string(200000, '\x05'), std::string(200000, '\n')};
  long const open = OpenFiles();
  for (const std::string& other : kOthers) {
    TempFile const file(Marks());
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    ExpectMarks(session, 0, 9);
    file.Rewrite(other);
    EXPECT_LT(Failure(session, 200000), 0) << "bytes " << static_cast<int>(other[0]);
    QV_StopTranslate();
    EXPECT_EQ(OpenFiles(), open);
  }
}

// Between two calls of a host that looks before it translates.
TEST(ChangingFile, IsGoneBetweenTwoCalls) {
  TempFolder const folder;
  std::string const path = folder.File("data", Marks());
  Session session;
  ASSERT_EQ(session.Census(path), QV_OK);
  std::filesystem::remove(path);
  EXPECT_EQ(session.Start(path), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
  std::filesystem::create_directory(path);
  EXPECT_EQ(session.Start(path), QV_SEEK_FAILED);
  QV_StopTranslate();
  std::filesystem::remove(path);
  folder.File("data", Marks());
  ASSERT_EQ(session.Start(path), QV_OK);
  ExpectMarks(session, 0, 9);
}

}  // namespace
}  // namespace test
