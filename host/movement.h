// Notices a walk that no longer moves through its file.
//
// The library has no end of its own where a mode has no record for an item, where a list or a
// stream is cut by the end of the file: step after step comes back without an error, with no record
// or with the last one again. Two bounds, neither of which a whole file can reach:
//
//   what was delivered took more bytes than the file has: every step takes at least two bytes of
//   it, a step within a list one, a time history one for each entry;
//
//   a list or a stream gives more than the census counted in all lists and streams, and what it
//   gives is what it gave before, but for number and time.
#pragma once

#include <cstdint>
#include <vector>

#include "input_file.h"
#include "qvslm_records.h"

namespace host {

class Movement {
 public:
  explicit Movement(const InputFile& file) : file_(file), fileSize_(file.Size()) {}
  // What the census counted, if it walked the file to its end (or to where the file is cut).
  void TrustCensus(const QvRecordCensus& census);
  // Takes note of a step's record, whose first field is 0 when there was none. True when the step
  // went beyond a bound.
  bool HasStopped(const std::uint8_t* record);

 private:
  bool HasTakenMoreThanTheFile();
  bool RepeatsBeyondCensus(const std::uint8_t* record);

  const InputFile& file_;
  std::uint64_t fileSize_;
  bool censusKnown_ = false;
  std::uint64_t counted_ = 0;    // entries of streams and blocks of lists, by the census
  std::uint64_t delivered_ = 0;  // the same, by the records
  std::uint64_t bytes_ = 0;      // least number of bytes that the steps so far took
  std::vector<std::uint8_t> last_;
};

}  // namespace host
