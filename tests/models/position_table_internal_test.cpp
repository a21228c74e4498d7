// What proves the tables of positions when they are compiled. Internal: the tables themselves are
// sound, so that no export shows an unsound one refused.
#include <gtest/gtest.h>

#include <vector>

#include "models/position_table.h"

namespace {

using namespace qvslm;

bool IsSound(const std::vector<Position>& rows) {
  return IsSoundTable(rows);
}

Position Row(u16 at, FieldPlace field, BodyForm form, Firmware firmware = Firmware::Any) {
  return {at, field, form, firmware};
}

TEST(PositionTable, BytesOfTheBody) {
  struct {
    BodyForm form;
    u16 width;
    u32 bytes;  // 0: the form does not fit
  } const rows[] = {
      {BodyForm::Byte, 1, 1},
      {BodyForm::Byte, 2, 1},
      {BodyForm::Byte, 4, 0},
      {BodyForm::Bytes, 5, 5},
      {BodyForm::Bytes, 0, 0},
      {BodyForm::EndedBytes, 9, 8},
      {BodyForm::EndedBytes, 1, 0},
      {BodyForm::WideBytes, 66, 33},
      {BodyForm::WideBytes, 65, 0},
      {BodyForm::Word, 2, 2},
      {BodyForm::Word, 4, 2},
      {BodyForm::Word, 1, 0},
      {BodyForm::Fixed16, 4, 2},
      {BodyForm::Fixed16, 2, 0},
      {BodyForm::SignedFixed16, 24, 12},
      {BodyForm::SignedFixed16, 23, 0},
      {BodyForm::Level, 4, 2},
      {BodyForm::Level, 6, 0},
      {BodyForm::Ratio, 4, 2},
      {BodyForm::Ratio, 5, 0},
      {BodyForm::Fixed24, 4, 3},
      {BodyForm::Fixed24, 3, 0},
      {BodyForm::Fixed24Wide, 8, 6},
      {BodyForm::Fixed24Wide, 7, 0},
      {BodyForm::ShortClockText, 6, 2},
      {BodyForm::ShortClockText, 5, 0},
      {BodyForm::ClockText, 9, 3},
      {BodyForm::ClockText, 8, 0},
      {BodyForm::DateText, 12, 3},
      {BodyForm::DateText, 8, 0},
      {BodyForm::PlainClockText, 9, 3},
      {BodyForm::PlainClockText, 8, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(BodyWidth(Row(7, {0, row.width}, row.form)), row.bytes)
        << static_cast<int>(row.form) << " " << row.width;
    EXPECT_EQ(IsSound({Row(7, {0, row.width}, row.form)}), row.bytes > 0);
  }
}

TEST(PositionTable, RowsDoNotShareBytesOfTheBody) {
  Position const clock = Row(10, {0, 12}, BodyForm::ClockText);
  EXPECT_TRUE(IsSound({clock, Row(13, {12, 2}, BodyForm::Byte)}));
  EXPECT_FALSE(IsSound({clock, Row(12, {12, 2}, BodyForm::Byte)}));
  EXPECT_FALSE(IsSound({clock, Row(10, {12, 2}, BodyForm::Byte)}));
  // Nor do rows with others between them.
  EXPECT_FALSE(IsSound({Row(10, {0, 40}, BodyForm::Bytes, Firmware::Above201),
                        Row(12, {40, 2}, BodyForm::Byte, Firmware::UpTo201),
                        Row(49, {42, 2}, BodyForm::Byte)}));
}

TEST(PositionTable, RowsStandInOrder) {
  EXPECT_FALSE(IsSound({Row(13, {0, 2}, BodyForm::Byte), Row(12, {2, 2}, BodyForm::Byte)}));
  EXPECT_FALSE(IsSound({Row(13, {0, 2}, BodyForm::Byte, Firmware::UpTo201),
                        Row(12, {2, 2}, BodyForm::Byte, Firmware::Above201)}));
}

TEST(PositionTable, RowsDoNotShareAField) {
  EXPECT_TRUE(IsSound({Row(1, {4, 2}, BodyForm::Byte), Row(2, {2, 2}, BodyForm::Byte)}));
  EXPECT_FALSE(IsSound({Row(1, {4, 2}, BodyForm::Byte), Row(2, {5, 1}, BodyForm::Byte)}));
  EXPECT_FALSE(IsSound({Row(1, {4, 1}, BodyForm::Byte), Row(2, {3, 2}, BodyForm::Byte)}));
}

// Rows of versions that exclude each other may take the same bytes, and write the same field.
TEST(PositionTable, AlternativesByFirmware) {
  auto const together = [](Firmware a, Firmware b) {
    return IsSound({Row(5, {0, 2}, BodyForm::Word, a), Row(5, {0, 2}, BodyForm::Byte, b)});
  };
  EXPECT_TRUE(together(Firmware::UpTo201, Firmware::Above201));
  EXPECT_TRUE(together(Firmware::UpTo201, Firmware::Above3115));
  EXPECT_TRUE(together(Firmware::UpTo201, Firmware::From36));
  EXPECT_TRUE(together(Firmware::Below36, Firmware::From36));
  EXPECT_FALSE(together(Firmware::UpTo201, Firmware::Below36));
  EXPECT_FALSE(together(Firmware::Above201, Firmware::Above3115));
  EXPECT_FALSE(together(Firmware::Above201, Firmware::Below36));
  EXPECT_FALSE(together(Firmware::Above201, Firmware::From36));
  EXPECT_FALSE(together(Firmware::Above3115, Firmware::Below36));
  EXPECT_FALSE(together(Firmware::Above3115, Firmware::From36));
  for (Firmware const each : {Firmware::Any, Firmware::UpTo201, Firmware::Above201,
                              Firmware::Above3115, Firmware::Below36, Firmware::From36}) {
    EXPECT_FALSE(together(Firmware::Any, each));
    EXPECT_FALSE(together(each, each));
  }
}

}  // namespace
