// The start of a translation: what it opens, and what it resets.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "support/open_files.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::FilledPipe;
using test::General;
using test::Model431;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::Startable;
using test::TempFile;
using test::TempFolder;

// A level mark whose status code tells it from others.
Body Mark(int number) {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(number);
}

// What the start returns; the file is closed again.
int Started(Session& session, const std::string& path) {
  int const status = session.Start(path);
  QV_StopTranslate();
  return status;
}

TEST(Start, NullContextDoesNothing) {
  TempFile const file(Startable(General().EndOfData()));
  long const open = OpenFiles();
  EXPECT_EQ(QV_StartTranslate(file.CPath(), nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Start, WhatIsNotThereCannotBeOpened) {
  Session session;
  EXPECT_EQ(session.Start("/no/such/folder/data.ext"), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Start(""), QV_CANNOT_OPEN);
  EXPECT_EQ(QV_StartTranslate(nullptr, session.Context()), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Start(std::string(300, 'x')), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Start(std::string(5000, 'x')), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Start("/tmp/\xFF\xFE\x80 no such name"), QV_CANNOT_OPEN);
  // The step then tries the same path again.
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
}

TEST(Start, AFirstLineOfNoDataFile) {
  TempFolder const folder;
  Session session;
  EXPECT_EQ(Started(session, folder.File("empty", "")), QV_SEEK_FAILED);
  EXPECT_EQ(Started(session, folder.File("other", "Measurement\r\n486 1\r\n")), QV_SEEK_FAILED);
  EXPECT_EQ(Started(session, folder.File("nul", std::string(3000, '\0'))), QV_SEEK_FAILED);
  EXPECT_EQ(Started(session, folder.File("line end", "\r\nL\r\n486 1\r\n")), QV_SEEK_FAILED);
  EXPECT_EQ(Started(session, folder.Path()), QV_SEEK_FAILED);  // a folder has no first line
}

TEST(Start, TheDataBeginsBehindTheHeader) {
  for (const DataFile& file : {General(), Model431("OBA "), Model442("LOG")}) {
    TempFile const stored(Startable(DataFile(file).Item(5, Mark(3)).EndOfData()));
    Session session;
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    EXPECT_EQ(session.Next(), QV_OK);
    ASSERT_EQ(session.Code(), QV_LEVEL_MARK);
    EXPECT_EQ(session.As<QvLevelMark>().StatusCode, 3);
    EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  }
}

TEST(Start, TheDataBeginsBehindTitlesAndHeader) {
  DataFile const file = DataFile().Titles("a", "b", "c").Header({}).Item(5, Mark(3)).EndOfData();
  TempFile const stored(Startable(file));
  Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  ASSERT_EQ(session.Code(), QV_LEVEL_MARK);
  EXPECT_EQ(session.As<QvLevelMark>().StatusCode, 3);
}

// Without a text header the walk begins at the 'Q' lines; the host goes on all the same.
TEST(Start, TheSettingsFormIsToldAndTranslated) {
  for (const DataFile& head : {DataFile(), DataFile().Titles("a", "b", "c")}) {
    DataFile const file = DataFile(head).Q(157, "3").Item(5, Mark(4)).EndOfData();
    TempFile const stored(file);  // short: the tail of such a file is not looked at
    Session session;
    ASSERT_EQ(session.Start(stored.Path()), QV_NO_TEXT_HEADER);
    EXPECT_EQ(session.Next(), QV_OK);
    ASSERT_EQ(session.Code(), QV_SETTINGS);
    EXPECT_EQ(session.As<QvSettings>().Model, 486);
    EXPECT_EQ(session.Next(), QV_OK);
    ASSERT_EQ(session.Code(), QV_LEVEL_MARK);
    EXPECT_EQ(session.As<QvLevelMark>().SiteNumber, 3);
    EXPECT_EQ(session.As<QvLevelMark>().StatusCode, 4);
    EXPECT_EQ(session.As<QvLevelMark>().Model, 486);
    EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  }
}

TEST(Start, TheFileStaysOpenWhateverHappensBehindTheOpen) {
  struct Row {
    const char* name;
    std::string bytes;
    int status;
  };
  const Row kRows[] = {
      {"good", Startable(General().EndOfData()), QV_OK},
      {"no header", "Xyz\r\n", QV_SEEK_FAILED},
      {"settings", DataFile().Q(157, "3").Bytes(), QV_NO_TEXT_HEADER},
      {"short", General().EndOfData().Bytes(), QV_TAIL_SEEK_FAILED},
      {"no results", Model442("SSA").EndOfData().Bytes(), QV_NOT_FOUND},
  };
  TempFolder const folder;
  Session session;
  for (const Row& row : kRows) {
    long const open = OpenFiles();
    EXPECT_EQ(session.Start(folder.File("data", row.bytes)), row.status) << row.name;
    EXPECT_EQ(OpenFiles(), open + 1) << row.name;
    QV_StopTranslate();
    EXPECT_EQ(OpenFiles(), open) << row.name;
    QV_StopTranslate();  // nothing left to close
    EXPECT_EQ(OpenFiles(), open) << row.name;
  }
}

TEST(Start, NothingIsOpenBehindAFailedOpen) {
  Session session;
  long const open = OpenFiles();
  EXPECT_EQ(session.Start("/no/such/file"), QV_CANNOT_OPEN);
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Start, StopClosesTheFileOfTheContextNamedLast) {
  TempFile const file(Startable(General().Item(5, Mark(1)).EndOfData()));
  Session first;
  Session second;
  long const open = OpenFiles();
  ASSERT_EQ(first.Start(file.Path()), QV_OK);
  ASSERT_EQ(second.Start(file.Path()), QV_OK);
  EXPECT_EQ(OpenFiles(), open + 2);
  QV_StopTranslate();
  EXPECT_EQ(OpenFiles(), open + 1);
  EXPECT_EQ(first.Next(), QV_OK);  // names the first context, whose file is still open
  EXPECT_EQ(first.Code(), QV_LEVEL_MARK);
  QV_StopTranslate();
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Start, TwoFilesInTurnEachKeepTheirPlace) {
  TempFile const one(Startable(General().Item(5, Mark(1)).Item(5, Mark(2)).EndOfData()));
  TempFile const two(Startable(General().Item(5, Mark(3)).Item(5, Mark(4)).EndOfData()));
  Session first;
  Session second;
  ASSERT_EQ(first.Start(one.Path()), QV_OK);
  ASSERT_EQ(second.Start(two.Path()), QV_OK);
  for (int const step : {0, 1}) {
    EXPECT_EQ(first.Next(), QV_OK);
    EXPECT_EQ(first.As<QvLevelMark>().StatusCode, 1 + step);
    EXPECT_EQ(second.Next(), QV_OK);
    EXPECT_EQ(second.As<QvLevelMark>().StatusCode, 3 + step);
  }
  EXPECT_EQ(first.Next(), QV_END_OF_DATA);
  EXPECT_EQ(second.Next(), QV_END_OF_DATA);
}

TEST(Start, ASecondStartBeginsAnew) {
  DataFile const file = General().Q(157, "9").Item(5, Mark(1)).Item(5, Mark(2)).EndOfData();
  TempFile const stored(Startable(file));
  TempFile const plain(Startable(General().Item(5, Mark(3)).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  for (int step = 0; step < 3; ++step) EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvLevelMark>().RecordIndex, 2u);
  EXPECT_EQ(session.As<QvLevelMark>().SiteNumber, 9);
  QV_StopTranslate();

  ASSERT_EQ(session.Start(plain.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvLevelMark>().StatusCode, 3);
  EXPECT_EQ(session.As<QvLevelMark>().RecordIndex, 1u);
  EXPECT_EQ(session.As<QvLevelMark>().SiteNumber, 0);
}

TEST(Start, AStreamLeftHalfwayIsForgotten) {
  Body samples;
  for (int i = 0; i < 100; ++i) samples.U8(60).U8(128);
  TempFile const stream(Startable(General().Stream(6, samples).EndOfData()));
  TempFile const plain(Startable(General().Item(5, Mark(3)).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(stream.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  ASSERT_EQ(session.Code(), QV_TIME_HISTORY);
  QV_StopTranslate();
  ASSERT_EQ(session.Start(plain.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
}

// A pipe can be read, but not sought in: the start says so.
TEST(Start, APipeCannotBeTranslated) {
  FilledPipe const general(Startable(General().EndOfData()));
  FilledPipe const model442(Startable(Model442("LOG").EndOfData()));
  FilledPipe const titles(Startable(DataFile().Titles("a", "b", "c").Header({}).EndOfData()));
  FilledPipe const empty("");
  Session session;
  EXPECT_EQ(Started(session, general.Path()), QV_TAIL_SEEK_FAILED);
  // The scan of model 442 only reads; the way back to the start is what fails.
  EXPECT_EQ(Started(session, model442.Path()), QV_SEEK_FAILED);
  EXPECT_LT(Started(session, titles.Path()), 0);
  EXPECT_EQ(Started(session, empty.Path()), QV_SEEK_FAILED);
}

}  // namespace
