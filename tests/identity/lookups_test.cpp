// The quick lookups of serial number, model, firmware and sites.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::FilledPipe;
using test::General;
using test::GuardedBuffer;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::TempFile;

struct Instrument {
  int status;
  int model;
  std::string serial;
  float firmware;
};

// The lookup, with a buffer for the serial number that ends where the header promises.
Instrument LookUpPath(const std::string& path) {
  Session session;
  GuardedBuffer serial(81, 0xEE);
  uint16_t model = 7;
  float firmware = 7.0f;
  long const open = OpenFiles();
  int const status = QV_ReadFileSN(path.c_str(), session.Context(), &model,
                                   reinterpret_cast<char*>(serial.Data()), &firmware);
  EXPECT_EQ(OpenFiles(), open);
  const char* const text = reinterpret_cast<const char*>(serial.Data());
  return {status, model, std::string(text, strnlen(text, 81)), firmware};
}

Instrument LookUp(std::string_view bytes) {
  TempFile const file(bytes);
  return LookUpPath(file.Path());
}

TEST(ReadFileSN, PlainHeader) {
  Instrument const general = LookUp(General("1.25").EndOfData().Bytes());
  EXPECT_EQ(general.status, QV_OK);
  EXPECT_EQ(general.model, 486);
  EXPECT_EQ(general.serial, " 1234");
  EXPECT_EQ(general.firmware, 1.25f);

  Instrument const model442 = LookUp(Model442("SSA", "3.600").EndOfData().Bytes());
  EXPECT_EQ(model442.status, QV_OK);
  EXPECT_EQ(model442.model, 442);
  EXPECT_EQ(model442.serial, " 1234");
  EXPECT_EQ(model442.firmware, 3.6f);
}

TEST(ReadFileSN, Lines) {
  struct Row {
    const char* bytes;
    int status;
    int model;
    const char* serial;
    float firmware;
  };
  constexpr Row kRows[] = {
      {"L\r\n442 1234\r\n3.6\r\n", 0, 442, " 1234", 3.6f},
      {"L\r\n431A77\r\n2.5 beta\r\n", 0, 431, "A77", 2.5f},
      {"L\r\n500 1\r\nV2\r\n", 0, 500, " 1", 0.0f},
      {"L\r\nabc12345\r\n1\r\n", 0, 0, "12345", 1.0f},
      {"L\r\n442 1234\n3.6\n", 0, 442, " 123", 3.6f},  // two characters are the line end
      {"L\r\n442 1\r\n3.6", 0, 442, " 1", 3.6f},       // the last line needs no end
      {"L\r\n442\r\n3.6\r\n", -317, 442, "", 3.6f},    // no serial number
      {"L\r\n44\r\n3.6\r\n", -317, 44, "", 3.6f},
      {"L\r\n4\r\n3.6\r\n", -317, 4, "", 3.6f},
      {"L\r\n\r\n3.6\r\n", -317, 0, "", 3.6f},
      {"@a\r\n@b\r\n@c\r\nL\r\n442 5\r\n3.6\r\n", 0, 442, " 5", 3.6f},
      {"any\r\nother\r\nline\r\nLine\r\n442 5\r\n3.6\r\n", 0, 442, " 5", 3.6f},
      // A header that opens with a blank or a star is run through, to the first 'L' or 'Q' behind.
      {" title\r\n442 5\r\n3.6\r\nfour\r\n", -310, 486, "", -1.0f},
      {"* title\r\n442 5\r\n3.6\r\nLast\r\n431 6\r\n1.5\r\n", 0, 431, " 6", 1.5f},
      {"* title\r\n442 5\r\nQ233,88\r\n", 0, 486, "A88", -1.0f},
      // Settings lines.
      {"Q233,1234\r\n", 0, 486, "A1234", -1.0f},
      {"Q157,3\r\nQ233,1234\r\nQ234,9\r\n", 0, 486, "A1234", -1.0f},
      {"Q  2,x\r\nQ 233 1234\r\n", 0, 486, "A 1234", -1.0f},
      {"Q157,3\r\nX233,77\r\n", 0, 486, "A77", -1.0f},  // only the first line needs its 'Q'
      {"X233,66\r\nQ157,3\r\nQ233,77\r\n", 0, 486, "A77", -1.0f},
      {"Q157,3\r\nL\r\n442 5\r\n3.6\r\nQ233,77\r\n", 0, 486, "A77", -1.0f},
      {"Q233,1234", 0, 486, "A12", -1.0f},  // without its end the last line loses two characters
      {"Q233,1\r\n", 0, 486, "A1", -1.0f},
      {"Q233,\r\n", 0, 486, "A", -1.0f},
      {"Q233,1", -317, 486, "", -1.0f},
      {"Q233,", -317, 486, "", -1.0f},
      {"Q233\n", -317, 486, "", -1.0f},
      {"Q157,3\r\nQ2,x\r\n", -310, 486, "", -1.0f},
      {"Q157,3", -310, 486, "", -1.0f},
      {"", -310, 486, "", -1.0f},
      {"nothing\r\nto be found", -310, 486, "", -1.0f},
  };
  for (const Row& row : kRows) {
    Instrument const found = LookUp(row.bytes);
    EXPECT_EQ(found.status, row.status) << row.bytes;
    EXPECT_EQ(found.model, row.model) << row.bytes;
    EXPECT_EQ(found.serial, row.serial) << row.bytes;
    EXPECT_EQ(found.firmware, row.firmware) << row.bytes;
  }
}

TEST(ReadFileSN, TheFileEndsWithinTheHeader) {
  EXPECT_EQ(LookUp("L").status, QV_NOT_FOUND);
  EXPECT_EQ(LookUp("L\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(LookUp("L\r\n442 5\r\n").status, QV_NOT_FOUND);
  EXPECT_EQ(LookUp("L\r\n442 5").status, QV_NOT_FOUND);
}

// Lines are read in stretches of 80 characters, so no text outgrows the caller's buffer.
TEST(ReadFileSN, LongLines) {
  Instrument const plain = LookUp(std::string("L\r\n442") + std::string(200, 'x') + "\r\n3.6\r\n");
  EXPECT_EQ(plain.status, QV_OK);
  EXPECT_EQ(plain.model, 442);
  EXPECT_EQ(plain.serial, std::string(75, 'x'));  // 80, less the model and the last two
  EXPECT_EQ(plain.firmware, 0.0f);                // the next stretch of the same line

  Instrument const settings = LookUp(std::string("Q233,") + std::string(200, 'y') + "\r\n");
  EXPECT_EQ(settings.status, QV_OK);
  EXPECT_EQ(settings.serial, std::string("A") + std::string(73, 'y'));

  // The 'L' of a stretch within a line counts as one at its beginning.
  Instrument const within = LookUp(std::string(80, 'x') + "L\r\n431 5\r\n2.5\r\n");
  EXPECT_EQ(within.model, 431);
  EXPECT_EQ(LookUp(std::string(79, 'x') + "L\r\n431 5\r\n2.5\r\n").status, QV_NOT_FOUND);
}

TEST(ReadFileSN, RecordBytesBeforeTheLineDoNoHarm) {
  std::string bytes;
  for (int i = 0; i < 3000; ++i) bytes += static_cast<char>(i * 7 % 60);  // no 'L', no 'Q'
  Instrument const found = LookUp(bytes + "\r\nQ233,1234\r\n");
  EXPECT_EQ(found.status, QV_OK);
  EXPECT_EQ(found.serial, "A1234");
}

TEST(ReadFileSN, AFailedOpenLeavesTheArgumentsAlone) {
  for (const char* const path : {"/no/such/file", ""}) {
    Instrument const found = LookUpPath(path);
    EXPECT_EQ(found.status, QV_CANNOT_OPEN);
    EXPECT_EQ(found.model, 7);
    EXPECT_EQ(found.serial, std::string(81, '\xEE'));
    EXPECT_EQ(found.firmware, 7.0f);
  }
  uint16_t model = 7;
  EXPECT_EQ(QV_ReadFileSN("/no/such/file", nullptr, &model, nullptr, nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(model, 7);
}

TEST(ReadFileSN, APipeIsReadLikeAFile) {
  FilledPipe const pipe(General().EndOfData().Bytes());
  Instrument const found = LookUpPath(pipe.Path());
  EXPECT_EQ(found.status, QV_OK);
  EXPECT_EQ(found.serial, " 1234");
}

struct Sites {
  int status;
  int count;
};

Sites CountPath(const std::string& path) {
  Session session;
  int16_t count = 99;
  long const open = OpenFiles();
  int const status = QV_ReadSiteNum(path.c_str(), session.Context(), &count);
  EXPECT_EQ(OpenFiles(), open);
  return {status, count};
}

Sites Count(std::string_view bytes) {
  TempFile const file(bytes);
  return CountPath(file.Path());
}

TEST(ReadSiteNum, Lines) {
  struct Row {
    const char* bytes;
    int status;
    int count;
  };
  constexpr Row kRows[] = {
      {"Q157,3\r\n", 0, 3},
      {"Q157,3", 0, 3},
      {"Q157, 12 sites\r\n", 0, 12},
      {"Q157,32767\r\n", 0, 32767},
      {"Q  2,title\r\nQ157,4\r\n", 0, 4},
      {"L\r\n486 1\r\n1.1\r\n\r\n\r\n\r\nQ157,5\r\n", 0, 5},
      {"Q157x6\r\n", 0, 6},
      // The search ends with the first count, also with none.
      {"Q157,3\r\nQ157,4\r\n", 0, 3},
      {"Q157,0\r\nQ157,4\r\n", -317, 0},
      {"Q157,\r\nQ157,4\r\n", -317, 0},
      {"Q157,x\r\n", -317, 0},
      {"Q157\r\nQ157,4\r\n", -317, 0},
      {"Q 157,4\r\n", -317, 0},  // the value stands at a fixed column, and that is the comma
      // A negative count is none: the search goes on.
      {"Q157,-1\r\nQ157,4\r\n", 0, 4},
      {"Q157,-1\r\n", -317, 0},
      // Sixteen bits of the number count.
      {"Q157,65536\r\nQ157,4\r\n", -317, 0},
      {"Q157,65537\r\n", 0, 1},
      {"Q157,65535\r\nQ157,4\r\n", 0, 4},
      {"Q157,40000\r\nQ157,4\r\n", 0, 4},
      // Other lines.
      {"X157,3\r\n", -317, 0},
      {" Q157,3\r\n", -317, 0},
      {"R157,3\r\nQ158,3\r\nQ15,73\r\n", -317, 0},
      {"", -317, 0},
      {"nothing", -317, 0},
  };
  for (const Row& row : kRows) {
    Sites const sites = Count(row.bytes);
    EXPECT_EQ(sites.status, row.status) << row.bytes;
    EXPECT_EQ(sites.count, row.count) << row.bytes;
  }
}

TEST(ReadSiteNum, OfWholeFiles) {
  EXPECT_EQ(Count(General().Q(2, "title").Q(157, "7").EndOfData().Bytes()).count, 7);
  // Record bytes before the line are read as lines without harm.
  std::string bytes;
  for (int i = 0; i < 3000; ++i) bytes += static_cast<char>(i * 7 % 60);
  EXPECT_EQ(Count(bytes + "\r\nQ157,8\r\n").count, 8);
  // Lines are read in stretches of 80 characters.
  EXPECT_EQ(Count(std::string(80, 'x') + "Q157,9\r\n").count, 9);
  EXPECT_EQ(Count(std::string(79, 'x') + "Q157,9\r\n").status, QV_NO_TEXT_HEADER);
}

TEST(ReadSiteNum, Failures) {
  Sites const missing = CountPath("/no/such/file");
  EXPECT_EQ(missing.status, QV_CANNOT_OPEN);
  EXPECT_EQ(missing.count, 0);
  int16_t count = 99;
  EXPECT_EQ(QV_ReadSiteNum("/no/such/file", nullptr, &count), QV_NO_ARGUMENT);
  EXPECT_EQ(count, 99);
}

TEST(ReadSiteNum, APipeIsReadLikeAFile) {
  FilledPipe const pipe("Q157,3\r\n");
  EXPECT_EQ(CountPath(pipe.Path()).count, 3);
}

// The lookups reset nothing: a translation's settings are as they were.
TEST(Lookups, LeaveTheRestOfTheContextAlone) {
  TempFile const file(test::Startable(
      General().Q(157, "5").Item(5, Body().Fill(10)).EndOfData().Item(5, Body().Fill(10))));
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  while (session.Next() != QV_END_OF_DATA) continue;
  int16_t count = 0;
  char serial[81];
  uint16_t model = 0;
  float firmware = 0;
  EXPECT_EQ(QV_ReadSiteNum(file.CPath(), session.Context(), &count), QV_OK);
  EXPECT_EQ(QV_ReadFileSN(file.CPath(), session.Context(), &model, serial, &firmware), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvLevelMark>().RecordIndex, 2u);
  EXPECT_EQ(session.As<QvLevelMark>().SiteNumber, 5);
}

}  // namespace
