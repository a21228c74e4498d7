#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "plain_text.h"
#include "platform.h"

namespace host {

Progress::Progress(const std::string& fileName)
    : fileName_(PlainText(fileName)), terminal_(IsTerminal(STDERR_FILENO)) {}

void Progress::Counting() {
  Write("counting");
}

void Progress::Show(std::int32_t bytes) {
  if (!terminal_ || total_ == 0) return;
  // A file may grow; it is at its end only when the walk ends.
  auto const done = static_cast<std::uint64_t>(bytes);
  std::uint64_t const percent = std::min<std::uint64_t>(done * 100 / total_, 99);
  if (visible_ && percent == shownPercent_) return;
  shownPercent_ = percent;
  Write(std::to_string(percent) + " %");
}

void Progress::Wipe() {
  if (!visible_) return;
  std::fputs("\r\033[K", stderr);
  visible_ = false;
}

void Progress::Write(const std::string& text) {
  if (!terminal_) return;
  std::fprintf(stderr, "\r\033[K%s: %s", fileName_.c_str(), text.c_str());
  std::fflush(stderr);
  visible_ = true;
}

}  // namespace host
