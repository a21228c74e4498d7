// The small field forms of the binary records, each as a step of BodyFields. Sums and quotients are
// those of double precision, rounded to f32 when they are stored. Of two f32, single precision
// gives the very same sum, and faster: double precision has more than twice its digits. Behind a
// record's end the bytes read as 0, and the reader has the status of the last byte.
//
// They run for every field of every record, and so stand here in full for the compiler to put in
// place.
//
// The forms are kept as a complete set, with those of streams and of the calendar. No decoder calls
// DecodeU8, DecodeStreamLevel2, DaysInMonth, SecsOfDay or FormatHms today; they stay, tested like
// the others, so that each kind of field that instruments write is found by its name.
#pragma once

#include "fields/body_fields.h"

namespace qvslm {

inline constexpr f32 kNoLevel = QV_NO_LEVEL;

inline f32 Stored(f64 value) {
  return static_cast<f32>(value);
}

// Whole numbers, high byte first.
inline void DecodeU8(BodyFields& fields, u32& result) {
  result = fields.Byte();
}
inline void DecodeU16(BodyFields& fields, u32& result) {
  result = fields.Word();
}
inline void DecodeU16Short(BodyFields& fields, u16& result) {
  result = static_cast<u16>(fields.Word());
}
inline i32 DecodeU24(BodyFields& fields) {
  const u8* const bytes = fields.Take(3);
  return bytes[0] * 65536 + bytes[1] * 256 + bytes[2];
}

// An event's code (bits 0x70, unshifted) and detail (bits 0x0F).
inline void DecodeEventByte(BodyFields& fields, u16& event, u16& detail) {
  u8 const byte = fields.Byte();
  event = byte & 0x70;
  detail = byte & 0x0F;
}

// Bit 0x20 of a level mark's status, and its code: bits 0x87, 128 at most.
inline void DecodeStatusByte(BodyFields& fields, u16& flag, u16& code) {
  u8 const byte = fields.Byte();
  flag = byte & 0x20;
  code = byte & 0x87;
  if (code > 128) code = 128;
}

// Whole number and 1/256 parts, which f32 holds exactly.
inline f32 Parts256(u32 word) {
  return static_cast<f32>(static_cast<i32>(word)) * (1 / 256.0F);
}
inline void DecodeFixed16(BodyFields& fields, f32& result) {
  result = Parts256(fields.Word());
}

// The same with a sign: a first byte of 192 and above counts as negative.
inline void DecodeSignedFixed16(BodyFields& fields, f32& result) {
  u32 const word = fields.Word();
  result = word >= 192 * 256 ? Parts256(word) - 256.0F : Parts256(word);
}

// Whole number and 1/65536 parts, which are rounded to f32 before they are added.
inline void DecodeFixed24(BodyFields& fields, f32& result) {
  const u8* const bytes = fields.Take(3);
  f32 const fraction = Stored((bytes[1] * 256 + bytes[2]) / 65536.0);
  result = Stored(bytes[0] + static_cast<f64>(fraction));
}

// A level with LevelOffset added. It has no value when its second byte is 0.
inline void DecodeLevel(BodyFields& fields, f32& result) {
  u32 const word = fields.Word();
  f32 const level = Parts256(word) + CurrentContext->LevelOffset;
  result = (word & 0xFF) == 0 ? kNoLevel : level;
}

// The same, without a value when both bytes are 0.
inline void DecodeLevelZeroMarked(BodyFields& fields, f32& result) {
  u32 const word = fields.Word();
  f32 const level = Parts256(word) + CurrentContext->LevelOffset;
  result = word == 0 ? kNoLevel : level;
}

// An hour's level: negative with value 2 of the second byte clear, 0 with value 1 clear.
inline void DecodeFlaggedLevel(BodyFields& fields, f32& result) {
  u32 const word = fields.Word();
  f32 level = word > 0 ? Parts256(word) + CurrentContext->LevelOffset : 0.0F;
  if ((word & 2) == 0) level = -level;
  if ((word & 1) == 0) level = 0;
  result = level;
}

// A byte on the scale of an auxiliary channel.
inline void DecodeScaledByte(BodyFields& fields, const AuxiliaryChannel& channel, f32& result) {
  f64 const low = channel.Low;
  result = Stored((channel.High - low) / 256.0 * fields.Byte() + low);
}

inline void DecodeSpan(BodyFields& fields, f32& result) {
  u32 const value = fields.Word();
  result = CurrentContext->Model == kModel442 ? static_cast<f32>(value)
                                              : Stored(value * 12478.0 / 65536.0);
}

// Lengths of time in seconds, by the number of bytes: 3 (seconds and 1/65536), 5 (hours, minutes,
// seconds and 1/256) or 6 (hours, minutes, seconds and 1/65536). Any other takes none and is 0.
inline void DecodeDuration(BodyFields& fields, f32& result, i32 kind) {
  auto const clock = [](const u8* bytes) {
    return ((bytes[0] * 256 + bytes[1]) * 60 + bytes[2]) * 60 + bytes[3];
  };
  if (kind == 3) {
    const u8* const bytes = fields.Take(3);
    result = Stored(bytes[0] + (bytes[1] * 256 + bytes[2]) / 65536.0);
  } else if (kind == 5) {
    const u8* const bytes = fields.Take(5);
    result = Stored(clock(bytes) + bytes[4] * (1 / 256.0));
  } else if (kind == 6) {
    const u8* const bytes = fields.Take(6);
    result = Stored(clock(bytes) + (bytes[4] * 256 + bytes[5]) / 65536.0);
  } else {
    result = 0;
  }
}
inline void DecodeDuration5(BodyFields& fields, f32& result) {
  DecodeDuration(fields, result, 5);
}

// Fields of one form, one behind the other. They are read through a copy of the reader: compilers
// keep it in registers also where the reader itself has been handed to other calls.
template <auto kDecode, class Values>
void DecodeRow(BodyFields& fields, Values&& values) {
  BodyFields row = fields;
  for (auto& value : values) kDecode(row, value);
  fields = row;
}

}  // namespace qvslm
