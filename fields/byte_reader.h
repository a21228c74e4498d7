// From the file to RecordBuffer: the bodies of items and the blocks of streams, and the bytes of a
// stream that goes on from block to block.
//
// The fields of a body are read through BodyFields (fields/body_fields.h).
#pragma once

#include "api/context.h"
#include "fields/data_file.h"

namespace qvslm {

// Reads the next block of a stream into RecordBuffer. False when not one byte came.
bool RefillRecordBuffer();

// The next byte of the record in hand, at RecordPos. The status becomes 0, or -313 behind the
// record's end, where the byte is 0. With AutoRefill the record goes on in the next block of the
// file instead.
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

// Reads length and body of an item to RecordLength and RecordBuffer. A length above kLongestRecord
// is left at that, without a body.
void ReadItem();
// The same for an item that the window does not hold whole, with a count of what the file lacks.
void ReadItemAcrossWindows();

// Passes the items of one type byte that the window holds whole, one behind the other. Returns how
// many; RecordBuffer is as if each had been read.
u32 PassItemsAhead(u8 type);

}  // namespace qvslm
