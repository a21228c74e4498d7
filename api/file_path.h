// The path of the file in hand, and its name.
#pragma once

#include <string_view>

namespace qvslm {

// Keeps the path for a later reopening. One that does not fit is kept as an empty path, which opens
// nothing, rather than as that of another file.
void KeepFilePath(const char* path);

// The name in a path: what stands behind the last separator of folders. A drive's colon stays its
// first character. Characters of two bytes are told by the first of them.
std::string_view FileNameIn(std::string_view path, bool (*leadsTwoBytes)(char));

// Takes the name from a path into the end record.
void KeepFileName(const char* path);

}  // namespace qvslm
