// The fields of the record in hand, one behind the other: every body is read through it.
//
// The place stands here and not in the context, so that compilers keep it in a register from field
// to field; records come by the million. Bytes behind the record's end are 0.
//
// Beside it there is ReadByte (fields/byte_reader.h) for a sample stream that is passed and not
// delivered: its place stands in the context, since such a stream goes on from block to block of
// the file. A body never does.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "api/context.h"

namespace qvslm {

// Two bytes, high byte first.
inline u32 WordOf(const u8* bytes) {
  return bytes[0] * 256U + bytes[1];
}

class BodyFields {
 public:
  // From the body's first byte on, or from a later one.
  BodyFields() = default;
  explicit BodyFields(u32 place)
      : next_(CurrentContext->RecordBuffer + std::min(place, CurrentContext->RecordLength)) {}

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
  u32 Word() { return WordOf(Take(2)); }
  void Skip(std::ptrdiff_t count) { Take(count); }

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

  // Where the next field begins: in RecordBuffer, and counted from the body's first byte. What lies
  // ahead of it may be taken without asking as long as it is in RecordBuffer, and is passed then.
  const u8* Ahead() const { return next_; }
  void Pass(std::ptrdiff_t count) { next_ += count; }
  i32 Place() const { return static_cast<i32>(next_ - CurrentContext->RecordBuffer); }

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
  const u8* end_ = CurrentContext->RecordBuffer + CurrentContext->RecordLength;
  i32 status_ = QV_OK;
};

}  // namespace qvslm
