// The step of a translation: its order, its errors, and what it passes over.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/open_files.h"
#include "support/steps.h"
#include "support/temp_file.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::CodesOf;
using test::FilledPipe;
using test::General;
using test::Model431;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::Startable;
using test::Statuses;
using test::Step;
using test::StepsToTheEnd;
using test::TakeSteps;
using test::TempFile;
using test::TempFolder;
using test::Translation;

// A level mark whose status code tells it from others.
Body Mark(int number) {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(number);
}

TEST(Pump, NullArgumentsDoNothing) {
  TempFile const file(Startable(General().Item(5, Mark(1)).Item(5, Mark(2)).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(QV_TranslateNextRec(nullptr, session.Context()), QV_NO_ARGUMENT);
  EXPECT_EQ(QV_TranslateNextRec(nullptr, nullptr), QV_NO_ARGUMENT);
  std::memset(session.Record(), 0xEE, QV_OUTPUT_RECORD_SIZE);
  EXPECT_EQ(QV_TranslateNextRec(session.Record(), nullptr), QV_NO_ARGUMENT);
  EXPECT_EQ(session.Code(), 0xEEEE);  // untouched
  // Nothing was passed over.
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvLevelMark>().StatusCode, 1);
  EXPECT_EQ(session.As<QvLevelMark>().RecordIndex, 1u);
}

TEST(Pump, AContextThatWasNeverStartedHasNothingToOpen) {
  Session session;
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
  EXPECT_EQ(session.Record()[2], 0xEE);  // only the type code was set
}

TEST(Pump, AStepWithoutARecordSetsTheTypeCodeAlone) {
  Translation const run(General().Item(9, Body().Fill(20, 0x41)).EndOfData());
  ASSERT_EQ(run.steps.size(), 2u);
  EXPECT_EQ(run.steps[0].status, QV_OK);
  EXPECT_EQ(run.steps[0].Code(), QV_NO_RECORD);
  for (std::size_t i = 2; i < run.steps[0].record.size(); ++i) {
    ASSERT_EQ(run.steps[0].record[i], 0xEE) << "byte " << i;
  }
}

TEST(Pump, TheEndOfDataClosesTheFile) {
  TempFile const file(Startable(General().EndOfData()));
  Session session;
  long const open = OpenFiles();
  ASSERT_EQ(session.Start(file.Path()), QV_OK);
  EXPECT_EQ(OpenFiles(), open + 1);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(session.Code(), QV_END);
  EXPECT_EQ(OpenFiles(), open);
  QV_StopTranslate();  // has nothing to do
  EXPECT_EQ(OpenFiles(), open);
}

TEST(Pump, BehindTheEndOfDataTheFileIsReadOn) {
  std::vector<Step> const steps = StepsToTheEnd(DataFile()
                                                    .Item(5, Mark(1))
                                                    .EndOfData()
                                                    .Item(5, Mark(2))
                                                    .EndOfData()
                                                    .EndOfData()
                                                    .Item(5, Mark(3))
                                                    .Bytes(),
                                                7);
  EXPECT_EQ(Statuses(steps), (std::vector<int>{0, -318, 0, -318, -318, 0, -312}));
  EXPECT_EQ(CodesOf(steps), (std::vector<int>{5, 15, 5, 15, 15, 5, 0}));
  // Counters run on across the end.
  EXPECT_EQ(Translation::Copy<QvLevelMark>(steps[2]).RecordIndex, 2u);
  EXPECT_EQ(Translation::Copy<QvLevelMark>(steps[5]).RecordIndex, 3u);
}

TEST(Pump, AFileGoneBehindTheEndOfDataCannotBeOpened) {
  TempFolder const folder;
  std::string const path = folder.File("data", Startable(General().EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  std::filesystem::remove(path);
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
}

TEST(Pump, WhatCannotBeSoughtInEndsTheStep) {
  TempFolder const folder;
  std::string const path = folder.File("data", Startable(General().EndOfData()));
  FilledPipe const pipe(Startable(General().EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  std::filesystem::remove(path);
  std::filesystem::create_symlink(pipe.Path(), path);
  EXPECT_EQ(session.Next(), QV_SEEK_FAILED);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
}

TEST(Pump, AFolderInPlaceOfTheFileEndsTheStep) {
  TempFolder const folder;
  std::string const path = folder.File("data", Startable(General().EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  EXPECT_LT(session.Next(), 0);
  EXPECT_EQ(session.Code(), QV_NO_RECORD);
}

TEST(Pump, WithoutAnEndOfDataTheFileEndsWithABadLength) {
  std::vector<Step> const steps = StepsToTheEnd(DataFile().Item(5, Mark(1)).Bytes(), 3);
  EXPECT_EQ(Statuses(steps), (std::vector<int>{0, -312, -312}));
  EXPECT_EQ(CodesOf(steps), (std::vector<int>{5, 0, 0}));
}

// All types that are framed by a length but have no meaning.
TEST(Pump, UnknownTypesArePassedOver) {
  for (int type = 9; type < 256; ++type) {
    bool const known = type == 21 || type == 27 || type == 67 || type == 69 || type == 77 ||
                       type == 81 || type == 82 || type == 83 || (type >= 129 && type <= 132);
    if (known) continue;
    for (int const length : {0, 1, 7}) {
      DataFile const file = General()
                                .Item(type, Body().Fill(static_cast<std::size_t>(length), type))
                                .Item(5, Mark(6))
                                .EndOfData();
      Translation const run(file);
      EXPECT_EQ(run.Codes(), (std::vector<int>{5, 15})) << "type " << type;
      ASSERT_EQ(run.steps.size(), 3u) << "type " << type;
      EXPECT_EQ(run.steps[0].status, QV_OK);
      EXPECT_EQ(run.steps[0].Code(), QV_NO_RECORD);
      EXPECT_EQ(Translation::Copy<QvLevelMark>(run.steps[1]).StatusCode, 6);
    }
  }
}

TEST(Pump, AnItemThatEndsEarlyIsDeliveredAndPassed) {
  Body const cut = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).U8(64).U16(7).U16(1);
  std::vector<Step> const steps = TakeSteps(General().Item(4, cut).Item(5, Mark(1)).EndOfData(), 3);
  EXPECT_EQ(Statuses(steps), (std::vector<int>{-313, 0, -318}));
  EXPECT_EQ(CodesOf(steps), (std::vector<int>{4, 5, 15}));
  auto const event = Translation::Copy<QvEvent>(steps[0]);
  EXPECT_EQ(event.RecordTime, 1718973000);
  EXPECT_EQ(event.EventCode, 64);
  EXPECT_EQ(event.EventValue16, 7);
  EXPECT_EQ(event.EventValue24, 256);  // bytes 0 and 1 of three
  EXPECT_EQ(event.RecordIndex, 1u);    // the sequence value is stored all the same
}

TEST(Pump, BodiesLongerThanTheirLayoutArePassedWhole) {
  Translation const run(General()
                            .Item(5, Body(Mark(1)).Fill(30, 5))
                            .Item(4, Body().Fill(100))
                            .Item(5, Mark(2))
                            .EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{5, 4, 5, 15}));
  EXPECT_EQ(run.As<QvLevelMark>(0).StatusCode, 1);
  EXPECT_EQ(run.As<QvLevelMark>(2).StatusCode, 2);
}

// Items that are read and left where they are: the same again at every step.
TEST(Pump, ItemsThatTheWalkDoesNotPass) {
  struct Row {
    const char* name;
    DataFile file;
    int type;
  };
  const Row kRows[] = {
      {"item 2 of ISM", Model442("ISM"), 2}, {"item 2 of AUD", Model442("AUD"), 2},
      {"item 2 of VIB", Model442("VIB"), 2}, {"item 6 of 431", Model431("OBA "), 6},
      {"item 6 of 442", Model442("LOG"), 6},
  };
  for (const Row& row : kRows) {
    std::vector<Step> const steps =
        TakeSteps(DataFile(row.file).Item(row.type, Body().Fill(40, 60)).EndOfData(), 5);
    EXPECT_EQ(Statuses(steps), (std::vector<int>{0, 0, 0, 0, 0})) << row.name;
    EXPECT_EQ(CodesOf(steps), (std::vector<int>{0, 0, 0, 0, 0})) << row.name;
    for (const Step& step : steps) EXPECT_EQ(step.record[2], 0xEE) << row.name;
  }
}

}  // namespace
