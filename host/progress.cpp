#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>

#include "plain_text.h"
#include "qvslmtranslate.h"
#include "record_table.h"

namespace host {
namespace {

template <class T>
T As(const std::uint8_t* record) {
  T copy;
  std::memcpy(&copy, record, sizeof copy);
  return copy;
}

}  // namespace

std::uint64_t TotalCount(const QvRecordCensus& census) {
  std::uint64_t total = 0;
  for (const record_fields::FieldInfo& field : record_fields::kRecordCensusFields) {
    std::uint32_t count;
    std::memcpy(&count, reinterpret_cast<const std::uint8_t*>(&census) + field.offset,
                sizeof count);
    total += count;
  }
  return total;
}

std::uint64_t CountedAs(const std::uint8_t* record) {
  switch (As<std::uint16_t>(record)) {
    case QV_NO_RECORD:
    case QV_END:
      return 0;
    case QV_TIME_HISTORY:
      return As<QvTimeHistory>(record).EntryCount;
    case QV_BLOCK_IMAGE:
      return static_cast<std::uint64_t>(std::popcount(As<QvBlockImage>(record).BlockFlags));
    default:
      return 1;
  }
}

Progress::Progress(const std::string& fileName)
    : fileName_(PlainText(fileName)), terminal_(isatty(STDERR_FILENO) != 0) {}

void Progress::Counting() {
  Show("counting");
}

void Progress::Advance(std::uint64_t count) {
  done_ += count;
  if (!terminal_ || total_ == 0) return;
  // A file may hold more than its census says; it is at its end only when the walk ends.
  std::uint64_t const percent = std::min<std::uint64_t>(done_ * 100 / total_, 99);
  if (visible_ && percent == shownPercent_) return;
  shownPercent_ = percent;
  Show(std::to_string(percent) + " %");
}

void Progress::Wipe() {
  if (!visible_) return;
  std::fputs("\r\033[K", stderr);
  visible_ = false;
}

void Progress::Show(const std::string& text) {
  if (!terminal_) return;
  std::fprintf(stderr, "\r\033[K%s: %s", fileName_.c_str(), text.c_str());
  std::fflush(stderr);
  visible_ = true;
}

}  // namespace host
