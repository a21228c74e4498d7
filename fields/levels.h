// The small field forms of the binary records, each as what its bytes stand for, and as a step of the
// byte reader. Sums and quotients are those of double precision, rounded to f32 when they are
// stored. Of two f32, single precision gives the very same sum, and faster: double precision has
// more than twice its digits. Behind a record's end the bytes read as 0, and the status of the last
// byte stands in ErrorCode.
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
inline i32 U24Of(const u8* bytes) {
  return bytes[0] * 65536 + bytes[1] * 256 + bytes[2];
}
inline i32 DecodeU24() {
  return U24Of(TakeBytes(3));
}

// An event's code (bits 0x70, unshifted) and detail (bits 0x0F).
inline void EventOf(u8 byte, u16& event, u16& detail) {
  event = byte & 0x70;
  detail = byte & 0x0F;
}
inline void DecodeEventByte(u16& event, u16& detail) {
  EventOf(ReadByte(), event, detail);
}

// Bit 0x20 of a level mark's status, and its code: bits 0x87, 128 at most.
inline void DecodeStatusByte(u8 byte, u16& flag, u16& code) {
  flag = byte & 0x20;
  code = byte & 0x87;
  if (code > 128) code = 128;
}

// Whole number and 1/256 parts, which f32 holds exactly.
inline f32 Parts256(u32 word) {
  return static_cast<f32>(static_cast<i32>(word)) * (1 / 256.0F);
}
inline f32 Fixed16Of(const u8* bytes) {
  return Parts256(WordOf(bytes));
}
inline void DecodeFixed16(f32& result) {
  result = Fixed16Of(TakeBytes(2));
}

// The same with a sign: a first byte of 192 and above counts as negative.
inline void DecodeSignedFixed16(f32& result) {
  u32 const word = ReadWord();
  result = word >= 192 * 256 ? Parts256(word) - 256.0F : Parts256(word);
}

// Whole number and 1/65536 parts, which are rounded to f32 before they are added.
inline void DecodeFixed24(f32& result) {
  const u8* const bytes = TakeBytes(3);
  f32 const fraction = Stored((bytes[1] * 256 + bytes[2]) / 65536.0);
  result = Stored(bytes[0] + static_cast<f64>(fraction));
}

// A level with LevelOffset added. It has no value when its second byte is 0.
inline f32 LevelOf(const u8* bytes) {
  f32 const level = Parts256(WordOf(bytes)) + CurrentContext->LevelOffset;
  return bytes[1] == 0 ? kNoLevel : level;
}
inline void DecodeLevel(f32& result) {
  result = LevelOf(TakeBytes(2));
}

// The same, without a value when both bytes are 0.
inline void DecodeLevelZeroMarked(f32& result) {
  u32 const word = ReadWord();
  f32 const level = Parts256(word) + CurrentContext->LevelOffset;
  result = word == 0 ? kNoLevel : level;
}

// An hour's level: negative with value 2 of the second byte clear, 0 with value 1 clear.
inline void DecodeFlaggedLevel(f32& result) {
  u32 const word = ReadWord();
  f32 level = word > 0 ? Parts256(word) + CurrentContext->LevelOffset : 0.0F;
  if ((word & 2) == 0) level = -level;
  if ((word & 1) == 0) level = 0;
  result = level;
}

// A byte on the scale of an auxiliary channel.
inline f32 ScaledByteOf(u8 byte, const AuxiliaryChannel& channel) {
  f64 const low = channel.Low;
  return Stored((channel.High - low) / 256.0 * byte + low);
}
inline void DecodeScaledByte(const AuxiliaryChannel& channel, f32& result) {
  result = ScaledByteOf(ReadByte(), channel);
}

inline f32 SpanOf(const u8* bytes) {
  u32 const value = WordOf(bytes);
  return CurrentContext->Model == kModel442 ? static_cast<f32>(value)
                                            : Stored(value * 12478.0 / 65536.0);
}
inline void DecodeSpan(f32& result) {
  result = SpanOf(TakeBytes(2));
}

// Lengths of time in seconds, by the number of bytes: 3 (seconds and 1/65536), 5 (hours, minutes,
// seconds and 1/256) or 6 (hours, minutes, seconds and 1/65536).
inline i32 ClockSeconds(const u8* clock) {
  return ((clock[0] * 256 + clock[1]) * 60 + clock[2]) * 60 + clock[3];
}
inline f32 Duration5Of(const u8* bytes) {
  return Stored(ClockSeconds(bytes) + bytes[4] * (1 / 256.0));
}
inline void DecodeDuration5(f32& result) {
  result = Duration5Of(TakeBytes(5));
}
void DecodeDuration(f32& result, i32 kind);

}  // namespace qvslm
