// The small field forms of the binary records. Sums and quotients are computed in double precision
// and rounded to f32 when they are stored. Behind a record's end the bytes read as 0, and the
// status of the last byte stands in ErrorCode.
#pragma once

#include "api/context.h"

namespace qvslm {

inline constexpr f32 kNoLevel = QV_NO_LEVEL;

// Whole numbers, high byte first.
void DecodeU8(u32& result);
void DecodeU16(u32& result);
void DecodeU16Short(u16& result);
i32 DecodeU24();

// An event's code (bits 0x70, unshifted) and detail (bits 0x0F).
void DecodeEventByte(u16& event, u16& detail);

// Bit 0x20 of a level mark's status, and its code: bits 0x87, 128 at most.
void DecodeStatusByte(u16& flag, u16& code);

// Whole number and 1/256 parts; the signed form counts a first byte of 192 and above as negative.
// The form of three bytes has 1/65536 parts, which are rounded to f32 before they are added.
void DecodeFixed16(f32& result);
void DecodeSignedFixed16(f32& result);
void DecodeFixed24(f32& result);

// Levels with LevelOffset added. DecodeLevel has no value when its second byte is 0, the
// zero-marked form when both are.
void DecodeLevel(f32& result);
void DecodeLevelZeroMarked(f32& result);

// An hour's level: negative with value 2 of the second byte clear, 0 with value 1 clear.
void DecodeFlaggedLevel(f32& result);

// A byte on the scale of an auxiliary channel.
void DecodeScaledByte(const AuxiliaryChannel& channel, f32& result);

void DecodeSpan(f32& result);

// Seconds, by the number of bytes: 3 (seconds and 1/65536), 5 (hours, minutes, seconds and 1/256)
// or 6 (hours, minutes, seconds and 1/65536).
void DecodeDuration(f32& result, i32 kind);
void DecodeDuration5(f32& result);

// Levels of a stream's samples. The first byte of the first level has been read. Returns a status.
i32 DecodeStreamLevel(u8 first, f32& result);
i32 DecodeStreamLevel2(f32& result);

// What a stream of whole decibels adds for LevelOffset: a whole number, rounded down.
f64 WholeLevelOffset();

}  // namespace qvslm
