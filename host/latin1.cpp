#include "latin1.h"

namespace host {

std::string TextFromLatin1(const char* text, std::size_t size) {
  std::string utf8;
  for (std::size_t i = 0; i < size && text[i] != '\0'; ++i) {
    unsigned const code = static_cast<unsigned char>(text[i]);
    if (code < 0x80) {
      utf8 += text[i];
    } else {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

std::string Trimmed(const std::string& text) {
  auto const blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  std::size_t start = 0;
  std::size_t end = text.size();
  while (start < end && blank(text[start])) ++start;
  while (end > start && blank(text[end - 1])) --end;
  return text.substr(start, end - start);
}

}  // namespace host
