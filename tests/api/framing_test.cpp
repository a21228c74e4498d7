// The frames of items: their lengths, bodies that the file cuts, and the two lines of an 'E' item.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/steps.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::CodesOf;
using test::General;
using test::Model431;
using test::Model442;
using test::Statuses;
using test::Step;
using test::StepsToTheEnd;
using test::TakeSteps;
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

// The end of the file within the length: a missing low byte counts as one less than the high byte
// says, a missing high byte as no length at all.
TEST(Framing, TheFileEndsWithinALength) {
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
TEST(Framing, AShortReadKeepsTheOldBytes) {
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

TEST(Framing, TheLongestItemIsPassedOverAndALongerOneIsNot) {
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

TEST(Framing, TheLimitHoldsForItemsWithADecoderToo) {
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

TEST(Framing, TheLimitHoldsForTheItemsOfTheOtherModels) {
  for (int const type : {2, 6, 8, 67, 77, 83}) {
    for (const DataFile& head : {Model431("iSLM"), Model442("LOG")}) {
      std::vector<Step> const steps =
          TakeSteps(DataFile(head).Raw(RawItem(type, kLongest + 1).Bytes()).EndOfData(), 2);
      EXPECT_EQ(Statuses(steps), (std::vector<int>{-312, -312})) << "type " << type;
      EXPECT_EQ(CodesOf(steps), (std::vector<int>{0, 0})) << "type " << type;
    }
  }
}

TEST(Framing, EndLinesAreTwoLines) {
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
TEST(Framing, EndLinesOfMoreThanEightyCharactersCountTwice) {
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

TEST(Framing, EndLinesEndWithTheFile) {
  EXPECT_EQ(Statuses(StepsToTheEnd("E", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("End\r\n", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("End\r\nsecond", 2)), (std::vector<int>{0, -312}));
  EXPECT_EQ(Statuses(StepsToTheEnd("E\nF\n", 2)), (std::vector<int>{0, -312}));
}

}  // namespace
