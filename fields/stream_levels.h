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

// What the settings in force make of the bytes of a sample.
struct StreamLevels {
  bool twoBytes;      // else whole decibels
  bool secondLevels;  // samples have a second level
  u32 firstWeight;    // of the second byte in the first level, in 1/256
  f64 offset;         // added to levels
  f64 secondRaise;    // added to the second level besides
  bool plainSecond;   // second levels are neither marked nor raised

  // Both levels are exact in f32 before the offset is added.
  static f64 Level(u32 hi, u32 lo, u32 weight) {
    return static_cast<i32>(hi * 256 + lo * weight) * (1 / 256.0);
  }

  f32 First(u32 hi, u32 lo) const {
    f64 const level = Level(hi, lo, firstWeight);
    return Stored(hi + lo < 1 ? level : level + offset);
  }

  // A sum of 0 or 2 stands for no level.
  f32 Second(u32 hi, u32 lo) const {
    f64 const level = Level(hi, lo, 2);
    if (plainSecond) return Stored(level);
    if (((hi + lo) & ~2U) == 0) return kNoLevel;
    f32 const raised = Stored(level + offset);
    return secondRaise == 0 ? raised : Stored(raised + secondRaise);
  }
};

StreamLevels StreamLevelsInForce();

// The first level of a sample, whose first byte has been read, and the second one. Each returns a
// status; a level whose bytes are missing is left as it was.
i32 DecodeStreamLevel(u8 first, f32& result);
i32 DecodeStreamLevel2(f32& result);

// Passes the samples ahead in RecordBuffer, as far as they stand there whole. Returns how many.
u32 PassSamples();

// Passes one entry of a stream, sample or marker, without a look at its levels. Returns the byte
// that tells whether the stream goes on: a sample's first, a marker's last; 0 is its end.
u8 PassStreamEntry(i32& status);

}  // namespace qvslm
