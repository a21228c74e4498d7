// The path of the file in hand, and its name.
#pragma once

namespace qvslm {

// Keeps the path for a later reopening. One that does not fit is kept as an empty path, which opens
// nothing, rather than as that of another file.
void KeepFilePath(const char* path);

// Takes the name from a path into the end record: what stands behind the last separator of
// folders. A drive's colon stays its first character.
void KeepFileName(const char* path);

}  // namespace qvslm
