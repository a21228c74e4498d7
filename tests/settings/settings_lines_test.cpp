// The frame that the four settings blocks share: lines, their numbers and values, and where a block
// ends.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Step;
using test::Translation;

// A block of one parser, and two whole numbers of it by which lines are seen: of 16 bits in 'Q'
// blocks, of 32 bits in 'R' blocks.
struct Block {
  const char* name;
  char letter;
  int model;
  int code;
  std::size_t size;
  int first;
  std::size_t firstOffset;
  int second;
  std::size_t secondOffset;
  std::size_t longestLine;  // characters of one line read
};

constexpr Block kBlocks[] = {
    {"Q", 'Q', 486, QV_SETTINGS, 688, 62, 356, 63, 358, 80},
    {"Q of model 442", 'Q', 442, QV_SETTINGS, 688, 62, 356, 63, 358, 80},
    {"R", 'R', 486, QV_RESULTS, 728, 31, 504, 32, 508, 255},
    {"R of model 431", 'R', 431, QV_RESULTS_431, 1088, 31, 864, 32, 868, 319},
    {"R of model 442", 'R', 442, QV_RESULTS_442, 5316, 31, 964, 32, 968, 2998},
};

int NumberAt(const Block& block, const Step& step, std::size_t offset) {
  if (block.letter == 'Q') {
    std::uint16_t value;
    std::memcpy(&value, &step.record[offset], sizeof value);
    return value;
  }
  std::int32_t value;
  std::memcpy(&value, &step.record[offset], sizeof value);
  return value;
}

int First(const Block& block, const Step& step) {
  return NumberAt(block, step, block.firstOffset);
}

int Second(const Block& block, const Step& step) {
  return NumberAt(block, step, block.secondOffset);
}

DataFile FileOf(const Block& block) {
  return test::LoggingFile(block.model, "2.0");
}

// The start of a line, to its comma: "Q 62,".
std::string Head(const Block& block, int number) {
  return std::string(1, block.letter) + " " + std::to_string(number) + ",";
}

Body LevelMark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60.5).U8(0x81);
}

// The steps of a file that holds the raw text behind its header, then a level mark.
std::vector<Step> StepsBehind(const Block& block, const std::string& text) {
  return Translation(FileOf(block).Raw(text).Item(5, LevelMark()).EndOfData()).steps;
}

// The record of a block that is followed by the level mark at once.
Step OneBlock(const Block& block, const std::string& text) {
  std::vector<Step> const steps = StepsBehind(block, text);
  EXPECT_EQ(steps.size(), 3U);
  EXPECT_EQ(steps.at(0).Code(), block.code);
  EXPECT_EQ(steps.at(0).status, QV_OK);
  EXPECT_EQ(steps.at(1).Code(), QV_LEVEL_MARK);
  EXPECT_EQ(steps.at(2).Code(), QV_END);
  return steps.at(0);
}

TEST(SettingsLines, EndAtTheirLineFeed) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string const head = Head(block, block.first);
    for (const char* const rest : {"77\r\n", "77\n", "77\r\r\n", "77\rabc\n", "77\r99\n"}) {
      SCOPED_TRACE(rest);
      Step const step = OneBlock(block, head + rest + Head(block, block.second) + "88\n");
      EXPECT_EQ(First(block, step), 77);
      EXPECT_EQ(Second(block, step), 88);
    }
  }
}

TEST(SettingsLines, HaveTheirValueBehindTheFifthCharacterWhateverStandsBefore) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string const letter(1, block.letter);
    std::string const number = std::to_string(block.first);  // two digits
    for (const std::string& line :
         {letter + " " + number + ",77", letter + " " + number + "x77", letter + number + ",,77",
          letter + "0" + number + ",77", letter + number + " ,77", letter + number + "  77",
          letter + " " + number + ", 77", letter + " " + number + ",77 ",
          letter + number + ", 77"}) {
      SCOPED_TRACE(line);
      EXPECT_EQ(First(block, OneBlock(block, line + "\r\n")), 77);
    }
    // One column further left, the value loses a digit to the place of the comma.
    EXPECT_EQ(First(block, OneBlock(block, letter + number + ",77\r\n")), 7);
  }
}

TEST(SettingsLines, OfOtherNumbersChangeNothing) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string const letter(1, block.letter);
    Step const step =
        OneBlock(block, letter + "  0,1\r\n" + letter + "999,1\r\n" + letter + "abc,1\r\n" +
                            letter + " -1,1\r\n" + letter + "\r\n" + letter + "1062,1\r\n");
    for (std::size_t i = 16; i < 96; ++i) EXPECT_EQ(step.record[i], 0) << i;
    EXPECT_EQ(First(block, step), 0);
    EXPECT_EQ(Second(block, step), 0);
  }
}

TEST(SettingsLines, FillARecordOfTheSizeOfTheirBlock) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    Step const step = OneBlock(block, Head(block, block.first) + "77\r\n");
    EXPECT_EQ(step.record[block.size - 1], 0);
    for (std::size_t i = block.size; i < step.record.size(); ++i) {
      ASSERT_EQ(step.record[i], 0xEE) << i;
    }
  }
}

TEST(SettingsLines, LaterLinesOfANumberReplaceEarlierOnes) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string const head = Head(block, block.first);
    EXPECT_EQ(First(block, OneBlock(block, head + "77\r\n" + head + "88\r\n")), 88);
  }
}

TEST(SettingsLines, OfTheOtherLetterBeginABlockOfTheirOwn) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    bool const isQ = block.letter == 'Q';
    int const otherCode = !isQ ? QV_SETTINGS : block.model == 442 ? QV_RESULTS_442 : QV_RESULTS;
    std::string const own = Head(block, block.first) + "77\r\n";
    std::string const other = isQ ? "R  2,\r\n" : "Q  9,1\r\n";
    Translation const run(FileOf(block).Raw(own + other + own).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{block.code, otherCode, block.code, 15}));
    EXPECT_EQ(First(block, run.Records()[0]), 77);
    EXPECT_EQ(First(block, run.Records()[2]), 77);
  }
}

TEST(SettingsLines, AreFollowedByTheNextItemAtOnce) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    Translation const run(FileOf(block)
                              .Raw(Head(block, block.first) + "77\r\n")
                              .EndLines("one", "two")
                              .Item(9, Body().Fill(100, 'x'))
                              .Raw(Head(block, block.second) + "88\n")
                              .EndOfData());
    ASSERT_EQ(run.steps.size(), 5U);
    EXPECT_EQ(run.Codes(), (std::vector<int>{block.code, block.code, 15}));
    EXPECT_EQ(First(block, run.Records()[0]), 77);
    EXPECT_EQ(First(block, run.Records()[1]), 0);
    EXPECT_EQ(Second(block, run.Records()[1]), 88);
  }
}

TEST(SettingsLines, OfTheLongestReadStandWhole) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string line = Head(block, block.first) + "77,";
    line.resize(block.longestLine - 2, 'x');
    Step const step = OneBlock(block, line + "\r\n" + Head(block, block.second) + "88\r\n");
    EXPECT_EQ(First(block, step), 77);
    EXPECT_EQ(Second(block, step), 88);
  }
}

TEST(SettingsLines, ThatAreTooLongGoOnAsANewLine) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string line = Head(block, block.first) + "77,";
    line.resize(block.longestLine, 'x');
    // The rest begins with the letter of the block.
    Step const step = OneBlock(block, line + Head(block, block.second) + "88\r\n");
    EXPECT_EQ(First(block, step), 77);
    EXPECT_EQ(Second(block, step), 88);
  }
}

TEST(SettingsLines, ThatAreTooLongEndTheBlockWithARestOfAnotherLetter) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string line = Head(block, block.first) + "77,";
    line.resize(block.longestLine, 'x');
    // What stands behind the last character that was read is the next item: the level mark.
    EXPECT_EQ(First(block, OneBlock(block, line)), 77);
  }
}

TEST(SettingsLines, WithALineEndBehindTheReadLeaveItAsAnItem) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string line = Head(block, block.first) + "77,";
    line.resize(block.longestLine - 1, 'x');
    // The line feed that was not read is type byte 10, with a length and a body that are skipped.
    DataFile file = FileOf(block).Raw(line + "\r").Item('\n', Body().Fill(3, 'y'));
    Translation const run(file.Item(5, LevelMark()).EndOfData());
    ASSERT_EQ(run.steps.size(), 4U);
    EXPECT_EQ(run.steps[0].Code(), block.code);
    EXPECT_EQ(First(block, run.steps[0]), 77);
    EXPECT_EQ(run.steps[1].Code(), QV_NO_RECORD);
    EXPECT_EQ(run.steps[2].Code(), QV_LEVEL_MARK);
  }
}

// Behind a short line the value is what the line before left from its sixth character on.
TEST(SettingsLines, OfFewerThanFiveCharactersReadTheTailOfTheLineBefore) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    std::string const letter(1, block.letter);
    std::string const first = Head(block, block.first) + "1077\r\n";
    std::string const number = std::to_string(block.second);
    // Three characters and a line feed.
    EXPECT_EQ(Second(block, OneBlock(block, first + letter + number + "\n")), 1077);
    // Four characters with the line feed behind them, or three with both line ends: the terminator
    // stands where the value would begin.
    EXPECT_EQ(Second(block, OneBlock(block, first + letter + number + ",\n")), 0);
    EXPECT_EQ(Second(block, OneBlock(block, first + letter + number + "\r\n")), 0);
    // A value that is empty stays so.
    EXPECT_EQ(Second(block, OneBlock(block, first + letter + " " + number + ",\n")), 0);
  }
}

TEST(SettingsLines, OfFewerThanFiveCharactersAreEmptyAtTheHeadOfAnRBlock) {
  for (const Block& block : kBlocks) {
    if (block.letter == 'Q') continue;
    SCOPED_TRACE(block.name);
    Translation const run(
        FileOf(block)
            .Raw(Head(block, block.first) + "1077\r\n")
            .EndLines("abcdefgh", "abcde55")
            .Raw(std::string("R").append(std::to_string(block.second)).append("\n"))
            .EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{block.code, block.code, 15}));
    EXPECT_EQ(Second(block, run.Records()[1]), 0);
  }
}

TEST(SettingsLines, OfFewerThanFiveCharactersAtTheHeadOfAQBlockReadTheLineOfTheItemBefore) {
  const Block& block = kBlocks[0];
  Translation const run(FileOf(block).EndLines("abcdefgh", "abcde55").Raw("Q62\n").EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{7, 15}));
  EXPECT_EQ(First(block, run.Records()[0]), 55);
}

// A block that ends with the file: its last line has no line end.
TEST(SettingsLines, EndWithTheFile) {
  for (const Block& block : kBlocks) {
    SCOPED_TRACE(block.name);
    DataFile file = FileOf(block).Item(9, Body().Fill(3000, 'x'));
    if (block.model == 442) file.R(1, "Hedrom-Pulke Model 442").R(106, "0.0");
    file.Raw(Head(block, block.first) + "77\r\n" + Head(block, block.second) + "88");
    test::TempFile const stored(file);
    Translation const run(stored.Path());
    ASSERT_EQ(run.start, QV_OK);
    EXPECT_EQ(run.end, QV_BAD_LENGTH);
    std::vector<Step> const records = run.Records();
    ASSERT_GE(records.size(), 1U);
    EXPECT_EQ(records.back().Code(), block.code);
    EXPECT_EQ(records.back().status, QV_OK);
    EXPECT_EQ(First(block, records.back()), 77);
    EXPECT_EQ(Second(block, records.back()), 88);
  }
}

TEST(SettingsLines, RaiseTheLatestTimeByTheTimeOfTheirBlock) {
  constexpr std::int32_t kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC, as in the header
  struct Row {
    const char* stop;
    std::int32_t latest;
  };
  for (int const model : {486, 431, 442}) {
    for (const Row& row :
         {Row{"21Jun2024 12:00:01", kNoon + 1}, Row{"21Jun2024 12:00:00", kNoon},
          Row{"21Jun2024 11:59:59", kNoon}, Row{"31Dec2037 23:59:59", 2145916799}}) {
      SCOPED_TRACE(std::to_string(model) + ", " + row.stop);
      DataFile file = test::LoggingFile(model, "2.0").Q(7, "21Jun2024").R(6, row.stop);
      Translation const run(file.R(31, "1").EndOfData());
      ASSERT_EQ(run.Records().size(), 3U);
      EXPECT_EQ(run.As<QvEnd>(2).LatestRecordTime, row.latest);
    }
  }
}

}  // namespace
