// The step of a translation: its order, its errors, and the framing of items.
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
using test::FilledPipe;
using test::General;
using test::Model431;
using test::Model442;
using test::OpenFiles;
using test::Session;
using test::Startable;
using test::Step;
using test::TakeSteps;
using test::TempFile;
using test::TempFolder;
using test::Translation;

constexpr int kLongest = 6200;

// A level mark whose status code tells it from others.
Body Mark(int number) {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(number);
}

// Bytes of an item whose length field says length, with a body of that many zeros.
Body RawItem(int type, int length) {
  return Body().U8(type).U16(length).Fill(static_cast<std::size_t>(length));
}

// A general file of which nothing follows the given bytes: an item that is passed over fills the
// room that the start wants.
std::string EndingWith(const std::string& bytes) {
  return General().Item(9, Body().Fill(2600)).Raw(bytes).Bytes();
}

// Steps over exactly these bytes, behind the step for the filling item.
std::vector<Step> StepsToTheEnd(const std::string& bytes, int count) {
  TempFile const file(EndingWith(bytes));
  std::vector<Step> steps = TakeSteps(file.Path(), count + 1);
  if (!steps.empty()) steps.erase(steps.begin());
  return steps;
}

std::vector<int> Statuses(const std::vector<Step>& steps) {
  std::vector<int> statuses;
  for (const Step& step : steps) statuses.push_back(step.status);
  return statuses;
}

std::vector<int> CodesOf(const std::vector<Step>& steps) {
  std::vector<int> codes;
  for (const Step& step : steps) codes.push_back(step.Code());
  return codes;
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

// The end of the file within the length: a missing low byte counts as one less than the high byte
// says, a missing high byte as no length at all.
TEST(Pump, TheFileEndsWithinALength) {
  for (int const type : {1, 2, 3, 4, 5, 7, 8, 9, 67, 77, 83, 129, 130, 131, 132, 200, 255}) {
    std::vector<Step> const none = StepsToTheEnd(Body().U8(type).Bytes(), 2);
    EXPECT_EQ(Statuses(none), (std::vector<int>{-312, -312})) << type;
    EXPECT_EQ(CodesOf(none), (std::vector<int>{0, 0})) << type;
    std::vector<Step> const half = StepsToTheEnd(Body().U8(type).U8(0).Bytes(), 2);
    EXPECT_EQ(Statuses(half), (std::vector<int>{-312, -312})) << type;
    EXPECT_EQ(CodesOf(half), (std::vector<int>{0, 0})) << type;
  }
  EXPECT_EQ(Statuses(StepsToTheEnd(Body().U8(9).U8(1).Bytes(), 2)), (std::vector<int>{0, -312}));
}

// A body that the file cuts short leaves what the buffer held before.
TEST(Pump, AShortReadKeepsTheOldBytes) {
  Body const whole = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(5);
  Body const cut = Body().U8(5).U16(10).U8(0).Date(22, 6, 2024);
  std::vector<Step> const steps =
      StepsToTheEnd(DataFile().Item(5, whole).Raw(cut.Bytes()).Bytes(), 3);
  EXPECT_EQ(Statuses(steps), (std::vector<int>{0, 0, -312}));
  auto const record = Translation::Copy<QvLevelMark>(steps[1]);
  EXPECT_EQ(record.RecordType, QV_LEVEL_MARK);
  EXPECT_EQ(record.RecordTime, 1719059400);  // 22 June 2024, 12:30
  EXPECT_EQ(record.Level, 65.5f);
  EXPECT_EQ(record.StatusCode, 5);
  EXPECT_EQ(record.RecordIndex, 2u);
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

TEST(Pump, TheLongestItemIsPassedOverAndALongerOneIsNot) {
  Translation const longest(
      General().Raw(RawItem(9, kLongest).Bytes()).Item(5, Mark(1)).EndOfData());
  EXPECT_EQ(longest.Codes(), (std::vector<int>{5, 15}));
  EXPECT_EQ(longest.end, QV_END_OF_DATA);

  for (int const length : {kLongest + 1, 6500, 32767, 32768, 65535}) {
    std::vector<Step> const steps =
        TakeSteps(General().Raw(RawItem(9, length).Bytes()).Item(5, Mark(1)).EndOfData(), 3);
    EXPECT_EQ(Statuses(steps), (std::vector<int>{-312, -312, -312})) << length;
    EXPECT_EQ(CodesOf(steps), (std::vector<int>{0, 0, 0})) << length;
  }
}

TEST(Pump, TheLimitHoldsForItemsWithADecoderToo) {
  for (int const type : {1, 2, 3, 4, 5, 7, 8, 67, 77, 83, 129, 130, 131, 132}) {
    Translation const longest(
        General().Raw(RawItem(type, kLongest).Bytes()).Item(5, Mark(1)).EndOfData());
    EXPECT_EQ(longest.end, QV_END_OF_DATA) << "type " << type;
    ASSERT_EQ(longest.steps.size(), 3u) << "type " << type;
    EXPECT_NE(longest.steps[0].Code(), QV_NO_RECORD) << "type " << type;

    std::vector<Step> const steps = TakeSteps(
        General().Raw(RawItem(type, kLongest + 1).Bytes()).Item(5, Mark(1)).EndOfData(), 2);
    EXPECT_EQ(Statuses(steps), (std::vector<int>{-312, -312})) << "type " << type;
    EXPECT_EQ(CodesOf(steps), (std::vector<int>{0, 0})) << "type " << type;
    // No decoder ran: but for the type code the host's record is as it was.
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].record[2], 0xEE) << "type " << type;
  }
}

TEST(Pump, TheLimitHoldsForTheItemsOfTheOtherModels) {
  for (int const type : {2, 6, 8, 67, 77, 83}) {
    for (const DataFile& head : {Model431("iSLM"), Model442("LOG")}) {
      std::vector<Step> const steps =
          TakeSteps(DataFile(head).Raw(RawItem(type, kLongest + 1).Bytes()).EndOfData(), 2);
      EXPECT_EQ(Statuses(steps), (std::vector<int>{-312, -312})) << "type " << type;
      EXPECT_EQ(CodesOf(steps), (std::vector<int>{0, 0})) << "type " << type;
    }
  }
}

TEST(Pump, EndLinesAreTwoLines) {
  for (const DataFile& head : {General(), Model431("OBA "), Model442("SSA")}) {
    Translation const run(
        DataFile(head).EndLines("nd of run", "second line").Item(5, Mark(2)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{5, 15}));
    ASSERT_EQ(run.steps.size(), 3u);
    EXPECT_EQ(run.steps[0].status, QV_OK);
    EXPECT_EQ(run.steps[0].Code(), QV_NO_RECORD);
  }
}

// A line is read up to 80 characters; the rest of a longer one counts as the next.
TEST(Pump, EndLinesOfMoreThanEightyCharactersCountTwice) {
  struct Row {
    std::size_t length;  // of the first line, its line end included
    int lines;           // that it is taken for
  };
  constexpr Row kRows[] = {{79, 1}, {80, 1}, {81, 2}, {100, 2}, {160, 2}};
  for (const Row& row : kRows) {
    DataFile file = General().Line(std::string("E").append(row.length - 3, 'x'));
    if (row.lines == 1) file.Line("second");
    Translation const run(file.Item(5, Mark(2)).EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{5, 15})) << row.length;
    EXPECT_EQ(run.steps.size(), 3u) << row.length;
  }
}

TEST(Pump, EndLinesEndWithTheFile) {
  EXPECT_EQ(Statuses(StepsToTheEnd("E", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("End\r\n", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("End\r\nsecond", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("E\nF\n", 2)), (std::vector<int>{0, -312}));
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
