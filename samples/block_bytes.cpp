#include "block_bytes.h"

#include <cstdio>

namespace samples {

namespace {

std::string Format(const char* form, int first, int second, int third) {
  char text[48];
  std::snprintf(text, sizeof text, form, first, second, third);
  return text;
}

}  // namespace

float BlockBytes::Fixed(std::size_t position) const {
  return static_cast<float>(Word(position) / 256.0);
}

float BlockBytes::SignedFixed(std::size_t position) const {
  int const word = Word(position);
  return static_cast<float>((word >= 192 * 256 ? word - 65536 : word) / 256.0);
}

float BlockBytes::Level(std::size_t position) const {
  if (Byte(position + 1) == 0) return QV_NO_LEVEL;
  return static_cast<float>(Word(position) / 256.0 + static_cast<double>(levelOffset_));
}

float BlockBytes::Fixed24(std::size_t position) const {
  auto const fraction = static_cast<float>(Word(position + 1) / 65536.0);
  return static_cast<float>(Byte(position) + static_cast<double>(fraction));
}

float BlockBytes::Fixed24Wide(std::size_t position) const {
  return static_cast<float>(Byte(position)) + static_cast<float>(Word(position + 1) / 65535.0);
}

std::string BlockBytes::PackedDate(std::size_t position) const {
  return Format("%02x/%02x/%02x", Byte(position + 2), Byte(position + 1), Byte(position));
}

std::string BlockBytes::PackedTime(std::size_t position) const {
  return Format("%02x:%02x", Byte(position), Byte(position + 1), 0);
}

std::string BlockBytes::PackedClock(std::size_t position) const {
  return Format("%02x:%02x:%02x", Byte(position), Byte(position + 1), Byte(position + 2));
}

std::string BlockBytes::PlainClock(std::size_t position) const {
  return Format("%02d:%02d:%02d", Byte(position), Byte(position + 1), Byte(position + 2));
}

}  // namespace samples
