// How far the work on a file has come, on one line of the terminal. Without a terminal on stderr
// nothing is shown.
#pragma once

#include <cstdint>
#include <string>

#include "qvslm_records.h"

namespace host {

// What a census counts: the sum of all its fields.
std::uint64_t TotalCount(const QvRecordCensus& census);
// For how much of that sum a record stands: a time history for its entries, a block image for its
// blocks, any other record for one.
std::uint64_t CountedAs(const std::uint8_t* record);

class Progress {
 public:
  explicit Progress(const std::string& fileName);
  ~Progress() { Wipe(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Counting();
  void SetTotal(std::uint64_t total) { total_ = total; }
  void Advance(std::uint64_t count);
  // Takes the line away, so that other text can be written to the same terminal.
  void Wipe();

 private:
  void Show(const std::string& text);

  std::string fileName_;
  bool terminal_;
  bool visible_ = false;
  std::uint64_t total_ = 0;
  std::uint64_t done_ = 0;
  std::uint64_t shownPercent_ = 101;
};

}  // namespace host
