// The 'C' items: type 30 of model 431, type 50 of every other model.
#include <gtest/gtest.h>

#include <string>

#include "support/autumn_run.h"
#include "support/item_bodies.h"
#include "support/record_image.h"
#include "support/scoped_zone.h"
#include "support/setup_block.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/zone_times.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr int kReferenceItem = 'C';

constexpr std::int32_t kNovember = 1731147072;  // 9 November 2024 10:11:12 in Greenwich

Body WithStamps(Body body) {
  return body.Set(9, {0x05, 0x03, 0x24, 0x06, 0x07, 0x08})
      .Set(15, {0x09, 0x11, 0x24, 0x10, 0x11, 0x12});
}

float Ratio(int word) {
  return static_cast<float>(word / 32512.0);
}

Body LevelMark() {
  return Body().U8(0).Date(1, 6, 2024).Time(12, 0, 0).Level(60.5).U8(0);
}

TEST(Reference431, EveryPositionHasItsField) {
  Translation const run(Model431("OBA ")
                            .Q(157, "7")
                            .Q(227, "1.5")
                            .Item(kReferenceItem, WithStamps(CountingBody(129)))
                            .EndOfData());
  RecordImage expected(148);
  expected.U16(0, 30).U16(2, 7).U16(10, 431).U16(12, 241).U16(14, 1).U16(16, 2);
  expected.F32(20, 3 + 4 / 256.0f).F32(24, 5 + 6 / 256.0f).F32(28, 8.5f + 8 / 256.0f);
  expected.I32(32, kMarch).I32(36, kNovember);
  expected.F32(40, 22.5f + 22 / 256.0f).F32(44, 44.5f + 44 / 256.0f);
  expected.F32(48, 46.5f + 46 / 256.0f).F32(52, 48.5f + 48 / 256.0f);
  expected.F32(56, Ratio(12594)).F32(60, Ratio(13108)).F32(64, Ratio(13622));
  expected.U16(68, 55).U16(70, 56);
  for (int i = 0; i < 33; ++i) expected.U16(static_cast<std::size_t>(72 + 2 * i), 57 + i);
  expected.U16(138, 90).U16(140, 91).U16(142, 92).I32(144, 32640);

  EXPECT_EQ(run.end, QV_END_OF_DATA);
  ASSERT_EQ(run.Records(30).size(), 1u);
  EXPECT_EQ(run.Records(30)[0].status, 0);
  EXPECT_EQ(Difference(expected, run.Records(30)[0]), "");
}

TEST(Reference431, FormsOfHighBytes) {
  Translation const run(
      Model431("OBA ").Q(227, "1.5").Item(kReferenceItem, HighBody(129)).EndOfData());
  ASSERT_EQ(run.Records(30).size(), 1u);
  auto const record = run.As<QvReference431>(0, 30);
  EXPECT_EQ(record.ReferenceValue3, -55.21875f);
  EXPECT_EQ(record.ReferenceValue5, -55.21875f);
  for (float const level :
       {record.ReferenceLevel7, record.ReferenceLevel21, record.ReferenceLevel43,
        record.ReferenceLevel45, record.ReferenceLevel47}) {
    EXPECT_EQ(level, 202.28125f);
  }
  for (float const value :
       {record.ReferenceValue49, record.ReferenceValue51, record.ReferenceValue53}) {
    EXPECT_EQ(value, Ratio(51400));
  }
  EXPECT_EQ(record.ReferenceTime9, kFirstOfJanuary2000);
  EXPECT_EQ(record.ReferenceWord127, 51400u);
}

TEST(Reference431, ShortBodyReadsAsZerosWithStatusOfTheSeek) {
  for (std::size_t const size : {0u, 64u, 128u}) {
    Translation const run(Model431("OBA ").Item(kReferenceItem, Body().Fill(size)).EndOfData());
    SCOPED_TRACE(size);
    ASSERT_EQ(run.Codes(), (std::vector<int>{30, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    RecordImage expected(148);
    expected.U16(0, 30).U16(10, 431);
    expected.I32(32, kFirstOfJanuary2000).I32(36, kFirstOfJanuary2000);
    expected.F32(28, 999).F32(40, 999).F32(44, 999).F32(48, 999).F32(52, 999);
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(Reference431, LongBodyIsPassedOver) {
  Translation const run(
      Model431("OBA ").Item(kReferenceItem, CountingBody(300)).Item(5, LevelMark()).EndOfData());
  EXPECT_EQ(run.Codes(), (std::vector<int>{30, 5, 15}));
  EXPECT_EQ(run.As<QvReference431>(0).ReferenceWord127, 32640u);
}

TEST(Reference431, RaisesNoLatestTime) {
  Translation const run(
      Model431("OBA ").Item(kReferenceItem, WithStamps(Body().PadTo(129))).EndOfData());
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, 0);
}

// What the look-ahead finds in the text behind the item shows in the level mark that follows.
class LookAhead431 : public testing::Test {
 protected:
  // The file does not end in lines of its own: room for the look at the tail stands in front.
  static DataFile Head() {
    return Model431("OBA ")
        .Item(9, Body().Fill(1200))
        .Q(227, "5.0")
        .Item(kReferenceItem, Body().PadTo(129).Set(7, {60, 128}));
  }

  static void ExpectOffset(const std::string& behindTheMark, float expected) {
    SCOPED_TRACE(behindTheMark.substr(0, 60));
    TempFile const file(
        Head().Item(5, LevelMark()).EndLines("nd of mark", "second").Raw(behindTheMark));
    Translation const run(file.Path(), {.mostSteps = 5});
    ASSERT_EQ(run.start, 0);
    ASSERT_EQ(run.steps.size(), 5u);
    // The levels of the record itself are those of the offset before it.
    ASSERT_EQ(run.steps[2].Code(), QV_REFERENCE_431);
    EXPECT_EQ(Translation::Copy<QvReference431>(run.steps[2]).ReferenceLevel7, 65.5f);
    // The file goes on where it stood.
    ASSERT_EQ(run.steps[3].Code(), QV_LEVEL_MARK);
    EXPECT_EQ(Translation::Copy<QvLevelMark>(run.steps[3]).LevelOffset, expected);
  }
};

TEST_F(LookAhead431, TakesRegister106) {
  ExpectOffset("R106,7.5\r\n", 7.5f);
  ExpectOffset("R106,-3.5\r\n", -3.5f);
  ExpectOffset("R106,7.5\n", 7.5f);
  ExpectOffset("R106,7.5 dB\r\n", 7.5f);
}

TEST_F(LookAhead431, ValuesFrom128OnAreNegative) {
  ExpectOffset("R106,127.9\r\n", 127.9f);
  ExpectOffset("R106,128.0\r\n", -128.0f);
  ExpectOffset("R106,200.0\r\n", -56.0f);
  ExpectOffset("R106,255.9\r\n", static_cast<float>(255.9 - 256.0));
}

TEST_F(LookAhead431, GoesThroughTheLinesOfTheBlock) {
  ExpectOffset("R  1,Model 431\r\nR  6,21Jun2024,12:00:00\r\nR106,7.5\r\nR106,9.5\r\n", 7.5f);
}

TEST_F(LookAhead431, PassesOtherLinesBeforeTheBlock) {
  ExpectOffset("X106,1.0\r\nstill another\r\nR106,7.5\r\n", 7.5f);
}

TEST_F(LookAhead431, AnotherLineWithinTheBlockEndsIt) {
  ExpectOffset("R  1,Model 431\r\nX\r\nR106,7.5\r\n", 5.0f);
}

TEST_F(LookAhead431, NoSuchLineLeavesTheOffset) {
  ExpectOffset("", 5.0f);
  ExpectOffset("no such line\r\n", 5.0f);
  ExpectOffset("R  1,Model 431\r\nR107,7.5\r\n", 5.0f);
}

TEST_F(LookAhead431, LastLineWithoutLineEndIsNotUsed) {
  ExpectOffset("R106,7.5", 5.0f);
  ExpectOffset("R  1,Model 431\r\nR106,7.5", 5.0f);
}

TEST_F(LookAhead431, NoNumberStoresZero) {
  ExpectOffset("R106,abc\r\n", 0.0f);
  ExpectOffset("R106,\r\n", 0.0f);
}

TEST_F(LookAhead431, LineReadTakes320Characters) {
  // What follows the first 320 characters of a line is read as a line of its own.
  ExpectOffset(std::string(320, 'x') + "R106,7.5\r\n", 7.5f);
  ExpectOffset(std::string(319, 'x') + "R106,7.5\r\n", 5.0f);
}

TEST(Reference, EveryPositionHasItsField) {
  for (int const model : {442, 486}) {
    SCOPED_TRACE(model);
    DataFile file = model == 442 ? Model442("SSA") : General();
    Translation const run(file.Q(157, "7")
                              .Q(227, "1.5")
                              .Item(kReferenceItem, WithStamps(CountingBody(65)))
                              .EndOfData());
    RecordImage expected(64);
    expected.U16(0, 50).U16(2, 7).U16(10, model);
    expected.U16(12, 241).U16(14, 1);
    expected.F32(16, 3 + 4 / 256.0f).F32(20, 5 + 6 / 256.0f).F32(24, 7 + 8 / 256.0f);
    expected.I32(28, kMarch).I32(32, kNovember);
    expected.F32(36, 22.5f + 22 / 256.0f).F32(40, 24.5f + 24 / 256.0f).F32(44, 26.5f + 26 / 256.0f);
    expected.F32(48, 37 + 38 / 256.0f);
    expected.F32(52, 40.5f + 40 / 256.0f).F32(56, 42.5f + 42 / 256.0f).I32(60, 16192);

    EXPECT_EQ(run.end, QV_END_OF_DATA);
    ASSERT_EQ(run.Records(50).size(), 1u);
    EXPECT_EQ(run.Records(50)[0].status, 0);
    EXPECT_EQ(Difference(expected, run.Records(50)[0]), "");
  }
}

TEST(Reference, FormsOfHighBytes) {
  Translation const run(General().Q(227, "1.5").Item(kReferenceItem, HighBody(65)).EndOfData());
  RecordImage expected(64);
  expected.U16(0, 50).U16(10, 486).U16(12, 200).U16(14, 200);
  expected.Floats(16, {-55.21875f, -55.21875f, -55.21875f});
  expected.I32(28, kFirstOfJanuary2000).I32(32, kFirstOfJanuary2000);
  expected.Floats(36, {202.28125f, 202.28125f, 202.28125f, -55.21875f, 202.28125f, 202.28125f});
  expected.I32(60, 51400);
  ASSERT_EQ(run.Records(50).size(), 1u);
  EXPECT_EQ(Difference(expected, run.Records(50)[0]), "");
}

TEST(Reference, ShortBodyReadsAsZerosWithStatusZero) {
  for (std::size_t const size : {0u, 30u, 64u}) {
    SCOPED_TRACE(size);
    Translation const run(General().Item(kReferenceItem, Body().Fill(size)).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector<int>{50, 15}));
    EXPECT_EQ(run.steps[0].status, 0);
    RecordImage expected(64);
    expected.U16(0, 50).U16(10, 486);
    expected.I32(28, kFirstOfJanuary2000).I32(32, kFirstOfJanuary2000);
    expected.Floats(36, {999, 999, 999, 0, 999, 999});
    EXPECT_EQ(Difference(expected, run.steps[0]), "");
  }
}

TEST(Reference, LevelsWithoutSecondByteHaveNoValue) {
  Translation const run(
      General().Q(227, "1.5").Item(kReferenceItem, Body().PadTo(65).Set(21, {75, 0})).EndOfData());
  ASSERT_EQ(run.Records(50).size(), 1u);
  EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceLevel21, 999.0f);
}

TEST(Reference, RaisesNoLatestTime) {
  Translation const run(General().Item(kReferenceItem, WithStamps(Body().PadTo(65))).EndOfData());
  ASSERT_EQ(run.end, QV_END_OF_DATA);
  EXPECT_EQ(run.As<QvEnd>(0, QV_END).LatestRecordTime, 0);
}

// The reference level is taken off by the last bit of the fourth mask in list 27, here from a
// value of 50.5.
float Referenced(DataFile file) {
  Body const setup = EmptySetup(2).Set(140, {4}).Set(185, {1});
  Translation const run(
      file.Item(kSetupItem, setup).List(27, 4, {Body().Raw({60, 1, 50, 128})}).EndOfData());
  return run.Records(57).size() == 1 ? run.As<QvFieldHistory>(0, 57).Group4[0] : -1000.0f;
}

TEST(ReferenceLevel, IsZeroWithoutAReferenceItem) {
  EXPECT_EQ(Referenced(Model442("LOG")), 50.5f);
}

TEST(ReferenceLevel, ComesFromTheLastReferenceItem) {
  Body const first = Body().PadTo(65).Set(37, {10, 64});
  Body const second = Body().PadTo(65).Set(37, {0xFD, 0x80});
  EXPECT_EQ(Referenced(Model442("LOG").Item(kReferenceItem, first)), 40.25f);
  EXPECT_EQ(Referenced(General("3.600").Item(kReferenceItem, first)), 40.25f);
  EXPECT_EQ(Referenced(Model442("LOG").Item(kReferenceItem, first).Item(kReferenceItem, second)),
            53.0f);
}

TEST(ReferenceTimes, CarryTheZoneOfTheHost) {
  // 5 March is winter on both shores, 9 July summer.
  auto const stamps = [](Body body) {
    return body.Set(9, {0x05, 0x03, 0x24, 0x06, 0x07, 0x08})
        .Set(15, {0x09, 0x07, 0x24, 0x06, 0x07, 0x08});
  };
  for (const ZoneTimes& expected : kZoneTimes) {
    SCOPED_TRACE(expected.zone);
    ScopedZone const zone(expected.zone);
    Translation const run431(
        Model431("OBA ").Item(kReferenceItem, stamps(Body().PadTo(129))).EndOfData());
    ASSERT_EQ(run431.Records(30).size(), 1u);
    EXPECT_EQ(run431.As<QvReference431>(0, 30).ReferenceTime9, expected.march);
    EXPECT_EQ(run431.As<QvReference431>(0, 30).ReferenceTime15, expected.july);
    Translation const run(General().Item(kReferenceItem, stamps(Body().PadTo(65))).EndOfData());
    ASSERT_EQ(run.Records(50).size(), 1u);
    EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceTime9, expected.march);
    EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceTime15, expected.july);
  }
}

TEST(ReferenceTimes, OnlyTheGeneralFormFollowsTheSpanOfTheRun) {
  ScopedZone const zone("Europe/Berlin");
  // 02:30 of the night stands twice.
  Body const stamp = Body().PadTo(129).Set(9, {0x27, 0x10, 0x24, 0x02, 0x30, 0x00});

  DataFile file431 = Model431("OBA ");
  AddAutumnRun(file431).Item(kReferenceItem, stamp).EndOfData();
  Translation const run431(file431, {.census = true});
  EXPECT_EQ(run431.census, 0);
  ASSERT_EQ(run431.Records(30).size(), 1u);
  EXPECT_EQ(run431.As<QvReference431>(0, 30).ReferenceTime9, kSunday0130Utc);

  DataFile file = General();
  AddAutumnRun(file).Item(kReferenceItem, stamp).EndOfData();
  Translation const run(file, {.census = true});
  EXPECT_EQ(run.census, 0);
  ASSERT_EQ(run.Records(50).size(), 1u);
  EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceTime9, kSunday0030Utc);
}

TEST(ReferenceTimes, TheTwoStampsKeepNoLastTime) {
  ScopedZone const zone("Europe/Berlin");
  // 08:10, then 07:50: a family that remembers its last time would read 06:50 by Greenwich.
  Body const stamps = Body()
                          .PadTo(65)
                          .Set(9, {0x27, 0x10, 0x24, 0x08, 0x10, 0x00})
                          .Set(15, {0x27, 0x10, 0x24, 0x07, 0x50, 0x00});
  DataFile file = General();
  AddAutumnRun(file).Item(kReferenceItem, stamps).EndOfData();
  Translation const run(file, {.census = true});
  ASSERT_EQ(run.Records(50).size(), 1u);
  EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceTime9, kSunday0710Utc);
  EXPECT_EQ(run.As<QvReference>(0, 50).ReferenceTime15, kSunday0550Utc);
}

}  // namespace
}  // namespace test
