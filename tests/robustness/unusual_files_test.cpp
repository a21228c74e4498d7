// Files and paths that few hosts ever meet.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/open_files.h"
#include "support/sparse_file.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

Body Mark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(1);
}

// A file that every call can read.
std::string Readable() {
  return Startable(DataFile()
                       .Header({.Model = 486, .Serial = " 1234", .Firmware = "1.100"})
                       .Q(157, "3")
                       .Item(5, Mark())
                       .EndOfData());
}

struct Statuses {
  int header = 0;
  int serial = 0;
  int sites = 0;
  int census = 0;
  int start = 0;
  int step = 0;  // the first one, where the start succeeded
};

Statuses TakeThroughAllCalls(const std::string& path) {
  Session session;
  Statuses statuses;
  QvFileHeaderInfo info;
  std::uint16_t model = 0;
  char serial[81];
  float firmware = 0;
  std::int16_t sites = 0;
  statuses.header = QV_ReadFileHeader(path.c_str(), session.Context(), &info);
  statuses.serial = QV_ReadFileSN(path.c_str(), session.Context(), &model, serial, &firmware);
  statuses.sites = QV_ReadSiteNum(path.c_str(), session.Context(), &sites);
  statuses.census = session.Census(path);
  QV_StopTranslate();
  statuses.start = session.Start(path);
  if (statuses.start == QV_OK) statuses.step = session.Next();
  return statuses;
}

void ExpectReadable(const std::string& path) {
  Statuses const statuses = TakeThroughAllCalls(path);
  EXPECT_EQ(statuses.header, QV_OK);
  EXPECT_EQ(statuses.serial, QV_OK);
  EXPECT_EQ(statuses.sites, QV_OK);
  EXPECT_EQ(statuses.census, QV_OK);
  EXPECT_EQ(statuses.start, QV_OK);
  EXPECT_EQ(statuses.step, QV_OK);
}

void ExpectUnopened(const std::string& path) {
  long const open = OpenFiles();
  Statuses const statuses = TakeThroughAllCalls(path);
  EXPECT_EQ(statuses.header, QV_CANNOT_OPEN);
  EXPECT_EQ(statuses.serial, QV_CANNOT_OPEN);
  EXPECT_EQ(statuses.sites, QV_CANNOT_OPEN);
  EXPECT_EQ(statuses.census, QV_CANNOT_OPEN);
  EXPECT_EQ(statuses.start, QV_CANNOT_OPEN);
  EXPECT_EQ(OpenFiles(), open);
}

// Folders within folders, up to the length that a path may have: 4095 bytes.
TEST(LongPath, OpensInEveryCall) {
  TempFolder const folder;
  std::string path = folder.Path();
  for (std::size_t const length : {300U, 1000U, 4000U}) {
    while (path.size() + 5 < length) {
      path += '/' + std::string(std::min<std::size_t>(200, length - path.size() - 5), 'f');
    }
    std::filesystem::create_directories(path);
    std::string const file = path + "/data";
    std::filesystem::copy_file(folder.File("data", Readable()), file);
    ASSERT_GE(file.size(), length - 1);
    SCOPED_TRACE(file.size());
    ExpectReadable(file);
    std::filesystem::remove(file);
  }
}

// The file is there, but no path of this length is taken.
TEST(LongPath, CannotBeOpenedBeyondWhatTheSystemTakes) {
  TempFolder const folder;
  folder.File("data", Readable());
  std::string path = folder.Path() + '/';
  while (path.size() + 4 < 5000) path += "./";
  ExpectUnopened(path + "data");
}

TEST(UnusualPath, HoldsBytesAbove127) {
  TempFolder const folder;
  std::string const name = "M\xC3\xBChle \xFF\x80\xFE";
  std::filesystem::create_directory(folder.Path() + '/' + name);
  ExpectReadable(folder.File(name + '/' + name + ".qvd", Readable()));
}

TEST(UnusualPath, IsEmptyOrEndsInASeparator) {
  TempFolder const folder;
  std::string const file = folder.File("data", Readable());
  ExpectUnopened("");
  Session session;
  EXPECT_EQ(QV_ReadSiteNum("", session.Context(), nullptr), QV_CANNOT_OPEN);
  ExpectUnopened(file + '/');
  ExpectReadable(folder.Path() + "//.//data");
}

TEST(UnreadableFile, CannotBeOpened) {
  if (geteuid() == 0) GTEST_SKIP() << "root reads every file";
  TempFile const file(Readable());
  ASSERT_EQ(chmod(file.CPath(), 0), 0);
  ExpectUnopened(file.Path());
}

TEST(EmptyFile, HasNoFirstLine) {
  TempFile const file("");
  for (const std::string& path : {file.Path(), std::string("/dev/null")}) {
    Statuses const statuses = TakeThroughAllCalls(path);
    EXPECT_EQ(statuses.header, QV_SEEK_FAILED);
    EXPECT_EQ(statuses.serial, QV_NOT_FOUND);
    EXPECT_EQ(statuses.sites, QV_NO_TEXT_HEADER);
    EXPECT_EQ(statuses.census, QV_SEEK_FAILED);
    EXPECT_EQ(statuses.start, QV_SEEK_FAILED);
  }
}

// A pipe is read from its start, but the walk of a census has to seek.
TEST(Pipe, CannotBeCounted) {
  FilledPipe const pipe(Readable());
  Session session;
  long const open = OpenFiles();
  EXPECT_EQ(session.Census(pipe.Path()), QV_SEEK_FAILED);
  EXPECT_EQ(OpenFiles(), open + 1);  // it stays open behind a seek that failed
  QV_StopTranslate();
  EXPECT_EQ(OpenFiles(), open);
}

constexpr std::int64_t kTwoGiB = std::int64_t{1} << 31;
constexpr const char* kNoRoom = "the disk holds no files of 2 GiB";

// The data may end long before the file does, and the start looks for the last stop at the end.
TEST(SparseFile, IsReadUpToTheEndOfItsData) {
  DataFile const head = General().Q(157, "3").Item(7, Body().Fill(4)).Item(5, Mark()).EndOfData();
  SparseFile const file(head.Bytes(), kTwoGiB + 5000,
                        std::string(2600, '\n') + "R   6,21Jun2024,13:00:00\r\n");
  if (!file.Written()) GTEST_SKIP() << kNoRoom;
  ExpectReadable(file.Path());
  Translation const run(file.Path(), {.census = true});
  EXPECT_EQ(run.counts.LevelMarks, 1U);
  EXPECT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.Codes(), (std::vector<int>{QV_SETTINGS, QV_BLOCK_IMAGE, QV_LEVEL_MARK, QV_END}));
  EXPECT_EQ(run.As<QvBlockImage>(0, QV_BLOCK_IMAGE).RecordTime, 1718974799);  // a second before
}

// Lines are looked for up to the end of the file. One that ends above 2,147,483,647 bytes cannot be
// taken.
TEST(SparseFile, HoldsALineBeyondTheHighestOffset) {
  SparseFile const file(Model431("OBA ").R(7, "01:00:00").Bytes(), kTwoGiB,
                        DataFile().Raw("\n").R(7, "02:00:00").EndOfData().Bytes());
  if (!file.Written()) GTEST_SKIP() << kNoRoom;
  long const open = OpenFiles();
  Session session;
  // The second parser of this model's results looks for a block of its own.
  EXPECT_EQ(session.Census(file.Path()), QV_SEEK_FAILED);
  EXPECT_EQ(session.Counts().ResultsBlocksMode0, 1U);
  QV_StopTranslate();
  EXPECT_EQ(OpenFiles(), open);
}

// The lookups read lines up to the highest offset, and none that begins behind it.
TEST(SparseFile, HoldsItsSitesAtTheEnd) {
  std::string const line = DataFile().Raw("\n").Q(157, "7").Bytes();
  SparseFile const within(General().EndOfData().Bytes(), kTwoGiB - 100, line);
  if (!within.Written()) GTEST_SKIP() << kNoRoom;
  Session session;
  std::int16_t sites = 0;
  EXPECT_EQ(QV_ReadSiteNum(within.Path().c_str(), session.Context(), &sites), QV_OK);
  EXPECT_EQ(sites, 7);
  SparseFile const behind(General().EndOfData().Bytes(), kTwoGiB + 100, line);
  EXPECT_EQ(QV_ReadSiteNum(behind.Path().c_str(), session.Context(), &sites), QV_NO_TEXT_HEADER);
  EXPECT_EQ(sites, 0);
}

TEST(DeviceWithoutEnd, EndsEachCall) {
  long const open = OpenFiles();
  Statuses const statuses = TakeThroughAllCalls("/dev/zero");
  EXPECT_EQ(statuses.header, QV_SEEK_FAILED);
  EXPECT_EQ(statuses.serial, QV_NOT_FOUND);
  EXPECT_EQ(statuses.sites, QV_NO_TEXT_HEADER);
  EXPECT_EQ(statuses.census, QV_SEEK_FAILED);
  EXPECT_EQ(statuses.start, QV_SEEK_FAILED);
  EXPECT_EQ(OpenFiles(), open);
}

}  // namespace
}  // namespace test
