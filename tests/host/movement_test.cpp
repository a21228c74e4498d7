// Files on which the library's steps go on for ever, and whole files that look as if they did.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Names;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::HasSubstr;

constexpr const char* kNotMoving =
    "the file does not move forward any more: a list or stream without its end, or an item that "
    "its mode knows no record for (0)\n";

Body Mark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(60).U8(0);
}

// Room for the tail that the start looks at.
DataFile WithRoom() {
  DataFile file = General();
  for (int i = 0; i < 200; ++i) file.Item(5, Mark());
  return file;
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

TEST(Movement, AModeWithoutARecordForItem2) {
  TempFile const nothing(Startable(test::Model442("ISM").Item(2, Body().PadTo(80)).EndOfData()));
  Result const none = RunQvslm({"dump", nothing.Path()});
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.err, "qvslm: " + nothing.Path() + ": " + kNotMoving);

  TempFile const some(
      Startable(test::Model442("ISM").Item(5, Mark()).Item(2, Body().PadTo(80)).EndOfData()));
  Result const one = RunQvslm({"dump", some.Path()});
  EXPECT_EQ(one.exitCode, 3);
  EXPECT_EQ(Count(one, "LevelMark"), 1u);
  EXPECT_EQ(one.err, "qvslm: " + some.Path() + ": ended after 1 record: " + kNotMoving);
}

TEST(Movement, Item6OnModel442) {
  TempFile const file(
      Startable(test::Model442("LOG").Item(5, Mark()).Item(6, Body().PadTo(8)).EndOfData()));
  Result const result = RunQvslm({"dump", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.err, HasSubstr(kNotMoving));
}

// The library delivers the last block for ever; the host writes each block once.
TEST(Movement, AListWithoutItsEnd) {
  struct Row {
    int type;
    const char* name;
  };
  for (const Row& row : {Row{21, "TimedSpectrum"}, Row{27, "FieldHistory"}}) {
    for (std::size_t const lastBytes : {std::size_t{28}, std::size_t{9}}) {
      TempFile const file(CutList(row.type, 40, lastBytes));
      Result const result = RunQvslm({"dump", file.Path()});
      EXPECT_EQ(result.exitCode, 3) << row.name << lastBytes;
      EXPECT_EQ(Count(result, row.name), 40u) << lastBytes;
      EXPECT_THAT(result.err, HasSubstr("ended after 240 records: "));
      EXPECT_THAT(result.err, HasSubstr(kNotMoving));
    }
  }
}

// Without a count only the size of the file bounds it.
TEST(Movement, AListWithoutItsEndAndWithoutACensus) {
  DataFile const list = CutList(21, 40, 28);
  TempFile const file(list);
  Result const result = RunQvslm({"dump", "--no-census", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_GE(Count(result, "TimedSpectrum"), 40u);
  EXPECT_LE(Count(result, "TimedSpectrum"), list.Size());
  EXPECT_THAT(result.err, HasSubstr(kNotMoving));
}

// A block of no bytes leaves in memory what stood there before: the item in front of the list.
TEST(Movement, AListOfBlocksOfNoBytes) {
  for (int const type : {21, 27}) {
    TempFile const file(WithRoom().Item(5, Mark().Set(0, {7})).Raw(Body().U8(type).U8(0).Bytes()));
    Result const result = RunQvslm({"dump", file.Path()});
    EXPECT_EQ(result.exitCode, 3) << type;
    EXPECT_THAT(result.err, HasSubstr(kNotMoving)) << type;
  }
}

TEST(Movement, AStreamWithoutItsEnd) {
  DataFile const stream = WithRoom().Raw(Body().U8(6).Fill(4000, 55).Bytes());
  TempFile const file(stream);
  for (const char* const option : {"--limit=100000", "--no-census"}) {
    Result const result = RunQvslm({"dump", option, file.Path()});
    EXPECT_EQ(result.exitCode, 3) << option;
    EXPECT_THAT(result.err, HasSubstr(kNotMoving)) << option;
  }
  // 2000 entries of two bytes are 33 full records and a rest; the last block may be told once more.
  EXPECT_LE(Count(RunQvslm({"dump", file.Path()}), "TimeHistory"), 45u);
}

// A steady tone gives equal blocks for hours: none of them may be missing.
TEST(Movement, SteadyListsAreWhole) {
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

TEST(Movement, SteadyStreamsAreWhole) {
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
TEST(Movement, ManyStepsWithoutARecordAreWhole) {
  DataFile file = General();
  for (int i = 0; i < 3000; ++i) file.Raw("E\n\n").Item(9, Body()).Stream(6, Body());
  TempFile const stored(file.EndOfData());
  Result const result = RunQvslm({"dump", stored.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Names(result), std::vector<std::string>{"End"});
}

}  // namespace
