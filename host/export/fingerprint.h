// What tells one file's contents from another's.
#pragma once

#include <string>

namespace host {

// SHA-256 of all bytes of a file, as sha256sum shows it. Throws FileError when it cannot be read.
std::string Sha256OfFile(const std::string& path);

}  // namespace host
