// The small field forms of the binary records. Sums and quotients are computed in double precision
// and rounded to f32 when they are stored. Behind a record's end the bytes read as 0, and the
// status of the last byte stands in ErrorCode.
//
// They run for every field of every record, and so stand here in full for the compiler to put in
// place.
#pragma once

#include "api/context.h"
#include "fields/byte_reader.h"

namespace qvslm {

inline constexpr f32 kNoLevel = QV_NO_LEVEL;

inline f32 Stored(f64 value) {
  return static_cast<f32>(value);
}

// Whole numbers, high byte first.
inline void DecodeU8(u32& result) {
  result = ReadByte();
}
inline void DecodeU16(u32& result) {
  result = ReadWord();
}
inline void DecodeU16Short(u16& result) {
  result = static_cast<u16>(ReadWord());
}
inline i32 DecodeU24() {
  const u8* const bytes = TakeBytes(3);
  return bytes[0] * 65536 + bytes[1] * 256 + bytes[2];
}

// An event's code (bits 0x70, unshifted) and detail (bits 0x0F).
inline void DecodeEventByte(u16& event, u16& detail) {
  u8 const byte = ReadByte();
  event = byte & 0x70;
  detail = byte & 0x0F;
}

// Bit 0x20 of a level mark's status, and its code: bits 0x87, 128 at most.
inline void DecodeStatusByte(u16& flag, u16& code) {
  u8 const byte = ReadByte();
  flag = byte & 0x20;
  code = byte & 0x87;
  if (code > 128) code = 128;
}

// Whole number and 1/256 parts, which f32 holds exactly.
inline f64 Parts256(u32 word) {
  return static_cast<i32>(word) * (1 / 256.0);
}
inline void DecodeFixed16(f32& result) {
  result = Stored(Parts256(ReadWord()));
}

// The same with a sign: a first byte of 192 and above counts as negative.
inline void DecodeSignedFixed16(f32& result) {
  u32 const word = ReadWord();
  result = Stored(word >= 192 * 256 ? Parts256(word) - 256.0 : Parts256(word));
}

// Whole number and 1/65536 parts, which are rounded to f32 before they are added.
inline void DecodeFixed24(f32& result) {
  const u8* const bytes = TakeBytes(3);
  f32 const fraction = Stored((bytes[1] * 256 + bytes[2]) / 65536.0);
  result = Stored(bytes[0] + static_cast<f64>(fraction));
}

// A level with LevelOffset added. It has no value when its second byte is 0.
inline void DecodeLevel(f32& result) {
  u32 const word = ReadWord();
  f64 const level = Parts256(word) + CurrentContext->LevelOffset;
  result = (word & 0xFF) == 0 ? kNoLevel : Stored(level);
}

// The same, without a value when both bytes are 0.
inline void DecodeLevelZeroMarked(f32& result) {
  u32 const word = ReadWord();
  f64 const level = Parts256(word) + CurrentContext->LevelOffset;
  result = word == 0 ? kNoLevel : Stored(level);
}

// An hour's level: negative with value 2 of the second byte clear, 0 with value 1 clear.
inline void DecodeFlaggedLevel(f32& result) {
  u32 const word = ReadWord();
  f32 level = Stored(word > 0 ? Parts256(word) + CurrentContext->LevelOffset : 0.0);
  if ((word & 2) == 0) level = -level;
  if ((word & 1) == 0) level = 0;
  result = level;
}

// A byte on the scale of an auxiliary channel.
inline void DecodeScaledByte(const AuxiliaryChannel& channel, f32& result) {
  f64 const low = channel.Low;
  result = Stored((channel.High - low) / 256.0 * ReadByte() + low);
}

inline void DecodeSpan(f32& result) {
  u32 const value = ReadWord();
  result = CurrentContext->Model == kModel442 ? static_cast<f32>(value)
                                              : Stored(value * 12478.0 / 65536.0);
}

// Lengths of time in seconds, by the number of bytes: 3 (seconds and 1/65536), 5 (hours, minutes,
// seconds and 1/256) or 6 (hours, minutes, seconds and 1/65536).
inline f32 ClockSeconds(const u8* clock, f64 fraction) {
  i32 const minutes = (clock[0] * 256 + clock[1]) * 60 + clock[2];
  f32 const seconds = Stored(clock[3] + fraction);
  return Stored(minutes * 60 + static_cast<f64>(seconds));
}
inline void DecodeDuration5(f32& result) {
  const u8* const bytes = TakeBytes(5);
  result = ClockSeconds(bytes, bytes[4] / 256.0);
}
void DecodeDuration(f32& result, i32 kind);

}  // namespace qvslm
