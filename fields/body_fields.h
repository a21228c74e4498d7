// The fields of the record in hand, one behind the other from its first byte.
//
// For the records that come by the million: until Close the place stays in registers, where the byte
// reader keeps it in the context. Bytes behind the record's end are 0.
#pragma once

#include <cstddef>
#include <cstring>

#include "fields/byte_reader.h"

namespace qvslm {

class BodyFields {
 public:
  // The bytes of the next field, kLongestField at most.
  static constexpr std::ptrdiff_t kLongestField = 8;
  const u8* Take(std::ptrdiff_t count) {
    if (end_ - next_ < count) [[unlikely]]
      return TakeLast();
    const u8* const field = next_;
    next_ += count;
    status_ = QV_OK;
    return field;
  }

  u8 Byte() { return *Take(1); }
  u16 Word() { return static_cast<u16>(WordOf(Take(2))); }

  // Copies bytes as they stand.
  void Raw(u8* target, u32 count) {
    if (static_cast<std::size_t>(end_ - next_) < count) [[unlikely]] {
      auto const there = static_cast<std::size_t>(end_ - next_);
      std::memcpy(target, next_, there);
      std::memset(target + there, 0, count - there);
      next_ = end_;
      status_ = QV_RECORD_TOO_SHORT;
      return;
    }
    std::memcpy(target, next_, count);
    next_ += count;
    status_ = QV_OK;
  }

  // Whether the last byte taken stood in the record: 0, or -313.
  i32 Status() const { return status_; }

  // Leaves the place in the context.
  void Close() const {
    CurrentContext->RecordPos = static_cast<i32>(next_ - CurrentContext->RecordBuffer);
  }

 private:
  const u8* TakeLast() {
    const u8* const field = PaddedField(next_, end_ - next_);
    next_ = end_;
    status_ = QV_RECORD_TOO_SHORT;
    return field;
  }

  // So many bytes, and 0 behind them. Valid until the next call.
  static const u8* PaddedField(const u8* bytes, std::ptrdiff_t count);

  const u8* next_ = CurrentContext->RecordBuffer;
  const u8* end_ = next_ + CurrentContext->RecordLength;
  i32 status_ = QV_OK;
};

}  // namespace qvslm
