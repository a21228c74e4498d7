// Every status code, from each call that can return it, and what a failed call leaves behind.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>

#include <fstream>
#include <string>

#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::GuardedBuffer;
using test::Model431;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::Startable;
using test::TempFile;
using test::TempFolder;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kAddressSanitizer = true;
#elif defined(__has_feature)
constexpr bool kAddressSanitizer = __has_feature(address_sanitizer);
#else
constexpr bool kAddressSanitizer = false;
#endif

Body Mark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(1);
}

// The calls that open a file by its path, under one signature.
enum class Call { ReadFileHeader, ReadFileSN, ReadSiteNum, GetRecordCount, StartTranslate };
constexpr Call kOpeningCalls[] = {Call::ReadFileHeader, Call::ReadFileSN, Call::ReadSiteNum,
                                  Call::GetRecordCount, Call::StartTranslate};

int StatusOf(Call call, const char* path, void* context) {
  GuardedBuffer record(QV_OUTPUT_RECORD_SIZE, 0xEE);
  QvFileHeaderInfo info;
  QvRecordCensus census;
  uint16_t model = 0;
  char serial[81];
  float firmware = 0;
  int16_t sites = 0;
  switch (call) {
    case Call::ReadFileHeader:
      return QV_ReadFileHeader(path, context, &info);
    case Call::ReadFileSN:
      return QV_ReadFileSN(path, context, &model, serial, &firmware);
    case Call::ReadSiteNum:
      return QV_ReadSiteNum(path, context, &sites);
    case Call::GetRecordCount:
      return QV_GetRecordCount(path, context, &census, record.Data());
    case Call::StartTranslate: {
      int const status = QV_StartTranslate(path, context);
      if (context != nullptr) QV_StopTranslate();
      return status;
    }
  }
  return 1;
}

TEST(Status, NoArgument) {
  TempFile const file(Startable(General().Item(5, Mark()).EndOfData()));
  long const open = OpenFiles();
  for (Call const call : kOpeningCalls) {
    EXPECT_EQ(StatusOf(call, file.CPath(), nullptr), QV_NO_ARGUMENT) << static_cast<int>(call);
    EXPECT_EQ(StatusOf(call, "/no/such/file", nullptr), QV_NO_ARGUMENT) << static_cast<int>(call);
    EXPECT_EQ(StatusOf(call, nullptr, nullptr), QV_NO_ARGUMENT) << static_cast<int>(call);
  }
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Status, NoArgumentForANullRecordOrCensus) {
  TempFile const file(Startable(General().Item(5, Mark()).EndOfData()));
  Session session;
  QvRecordCensus census;
  long const open = OpenFiles();
  EXPECT_EQ(QV_GetRecordCount(file.CPath(), session.Context(), nullptr, session.Record()),
            QV_NO_ARGUMENT);
  EXPECT_EQ(QV_GetRecordCount(file.CPath(), session.Context(), &census, nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(QV_TranslateNextRec(nullptr, session.Context()), QV_NO_ARGUMENT);
  EXPECT_EQ(QV_TranslateNextRec(session.Record(), nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Status, NullOutArgumentsArePassedOver) {
  TempFile const file(Startable(General().Item(5, Mark()).Q(157, "3").EndOfData()));
  TempFile const plain(
      DataFile().Header({.Serial = " 55", .FirstLine = "L"}).Q(157, "3").EndOfData());
  Session session;
  uint16_t model = 0;
  char serial[81] = "";
  float firmware = 0;
  EXPECT_EQ(QV_ReadFileHeader(file.CPath(), session.Context(), nullptr), QV_OK);
  EXPECT_EQ(QV_ReadFileSN(plain.CPath(), session.Context(), nullptr, nullptr, nullptr), QV_OK);
  EXPECT_EQ(QV_ReadFileSN(plain.CPath(), session.Context(), &model, nullptr, nullptr), QV_OK);
  EXPECT_EQ(model, 486);
  EXPECT_EQ(QV_ReadFileSN(plain.CPath(), session.Context(), nullptr, serial, nullptr), QV_OK);
  EXPECT_STREQ(serial, " 55");
  EXPECT_EQ(QV_ReadFileSN(plain.CPath(), session.Context(), nullptr, nullptr, &firmware), QV_OK);
  EXPECT_EQ(firmware, 1.1f);
  EXPECT_EQ(QV_ReadSiteNum(plain.CPath(), session.Context(), nullptr), QV_OK);
}

TEST(Status, CannotOpen) {
  Session session;
  std::string const paths[] = {"/no/such/file", "", std::string(300, 'x'), std::string(5000, 'x'),
                               "\xFF\xFE\x80"};
  for (Call const call : kOpeningCalls) {
    for (const std::string& path : paths) {
      EXPECT_EQ(StatusOf(call, path.c_str(), session.Context()), QV_CANNOT_OPEN)
          << static_cast<int>(call) << ' ' << path;
    }
    EXPECT_EQ(StatusOf(call, nullptr, session.Context()), QV_CANNOT_OPEN) << static_cast<int>(call);
  }
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
}

// What is no data file at all ends with a status in every call.
TEST(Status, FilesOfOtherKinds) {
  struct Row {
    const char* name;
    std::string bytes;
  };
  const Row kRows[] = {
      {"empty", ""},
      {"one byte", "X"},
      {"zeros", std::string(10000, '\0')},
      {"text", "This is no measurement.\r\n" + std::string(9000, 'y')},
      {"line ends", std::string(5000, '\n')},
  };
  TempFolder const folder;
  Session session;
  long const open = OpenFiles();
  for (const Row& row : kRows) {
    std::string const path = folder.File(row.name, row.bytes);
    EXPECT_EQ(StatusOf(Call::ReadFileHeader, path.c_str(), session.Context()), QV_SEEK_FAILED)
        << row.name;
    EXPECT_EQ(StatusOf(Call::ReadFileSN, path.c_str(), session.Context()), QV_NOT_FOUND)
        << row.name;
    EXPECT_EQ(StatusOf(Call::ReadSiteNum, path.c_str(), session.Context()), QV_NO_TEXT_HEADER)
        << row.name;
    EXPECT_EQ(StatusOf(Call::GetRecordCount, path.c_str(), session.Context()), QV_SEEK_FAILED)
        << row.name;
    QV_StopTranslate();
    EXPECT_EQ(StatusOf(Call::StartTranslate, path.c_str(), session.Context()), QV_SEEK_FAILED)
        << row.name;
  }
  // A folder opens, but cannot be read.
  EXPECT_EQ(StatusOf(Call::ReadFileHeader, folder.Path().c_str(), session.Context()),
            QV_SEEK_FAILED);
  EXPECT_EQ(StatusOf(Call::ReadFileSN, folder.Path().c_str(), session.Context()), QV_NOT_FOUND);
  EXPECT_EQ(StatusOf(Call::ReadSiteNum, folder.Path().c_str(), session.Context()),
            QV_NO_TEXT_HEADER);
  EXPECT_EQ(StatusOf(Call::GetRecordCount, folder.Path().c_str(), session.Context()),
            QV_SEEK_FAILED);
  QV_StopTranslate();
  EXPECT_EQ(StatusOf(Call::StartTranslate, folder.Path().c_str(), session.Context()),
            QV_SEEK_FAILED);
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Status, NotFound) {
  Session session;
  TempFile const noResults(Model442("SSA").EndOfData());
  EXPECT_EQ(StatusOf(Call::StartTranslate, noResults.CPath(), session.Context()), QV_NOT_FOUND);
  TempFile const noSerial(DataFile().Q(157, "3").EndOfData());
  EXPECT_EQ(StatusOf(Call::ReadFileSN, noSerial.CPath(), session.Context()), QV_NOT_FOUND);
}

TEST(Status, BadLength) {
  Session session;
  TempFile const file(Startable(General().Raw(Body().U8(9).U16(6201).Bytes()).EndOfData()));
  EXPECT_EQ(StatusOf(Call::GetRecordCount, file.CPath(), session.Context()), QV_BAD_LENGTH);
  QV_StopTranslate();
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
  EXPECT_EQ(session.Next(), QV_BAD_LENGTH);
}

TEST(Status, RecordTooShort) {
  Session session;
  TempFile const file(Startable(General().Item(4, Body().Fill(12)).EndOfData()));
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  EXPECT_EQ(session.Code(), QV_EVENT);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
}

TEST(Status, TailSeekFailed) {
  Session session;
  TempFile const general(General().EndOfData());
  EXPECT_EQ(StatusOf(Call::StartTranslate, general.CPath(), session.Context()),
            QV_TAIL_SEEK_FAILED);
  TempFile const model431(Model431("OBA ").EndOfData());
  EXPECT_EQ(StatusOf(Call::StartTranslate, model431.CPath(), session.Context()),
            QV_TAIL_SEEK_FAILED);
  // Only the start looks there.
  EXPECT_EQ(StatusOf(Call::ReadFileHeader, general.CPath(), session.Context()), QV_OK);
  EXPECT_EQ(StatusOf(Call::GetRecordCount, general.CPath(), session.Context()), QV_OK);
}

TEST(Status, NoTextHeader) {
  Session session;
  TempFile const settings(DataFile().Q(2, "title").Q(233, "").EndOfData());
  EXPECT_EQ(StatusOf(Call::ReadFileHeader, settings.CPath(), session.Context()), QV_NO_TEXT_HEADER);
  EXPECT_EQ(StatusOf(Call::StartTranslate, settings.CPath(), session.Context()), QV_NO_TEXT_HEADER);
  EXPECT_EQ(StatusOf(Call::ReadSiteNum, settings.CPath(), session.Context()), QV_NO_TEXT_HEADER);
  TempFile const noSerial("L\r\n442\r\n3.6\r\n");
  EXPECT_EQ(StatusOf(Call::ReadFileSN, noSerial.CPath(), session.Context()), QV_NO_TEXT_HEADER);
}

TEST(Status, EndOfData) {
  Session session;
  TempFile const file(Startable(General().EndOfData()));
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  // The walk of the census turns it into success.
  EXPECT_EQ(StatusOf(Call::GetRecordCount, file.CPath(), session.Context()), QV_OK);
}

// Kilobytes of address space that the process has.
rlim_t AddressSpace() {
  std::ifstream statm("/proc/self/statm");
  rlim_t pages = 0;
  statm >> pages;
  return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

// The scan of model 442 wants one block of 2,100,000 bytes.
TEST(Status, NoMemory) {
  if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer's own memory cannot be limited";
  TempFile const file(Startable(Model442("SSA").EndOfData()));
  TempFile const general(Startable(General().EndOfData()));
  Session session;
  ASSERT_EQ(StatusOf(Call::StartTranslate, file.CPath(), session.Context()), QV_OK);

  malloc_trim(0);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
  rlimit const tight{AddressSpace() + 1000000, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_AS, &tight), 0);
  long const open = OpenFiles();
  int const status = session.Start(file.Path());
  long const openBehind = OpenFiles();
  QV_StopTranslate();
  int const other = StatusOf(Call::StartTranslate, general.CPath(), session.Context());
  setrlimit(RLIMIT_AS, &before);

  EXPECT_EQ(status, QV_NO_MEMORY);
  EXPECT_EQ(openBehind, open + 1);  // the file stays open
  EXPECT_EQ(other, QV_OK);          // other models want no memory
  EXPECT_EQ(StatusOf(Call::StartTranslate, file.CPath(), session.Context()), QV_OK);
}

}  // namespace
