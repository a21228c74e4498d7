// Texts of the instruments: one byte a character, Latin-1 above 127.
#pragma once

#include <cstddef>
#include <string>

namespace host {

// The characters up to the first NUL, or all of them without one, as UTF-8.
std::string TextFromLatin1(const char* text, std::size_t size);

// Without blanks, tabs and line ends at either end. Other control characters stay: they are shown
// escaped, as within the text.
std::string Trimmed(const std::string& text);

}  // namespace host
