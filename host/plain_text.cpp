#include "plain_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace host {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

unsigned Byte(std::string_view text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

// Bytes of the character that the text begins with; 0 where these are no UTF-8.
std::size_t CharacterSize(std::string_view text) {
  unsigned const lead = Byte(text, 0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  // The second byte rules out forms that are too long, surrogates, and what lies above U+10FFFF.
  unsigned const lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned const highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (Byte(text, 1) < lowest || Byte(text, 1) > highest) return 0;
  std::size_t const size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  for (std::size_t i = 2; i < size; ++i) {
    if ((Byte(text, i) & 0xC0) != 0x80) return 0;
  }
  return size;
}

bool IsControl(unsigned code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

void AppendEscape(std::string& plain, unsigned code) {
  std::array<char, 8> escape{};
  std::snprintf(escape.data(), escape.size(), "\\u%04x", code);
  plain += escape.data();
}

}  // namespace

std::string PlainText(std::string_view text) {
  auto const isPrintable = [](char c) { return c >= ' ' && c <= '~'; };
  std::string plain;
  plain.reserve(text.size());
  while (!text.empty()) {
    auto const end = std::find_if_not(text.begin(), text.end(), isPrintable);
    auto const printable = static_cast<std::size_t>(end - text.begin());
    plain += text.substr(0, printable);
    text.remove_prefix(printable);
    if (text.empty()) break;

    std::size_t const size = CharacterSize(text);
    // Two bytes C2 xx are the characters U+0080 to U+00BF, the bytes xx of Latin-1.
    unsigned const code = size == 1               ? Byte(text, 0)
                          : Byte(text, 0) == 0xC2 ? Byte(text, 1)
                                                  : 0xFFFD;
    if (size == 0) {
      plain += replacement;
    } else if (IsControl(code)) {
      AppendEscape(plain, code);
    } else {
      plain += text.substr(0, size);
    }
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return plain;
}

}  // namespace host
