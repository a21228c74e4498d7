#include "export/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace host {
namespace {

constexpr std::size_t kBuffer = 128 * 1024;

}  // namespace

void FailToWrite(const std::filesystem::path& path) {
  throw WriteError(path.string() + " cannot be written: " + std::strerror(errno));
}

std::filesystem::path PathBeside(const std::filesystem::path& path) {
  return path.parent_path() / ("." + path.filename().string() + ".part");
}

NewFile::NewFile(const std::filesystem::path& path)
    : path_(path), beside_(PathBeside(path)), capacity_(kBuffer) {
  constexpr mode_t readable = 0666;
  descriptor_ = open(beside_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, readable);
  if (descriptor_ < 0) FailToWrite(path_);
  buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

NewFile::~NewFile() {
  if (descriptor_ < 0) return;
  close(descriptor_);
  unlink(beside_.c_str());
}

void NewFile::Write(std::string_view text) {
  char* const at = Room(text.size());
  Used(std::copy(text.begin(), text.end(), at));
}

void NewFile::Keep() {
  WriteOut();
  int const descriptor = descriptor_;
  descriptor_ = -1;
  // Some file systems tell only now that the disk is full.
  if (close(descriptor) != 0 || rename(beside_.c_str(), path_.c_str()) != 0) {
    int const reason = errno;
    unlink(beside_.c_str());
    errno = reason;
    FailToWrite(path_);
  }
}

void NewFile::MakeRoom(std::size_t size) {
  WriteOut();
  if (size <= capacity_) return;
  capacity_ = size;
  buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

void NewFile::WriteOut() {
  const char* at = buffer_.get();
  const char* const end = at + used_;
  while (at < end) {
    ssize_t const written = write(descriptor_, at, static_cast<std::size_t>(end - at));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) FailToWrite(path_);
    at += written;
  }
  used_ = 0;
}

}  // namespace host
