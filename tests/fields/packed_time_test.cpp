// Packed decimal dates and times, as the time-stamped items 4 and 5 deliver them.
#include <gtest/gtest.h>

#include "support/scoped_zone.h"
#include "support/stamped_items.h"
#include "support/translation.h"
#include "support/utc.h"

namespace {

using samples::Body;
using test::General;
using test::Translation;
using test::Utc;

struct Row {
  const char* what;
  int day, month, year;      // bytes of the date, in file order
  int hour, minute, second;  // bytes of the time, in file order
  std::int32_t expected;
};

constexpr Row kRows[] = {
    {"plain stamp", 0x21, 0x06, 0x24, 0x12, 0x30, 0x15, Utc(2024, 6, 21, 12, 30, 15)},
    {"the first second", 0x01, 0x01, 0x70, 0x00, 0x00, 0x00, 0},
    {"the last second before a new year", 0x31, 0x12, 0x99, 0x23, 0x59, 0x59,
     Utc(1999, 12, 31, 23, 59, 59)},

    {"month 1", 0x05, 0x01, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 12", 0x05, 0x12, 0x24, 0, 0, 0, Utc(2024, 12, 5)},
    {"month 0 is January", 0x05, 0x00, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 13 is January", 0x05, 0x13, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 99 is January", 0x05, 0x99, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 1A stops behind the 1", 0x05, 0x1A, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 7F stops behind the 7", 0x05, 0x7F, 0x24, 0, 0, 0, Utc(2024, 7, 5)},
    {"month A1 has no number", 0x05, 0xA1, 0x24, 0, 0, 0, Utc(2024, 1, 5)},
    {"month 0B has none but the 0", 0x05, 0x0B, 0x24, 0, 0, 0, Utc(2024, 1, 5)},

    {"day 1", 0x01, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 1)},
    {"day 0 is the first", 0x00, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 1)},
    {"day 31", 0x31, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 31)},
    {"day 32 is the first", 0x32, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 1)},
    {"day 99 is the first", 0x99, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 1)},
    {"day 2F stops behind the 2", 0x2F, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 2)},
    {"day A5 is the first", 0xA5, 0x03, 0x24, 0, 0, 0, Utc(2024, 3, 1)},
    {"31 February carries, leap year", 0x31, 0x02, 0x24, 0, 0, 0, Utc(2024, 3, 2)},
    {"30 February carries, other year", 0x30, 0x02, 0x23, 0, 0, 0, Utc(2023, 3, 2)},
    {"31 April carries", 0x31, 0x04, 0x24, 0, 0, 0, Utc(2024, 5, 1)},

    {"year 70 is 1970", 0x02, 0x01, 0x70, 0, 0, 0, Utc(1970, 1, 2)},
    {"year 99 is 1999", 0x02, 0x01, 0x99, 0, 0, 0, Utc(1999, 1, 2)},
    {"year 0 is 2000", 0x02, 0x01, 0x00, 0, 0, 0, Utc(2000, 1, 2)},
    {"year 37 is 2037", 0x02, 0x01, 0x37, 0, 0, 0, Utc(2037, 1, 2)},
    {"year 8F is 8, so 2008", 0x02, 0x01, 0x8F, 0, 0, 0, Utc(2008, 1, 2)},
    {"year F9 is 0, so 2000", 0x02, 0x01, 0xF9, 0, 0, 0, Utc(2000, 1, 2)},
    {"the last second of 31 bits", 0x19, 0x01, 0x38, 0x03, 0x14, 0x07, 2147483647},
    {"one second more has no value", 0x19, 0x01, 0x38, 0x03, 0x14, 0x08, -1},
    {"year 69 is 2069, which has no value", 0x01, 0x01, 0x69, 0, 0, 0, -1},

    {"hour 24 is the next day", 0x21, 0x06, 0x24, 0x24, 0, 0, Utc(2024, 6, 22)},
    {"hour 25 is the next day", 0x21, 0x06, 0x24, 0x25, 0, 0, Utc(2024, 6, 22, 1)},
    {"hour 99 is four days on", 0x21, 0x06, 0x24, 0x99, 0, 0, Utc(2024, 6, 25, 3)},
    {"hour 1A stops behind the 1", 0x21, 0x06, 0x24, 0x1A, 0, 0, Utc(2024, 6, 21, 1)},
    {"hour FF is 0", 0x21, 0x06, 0x24, 0xFF, 0, 0, Utc(2024, 6, 21)},
    {"minute 60 carries", 0x21, 0x06, 0x24, 0x12, 0x60, 0, Utc(2024, 6, 21, 13)},
    {"minute 99 carries", 0x21, 0x06, 0x24, 0x12, 0x99, 0, Utc(2024, 6, 21, 13, 39)},
    {"minute 5C stops behind the 5", 0x21, 0x06, 0x24, 0x12, 0x5C, 0, Utc(2024, 6, 21, 12, 5)},
    {"second 60 carries", 0x21, 0x06, 0x24, 0x12, 0x30, 0x60, Utc(2024, 6, 21, 12, 31)},
    {"second 99 carries", 0x21, 0x06, 0x24, 0x12, 0x30, 0x99, Utc(2024, 6, 21, 12, 31, 39)},
    {"second D3 is 0", 0x21, 0x06, 0x24, 0x12, 0x30, 0xD3, Utc(2024, 6, 21, 12, 30)},
    {"everything carries", 0x31, 0x12, 0x99, 0x23, 0x59, 0x60, Utc(2000, 1, 1)},
};

Body Stamped(const Row& row) {
  return Body().U8(0xAA).Raw({row.day, row.month, row.year, row.hour, row.minute, row.second});
}

TEST(PackedTime, OfLevelMarks) {
  auto file = General();
  for (const Row& row : kRows) file.Item(5, Stamped(row).Level(65.5).U8(0));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(5).size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(run.As<QvLevelMark>(i, 5).RecordTime, kRows[i].expected) << kRows[i].what;
  }
}

TEST(PackedTime, OfEvents) {
  auto file = General();
  for (const Row& row : kRows) file.Item(4, Stamped(row).U8(0x20).U16(0).U24(0));
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(4).size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(run.As<QvEvent>(i, 4).RecordTime, kRows[i].expected) << kRows[i].what;
  }
}

// Bytes that the body has not got count as 0: month 0, day 0 and year 0 are 1 January 2000.
TEST(PackedTime, OfShortBodies) {
  constexpr std::int32_t kExpected[] = {
      Utc(2000, 1, 1),               // no byte at all
      Utc(2000, 1, 1),               // only the one in front of the date
      Utc(2000, 1, 21),              // day
      Utc(2000, 6, 21),              // day, month
      Utc(2024, 6, 21),              // the date
      Utc(2024, 6, 21, 12),          // and the hour
      Utc(2024, 6, 21, 12, 30),      // and the minute
      Utc(2024, 6, 21, 12, 30, 15),  // and the second
  };
  std::string const body = Body().U8(0).Date(21, 6, 2024).Time(12, 30, 15).Bytes();
  auto file = General();
  for (std::size_t length = 0; length <= 7; ++length) {
    file.Item(5, Body().Raw(std::string_view(body).substr(0, length)));
  }
  Translation const run(file.EndOfData());
  ASSERT_EQ(run.Records(5).size(), std::size(kExpected));
  for (std::size_t i = 0; i < std::size(kExpected); ++i) {
    EXPECT_EQ(run.As<QvLevelMark>(i, 5).RecordTime, kExpected[i]) << i << " bytes";
  }
}

// The stamp is the host's local time: the date of each row is that of the zone.
TEST(PackedTime, IsLocalTime) {
  struct {
    const char* zone;
    std::int32_t winter, summer;  // of 12:00 on 15 January and on 15 July 2024
  } constexpr kZones[] = {
      {"UTC", Utc(2024, 1, 15, 12), Utc(2024, 7, 15, 12)},
      {"Europe/Berlin", Utc(2024, 1, 15, 11), Utc(2024, 7, 15, 10)},
      {"America/New_York", Utc(2024, 1, 15, 17), Utc(2024, 7, 15, 16)},
      {"Australia/Lord_Howe", Utc(2024, 1, 15, 1), Utc(2024, 7, 15, 1, 30)},
      {"Asia/Kolkata", Utc(2024, 1, 15, 6, 30), Utc(2024, 7, 15, 6, 30)},
  };
  auto const file = General()
                        .Item(5, test::MarkAt({2024, 1, 15, 12}))
                        .Item(5, test::MarkAt({2024, 7, 15, 12}))
                        .EndOfData();
  for (const auto& row : kZones) {
    test::ScopedZone const zone(row.zone);
    Translation const run(file);
    ASSERT_EQ(run.Records(5).size(), 2U) << row.zone;
    EXPECT_EQ(run.As<QvLevelMark>(0, 5).RecordTime, row.winter) << row.zone;
    EXPECT_EQ(run.As<QvLevelMark>(1, 5).RecordTime, row.summer) << row.zone;
  }
}

}  // namespace
