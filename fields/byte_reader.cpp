#include "fields/byte_reader.h"

#include <cstring>
#include <limits>

namespace qvslm {

bool RefillRecordBuffer() {
  TranslateContext& context = *CurrentContext;
  u32 const length = context.RecordLength;
  if (length == 0 || length > kLongestRecord) return false;
  if (context.FileOffset > std::numeric_limits<i32>::max() - static_cast<i32>(length)) return false;
  std::size_t const came = ReadFileBlock(context.RecordBuffer, length);
  context.BytesRead = came == length;
  if (came == 0) return false;
  context.FileOffset += static_cast<i32>(length);
  context.RecordPos = 0;
  return true;
}

std::size_t ReadRecordBlock(u32 count) {
  TranslateContext& context = *CurrentContext;
  std::size_t const came = ReadFileBlock(context.RecordBuffer, count);
  context.BytesRead = count > 0 && came == count;
  context.RecordPos = 0;
  return came;
}

void ReadItem() {
  TranslateContext& context = *CurrentContext;
  if (const u8* const head = BytesAhead(2)) {
    u32 const length = head[0] * 256U + head[1];
    if (length <= kLongestRecord && BytesAhead(2 + length) != nullptr) {
      PassBytes(2);
      TakeBytesAhead(context.RecordBuffer, length);
      context.RecordLength = length;
      context.BytesRead = length > 0;
      context.RecordPos = 0;
      return;
    }
  }
  ReadItemAcrossWindows();
}

u32 PassItemsAhead(u8 type) {
  constexpr i64 kHead = 3;
  constexpr u32 kAlike = 4;
  const u8* next = BytesAhead(kHead);
  if (next == nullptr || Reading->limitOffset > std::numeric_limits<i32>::max()) return 0;
  const u8* const limit = Reading->limit;
  const u8* longest = next;  // the last one of the longest items
  u32 longestLength = 0;
  u32 length = 0;
  u32 alike = 0;  // items of one length
  u32 passed = 0;
  while (limit - next >= kHead && next[0] == type) {
    u32 const coming = next[1] * 256U + next[2];
    if (coming > kLongestRecord || limit - next < kHead + coming) break;
    alike = coming == length ? alike + 1 : 0;
    length = coming;
    const u8* item = next;
    next += kHead + length;
    ++passed;
    // Where a length is expected, and not read, the next step need not wait for it.
    while (alike >= kAlike && limit - next >= kHead + length && next[0] == type &&
           next[1] * 256U + next[2] == length) {
      item = next;
      next += kHead + length;
      ++passed;
    }
    if (length >= longestLength) {
      longestLength = length;
      longest = item;
    }
  }
  // The longest body covers those before it.
  for (const u8* item = longest; item < next;) {
    u32 const size = item[1] * 256U + item[2];
    std::memcpy(CurrentContext->RecordBuffer, item + kHead, size);
    item += kHead + size;
  }
  Reading->next = next;
  return passed;
}

}  // namespace qvslm
