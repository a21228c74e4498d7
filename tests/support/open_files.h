// What the process has open, and paths that lead to something else than a file.
#pragma once

#include <string>
#include <string_view>

namespace test {

// How many files the process has open: one that a call leaves open shows as one more.
long OpenFiles();

// A pipe that holds the given bytes (64 KB at most) and has no writer any more: it can be opened by
// its path and read to its end, but not sought in. Throws where pipes have no paths.
class FilledPipe {
 public:
  explicit FilledPipe(std::string_view bytes);
  ~FilledPipe();
  FilledPipe(const FilledPipe&) = delete;
  FilledPipe& operator=(const FilledPipe&) = delete;

  std::string Path() const;

 private:
  int reader_ = -1;
};

}  // namespace test
