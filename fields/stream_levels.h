// The levels of a sample stream.
#pragma once

#include "api/context.h"
#include "fields/levels.h"

namespace qvslm {

// Entries of a stream by their first byte: 0 ends the stream, samples follow up to 127, then
// markers.
constexpr bool IsSampleByte(u8 byte) {
  return byte >= 1 && byte <= 127;
}

// What a stream of whole decibels adds for LevelOffset: a whole number, rounded down.
f64 WholeLevelOffset();

// What the settings in force make of the bytes of a sample. Levels are sums in double precision,
// rounded to f32; with Sum = f32 they come out the same where OffsetIsSingle.
struct StreamLevels {
  bool twoBytes;      // else whole decibels
  bool secondLevels;  // samples have a second level
  u32 firstShift;     // of the second byte in the first level, which counts 1/256
  f64 offset;         // added to levels
  f32 secondRaise;    // added to the second level besides
  bool plainSecond;   // second levels are neither marked nor raised

  bool OffsetIsSingle() const { return static_cast<f64>(static_cast<f32>(offset)) == offset; }

  // Whole number and parts, which f32 holds exactly.
  static f32 Level(u32 hi, u32 lo, u32 shift) { return Parts256(hi * 256 + (lo << shift)); }

  template <class Sum = f64>
  f32 Raised(f32 level) const {
    return static_cast<f32>(static_cast<Sum>(level) + static_cast<Sum>(offset));
  }

  // Of bytes that are not both 0.
  template <class Sum = f64>
  f32 FirstOfSample(u32 hi, u32 lo) const {
    return Raised<Sum>(Level(hi, lo, firstShift));
  }
  f32 First(u32 hi, u32 lo) const { return hi + lo < 1 ? 0 : FirstOfSample(hi, lo); }

  // A sum of 0 or 2 stands for no level.
  template <class Sum = f64>
  f32 Second(u32 hi, u32 lo) const {
    f32 const level = Level(hi, lo, 1);
    if (plainSecond) return level;
    f32 const raised = Raised<Sum>(level) + secondRaise;
    return ((hi + lo) & ~2U) == 0 ? kNoLevel : raised;
  }
};

StreamLevels StreamLevelsInForce();

// The first level of a sample, whose first byte has been read, and the second one. Each returns a
// status; a level whose bytes are missing is left as it was.
i32 DecodeStreamLevel(BodyFields& fields, u8 first, f32& result);
i32 DecodeStreamLevel2(BodyFields& fields, f32& result);

// Passes the samples ahead in RecordBuffer, as far as they stand there whole. Returns how many.
u32 PassSamples();

// Passes one entry of a stream, sample or marker, without a look at its levels. Returns the byte
// that tells whether the stream goes on: a sample's first, a marker's last; 0 is its end.
u8 PassStreamEntry(i32& status);

}  // namespace qvslm
