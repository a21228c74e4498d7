// A file that is written from its start to its end, through a buffer that others fill in place.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "temporary.h"

namespace host {

// An output that cannot be written; what() names it and tells why.
class WriteError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Nobody reads any more what is written.
struct ReaderHasGone {};

// Throws a WriteError with the reason that errno tells, or ReaderHasGone.
[[noreturn]] void FailToWrite(const std::string& path);

// Whether a place is a device or a pipe, or stands for one as /dev/stdout does: nothing may take its
// place.
bool IsDevice(const std::string& place);

// A file beside a place that may not be a device.
Temporary PlainFileBeside(const std::string& place);

class WrittenFile {
 public:
  // Opens the file anew. Faults speak of `place`, where the file belongs once it is whole. Throws
  // WriteError, as all of these do.
  WrittenFile(const std::string& path, const std::string& place);
  // The same with a file that goes unless it is kept; without one the place itself is written.
  WrittenFile(Temporary part, const std::string& place);

  // Room for so many bytes to come; Used tells how far it was filled.
  char* Room(std::size_t size) {
    if (size > capacity_ - used_) MakeRoom(size);
    return buffer_.get() + used_;
  }
  void Used(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }
  void Write(std::string_view text);

  // Behind the last byte: all that was written is in the file.
  void Close();
  // The same, and the file takes its place.
  void Keep();

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void MakeRoom(std::size_t size);
  void WriteOut();

  std::string place_;
  Temporary part_;
  std::unique_ptr<std::FILE, Closer> file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_;
  std::size_t used_ = 0;
};

}  // namespace host
