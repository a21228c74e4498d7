// How far the work has come, on one line of the terminal. Without a terminal on stderr nothing is
// shown.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace host {

// Takes the line away, so that other text can be written to the same terminal.
void WipeProgress();

// What has been done since a start, and what that lets expect: ", 120.5 MB/s, 0:07 left". Empty in
// the first second, which says little.
class Pace {
 public:
  std::string Text(std::uint64_t done, std::uint64_t total) const;

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// The work on one file.
class Progress {
 public:
  explicit Progress(const std::string& fileName);
  ~Progress() { WipeProgress(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Counting();
  void SetTotal(std::uint64_t bytes) { total_ = bytes; }
  // How many bytes of the total are done.
  void Show(std::int32_t bytes);

 private:
  void Write(const std::string& text);

  std::string fileName_;
  bool terminal_;
  std::uint64_t total_ = 0;
  std::uint64_t shownPercent_ = 101;
  Pace pace_;
};

// The work on several files: "12 of 200 files, 120.5 MB/s, 0:07 left". Stands before what is shown
// of the one file while there is one.
class RunProgress {
 public:
  explicit RunProgress(const std::vector<std::string>& files);
  ~RunProgress();
  RunProgress(const RunProgress&) = delete;
  RunProgress& operator=(const RunProgress&) = delete;

  // The file of this place is done.
  void Ended(std::size_t index);

 private:
  std::string Text() const;
  friend class Progress;

  bool terminal_;
  std::vector<std::uint64_t> sizes_;
  std::uint64_t total_ = 0;
  std::uint64_t done_ = 0;
  std::size_t filesDone_ = 0;
  Pace pace_;
};

}  // namespace host
