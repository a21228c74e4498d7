// What holds for every file, however hostile: the checks that the targets share.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "qvslmtranslate.h"
#include "support/guarded_buffer.h"

namespace fuzz {

// Ends the process with a message when a promise does not hold: a finding.
void Expect(bool holds, const char* promise);

inline bool IsOneOf(std::int32_t status, std::initializer_list<std::int32_t> statuses) {
  return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
}

// A status that a call may return at all: the internal one is none.
bool IsPublicStatus(std::int32_t status);

// The size of the struct that a type code announces; 0 when there is no such code. Code 1 stands
// for two structs; this is the larger one.
std::size_t RecordSize(std::uint16_t type);

// The longest stretch that a step without a record may have used: the sample record that such a
// step begins and does not finish.
inline constexpr std::size_t kUnfinishedSize = sizeof(QvTimeHistory);

// A caller's buffer that ends at an unreadable page, holds a pattern before each call, and tells
// how far a call has written.
class PatternBuffer {
 public:
  explicit PatternBuffer(std::size_t size);
  void Refill();
  std::uint8_t* Data() const { return buffer_.Data(); }
  bool IsUntouchedFrom(std::size_t offset) const;

 private:
  test::GuardedBuffer buffer_;
  test::GuardedBuffer pattern_;
};

// Whether a text ends within its field.
template <std::size_t Size>
bool IsTerminated(const char (&field)[Size]) {
  return std::memchr(field, '\0', Size) != nullptr;
}

inline bool AreZero(const void* bytes, std::size_t size) {
  auto const* const first = static_cast<const std::uint8_t*>(bytes);
  return std::all_of(first, first + size, [](std::uint8_t byte) { return byte == 0; });
}

}  // namespace fuzz
