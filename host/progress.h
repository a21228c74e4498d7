// How far the work on a file has come, on one line of the terminal. Without a terminal on stderr
// nothing is shown.
#pragma once

#include <cstdint>
#include <string>

namespace host {

class Progress {
 public:
  explicit Progress(const std::string& fileName);
  ~Progress() { Wipe(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Counting();
  void SetTotal(std::uint64_t bytes) { total_ = bytes; }
  // How many bytes of the total are done.
  void Show(std::int32_t bytes);
  // Takes the line away, so that other text can be written to the same terminal.
  void Wipe();

 private:
  void Write(const std::string& text);

  std::string fileName_;
  bool terminal_;
  bool visible_ = false;
  std::uint64_t total_ = 0;
  std::uint64_t shownPercent_ = 101;
};

}  // namespace host
