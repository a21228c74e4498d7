// Records that are images of a block of bytes: a table says which bytes go where.
#pragma once

#include <cstddef>
#include <span>

#include "api/context.h"

namespace qvslm {

// What stands at a position of the body, and how wide the output field is: the field's size decides
// between u8 and u16, u16 and u32, and how many values or characters there are.
enum class BodyForm : u8 {
  Byte,
  Bytes,      // as they stand
  WideBytes,  // each widened to u16
  Word,       // two bytes, high byte first
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
  BodyForm form;
  u16 offset;
  u16 size;
  Firmware firmware = Firmware::Any;
};

bool IsFirmware(Firmware firmware);

// Fills the record from the body in RecordBuffer. Bytes behind the body's end read as 0.
void DecodePositions(std::span<const Position> positions, void* record);

// The status of a body that is read to its given size: QV_RECORD_TOO_SHORT where it ends before.
i32 BodyStatus(u32 size);

// One byte of the body, 0 behind its end.
u8 BodyByte(u32 at);

}  // namespace qvslm
