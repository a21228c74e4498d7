#include "movement.h"

#include <cstring>

#include "progress.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

int CodeOf(const std::uint8_t* record) {
  return record[0] + 256 * record[1];
}

bool IsStreamed(int code) {
  return code == QV_TIME_HISTORY || code == QV_TIMED_SPECTRUM || code == QV_FIELD_HISTORY;
}

std::uint64_t LeastBytes(const std::uint8_t* record) {
  constexpr std::uint64_t typeAndOneMore = 2;
  return IsStreamed(CodeOf(record)) ? CountedAs(record) : typeAndOneMore;
}

template <class T>
T Copy(const std::uint8_t* record) {
  T copy;
  std::memcpy(&copy, record, sizeof copy);
  return copy;
}

template <class T>
std::vector<std::uint8_t> Bytes(const T& record) {
  auto const* const first = reinterpret_cast<const std::uint8_t*>(&record);
  return {first, first + sizeof record};
}

// A streamed record without what counts on from one to the next.
std::vector<std::uint8_t> Contents(const std::uint8_t* record) {
  switch (CodeOf(record)) {
    case QV_TIME_HISTORY: {
      auto history = Copy<QvTimeHistory>(record);
      history.RecordTime = 0;
      return Bytes(history);
    }
    case QV_TIMED_SPECTRUM: {
      auto spectrum = Copy<QvTimedSpectrum>(record);
      spectrum.RecordIndex = 0;
      return Bytes(spectrum);
    }
    default: {
      auto entry = Copy<QvFieldHistory>(record);
      entry.RecordTime = 0;
      entry.RecordIndex = 0;
      return Bytes(entry);
    }
  }
}

}  // namespace

void Movement::TrustCensus(const QvRecordCensus& census) {
  censusKnown_ = true;
  counted_ = std::uint64_t{census.StreamEntries} + census.ListBlocksMode0 + census.ListBlocksMode4 +
             census.ListBlocksMode7;
}

bool Movement::HasStopped(const std::uint8_t* record) {
  bytes_ += LeastBytes(record);
  return HasTakenMoreThanTheFile() || (IsStreamed(CodeOf(record)) && RepeatsBeyondCensus(record));
}

bool Movement::HasTakenMoreThanTheFile() {
  if (bytes_ <= fileSize_) return false;
  fileSize_ = file_.Size();  // it may have grown
  return bytes_ > fileSize_;
}

bool Movement::RepeatsBeyondCensus(const std::uint8_t* record) {
  if (!censusKnown_) return false;
  delivered_ += CountedAs(record);
  // Comparing takes time: begin well before the bound, where the record in front of it must be
  // known.
  constexpr std::uint64_t near = 1000;
  if (delivered_ + near < counted_) return false;
  std::vector<std::uint8_t> contents = Contents(record);
  bool const repeated = contents == last_;
  last_ = std::move(contents);
  return repeated && delivered_ > counted_;
}

}  // namespace host
