// Files on which the library's steps go on for ever, and whole files that look as if they did.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Mark;
using test::Names;
using test::Objects;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::HasSubstr;

constexpr const char* kStandsStill =
    "the file does not lead on: an item that its mode knows no record for, or a list without a "
    "block "
    "length\n";
constexpr const char* kCut = "the file ends before the end of its data\n";

// Room for the tail that the start looks at.
DataFile WithRoom() {
  return test::Marks(200);
}

// A list 21 or 27 of equal blocks of which the last is cut to the given bytes, and no end.
DataFile CutList(int type, int blocks, std::size_t lastBytes) {
  std::string const block = Body().U8(60).Fill(27, 33).Bytes();
  DataFile file = WithRoom().Raw(Body().U8(type).U8(28).Bytes());
  for (int i = 1; i < blocks; ++i) file.Raw(block);
  return file.Raw(block.substr(0, lastBytes));
}

std::size_t Count(const Result& result, const std::string& name) {
  std::size_t count = 0;
  for (const std::string& record : Names(result)) count += record == name ? 1 : 0;
  return count;
}

TEST(EndlessFiles, AModeWithoutARecordForItem2) {
  TempFile const nothing(Startable(test::Model442("ISM").Item(2, Body().PadTo(80)).EndOfData()));
  Result const none = RunQvslm({"dump", nothing.Path()});
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.err, "qvslm: " + nothing.Path() + ": at byte 117: " + kStandsStill);

  TempFile const some(
      Startable(test::Model442("ISM").Item(5, Mark()).Item(2, Body().PadTo(80)).EndOfData()));
  Result const one = RunQvslm({"dump", some.Path()});
  EXPECT_EQ(one.exitCode, 3);
  EXPECT_EQ(Count(one, "LevelMark"), 1u);
  EXPECT_EQ(one.err,
            "qvslm: " + some.Path() + ": ended after 1 record at byte 130: " + kStandsStill);
}

TEST(EndlessFiles, Item6OnModel442) {
  TempFile const file(
      Startable(test::Model442("LOG").Item(5, Mark()).Item(6, Body().PadTo(8)).EndOfData()));
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr(kStandsStill));
}

// The library delivers the last block for ever; the host writes each block that the file wholly
// holds once, and the one that it does not only when asked to.
TEST(EndlessFiles, AListWithoutItsEnd) {
  struct Row {
    int type;
    const char* name;
  };
  for (const Row& row : {Row{21, "TimedSpectrum"}, Row{27, "FieldHistory"}}) {
    for (const char* const census : {"--limit=100000", "--no-census"}) {
      TempFile const whole(CutList(row.type, 40, 28));
      Result const all = RunQvslm({"dump", census, whole.Path()});
      EXPECT_EQ(all.exitCode, 3) << row.name;
      EXPECT_EQ(Count(all, row.name), 40u);
      // 97 bytes of header, 200 marks of 13 bytes, 2 bytes and 40 blocks of 28.
      EXPECT_THAT(all.err, HasSubstr("ended after 240 records at byte 3820: "));
      EXPECT_THAT(all.err, HasSubstr(kCut));

      TempFile const cut(CutList(row.type, 40, 9));
      Result const most = RunQvslm({"dump", census, cut.Path()});
      EXPECT_EQ(most.exitCode, 3) << row.name;
      EXPECT_EQ(Count(most, row.name), 39u);
      EXPECT_THAT(most.err, HasSubstr("ended after 239 records at byte 3792: "));
      EXPECT_THAT(most.err,
                  HasSubstr(": 1 record that the file does not wholly hold is left out\n"));

      Result const asked = RunQvslm({"dump", census, "--cut", cut.Path()});
      EXPECT_EQ(asked.exitCode, 3) << row.name;
      EXPECT_EQ(Count(asked, row.name), 40u);
      EXPECT_EQ(Objects(asked).back().at("cut"), true);
      EXPECT_EQ(Objects(asked).at(238).count("cut"), 0u);
      EXPECT_THAT(asked.err, testing::Not(HasSubstr("left out")));
    }
  }
}

// A block of no bytes leaves in memory what stood there before: the item in front of the list.
TEST(EndlessFiles, AListOfBlocksOfNoBytes) {
  for (int const type : {21, 27}) {
    TempFile const file(WithRoom().Item(5, Mark().Set(0, {7})).Raw(Body().U8(type).U8(0).Bytes()));
    Result const result = RunQvslm({"dump", file.Path()});
    EXPECT_EQ(result.exitCode, 3) << type;
    EXPECT_THAT(result.err, HasSubstr(kStandsStill)) << type;
  }
}

TEST(EndlessFiles, AStreamWithoutItsEnd) {
  DataFile const stream = WithRoom().Raw(Body().U8(6).Fill(4000, 55).Bytes());
  TempFile const file(stream);
  // 2000 entries of two bytes are 33 records of 60, and one that is cut.
  for (const char* const option : {"--limit=100000", "--no-census"}) {
    Result const result = RunQvslm({"dump", option, file.Path()});
    EXPECT_EQ(result.exitCode, 3) << option;
    EXPECT_EQ(Count(result, "TimeHistory"), 33u) << option;
    EXPECT_THAT(result.err, HasSubstr(kCut)) << option;
    EXPECT_THAT(result.err,
                HasSubstr(": 1 record that the file does not wholly hold is left out\n"));
  }
}

// The level offset of model 431 stands in the results block at the end: without it all levels
// behind the reference record are others.
TEST(EndlessFiles, LevelsOfModel431WithoutTheirOffset) {
  DataFile file = test::Model431("iSLM").Item('C', Body().U8(1).PadTo(129));
  for (int i = 0; i < 100; ++i) {
    file.Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60.5).U8(0));
  }
  TempFile const whole(DataFile(file).R(1, "results").R(106, "10.0").EndOfData());
  EXPECT_EQ(RunQvslm({"dump", whole.Path()}).exitCode, 0);
  EXPECT_EQ(Objects(RunQvslm({"dump", whole.Path()})).at(1).at("Level"), 70.5);

  TempFile const cut(file);
  Result const result = RunQvslm({"dump", cut.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("the file ends before the results block with the level offset "
                                    "(register 106) of this model 431"));
  EXPECT_THAT(result.err, HasSubstr("101 records that the file does not wholly hold are left out"));
  EXPECT_EQ(Objects(RunQvslm({"dump", "--cut", cut.Path()})).size(), 101u);
}

// The file has a list of which no census can count the blocks; none may be made up.
TEST(EndlessFiles, AListThatACensusCannotCount) {
  DataFile file = WithRoom().Q(81, "1");
  file.Raw(Body().U8(21).U8(4).Raw({9, 9, 9, 9}).Raw({9, 9}).Bytes());
  TempFile const stored(file);
  Result const result = RunQvslm({"dump", stored.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(Count(result, "TimedSpectrum"), 1u);
}

// A steady tone gives equal blocks for hours: none of them may be missing.
TEST(EndlessFiles, SteadyListsAreWhole) {
  for (int const type : {21, 27}) {
    std::vector<Body> const blocks(2000, Body().U8(60).Fill(27, 33));
    TempFile const file(General().List(type, 28, blocks).Item(5, Mark()).EndOfData());
    for (const char* const option : {"--limit=100000", "--no-census"}) {
      Result const result = RunQvslm({"dump", option, file.Path()});
      EXPECT_EQ(result.exitCode, 0) << type << option;
      EXPECT_EQ(result.err, "");
      EXPECT_EQ(Names(result).size(), 2002u);
    }
  }
}

TEST(EndlessFiles, SteadyStreamsAreWhole) {
  // One-byte entries (register 81), the densest form.
  TempFile const file(General()
                          .Q(81, "1")
                          .Stream(6, Body().Fill(60000, 55))
                          .Stream(6, Body().Fill(60000, 55))
                          .EndOfData());
  for (const char* const option : {"--limit=100000", "--no-census"}) {
    Result const result = RunQvslm({"dump", option, file.Path()});
    EXPECT_EQ(result.exitCode, 0) << option;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Count(result, "TimeHistory"), 2000u);
    EXPECT_EQ(Names(result).back(), "End");
  }
}

// The smallest items there are: 'E' lines of one character, items without a body, empty streams.
TEST(EndlessFiles, ManyStepsWithoutARecordAreWhole) {
  DataFile file = General();
  for (int i = 0; i < 3000; ++i) file.Raw("E\n\n").Item(9, Body()).Stream(6, Body());
  TempFile const stored(file.EndOfData());
  Result const result = RunQvslm({"dump", stored.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Names(result), std::vector<std::string>{"End"});
}

}  // namespace
