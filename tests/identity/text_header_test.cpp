// The text lines at the head of a file, as a host receives them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/open_files.h"
#include "support/temp_file.h"
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
using test::TempFile;
using test::Translation;

constexpr int kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

// The header of a file, read into a record that ends where it promises to.
struct HeaderRead {
  int status;
  QvFileHeaderInfo info;
};

HeaderRead ReadHeader(std::string_view bytes) {
  TempFile const file(bytes);
  Session session;
  GuardedBuffer info(sizeof(QvFileHeaderInfo), 0xEE);
  long const open = OpenFiles();
  HeaderRead read{};
  read.status = QV_ReadFileHeader(file.CPath(), session.Context(),
                                  reinterpret_cast<QvFileHeaderInfo*>(info.Data()));
  EXPECT_EQ(OpenFiles(), open);
  std::memcpy(&read.info, info.Data(), sizeof read.info);
  return read;
}

HeaderRead ReadHeader(const DataFile& file) {
  return ReadHeader(file.Bytes());
}

bool IsZero(const char* field, std::size_t size) {
  return std::string(field, size) == std::string(size, '\0');
}

TEST(FileHeader, PlainForm) {
  HeaderRead const read = ReadHeader(General().EndOfData());
  EXPECT_EQ(read.status, QV_OK);
  EXPECT_STREQ(read.info.HeaderLine1, "L measurement file");
  EXPECT_STREQ(read.info.HeaderLine2, "486 1234");
  EXPECT_STREQ(read.info.HeaderLine3, "1.100");
  EXPECT_STREQ(read.info.HeaderLine4, "fourth line");
  EXPECT_STREQ(read.info.HeaderLine5, "Date/Time:21Jun2024 12:00:00");
  EXPECT_TRUE(IsZero(read.info.HeaderLine6, 42));  // other models have no mode line
  EXPECT_TRUE(IsZero(read.info.TitleLine1, 82));
  EXPECT_TRUE(IsZero(read.info.TitleLine2, 82));
  EXPECT_TRUE(IsZero(read.info.TitleLine3, 82));
}

TEST(FileHeader, AtItsOffsets) {
  TempFile const file(DataFile().Titles("a", "b", "c").Header({.Model = 442, .ModeTag = "SSA"}));
  Session session;
  GuardedBuffer info(498);
  ASSERT_EQ(QV_ReadFileHeader(file.CPath(), session.Context(),
                              reinterpret_cast<QvFileHeaderInfo*>(info.Data())),
            QV_OK);
  const char* const text = reinterpret_cast<const char*>(info.Data());
  EXPECT_STREQ(text, "L measurement file");
  EXPECT_STREQ(text + 42, "442 1234");
  EXPECT_STREQ(text + 84, "1.100");
  EXPECT_STREQ(text + 126, "fourth line");
  EXPECT_STREQ(text + 168, "Date/Time:21Jun2024 12:00:00");
  EXPECT_STREQ(text + 210, "SSA");
  EXPECT_STREQ(text + 252, " a");
  EXPECT_STREQ(text + 334, " b");
  EXPECT_STREQ(text + 416, " c");
}

TEST(FileHeader, ModeLineOfModels431And442) {
  EXPECT_STREQ(ReadHeader(Model431("iSLM")).info.HeaderLine6, "iSLM");
  EXPECT_STREQ(ReadHeader(Model442("LOG and more")).info.HeaderLine6, "LOG and more");
  EXPECT_TRUE(
      IsZero(ReadHeader(DataFile().Header({.Model = 430, .ModeTag = "LOG"})).info.HeaderLine6, 42));
}

TEST(FileHeader, FirstLines) {
  for (const char* const first : {"L", "L title", " title", "* title", " ", "*", "Low"}) {
    HeaderRead const read = ReadHeader(DataFile().Header({.FirstLine = first}));
    EXPECT_EQ(read.status, QV_OK) << first;
    EXPECT_STREQ(read.info.HeaderLine1, first);
    EXPECT_STREQ(read.info.HeaderLine2, "486 1234");
  }
  for (const char* const first : {"", "l", "X", "1", "R  1,x", "E", "\t", "M", "q", "."}) {
    HeaderRead const read = ReadHeader(DataFile().Header({.FirstLine = first}));
    EXPECT_EQ(read.status, QV_SEEK_FAILED) << first;
    EXPECT_TRUE(IsZero(reinterpret_cast<const char*>(&read.info), sizeof read.info)) << first;
  }
  EXPECT_EQ(ReadHeader("").status, QV_SEEK_FAILED);
  EXPECT_EQ(ReadHeader(std::string_view("\0L\r\n", 4)).status, QV_SEEK_FAILED);
}

TEST(FileHeader, TitleForm) {
  HeaderRead const read =
      ReadHeader(DataFile().Titles("one", "two@2", "").Header({.FirstLine = "* starred"}));
  EXPECT_EQ(read.status, QV_OK);
  EXPECT_STREQ(read.info.TitleLine1, " one");
  EXPECT_STREQ(read.info.TitleLine2, " two@2");  // only the first '@' becomes a blank
  EXPECT_STREQ(read.info.TitleLine3, " ");
  EXPECT_STREQ(read.info.HeaderLine1, "* starred");
  EXPECT_STREQ(read.info.HeaderLine5, "Date/Time:21Jun2024 12:00:00");
}

// Three lines are titles whatever they open with; the first '@' in each becomes a blank.
TEST(FileHeader, OnlyTheFirstTitleNeedsItsSign) {
  HeaderRead const read =
      ReadHeader(DataFile().Line("@one").Line("two @ 2").Line("three").Header({}));
  EXPECT_EQ(read.status, QV_OK);
  EXPECT_STREQ(read.info.TitleLine1, " one");
  EXPECT_STREQ(read.info.TitleLine2, "two   2");
  EXPECT_STREQ(read.info.TitleLine3, "three");
  EXPECT_STREQ(read.info.HeaderLine2, "486 1234");
}

TEST(FileHeader, SettingsForm) {
  HeaderRead const plain = ReadHeader(DataFile().Q(2, "title").EndOfData());
  EXPECT_EQ(plain.status, QV_NO_TEXT_HEADER);
  EXPECT_TRUE(IsZero(reinterpret_cast<const char*>(&plain.info), sizeof plain.info));

  HeaderRead const titles =
      ReadHeader(DataFile().Titles("one", "two", "three").Q(2, "title").EndOfData());
  EXPECT_EQ(titles.status, QV_NO_TEXT_HEADER);
  EXPECT_STREQ(titles.info.TitleLine1, " one");
  EXPECT_STREQ(titles.info.TitleLine2, " two");
  EXPECT_STREQ(titles.info.TitleLine3, " three");
  EXPECT_TRUE(IsZero(reinterpret_cast<const char*>(&titles.info), 252));  // all six header lines

  // Anything behind the titles but a header is the settings form, too.
  EXPECT_EQ(ReadHeader(DataFile().Titles("a", "b", "c").Line("@d").Header({})).status,
            QV_NO_TEXT_HEADER);
  EXPECT_EQ(ReadHeader(DataFile().Titles("a", "b", "c").Line("X").Header({})).status,
            QV_NO_TEXT_HEADER);
  EXPECT_EQ(ReadHeader(DataFile().Titles("a", "b", "c")).status, QV_NO_TEXT_HEADER);
  EXPECT_EQ(ReadHeader(DataFile().Line("@a").Line("b")).status, QV_NO_TEXT_HEADER);
  EXPECT_EQ(ReadHeader("@").status, QV_NO_TEXT_HEADER);
}

TEST(FileHeader, LinesAreCutToTheirField) {
  std::string const forty = std::string("L") + std::string(39, 'x');
  EXPECT_EQ(ReadHeader(DataFile().Header({.FirstLine = forty})).info.HeaderLine1, forty);
  EXPECT_EQ(ReadHeader(DataFile().Header({.FirstLine = forty + "y"})).info.HeaderLine1,
            forty + "y");
  EXPECT_EQ(ReadHeader(DataFile().Header({.FirstLine = forty + "yz"})).info.HeaderLine1,
            forty + "y");
  EXPECT_EQ(ReadHeader(DataFile().Header({.FourthLine = std::string(200, 'w')})).info.HeaderLine4,
            std::string(41, 'w'));
  EXPECT_EQ(ReadHeader(Model442(std::string(60, 'm'))).info.HeaderLine6, std::string(41, 'm'));

  std::string const eighty(80, 't');
  HeaderRead const titles =
      ReadHeader(DataFile().Titles(eighty, eighty + "u", std::string(200, 'v')).Header({}));
  EXPECT_EQ(titles.info.TitleLine1, " " + eighty);
  EXPECT_EQ(titles.info.TitleLine2, " " + eighty);
  EXPECT_EQ(titles.info.TitleLine3, std::string(" ") + std::string(80, 'v'));
  EXPECT_STREQ(titles.info.HeaderLine2, "486 1234");
}

TEST(FileHeader, LinesEndAtTheirCarriageReturn) {
  HeaderRead const read = ReadHeader("L one\rtwo\r\n486 7\r\r\n1.5 \r\n\r\nfifth\r\nsixth\r\n");
  EXPECT_EQ(read.status, QV_OK);
  EXPECT_STREQ(read.info.HeaderLine1, "L one");
  EXPECT_STREQ(read.info.HeaderLine2, "486 7");
  EXPECT_STREQ(read.info.HeaderLine3, "1.5 ");
  EXPECT_STREQ(read.info.HeaderLine4, "");
  EXPECT_STREQ(read.info.HeaderLine5, "fifth");
  EXPECT_STREQ(read.info.HeaderLine6, "");
}

// Without a carriage return a line keeps its line feed.
TEST(FileHeader, LinesWithoutCarriageReturn) {
  HeaderRead const read = ReadHeader("@t\n@u\n@v\nL one\n486 7\n1.5\nfour\nfive\nsix\n");
  EXPECT_EQ(read.status, QV_OK);
  EXPECT_STREQ(read.info.TitleLine1, " t\n");
  EXPECT_STREQ(read.info.HeaderLine1, "L one\n");
  EXPECT_STREQ(read.info.HeaderLine2, "486 7\n");
  EXPECT_STREQ(read.info.HeaderLine5, "five\n");
}

// A line is read up to 254 characters; what is left of a longer one is the next line.
TEST(FileHeader, LinesOfMoreThan254Characters) {
  std::string const first = std::string("L") + std::string(253, 'x');
  EXPECT_STREQ(ReadHeader(first + "442 77\r\n3.6\r\n").info.HeaderLine2, "442 77");
  EXPECT_STREQ(
      ReadHeader(std::string("L") + std::string(252, 'x') + "442 77\r\n3.6\r\n").info.HeaderLine2,
      "42 77");
  EXPECT_STREQ(
      ReadHeader(std::string("L") + std::string(251, 'x') + "\r\n442 77\r\n").info.HeaderLine2,
      "442 77");
}

TEST(FileHeader, LinesThatAreMissingStayEmpty) {
  struct Row {
    const char* bytes;
    const char* lines[6];
  };
  constexpr Row kRows[] = {
      {"L", {"L", "", "", "", "", ""}},
      {"L one\r\n", {"L one", "", "", "", "", ""}},
      {" one\r\n442 7", {" one", "442 7", "", "", "", ""}},
      {"*\r\n442 7\r\n3.6\r\n", {"*", "442 7", "3.6", "", "", ""}},
      {"L\r\n442 7\r\n3.6\r\nfour\r\nfive\r\n", {"L", "442 7", "3.6", "four", "five", ""}},
      {"L\r\n442 7\r\n3.6\r\nfour\r\nfive\r\nSSA", {"L", "442 7", "3.6", "four", "five", "SSA"}},
  };
  for (const Row& row : kRows) {
    HeaderRead const read = ReadHeader(row.bytes);
    EXPECT_EQ(read.status, QV_OK) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine1, row.lines[0]) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine2, row.lines[1]) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine3, row.lines[2]) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine4, row.lines[3]) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine5, row.lines[4]) << row.bytes;
    EXPECT_STREQ(read.info.HeaderLine6, row.lines[5]) << row.bytes;
  }
}

TEST(FileHeader, FilesThatCannotBeOpenedLeaveTheRecordAlone) {
  Session session;
  GuardedBuffer info(sizeof(QvFileHeaderInfo), 0xEE);
  auto* const record = reinterpret_cast<QvFileHeaderInfo*>(info.Data());
  EXPECT_EQ(QV_ReadFileHeader("/no/such/file", session.Context(), record), QV_CANNOT_OPEN);
  EXPECT_EQ(QV_ReadFileHeader(nullptr, session.Context(), record), QV_CANNOT_OPEN);
  EXPECT_EQ(QV_ReadFileHeader("/no/such/file", nullptr, record), QV_NO_ARGUMENT);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(info.Data()), 498), std::string(498, '\xEE'));
}

TEST(FileHeader, OfAPipe) {
  test::FilledPipe const pipe(General().EndOfData().Bytes());
  Session session;
  QvFileHeaderInfo info{};
  int const status = QV_ReadFileHeader(pipe.Path().c_str(), session.Context(), &info);
  EXPECT_TRUE(status == QV_OK || status == QV_SEEK_FAILED) << status;
}

// The firmware is above 0.9 only from 0.91 on: register Q206 then has a place in the record.
TEST(FileHeader, FirmwareAboveZeroPointNine) {
  struct Row {
    const char* firmware;
    int setting;
  };
  constexpr Row kRows[] = {
      {"0.90", 0}, {"0.9", 0},     {"0.89", 0}, {"0", 0},   {"", 0},      {"none", 0}, {"-1", 0},
      {"0.91", 1}, {"0.90001", 1}, {"1.0", 1},  {"3.6", 1}, {" 2.5x", 1}, {"9e-1", 0}, {"1e0", 1},
  };
  for (const Row& row : kRows) {
    Translation const run(General(row.firmware).Q(206, "1").EndOfData());
    EXPECT_EQ(run.As<QvSettings>(0, QV_SETTINGS).SettingQ206, row.setting) << row.firmware;
  }
}

// The time of the header is that of the first run, which a settings block shows.
int HeaderTimeOf(const DataFile& header) {
  Translation const run(DataFile(header).Q(7, "01Jan1999").EndOfData());
  return run.As<QvSettings>(0, QV_SETTINGS).BlockTime;
}

TEST(FileHeader, DateAndTimeStandInTheirColumns) {
  EXPECT_EQ(HeaderTimeOf(General()), kNoon);
  EXPECT_EQ(HeaderTimeOf(DataFile().Header({.Date = "21Jun 24 ", .Time = "23:59:58"})),
            kNoon + 43198);
  EXPECT_EQ(HeaderTimeOf(DataFile().Header({.Date = "21jun2024", .Time = "00:00:00"})),
            kNoon - 43200);
  auto const fifth = [](std::string_view line) {
    return DataFile().Line("L").Line("486").Line("1.1").Line("").Line(line).Line("");
  };
  // Nine and eight characters, whatever stands around them.
  EXPECT_EQ(HeaderTimeOf(fifth("123456789921Jun2024912:00:009")), kNoon);
  EXPECT_EQ(HeaderTimeOf(fifth("          21Jun2024")), kNoon - 43200);
  EXPECT_EQ(HeaderTimeOf(fifth("          21Jun2024 12")), kNoon);
  EXPECT_EQ(HeaderTimeOf(fifth("          21Jun2024 12:30")), kNoon + 1800);
  // No date in its columns is 31 January 2000.
  EXPECT_EQ(HeaderTimeOf(fifth("")), 949276800);
  EXPECT_EQ(HeaderTimeOf(fifth("Date")), 949276800);
  EXPECT_EQ(HeaderTimeOf(fifth("Date/Time:")), 949276800);
}

// A date that gives no seconds leaves the first run open: the block then has its own time.
TEST(FileHeader, ADateThatCannotBeConverted) {
  EXPECT_EQ(HeaderTimeOf(DataFile().Header({.Date = "01Jan2040"})), 915148800);
}

}  // namespace
