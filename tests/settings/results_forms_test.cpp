// The value forms that only 'R' blocks have.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/block_lines.h"
#include "support/record_image.h"
#include "support/results_block.h"
#include "support/translation.h"

namespace {

using samples::DataFile;
using test::Difference;
using test::EmptyResults;
using test::RecordImage;
using test::Results;
using test::ResultsStep;
using test::Setting;
using test::Step;
using test::Translation;

struct LastNumberRow {
  const char* name;
  std::vector<Setting> lines;
  float expected;
};

TEST(RBlockForms, ThreeRegistersRepeatTheLastNumber) {
  const std::vector<LastNumberRow> rows = {
      {"nothing before", {}, 0.0F},
      {"a real number", {{47, "47.5"}}, 47.5F},
      {"the later of two", {{47, "47.5"}, {9, "9.5"}}, 9.5F},
      {"a line without a number", {{47, "47.5"}, {9, "abc"}}, 0.0F},
      {"whole numbers are none", {{47, "47.5"}, {31, "31"}}, 47.5F},
      {"lengths are none", {{47, "47.5"}, {5, "01:00:10"}}, 47.5F},
      {"stamps are none", {{47, "47.5"}, {8, "21Jun2024 12:00:00"}}, 47.5F},
      {"an indexed number", {{47, "47.5"}, {60, "3,12.5"}}, 12.5F},
      {"before its sign", {{60, "3,12.5p"}}, 12.5F},
      {"indexed numbers without a comma are none", {{47, "47.5"}, {60, "3"}}, 47.5F},
      {"an indexed number outside the room", {{47, "47.5"}, {60, "24,12.5"}}, 12.5F},
      {"indexed whole numbers are none", {{47, "47.5"}, {124, "1,abc7"}}, 47.5F},
      {"registers that are ignored are none", {{47, "47.5"}, {2, "9"}, {54, "9"}}, 47.5F},
      {"another of the three", {{47, "47.5"}, {48, "9"}, {50, "9"}}, 47.5F},
  };
  for (const LastNumberRow& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<Setting> lines = row.lines;
    lines.insert(lines.end(), {{48, "1.5"}, {50, "2.5"}, {51, "3.5"}});
    auto const results = Results(lines);
    EXPECT_EQ(results.SettingR48, row.expected);
    EXPECT_EQ(results.SettingR50, row.expected);
    EXPECT_EQ(results.SettingR51, row.expected);
  }
}

TEST(RBlockForms, TheLastNumberIsThatOfTheSameBlock) {
  DataFile file = test::General().R(47, "47.5").EndLines("", "").R(48, "1").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 8, 15}));
  EXPECT_EQ(run.As<QvResults>(1).SettingR48, 0.0F);
}

TEST(RBlockForms, Register53LooksForALetterInItsWholeLine) {
  struct Row {
    const char* lines;
    int expected;
  };
  const std::vector<Row> rows = {
      {"R 53,on\r\n", 1},  {"R 53,yes\r\n", 0},  {"R 53,ON\r\n", 0}, {"R53n,yes\r\n", 1},
      {"R 53nyes\r\n", 1}, {"R 53,yes\rn\n", 0}, {"R 53,\r\n", 0},   {"R 53,on\r\nR 53,yes\r\n", 1},
  };
  for (const Row& row : rows) {
    Step const step = ResultsStep(test::General().Raw(row.lines));
    EXPECT_EQ(Translation::Copy<QvResults>(step).SettingR53, row.expected) << row.lines;
  }
}

TEST(RBlockForms, Register60IsATableOf24Numbers) {
  struct Row {
    const char* value;
    std::size_t index;
    float expected;
  };
  const std::vector<Row> rows = {
      {"0,12.5", 0, 12.5F},   {"5,12.5", 5, 12.5F},   {" 23,12.5", 23, 12.5F},
      {"5,12.5p", 5, -12.5F}, {"5p,12.5", 5, -12.5F}, {"p,12.5", 0, -12.5F},
      {"5,-12.5p", 5, 12.5F}, {"5,12.5P", 5, 12.5F},  {"5,12.5,99", 5, 12.5F},
      {"5x,12.5", 5, 12.5F},  {"5, 12.5", 5, 12.5F},  {"x,12.5", 0, 12.5F},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Difference(EmptyResults().F32(188 + 4 * row.index, row.expected),
                         ResultsStep({{60, row.value}})),
              "")
        << row.value;
  }
  for (const char* const value : {"24,12.5", "-1,12.5", "1000000,12.5", "2147483647,12.5",
                                  "-2147483648,12.5", "4", "", "4 12.5"}) {
    EXPECT_EQ(Difference(EmptyResults(), ResultsStep({{60, value}})), "") << value;
  }
  EXPECT_EQ(Results({{60, "5,12.5"}, {60, "5,abc"}}).SettingR60[5], 0.0F);
  EXPECT_EQ(Results({{60, "5,12.5"}, {60, "5"}}).SettingR60[5], 12.5F);
}

TEST(RBlockForms, Register98IsARowOfEightCells) {
  struct Row {
    const char* value;
    std::vector<int> bytes;
  };
  const std::vector<Row> rows = {
      {"A11 B12 C13 D14 E15 F16 G17 H18", {11, 12, 13, 14, 15, 16, 17, 18}},
      {"A1  B2  C3  D4  E5  F6  G7  H8 ", {1, 2, 3, 4, 5, 6, 7, 8}},
      {"A 1 B 2 C 3 D 4 E 5 F 6 G 7 H 8 ", {1, 2, 3, 4, 5, 6, 7, 8}},
      {"A0  B1  C-1 Dx  E255F256G300H8  ", {1, 1, 255, 1, 255, 1, 44, 8}},
  };
  for (const Row& row : rows) {
    RecordImage image = EmptyResults();
    for (std::size_t i = 0; i < 8; ++i) image.U8(160 + i, row.bytes[i]);
    EXPECT_EQ(Difference(image, ResultsStep({{98, row.value}})), "") << row.value;
  }
}

TEST(RBlockForms, Register98CountsOncePerBlock) {
  const char* const first = "A11 B12 C13 D14 E15 F16 G17 H18";
  const char* const second = "A21 B22 C23 D24 E25 F26 G27 H28";
  DataFile file = test::General().R(98, first).R(98, second).EndLines("", "").R(98, second);
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 8, 15}));
  EXPECT_EQ(run.As<QvResults>(0).SettingR98[0], 11);
  EXPECT_EQ(run.As<QvResults>(0).SettingR98[7], 18);
  EXPECT_EQ(run.As<QvResults>(1).SettingR98[0], 21);
  EXPECT_EQ(run.As<QvResults>(1).SettingR98[7], 28);
}

TEST(RBlockForms, Register120IsAPointOfTheCompass) {
  const char* const points[] = {"  N", "NNE", " NE", "ENE", "  E", "ESE", " SE", "SSE",
                                "  S", "SSW", " SW", "WSW", "  W", "WNW", " NW", "NNW"};
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Results({{120, points[i]}}).SettingR120, i) << points[i];
    EXPECT_EQ(Results({{120, std::string(points[i]) + " wind"}}).SettingR120, i) << points[i];
  }
  for (const char* const value : {"N", "NE", "N  ", " N ", "nne", "", "wind", "SW ", "   "}) {
    EXPECT_EQ(Results({{120, value}}).SettingR120, 0) << value;
  }
}

TEST(RBlockForms, Register120GoesOnSearchingWhereItStopped) {
  struct Row {
    std::vector<Setting> lines;
    int expected;
  };
  const std::vector<Row> rows = {
      {{{120, "ENE"}, {120, "SSE"}}, 7},                // further on
      {{{120, "ENE"}, {120, "  E"}}, 4},                // the next one
      {{{120, "ENE"}, {120, "ENE"}}, 0},                // the same is behind the search
      {{{120, "ENE"}, {120, "NNE"}}, 0},                // as is an earlier one
      {{{120, "ENE"}, {120, "NNE"}, {120, "SSE"}}, 0},  // after a miss nothing matches
      {{{120, "  N"}, {120, "SSE"}}, 7},                // behind the first of all
      {{{120, "  N"}, {120, "  N"}, {120, "SSE"}}, 0},
      {{{120, "NNW"}, {120, "NNW"}}, 0},
      {{{120, "xyz"}, {120, "SSE"}}, 0},
  };
  for (const Row& row : rows) EXPECT_EQ(Results(row.lines).SettingR120, row.expected);

  DataFile file = test::General().R(120, "SSE").EndLines("", "").R(120, "ENE").EndOfData();
  Translation const run(file);
  ASSERT_EQ(run.Codes(), (std::vector<int>{8, 8, 15}));
  EXPECT_EQ(run.As<QvResults>(1).SettingR120, 3);
}

TEST(RBlockForms, Register124IsATableOf8WholeNumbers) {
  struct Row {
    const char* value;
    std::size_t index;
    int expected;
  };
  const std::vector<Row> rows = {
      {"1,abc7", 0, 7}, {"8,abc7", 7, 7},  {" 3,   -70000", 2, -70000}, {"3,1237", 2, 7},
      {"3,,,,7", 2, 7}, {"3,abc 7", 2, 7}, {"3x,abc7x", 2, 7},          {"3,abc4294967301", 2, 5},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Difference(EmptyResults().I32(672 + 4 * row.index, row.expected),
                         ResultsStep({{124, row.value}})),
              "")
        << row.value;
  }
  for (const char* const value : {"0,abc7", "9,abc7", "-1,abc7", "x,abc7", "1000000,abc7",
                                  "-2147483648,abc7", "3", "", "3abc7", "3  7", "3ab7"}) {
    EXPECT_EQ(Difference(EmptyResults(), ResultsStep({{124, value}})), "") << value;
  }
}

TEST(RBlockForms, Register1TellsTheModel) {
  struct Row {
    const char* value;
    int model;
  };
  const std::vector<Row> rows = {
      {"Hedrom-Pulke Model 485", 485},
      {"Model485", 485},
      {"Model 487 of Model 9", 487},
      {"Hedrom-Pulke", 486},
      {"model 485", 486},
      {"485", 486},
      {"Model", 0},
      {"Model x", 0},
      {"", 486},
      {"Model 65537", 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.value);
    Translation const run(test::General().R(1, row.value).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{8, 15}));
    EXPECT_EQ(Difference(EmptyResults(row.model), run.Records()[0]), "");
    EXPECT_EQ(run.As<QvEnd>(1).Model, row.model);
  }
}

TEST(RBlockForms, TheModelOfRegister1ChoosesTheNextBlock) {
  for (int const model : {431, 442}) {
    DataFile file = test::General().R(1, "Model " + std::to_string(model)).R(31, "1");
    Translation const run(file.EndLines("", "").R(31, "1").EndOfData());
    EXPECT_EQ(run.Codes(), (std::vector<int>{8, model == 431 ? 37 : 55, 15}));
  }
}

TEST(RBlockForms, RegistersOfModel431CountBehindItsModelLine) {
  DataFile file = test::General().R(179, "1").R(180, "early").R(181, "1").R(171, "100171");
  file.R(1, "Model 431").R(179, "100179").R(180, "text180").R(181, "100181").R(171, "5");
  RecordImage image = EmptyResults(431).I32(284, 100179).Chars(288, "text1").I32(480, 100181);
  EXPECT_EQ(Difference(image.I32(468, 100171), ResultsStep(file)), "");
}

TEST(RBlockForms, Register170OfModel431IsAVoltage) {
  struct Row {
    const char* kind;
    const char* value;
    const char* expected;
  };
  const std::vector<Row> rows = {
      {"E", "7.44", "7.4V"},     {"xE", "12.06x", "12.1V"}, {"Ext", "", "0.0V"},
      {"Ext", "1e1", "10.0V"},   {"Ext", "-0.5", "-0.5V"},  {"Ext", "12345.6", "12345.6"},
      {"ext", "7.44", "source"}, {"", "7.44", "source"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.kind) + ", " + row.value);
    auto const results =
        Results({{1, "Model 431"}, {86, "source"}, {87, row.kind}, {170, row.value}});
    EXPECT_STREQ(results.SettingR86, row.expected);
    EXPECT_EQ(results.SettingR170, 0);
  }
  // Ahead of the line that tells the kind there is no voltage, nor on other models.
  EXPECT_STREQ(Results({{1, "Model 431"}, {86, "source"}, {170, "7"}, {87, "Ext"}}).SettingR86,
               "source");
  EXPECT_STREQ(Results({{86, "source"}, {87, "Ext"}, {170, "7"}}).SettingR86, "source");
}

}  // namespace
