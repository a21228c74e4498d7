// What went wrong, in words, on stderr.
#pragma once

#include <stdexcept>
#include <string>

namespace host {

// A file that cannot even be handed to the library.
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& what, int code) : std::runtime_error(what), code_(code) {}
  int Code() const { return code_; }

 private:
  int code_;
};

// Throws a FileError that tells what cannot be done, and why by errno.
[[noreturn]] void FailWithErrno(const std::string& what);

// Prints "qvslm: what happened" as one line of plain text.
void Complain(const std::string& what);
// Prints "qvslm: FILE: what happened (code)".
void Report(const std::string& file, const std::string& what, int code);

// The same without a code.
void Remark(const std::string& file, const std::string& what);

}  // namespace host
