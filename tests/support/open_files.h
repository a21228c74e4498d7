// What the process has open, and paths that lead to something else than a file.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace test {

// How many descriptors the process holds: a handle that a call leaves open shows as one more.
inline long OpenFiles() {
  std::filesystem::directory_iterator const descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

// A pipe that holds the given bytes (64 KB at most) and has no writer any more: it can be opened by
// its path and read to its end, but not sought in.
class FilledPipe {
 public:
  explicit FilledPipe(std::string_view bytes) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("cannot make a pipe");
    reader_ = ends[0];
    ssize_t const written = write(ends[1], bytes.data(), bytes.size());
    close(ends[1]);
    if (written != static_cast<ssize_t>(bytes.size())) throw std::runtime_error("pipe is full");
  }
  ~FilledPipe() { close(reader_); }
  FilledPipe(const FilledPipe&) = delete;
  FilledPipe& operator=(const FilledPipe&) = delete;

  std::string Path() const { return "/proc/self/fd/" + std::to_string(reader_); }

 private:
  int reader_;
};

}  // namespace test
