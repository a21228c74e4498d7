// What differs between the platforms that the library is built for.
#pragma once

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>
#endif

namespace qvslm {

// A path's file name begins behind the last of these. A drive's colon stays in the name.
constexpr bool SeparatesFolders(char c) {
  return c == '\\' || c == '/';
}
constexpr bool EndsDrive(char c) {
  return c == ':';
}

// Whether the character makes one with the one behind it, which may then look like a separator.
// Paths on Windows are in the code page of the process; in Japanese, Chinese and Korean ones
// characters may have two bytes.
inline bool LeadsTwoBytes([[maybe_unused]] char c) {
#if defined(_WIN32)
  return IsDBCSLeadByte(static_cast<BYTE>(c)) != 0;
#else
  return false;
#endif
}

}  // namespace qvslm
