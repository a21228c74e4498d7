// What the census leaves in the context. Internal: a start resets it before any export shows it.
#include <gtest/gtest.h>

#include "api/context.h"
#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

using qvslm::TranslateContext;
using samples::Body;
using samples::DataFile;
using test::General;

class CensusContext : public testing::Test {
 protected:
  const TranslateContext& Census(const DataFile& file, int status = QV_OK) {
    test::TempFile const stored(file);
    EXPECT_EQ(session_.Census(stored.Path()), status);
    return *static_cast<const TranslateContext*>(session_.Context());
  }
  test::Session session_;
};

qvslm::i32 Offset(const DataFile& file) {
  return static_cast<qvslm::i32>(file.Size());
}

TEST_F(CensusContext, HoldsTheTotals) {
  auto const& context = Census(General()
                                   .Item(1, Body())
                                   .Item(1, Body())
                                   .Item(2, Body())
                                   .Item(3, Body())
                                   .Item(4, Body().Fill(13))
                                   .Item(5, Body())
                                   .Item(129, Body())
                                   .Item(130, Body())
                                   .Item(131, Body())
                                   .Item(132, Body())
                                   .EndOfData());
  EXPECT_EQ(context.Count1, 2U);
  EXPECT_EQ(context.Count2, 1U);
  EXPECT_EQ(context.Count3, 1U);
  EXPECT_EQ(context.Count4, 1U);
  EXPECT_EQ(context.Count5, 1U);
  EXPECT_EQ(context.Count129to132, 4U);
}

TEST_F(CensusContext, HoldsTheIdentityAndTheSettings) {
  auto const& context = Census(test::Model442("TAL").Q(157, "12").Q(82, "3").EndOfData());
  EXPECT_EQ(context.Model, 442);
  EXPECT_EQ(context.Mode, 7);
  EXPECT_EQ(context.HeaderTime, 1718971200);  // 21 June 2024, 12:00 UTC
  EXPECT_EQ(context.SiteNumber, 12);
  EXPECT_EQ(context.SecondLevelKind, 3);
}

TEST_F(CensusContext, ClosesTheFile) {
  EXPECT_EQ(Census(General().EndOfData()).File, nullptr);
  EXPECT_EQ(Census(General(), QV_BAD_LENGTH).File, nullptr);
  EXPECT_EQ(Census(DataFile().Line("no data file"), QV_SEEK_FAILED).File, nullptr);
  auto const& context = Census(General().EndOfData());
  EXPECT_EQ(context.Output, nullptr);
}

TEST_F(CensusContext, EndsBehindTheEndOfData) {
  DataFile file = General();
  file.Item(5, Body()).EndOfData();
  auto const end = Offset(file);
  EXPECT_EQ(Census(file.Raw("more")).FileOffset, end);
}

// Item 132 counts for the first of 129 here; the walk of a translation keeps its own.
TEST_F(CensusContext, FirstOffsets) {
  DataFile file = General();
  auto const first132 = Offset(file);
  file.Item(132, Body()).Item(129, Body());
  auto const first130 = Offset(file);
  file.Item(130, Body()).Item(130, Body());
  auto const first131 = Offset(file);
  file.Item(131, Body()).Item(131, Body()).EndOfData();
  auto const& context = Census(file);
  EXPECT_EQ(context.FirstOffset129, first132);
  EXPECT_EQ(context.FirstOffset130, first130);
  EXPECT_EQ(context.FirstOffset131, first131);
  EXPECT_EQ(context.FirstOffset132, 0);
}

// A settings block with register 209 moves the three behind it.
TEST_F(CensusContext, FirstOffsetsBehindASettingsBlock) {
  DataFile file = General();
  auto const first = Offset(file);
  file.Item(129, Body()).Item(130, Body()).Item(131, Body());
  for (const char* const setting : {"0", "1"}) {
    DataFile with = file;
    with.Q(209, setting);
    auto const behind = Offset(with);
    auto const& context = Census(with.Item(131, Body()).EndOfData());
    bool const moved = setting[0] == '1';
    EXPECT_EQ(context.FirstOffset129, moved ? behind : first);
    EXPECT_EQ(context.FirstOffset130, moved ? behind : first + 3);
    EXPECT_EQ(context.FirstOffset131, moved ? behind : first + 6);
    EXPECT_EQ(context.FirstOffset132, 0);
  }
}

TEST_F(CensusContext, StreamsAndListsAreOver) {
  DataFile file = General();
  file.Stream(6, Body().Fill(1500, 60)).List(21, 4, {Body().U8(1)}).EndOfData();
  auto const& context = Census(file);
  EXPECT_EQ(context.FileOffset, Offset(file));
  EXPECT_EQ(context.StreamInProgress, 0U);
  EXPECT_EQ(context.AutoRefill, 0U);
}

// No event enters the lists, and none starts a run.
TEST_F(CensusContext, EventsAreNotListed) {
  auto const& context = Census(DataFile()
                                   .Header({.Date = "01Jan1970", .Time = "00:00:00"})
                                   .Item(4, test::EventAt({2024, 6, 21}, 64))
                                   .Item(4, test::EventAt({2024, 6, 21}, 32))
                                   .EndOfData());
  EXPECT_EQ(context.RunEventWriteIndex, 0);
  EXPECT_EQ(context.OtherEventWriteIndex, 0);
  EXPECT_EQ(context.FirstRunTime, 0U);
}

TEST_F(CensusContext, FailureIsWorded) {
  EXPECT_EQ(session_.Census("/no/such/file.dat"), QV_CANNOT_OPEN);
  auto const& context = *static_cast<const TranslateContext*>(session_.Context());
  EXPECT_EQ(context.LastError, QV_CANNOT_OPEN);
  EXPECT_STREQ(context.ErrorText, "Error <-302>");
}

}  // namespace
