// The byte reader: every field of a record is taken through it.
#pragma once

#include "api/context.h"
#include "fields/data_file.h"

namespace qvslm {

// Reads the next block of a stream into RecordBuffer. False when not one byte came.
bool RefillRecordBuffer();

// The next byte of the record in hand. The status becomes 0, or -313 behind the record's end, where
// the byte is 0. With AutoRefill the record goes on in the next block of the file instead.
inline u8 ReadByte(i32& status) {
  TranslateContext& context = *CurrentContext;
  status = 0;
  if (context.RecordPos >= static_cast<i32>(context.RecordLength)) [[unlikely]] {
    if (context.AutoRefill == 0 || !RefillRecordBuffer()) {
      status = QV_RECORD_TOO_SHORT;
      return 0;
    }
  }
  return context.RecordBuffer[context.RecordPos++];
}

inline u8 ReadByte() {
  return ReadByte(CurrentContext->ErrorCode);
}

inline void SkipByte() {
  ReadByte();
}

// The next bytes of a field, eight at most, one behind the other. Behind the record's end they are
// 0, and ErrorCode is that of the last one.
const u8* TakeLastBytes(u32 count);
inline const u8* TakeBytes(u32 count) {
  TranslateContext& context = *CurrentContext;
  i32 const position = context.RecordPos;
  i32 const behind = position + static_cast<i32>(count);
  if (behind > static_cast<i32>(context.RecordLength)) [[unlikely]]
    return TakeLastBytes(count);
  context.RecordPos = behind;
  context.ErrorCode = 0;
  return context.RecordBuffer + position;
}

// Two bytes, high byte first.
inline u32 WordOf(const u8* bytes) {
  return bytes[0] * 256U + bytes[1];
}
inline u32 ReadWord() {
  return WordOf(TakeBytes(2));
}

// Copies count bytes of the record as they stand, 0 for those behind its end.
void ReadRawBytes(u8* target, u32 count);

// A length of two bytes, high byte first, straight from the file. A byte behind the end of the file
// counts as -1: without its first byte the length comes out above every one that a record may have.
inline u32 ReadLengthU16() {
  u8 bytes[2];
  std::size_t const came = ReadFileBlock(bytes, sizeof bytes);
  i32 const high = came > 0 ? bytes[0] : -1;
  i32 const low = came > 1 ? bytes[1] : -1;
  NoteBytesMissing(sizeof bytes - came);
  return static_cast<u32>(high * 256 + low);
}

// Reads count bytes from the file to the head of RecordBuffer, as far as they come, and lets the
// record begin there. Returns how many came.
std::size_t ReadRecordBlock(u32 count);

// Behind a block that came short (BytesRead is 0): counts the bytes between the end of the file and
// FileOffset, which stands behind what the step has used.
void CountBytesBehindFile();

// Reads length and body of an item to RecordLength and RecordBuffer. A length above kLongestRecord is
// left at that, without a body.
void ReadItem();
// The same for an item that the window does not hold whole, with a count of what the file lacks.
void ReadItemAcrossWindows();

// Passes the items of one type byte that the window holds whole, one behind the other. Returns how
// many; RecordBuffer is as if each had been read.
u32 PassItemsAhead(u8 type);

}  // namespace qvslm
