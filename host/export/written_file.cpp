#include "export/written_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "file_paths.h"
#include "platform.h"

namespace host {
namespace {

constexpr std::size_t kBuffer = std::size_t{128} * 1024;

}  // namespace

void FailToWrite(const std::string& path) {
  if (errno == EPIPE) throw ReaderHasGone();
  throw WriteError(path + " cannot be written: " + std::strerror(errno));
}

bool IsDevice(const std::string& place) {
  std::error_code ignored;
  std::string const path = NameOf(std::filesystem::absolute(PathOf(place)).lexically_normal());
  if (path.starts_with("/dev/") || path.starts_with("/proc/")) return true;
  return std::filesystem::exists(PathOf(place), ignored) &&
         !std::filesystem::is_regular_file(PathOf(place), ignored);
}

Temporary PlainFileBeside(const std::string& place) {
  if (IsDevice(place)) throw WriteError(place + " cannot be written: it is no plain file");
  return Temporary::FileBeside(place);
}

WrittenFile::WrittenFile(const std::string& path, const std::string& place)
    : place_(place), file_(std::fopen(path.c_str(), "wb")), capacity_(kBuffer) {
  if (!file_) FailToWrite(place_);
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

WrittenFile::WrittenFile(Temporary part, const std::string& place)
    : WrittenFile(part.Path().empty() ? place : part.Path(), place) {
  part_ = std::move(part);
}

void WrittenFile::Write(std::string_view text) {
  char* const at = Room(text.size());
  Used(std::copy(text.begin(), text.end(), at));
}

void WrittenFile::Close() {
  WriteOut();
  // Some file systems tell only now that the disk is full.
  if (std::fclose(file_.release()) != 0) FailToWrite(place_);
}

void WrittenFile::Keep() {
  Close();
  if (!part_.Path().empty()) part_.MoveTo(place_);
}

void WrittenFile::MakeRoom(std::size_t size) {
  WriteOut();
  if (size <= capacity_) return;
  capacity_ = size;
  buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

void WrittenFile::WriteOut() {
  if (std::fwrite(buffer_.get(), 1, used_, file_.get()) != used_) {
    errno = ErrorOfWrite();
    FailToWrite(place_);
  }
  used_ = 0;
}

}  // namespace host
