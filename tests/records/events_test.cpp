// Events (item 4) and level marks (item 5), and what they leave for the records behind them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/stamped_items.h"
#include "support/temp_file.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using samples::DataFile;
using test::Clock;
using test::EventAt;
using test::General;
using test::MarkAt;
using test::Translation;
using test::Utc;

// A header that dates the file at second 0, which counts as no date.
DataFile Undated() {
  return DataFile().Header({.Model = 486, .Date = "01Jan1970", .Time = "00:00:00"});
}

// Every byte behind the record keeps what the host's buffer held.
bool OnlyWroteTo(const test::Step& step, std::size_t size, std::uint8_t fill = 0xEE) {
  return std::all_of(step.record.begin() + static_cast<std::ptrdiff_t>(size), step.record.end(),
                     [fill](std::uint8_t byte) { return byte == fill; });
}

TEST(LevelMark, EveryField) {
  auto const body = Body().U8(0x99).Date(21, 6, 2024).Time(12, 30, 15).U8(0x41).U8(0x80).U8(0x27);
  Translation const run(General().Q(157, "321").Q(227, "1.5").Item(5, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 5, 15}));
  auto const record = run.As<QvLevelMark>(1);
  EXPECT_EQ(record.RecordType, 5);
  EXPECT_EQ(record.SiteNumber, 321);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 12, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.Reserved10[0], 0);
  EXPECT_EQ(record.Reserved10[1], 0);
  EXPECT_EQ(record.LevelOffset, 1.5F);
  EXPECT_EQ(record.Level, 67.0F);  // 65 + 128/256 + 1.5
  EXPECT_EQ(record.StatusBit5, 32);
  EXPECT_EQ(record.Model, 486);
  EXPECT_EQ(record.RecordIndex, 1U);
  EXPECT_EQ(record.StatusCode, 7);
  EXPECT_EQ(record.Reserved30[0], 0);
  EXPECT_EQ(record.Reserved30[1], 0);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(1), 32));
}

TEST(LevelMark, WithoutSettings) {
  Translation const run(General().Item(5, MarkAt({2024, 6, 21})).EndOfData());
  auto const record = run.As<QvLevelMark>(0);
  EXPECT_EQ(record.SiteNumber, 0);
  EXPECT_EQ(record.LevelOffset, 0.0F);
  EXPECT_EQ(record.Level, 65.5F);
}

// The offset is the one in force when the record is decoded.
TEST(LevelMark, ShowsTheOffsetInForce) {
  Translation const run(General()
                            .Q(227, "10.0")
                            .Item(5, MarkAt({2024, 6, 21}))
                            .Q(227, "-20.25")
                            .Item(5, MarkAt({2024, 6, 21}))
                            .EndOfData());
  ASSERT_EQ(run.Records(5).size(), 2U);
  EXPECT_EQ(run.As<QvLevelMark>(0, 5).LevelOffset, 10.0F);
  EXPECT_EQ(run.As<QvLevelMark>(0, 5).Level, 75.5F);
  EXPECT_EQ(run.As<QvLevelMark>(1, 5).LevelOffset, -20.25F);
  EXPECT_EQ(run.As<QvLevelMark>(1, 5).Level, 45.25F);
}

TEST(LevelMark, NoLevel) {
  auto body = MarkAt({2024, 6, 21});
  body.Set(7, {0x4B, 0x00});
  Translation const run(General().Q(227, "10.0").Item(5, body).EndOfData());
  EXPECT_EQ(run.As<QvLevelMark>(0, 5).Level, 999.0F);
}

TEST(LevelMark, StatusByte) {
  struct {
    int byte;
    int bit5, code;
  } constexpr kRows[] = {
      {0x00, 0, 0},    {0x01, 0, 1},    {0x07, 0, 7},   {0x20, 32, 0},
      {0x27, 32, 7},   {0x58, 0, 0},    {0x5F, 0, 7},   {0x80, 0, 128},
      {0x81, 0, 128},  {0x85, 0, 128},  {0x87, 0, 128}, {0xA0, 32, 128},
      {0xF8, 32, 128}, {0xFF, 32, 128}, {0x7C, 32, 4},  {0xD8, 0, 128},
  };
  auto file = General();
  for (const auto& row : kRows) {
    auto body = MarkAt({2024, 6, 21});
    file.Item(5, body.Set(9, {row.byte}));
  }
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(5).size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(run.As<QvLevelMark>(i, 5).StatusBit5, kRows[i].bit5) << kRows[i].byte;
    EXPECT_EQ(run.As<QvLevelMark>(i, 5).StatusCode, kRows[i].code) << kRows[i].byte;
  }
}

// A short body is a whole record, and no failure.
TEST(LevelMark, ShortBodies) {
  std::string const whole =
      Body().U8(0).Date(21, 6, 2024).Time(12, 30, 15).Level(65.5).U8(0x27).Bytes();
  for (std::size_t length = 0; length <= 10; ++length) {
    SCOPED_TRACE(length);
    auto const cut = Body().Raw(std::string_view(whole).substr(0, length));
    Translation const run(General().Item(5, cut).Item(5, MarkAt({2025, 1, 1})).EndOfData());
    ASSERT_EQ(run.Codes(), (std::vector{5, 5, 15}));
    EXPECT_EQ(run.steps.at(0).status, 0);
    auto const record = run.As<QvLevelMark>(0);
    if (length == 0) {
      EXPECT_EQ(record.RecordTime, Utc(2000, 1, 1));
    }
    if (length >= 7) {
      EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 12, 30, 15));
    }
    EXPECT_EQ(record.Level, length >= 9 ? 65.5F : 999.0F);
    EXPECT_EQ(record.StatusBit5, length >= 10 ? 32 : 0);
    EXPECT_EQ(record.StatusCode, length >= 10 ? 7 : 0);
    EXPECT_EQ(record.RecordIndex, 1U);
    EXPECT_EQ(run.As<QvLevelMark>(1).RecordTime, Utc(2025, 1, 1));
  }
}

TEST(LevelMark, LongBodyIsPassedWhole) {
  auto body = MarkAt({2024, 6, 21});
  body.Fill(300, 5);
  Translation const run(General().Item(5, body).Item(5, MarkAt({2024, 6, 22})).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{5, 5, 15}));
  EXPECT_EQ(run.As<QvLevelMark>(0).Level, 65.5F);
  EXPECT_EQ(run.As<QvLevelMark>(1).RecordTime, Utc(2024, 6, 22));
}

TEST(Event, EveryField) {
  auto const body = Body()
                        .U8(0x99)
                        .Date(21, 6, 2024)
                        .Time(12, 30, 15)
                        .U8(0x5B)
                        .Raw({0xFE, 0x01})
                        .Raw({0xFD, 0x02, 0x03});
  Translation const run(General().Q(157, "321").Item(4, body).EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{7, 4, 15}));
  auto const record = run.As<QvEvent>(1);
  EXPECT_EQ(record.RecordType, 4);
  EXPECT_EQ(record.SiteNumber, 321);
  EXPECT_EQ(record.RecordTime, Utc(2024, 6, 21, 12, 30, 15));
  EXPECT_EQ(record.SettingFormat, 0);
  EXPECT_EQ(record.EventDetail, 11);
  EXPECT_EQ(record.EventValue24, 0xFD0203);
  EXPECT_EQ(record.Model, 486);
  EXPECT_EQ(record.EventValue16, 0xFE01);
  EXPECT_EQ(record.RecordIndex, 1U);
  EXPECT_EQ(record.EventCode, 80);
  EXPECT_EQ(record.Reserved26[0], 0);
  EXPECT_EQ(record.Reserved26[1], 0);
  EXPECT_TRUE(OnlyWroteTo(run.Records().at(1), 28));
}

TEST(Event, EveryEventByte) {
  auto file = General();
  for (int byte = 0; byte < 256; ++byte) file.Item(4, EventAt({2024, 6, 21}, byte));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(4).size(), 256U);
  for (std::size_t byte = 0; byte < 256; ++byte) {
    auto const record = run.As<QvEvent>(byte, 4);
    EXPECT_EQ(record.EventCode, byte / 16 % 8 * 16) << byte;
    EXPECT_EQ(record.EventDetail, byte % 16) << byte;
    EXPECT_EQ(record.RecordIndex, byte + 1);
  }
  EXPECT_EQ(run.As<QvEvent>(0x5F, 4).EventCode, 80);
  EXPECT_EQ(run.As<QvEvent>(0x5F, 4).EventDetail, 15);
}

// The status of the last byte read comes back, with the record filled as far as the body went; the
// next step goes on behind it.
TEST(Event, ShortBodies) {
  std::string const whole =
      Body().U8(0).Date(21, 6, 2024).Time(12, 30, 15).U8(0x45).U16(0x1234).U24(0x56789A).Bytes();
  struct {
    std::size_t length;
    int code, detail, value16, value24;
  } constexpr kRows[] = {
      {0, 0, 0, 0, 0},
      {7, 0, 0, 0, 0},
      {8, 64, 5, 0, 0},
      {9, 64, 5, 0x1200, 0},
      {10, 64, 5, 0x1234, 0},
      {11, 64, 5, 0x1234, 0x560000},
      {12, 64, 5, 0x1234, 0x567800},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.length);
    auto const cut = Body().Raw(std::string_view(whole).substr(0, row.length));
    test::TempFile const stored(
        test::Startable(General().Item(4, cut).Item(4, EventAt({2025, 1, 1}, 0)).EndOfData()));
    test::Session session;
    ASSERT_EQ(session.Start(stored.Path()), QV_OK);
    EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
    ASSERT_EQ(session.Code(), 4);
    auto const record = session.As<QvEvent>();
    EXPECT_EQ(record.RecordTime, row.length < 7 ? Utc(2000, 1, 1) : Utc(2024, 6, 21, 12, 30, 15));
    EXPECT_EQ(record.EventCode, row.code);
    EXPECT_EQ(record.EventDetail, row.detail);
    EXPECT_EQ(record.EventValue16, row.value16);
    EXPECT_EQ(record.EventValue24, row.value24);
    EXPECT_EQ(record.RecordIndex, 1U);
    ASSERT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.As<QvEvent>().RecordTime, Utc(2025, 1, 1));
    EXPECT_EQ(session.As<QvEvent>().RecordIndex, 2U);
  }
}

// A short event has its part in the lists and in the latest time all the same.
TEST(Event, ShortBodyIsListed) {
  auto const cut = Body().U8(0).Date(25, 12, 2024).Time(8, 0, 0).U8(64);
  test::TempFile const stored(test::Startable(
      General().Item(4, cut).Stream(6, Body().Raw({0xC0, 1}).Raw({70, 0})).EndOfData()));
  test::Session session;
  ASSERT_EQ(session.Start(stored.Path()), QV_OK);
  EXPECT_EQ(session.Next(), QV_RECORD_TOO_SHORT);
  ASSERT_EQ(session.Next(), QV_OK);  // the marker ends its record
  ASSERT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.As<QvTimeHistory>().RecordTime, Utc(2024, 12, 25, 8));
  ASSERT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(session.As<QvEnd>().LatestRecordTime, Utc(2024, 12, 25, 8));
}

TEST(EventsAndMarks, AreCountedApart) {
  auto file = General();
  for (int i = 0; i < 3; ++i) {
    file.Item(4, EventAt({2024, 6, 21}, 0)).Item(5, MarkAt({2024, 6, 21}));
  }
  file.Item(5, MarkAt({2024, 6, 21}));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Codes(), (std::vector{4, 5, 4, 5, 4, 5, 5, 15}));
  for (std::uint32_t i = 0; i < 3; ++i) EXPECT_EQ(run.As<QvEvent>(i, 4).RecordIndex, i + 1);
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(run.As<QvLevelMark>(i, 5).RecordIndex, i + 1);
}

TEST(EventsAndMarks, OfEveryModel) {
  struct {
    DataFile file;
    int model;
    float offset;
  } const rows[] = {
      {test::Model431("OBA "), 431, 0.0F},
      {test::Model442("SSA"), 442, 2.5F},
      {DataFile().Header({.Model = 480}), 480, 0.0F},
      {DataFile().Header({.Model = 500}), 500, 0.0F},
  };
  for (const auto& row : rows) {
    DataFile file = row.file;
    file.Item(4, EventAt({2024, 6, 21, 8}, 96)).Item(5, MarkAt({2024, 6, 21, 9})).EndOfData();
    Translation const run(file, {.levelOffset442 = "2.5"});
    ASSERT_EQ(run.Codes(), (std::vector{4, 5, 15})) << row.model;
    EXPECT_EQ(run.As<QvEvent>(0).Model, row.model);
    EXPECT_EQ(run.As<QvEvent>(0).EventCode, 96);
    EXPECT_EQ(run.As<QvEvent>(0).RecordTime, Utc(2024, 6, 21, 8));
    EXPECT_EQ(run.As<QvLevelMark>(1).Model, row.model);
    EXPECT_EQ(run.As<QvLevelMark>(1).LevelOffset, row.offset);
    EXPECT_EQ(run.As<QvLevelMark>(1).Level, 65.5F + row.offset);
    EXPECT_EQ(run.As<QvLevelMark>(1).RecordTime, Utc(2024, 6, 21, 9));
  }
}

TEST(EventsAndMarks, RaiseTheLatestTime) {
  struct {
    DataFile file;
    std::int32_t latest;
  } const rows[] = {
      {General(), 0},
      {General().Item(5, MarkAt({2024, 6, 23})), Utc(2024, 6, 23)},
      {General().Item(4, EventAt({2024, 6, 23}, 0)), Utc(2024, 6, 23)},
      {General().Item(5, MarkAt({2024, 6, 23})).Item(5, MarkAt({2024, 6, 22})), Utc(2024, 6, 23)},
      {General().Item(5, MarkAt({2024, 6, 23})).Item(4, EventAt({2024, 6, 22}, 0)),
       Utc(2024, 6, 23)},
      {General().Item(4, EventAt({2024, 6, 23}, 0)).Item(5, MarkAt({2024, 6, 24})),
       Utc(2024, 6, 24)},
      {General().Item(5, MarkAt({2024, 6, 23})).Item(4, EventAt({2024, 6, 24}, 0)),
       Utc(2024, 6, 24)},
  };
  for (const auto& row : rows) {
    DataFile file = row.file;
    Translation const run(file.EndOfData());
    ASSERT_EQ(run.end, QV_END_OF_DATA);
    EXPECT_EQ(Translation::Copy<QvEnd>(run.steps.back()).LatestRecordTime, row.latest);
  }
}

// In a file without a date the first event is the start of the first run, whatever its code, and
// the settings block behind it takes its time.
TEST(FirstEvent, StartsTheFirstRun) {
  for (int const code : {0, 16, 32, 48, 64, 80, 96, 112}) {
    Translation const run(Undated()
                              .Item(4, EventAt({2024, 6, 21, 8}, code))
                              .Item(4, EventAt({2024, 6, 21, 9}, 64))
                              .Q(6, "10:00:00")
                              .Q(7, "22Jun2024")
                              .EndOfData());
    EXPECT_EQ(run.As<QvSettings>(0, QV_SETTINGS).BlockTime, Utc(2024, 6, 21, 8)) << code;
  }
}

TEST(FirstEvent, LeavesTheHeadersDate) {
  Translation const run(
      General().Item(4, EventAt({2024, 6, 22, 8}, 64)).Q(7, "25Jun2024").EndOfData());
  EXPECT_EQ(run.As<QvSettings>(0, QV_SETTINGS).BlockTime, Utc(2024, 6, 21, 12));
}

// Without any event the settings block has its own time.
TEST(FirstEvent, Missing) {
  Translation const run(
      Undated().Item(5, MarkAt({2024, 6, 21, 8})).Q(6, "10:00:00").Q(7, "22Jun2024").EndOfData());
  EXPECT_EQ(run.As<QvSettings>(0, QV_SETTINGS).BlockTime, Utc(2024, 6, 22, 10));
}

// A first event at second 0 sets nothing. A run event of that time was listed, so that the next
// event is no longer the first; another event was not.
TEST(FirstEvent, AtSecondZero) {
  auto const blockTime = [](int code) {
    Translation const run(Undated()
                              .Item(4, EventAt({1970, 1, 1}, code))
                              .Item(4, EventAt({2024, 6, 21, 9}, 32))
                              .Q(7, "22Jun2024")
                              .EndOfData());
    return run.As<QvSettings>(0, QV_SETTINGS).BlockTime;
  };
  EXPECT_EQ(blockTime(64), Utc(2024, 6, 22));
  EXPECT_EQ(blockTime(80), Utc(2024, 6, 22));
  EXPECT_EQ(blockTime(32), Utc(2024, 6, 21, 9));
}

}  // namespace
