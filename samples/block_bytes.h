// Reads back a block of bytes that the writer put together, in the forms in which a record shows
// them.
#pragma once

#include <cstdint>
#include <string>

#include "sample_builder.h"

namespace samples {

class BlockBytes {
 public:
  BlockBytes(const Body& body, float levelOffset) : body_(body), levelOffset_(levelOffset) {}

  std::uint16_t Byte(std::size_t position) const {
    return static_cast<std::uint8_t>(body_.Bytes().at(position));
  }
  std::uint8_t Small(std::size_t position) const {
    return static_cast<std::uint8_t>(Byte(position));
  }
  std::uint16_t Word(std::size_t position) const {
    return static_cast<std::uint16_t>(Byte(position) * 256 + Byte(position + 1));
  }
  template <std::size_t N>
  void Bytes(std::size_t position, std::uint16_t (&field)[N]) const {
    for (std::size_t i = 0; i < N; ++i) field[i] = Byte(position + i);
  }
  std::string Chars(std::size_t position, std::size_t count) const {
    return body_.Bytes().substr(position, count);
  }

  // Whole number and 1/256; a first byte of 192 or more is negative.
  float Fixed(std::size_t position) const;
  float SignedFixed(std::size_t position) const;
  template <std::size_t N>
  void SignedFixed(std::size_t position, float (&field)[N]) const {
    for (std::size_t i = 0; i < N; ++i) field[i] = SignedFixed(position + 2 * i);
  }
  float Level(std::size_t position) const;
  // Whole number and a fraction of 16 bits, of 65536 or of 65535 parts.
  float Fixed24(std::size_t position) const;
  float Fixed24Wide(std::size_t position) const;

  // "06/21/24" of year, day, month; "12:30", "12:30:00" of packed digits or plain numbers.
  std::string PackedDate(std::size_t position) const;
  std::string PackedTime(std::size_t position) const;
  std::string PackedClock(std::size_t position) const;
  std::string PlainClock(std::size_t position) const;

 private:
  const Body& body_;
  float levelOffset_;
};

}  // namespace samples
