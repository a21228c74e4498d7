// The record at the end of the data, built up on the way.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/steps.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::General;
using test::Model431;
using test::Model442;
using test::Session;
using test::Startable;
using test::TempFolder;
using test::Translation;

constexpr int kNoon = 1718971200;  // 21 June 2024, 12:00:00 UTC

Body MarkAt(int hour, int minute) {
  return Body().U8(0).Date(21, 6, 2024).Time(hour, minute, 0).Level(65.5).U8(0);
}

QvEnd EndOf(const DataFile& file) {
  Translation const run(file);
  EXPECT_EQ(run.end, QV_END_OF_DATA);
  return run.As<QvEnd>(0, QV_END);
}

template <std::size_t Size>
std::string Text(const char (&field)[Size]) {
  return std::string(field, strnlen(field, Size));
}

TEST(EndRecord, OfAFileWithoutAnything) {
  TempFolder const folder;
  Translation const run(folder.File("data.ext", Startable(General().EndOfData())));
  ASSERT_EQ(run.steps.size(), 1u);
  EXPECT_EQ(run.steps[0].status, QV_END_OF_DATA);
  auto const end = run.As<QvEnd>(0);
  EXPECT_EQ(end.RecordType, 15);
  EXPECT_EQ(end.SiteNumber, 0);
  EXPECT_EQ(end.BlockTime, 0);
  EXPECT_EQ(end.EndRecordZero, 0);
  EXPECT_EQ(end.Reserved10[0], 0);
  EXPECT_EQ(end.Reserved10[1], 0);
  EXPECT_EQ(end.LatestRecordTime, 0);
  EXPECT_EQ(Text(end.Title1), "");
  EXPECT_EQ(end.Model, 0);  // no settings or results block set it
  EXPECT_EQ(Text(end.FileName), "data.ext");
  EXPECT_EQ(Text(end.Title2), "");
  EXPECT_EQ(Text(end.Title3), "");
  EXPECT_EQ(end.EndRecordStopTime, 0);
  EXPECT_EQ(Text(end.SerialText), " 1234");
}

TEST(EndRecord, IsCopiedWholeAndNoFurther) {
  Translation const run(General().EndOfData());
  ASSERT_EQ(run.steps.size(), 1u);
  for (std::size_t i = 532; i < run.steps[0].record.size(); ++i) {
    ASSERT_EQ(run.steps[0].record[i], 0xEE) << "byte " << i;
  }
}

TEST(EndRecord, OfAWholeFile) {
  QvEnd const end = EndOf(DataFile()
                              .Titles("first title", "second title", "third title")
                              .Header({.Serial = " 77"})
                              .Q(157, "12")
                              .Q(6, "11:22:33")
                              .Q(7, "01Feb2020")
                              .Item(5, MarkAt(14, 30))
                              .Item(5, MarkAt(13, 0))
                              .R(1, "Model 487")
                              .R(6, "21Jun2024,13:15:00")
                              .EndOfData());
  EXPECT_EQ(end.SiteNumber, 12);
  EXPECT_EQ(end.BlockTime, kNoon);                // that of the header, which names the first run
  EXPECT_EQ(end.LatestRecordTime, kNoon + 9000);  // 14:30, not the last one
  EXPECT_EQ(Text(end.Title1), " first title");
  EXPECT_EQ(Text(end.Title2), " second title");
  EXPECT_EQ(Text(end.Title3), " third title");
  EXPECT_EQ(end.Model, 487);
  EXPECT_EQ(end.EndRecordStopTime, kNoon + 4500);  // 13:15
  EXPECT_EQ(Text(end.SerialText), " 77");
}

TEST(EndRecord, TheStopTimeIsARecordTimeToo) {
  QvEnd const end = EndOf(General().Item(5, MarkAt(13, 0)).R(6, "21Jun2024,18:00:00").EndOfData());
  EXPECT_EQ(end.EndRecordStopTime, kNoon + 21600);
  EXPECT_EQ(end.LatestRecordTime, kNoon + 21600);
}

TEST(EndRecord, TheModelOfTheLatestBlock) {
  EXPECT_EQ(EndOf(General().Q(157, "1").EndOfData()).Model, 486);
  EXPECT_EQ(EndOf(Model431("OBA ").Q(157, "1").EndOfData()).Model, 431);
  EXPECT_EQ(EndOf(Model442("SSA").Q(157, "1").EndOfData()).Model, 442);
  EXPECT_EQ(EndOf(General().R(1, "Hedrom-Pulke Model 488").EndOfData()).Model, 488);
  EXPECT_EQ(EndOf(General().R(1, "no such word 488").EndOfData()).Model, 486);
  EXPECT_EQ(EndOf(General().R(7, "01:00:00").EndOfData()).Model, 0);
}

TEST(EndRecord, TitlesFromTheRegisters) {
  QvEnd const end = EndOf(General().Q(2, "two").Q(3, "three").Q(5, "five").EndOfData());
  EXPECT_EQ(Text(end.Title1), "five");
  EXPECT_EQ(Text(end.Title2), "two");
  EXPECT_EQ(Text(end.Title3), "three");
}

TEST(EndRecord, TheFirstWriterOfATitleWins) {
  QvEnd const lines = EndOf(DataFile()
                                .Titles("one", "", "three")
                                .Header({})
                                .Q(5, "five")
                                .Q(2, "two")
                                .Q(3, "three of the block")
                                .EndOfData());
  EXPECT_EQ(Text(lines.Title1), " one");
  EXPECT_EQ(Text(lines.Title2), " ");  // an empty title line is a blank, and so a title
  EXPECT_EQ(Text(lines.Title3), " three");

  QvEnd const blocks = EndOf(General()
                                 .Q(5, "first five")
                                 .Item(5, MarkAt(13, 0))
                                 .Q(5, "second five")
                                 .Q(2, "second two")
                                 .EndOfData());
  EXPECT_EQ(Text(blocks.Title1), "first five");
  EXPECT_EQ(Text(blocks.Title2), "second two");
}

TEST(EndRecord, TitlesAreCutToTheirField) {
  std::string const text = std::string(79, 'x') + "ABC";
  QvEnd const end =
      EndOf(DataFile().Titles(text, text + text, std::string(80, 'y')).Header({}).EndOfData());
  EXPECT_EQ(Text(end.Title1), " " + std::string(79, 'x') + "A");  // 81 characters
  EXPECT_EQ(Text(end.Title2), " " + std::string(79, 'x') + "A");
  EXPECT_EQ(Text(end.Title3), " " + std::string(80, 'y'));
}

TEST(EndRecord, OfTheSettingsForm) {
  Translation const run(DataFile().Q(157, "3").Q(5, "five").EndOfData());
  EXPECT_EQ(run.start, QV_NO_TEXT_HEADER);
  auto const end = run.As<QvEnd>(0, QV_END);
  EXPECT_EQ(end.SiteNumber, 3);
  EXPECT_EQ(end.Model, 486);
  EXPECT_EQ(Text(end.Title1), "five");
  EXPECT_EQ(Text(end.SerialText), "");
}

TEST(EndRecord, SerialNumbers) {
  struct Row {
    const char* serial;  // behind the three digits of the model
    const char* expected;
  };
  constexpr Row kRows[] = {
      {"", ""},
      {"1", "1"},
      {" 1234", " 1234"},
      {"1234567", "1234567"},
      {" 1234567", " 1234567"},  // fills the field
      {" 12345678", " 1234567"},
      {" A serial number far beyond the field", " A seria"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Text(EndOf(DataFile().Header({.Serial = row.serial}).EndOfData()).SerialText),
              row.expected)
        << row.serial;
  }
}

// What outlives a file in one context: the titles, the latest time, the block's model and time.
TEST(EndRecord, OfTheSecondFileInAContext) {
  TempFolder const folder;
  std::string const first = folder.File("first.dat", Startable(DataFile()
                                                                   .Titles("a", "b", "c")
                                                                   .Header({.Serial = " 1111111"})
                                                                   .Q(157, "5")
                                                                   .Item(5, MarkAt(14, 30))
                                                                   .EndOfData()));
  std::string const second = folder.File("2.dat", Startable(DataFile()
                                                                .Titles("d", "e", "f")
                                                                .Header({.Serial = " 22"})
                                                                .Item(5, MarkAt(13, 0))
                                                                .EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(first), QV_OK);
  while (session.Next() >= 0) continue;
  ASSERT_EQ(session.Start(second), QV_OK);
  while (session.Next() >= 0) continue;
  ASSERT_EQ(session.Code(), QV_END);
  auto const end = session.As<QvEnd>();
  EXPECT_EQ(Text(end.FileName), "2.dat");
  EXPECT_EQ(Text(end.SerialText), " 22");
  EXPECT_EQ(Text(end.Title1), " a");
  EXPECT_EQ(Text(end.Title2), " b");
  EXPECT_EQ(Text(end.Title3), " c");
  EXPECT_EQ(end.LatestRecordTime, kNoon + 9000);
  EXPECT_EQ(end.Model, 486);
}

// The same record again at every end of data that follows, with what came in between.
TEST(EndRecord, AtASecondEndOfData) {
  auto const steps = test::TakeSteps(
      General().Item(5, MarkAt(13, 0)).EndOfData().Item(5, MarkAt(14, 30)).EndOfData(), 4);
  ASSERT_EQ(steps.size(), 4u);
  EXPECT_EQ(Translation::Copy<QvEnd>(steps[1]).LatestRecordTime, kNoon + 3600);
  EXPECT_EQ(steps[3].Code(), QV_END);
  EXPECT_EQ(Translation::Copy<QvEnd>(steps[3]).LatestRecordTime, kNoon + 9000);
}

}  // namespace
