// The bytes that a record is expected to hold, written field by field, and their comparison with
// what the host's buffer holds behind a step. Bytes that no field was written to are zero, as
// decoders clear them; behind the image the buffer must be as the host left it.
//
//   RecordImage expected(304);
//   expected.U16(0, 51).F32(156, 66.5f).Text(68, "99/31/12");
//   EXPECT_EQ(Difference(expected, step), "");
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "support/translation.h"

namespace test {

// What Translation fills the host's buffer with before each step.
constexpr int kHostFill = 0xEE;

class RecordImage {
 public:
  explicit RecordImage(std::size_t size) : bytes_(size, 0) {}

  RecordImage& U8(std::size_t offset, int value) {
    return Store(offset, static_cast<std::uint8_t>(value));
  }
  RecordImage& U16(std::size_t offset, int value) {
    return Store(offset, static_cast<std::uint16_t>(value));
  }
  RecordImage& I32(std::size_t offset, std::int32_t value) { return Store(offset, value); }
  RecordImage& F32(std::size_t offset, float value) { return Store(offset, value); }
  RecordImage& Floats(std::size_t offset, const std::vector<float>& values) {
    for (float const value : values) {
      F32(offset, value);
      offset += 4;
    }
    return *this;
  }
  RecordImage& Words(std::size_t offset, const std::vector<std::int32_t>& values) {
    for (std::int32_t const value : values) {
      I32(offset, value);
      offset += 4;
    }
    return *this;
  }
  // Characters as they stand, without a terminator.
  RecordImage& Chars(std::size_t offset, std::string_view text) {
    for (char const letter : text) bytes_.at(offset++) = static_cast<std::uint8_t>(letter);
    return *this;
  }
  // The bytes keep what the host's buffer held.
  RecordImage& Untouched(std::size_t offset, std::size_t count) {
    while (count-- > 0) U8(offset++, kHostFill);
    return *this;
  }

  const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  template <class T>
  RecordImage& Store(std::size_t offset, T value) {
    std::uint8_t raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    for (std::uint8_t const byte : raw) bytes_.at(offset++) = byte;
    return *this;
  }

  std::vector<std::uint8_t> bytes_;
};

// Empty when the host's buffer holds the image and behind it nothing but the host's fill; else the
// offsets of the first bytes that differ.
inline std::string Difference(const RecordImage& expected, const Step& step) {
  std::string difference;
  int named = 0;
  for (std::size_t i = 0; i < step.record.size(); ++i) {
    int const want = i < expected.Bytes().size() ? expected.Bytes()[i] : kHostFill;
    if (step.record[i] == want) continue;
    if (++named > 8) return difference + "and more";
    char line[80];
    std::snprintf(line, sizeof line, "offset %d: expected %02x, found %02x; ", static_cast<int>(i),
                  static_cast<unsigned>(want), static_cast<unsigned>(step.record[i]));
    difference += line;
  }
  return difference;
}

}  // namespace test
