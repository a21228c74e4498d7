#include "oracles.h"

#include <cstdio>
#include <cstdlib>

#include "record_table.h"

namespace fuzz {

namespace {

constexpr int kPattern = 0xA5;

}  // namespace

void Expect(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "ERROR: broken promise: %s\n", promise);
  std::abort();
}

bool IsPublicStatus(std::int32_t status) {
  return IsOneOf(status, {QV_OK, QV_CANNOT_OPEN, QV_NOT_FOUND, QV_BAD_LENGTH, QV_RECORD_TOO_SHORT,
                          QV_SEEK_FAILED, QV_TAIL_SEEK_FAILED, QV_NO_TEXT_HEADER, QV_END_OF_DATA,
                          QV_NO_ARGUMENT, QV_NO_MEMORY});
}

std::size_t RecordSize(std::uint16_t type) {
  std::size_t size = 0;
  for (const record_fields::RecordInfo& record : record_fields::kRecords) {
    if (type != QV_NO_RECORD && record.code == type) size = std::max(size, record.size);
  }
  return size;
}

PatternBuffer::PatternBuffer(std::size_t size)
    : buffer_(size, kPattern), pattern_(size, kPattern) {}

void PatternBuffer::Refill() {
  std::memcpy(buffer_.Data(), pattern_.Data(), buffer_.Size());
}

bool PatternBuffer::IsUntouchedFrom(std::size_t offset) const {
  return std::memcmp(buffer_.Data() + offset, pattern_.Data(), buffer_.Size() - offset) == 0;
}

}  // namespace fuzz
