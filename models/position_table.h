// Records that are images of a block of bytes: a table says which bytes go where.
#pragma once

#include <span>

#include "fields/field_place.h"

namespace qvslm {

// What stands at a position of the body, and how wide the output field is: the field's size decides
// between u8 and u16, u16 and u32, and how many values or characters there are.
enum class BodyForm : u8 {
  Byte,
  Bytes,       // as they stand
  EndedBytes,  // as they stand; the field's last byte is no byte of the body's, and stays
  WideBytes,   // each widened to u16
  Word,        // two bytes, high byte first
  Fixed16,
  SignedFixed16,
  Fixed24,
  Fixed24Wide,  // whole number and 1/65535 parts
  Level,
  Ratio,           // two bytes in 1/32512 parts
  DateText,        // packed digits with slashes, the last byte first
  ShortClockText,  // packed digits with colons, of two bytes
  ClockText,       // of three bytes
  PlainClockText,  // plain numbers with colons
};

// The firmware versions that have a position.
enum class Firmware : u8 { Any, UpTo201, Above201, Above3115, Below36, From36 };

struct Position {
  u16 at;
  FieldPlace field;
  BodyForm form;
  Firmware firmware = Firmware::Any;
};

// The versions between the thresholds, a bit each: up to 2.01, up to 3.115, below 3.6, from 3.6 on.
constexpr u32 VersionsOf(Firmware firmware) {
  switch (firmware) {
    case Firmware::Any:
      return 0b1111;
    case Firmware::UpTo201:
      return 0b0001;
    case Firmware::Above201:
      return 0b1110;
    case Firmware::Above3115:
      return 0b1100;
    case Firmware::Below36:
      return 0b0111;
    case Firmware::From36:
      return 0b1000;
  }
  return 0;
}

// How many bytes of the body a row takes; 0 where its form does not fit the width of its field.
constexpr u32 BodyWidth(const Position& row) {
  u32 const width = row.field.size;
  u32 const values = width % sizeof(f32) == 0 ? width / sizeof(f32) : 0;
  switch (row.form) {
    case BodyForm::Byte:
      return width == sizeof(u8) || width == sizeof(u16) ? 1 : 0;
    case BodyForm::Bytes:
      return width;
    case BodyForm::EndedBytes:
      return width > 0 ? width - 1 : 0;
    case BodyForm::WideBytes:
      return width % sizeof(u16) == 0 ? width / sizeof(u16) : 0;
    case BodyForm::Word:
      return width == sizeof(u16) || width == sizeof(u32) ? 2 : 0;
    case BodyForm::Fixed16:
    case BodyForm::SignedFixed16:
    case BodyForm::Level:
    case BodyForm::Ratio:
      return 2 * values;
    case BodyForm::Fixed24:
    case BodyForm::Fixed24Wide:
      return 3 * values;
    case BodyForm::ShortClockText:
      return width >= sizeof "hh:mm" ? 2 : 0;
    case BodyForm::DateText:
    case BodyForm::ClockText:
    case BodyForm::PlainClockText:
      return width >= sizeof "hh:mm:ss" ? 3 : 0;
  }
  return 0;
}

// What a table is proved by: each form fits its field, and the rows that a firmware version has
// stand in order, none taking a byte of the body, or writing one of the record, that another one
// does. Rows without a version in common are alternatives, and may.
constexpr bool IsSoundTable(std::span<const Position> positions) {
  for (std::size_t at = 0; at < positions.size(); ++at) {
    const Position& row = positions[at];
    if (BodyWidth(row) == 0) return false;
    for (const Position& before : positions.first(at)) {
      if (before.at > row.at) return false;
      if ((VersionsOf(before.firmware) & VersionsOf(row.firmware)) == 0) continue;
      if (before.at + BodyWidth(before) > row.at) return false;
      bool const apart = before.field.offset + before.field.size <= row.field.offset ||
                         row.field.offset + row.field.size <= before.field.offset;
      if (!apart) return false;
    }
  }
  return true;
}

bool IsFirmware(Firmware firmware);

// Fills the record from the body in RecordBuffer. Bytes behind the body's end read as 0.
void DecodePositions(std::span<const Position> positions, void* record);

// The status of a body that is read to its given size: QV_RECORD_TOO_SHORT where it ends before.
i32 BodyStatus(u32 size);

// One byte of the body, 0 behind its end.
u8 BodyByte(u32 at);

}  // namespace qvslm
