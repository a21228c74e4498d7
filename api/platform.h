// What differs between the platforms that the library is built for.
#pragma once

namespace qvslm {

// A path's file name begins behind the last of these. A drive's colon stays in the name.
constexpr bool SeparatesFolders(char c) {
  return c == '\\' || c == '/';
}
constexpr bool EndsDrive(char c) {
  return c == ':';
}

}  // namespace qvslm
