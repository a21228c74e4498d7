// A file that is written beside its place and takes it only when it is whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace host {

// An output that cannot be written; what() names it and tells why.
class WriteError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws a WriteError with the reason that errno tells.
[[noreturn]] void FailToWrite(const std::filesystem::path& path);

// A path beside another, for what is not whole yet: .NAME.part in the same folder.
std::filesystem::path PathBeside(const std::filesystem::path& path);

class NewFile {
 public:
  // Opens the file beside the path. Throws WriteError, as all of these do.
  explicit NewFile(const std::filesystem::path& path);
  // Removes what was not kept.
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // Room for so many bytes to come; Used tells how far it was filled. Large rooms may be taken.
  char* Room(std::size_t size) {
    if (size > capacity_ - used_) MakeRoom(size);
    return buffer_.get() + used_;
  }
  void Used(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }
  void Write(std::string_view text);

  // Writes out what is buffered, and puts the file where it belongs, in place of what is there.
  void Keep();

 private:
  void MakeRoom(std::size_t size);
  void WriteOut();

  std::filesystem::path path_;
  std::filesystem::path beside_;
  int descriptor_ = -1;
  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_;
  std::size_t used_ = 0;
};

}  // namespace host
