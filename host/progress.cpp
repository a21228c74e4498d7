#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "file_paths.h"
#include "plain_text.h"
#include "plain_words.h"
#include "platform.h"

namespace host {
namespace {

const RunProgress* run = nullptr;  // the one under way
bool visible = false;              // whether the terminal shows a line of ours

void WriteLine(const std::string& text) {
  // A longer line would go on below, where nothing wipes it.
  int const width = TerminalWidth(STDERR_FILENO);
  std::size_t size = width > 1 ? static_cast<std::size_t>(width) - 1 : text.size();
  // Not between the bytes of a character.
  while (size > 0 && size < text.size() && (text[size] & 0xC0) == 0x80) --size;
  std::fprintf(stderr, "\r\033[K%s", text.substr(0, size).c_str());
  std::fflush(stderr);
  visible = true;
}

}  // namespace

void WipeProgress() {
  if (!visible) return;
  std::fputs("\r\033[K", stderr);
  std::fflush(stderr);
  visible = false;
}

std::string Pace::Text(std::uint64_t done, std::uint64_t total) const {
  std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - start_;
  if (passed.count() < 1 || done == 0) return "";
  double const rate = static_cast<double>(done) / passed.count();
  double const left = static_cast<double>(total - std::min(done, total)) / rate;
  return ", " + SizeText(static_cast<std::uint64_t>(rate)) + "/s, " +
         LengthText(static_cast<std::uint64_t>(left)) + " left";
}

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
  if (visible && percent == shownPercent_) return;
  shownPercent_ = percent;
  Write(std::to_string(percent) + " %" + (run == nullptr ? pace_.Text(done, total_) : ""));
}

void Progress::Write(const std::string& text) {
  if (!terminal_) return;
  WriteLine((run == nullptr ? "" : run->Text() + ": ") + fileName_ + ": " + text);
}

RunProgress::RunProgress(const std::vector<std::string>& files)
    : terminal_(IsTerminal(STDERR_FILENO) && files.size() > 1) {
  if (!terminal_) return;
  for (const std::string& file : files) {
    std::error_code fault;
    std::uintmax_t const size = std::filesystem::file_size(PathOf(file), fault);
    sizes_.push_back(fault ? 0 : size);
    total_ += sizes_.back();
  }
  run = this;
  WriteLine(Text());
}

RunProgress::~RunProgress() {
  WipeProgress();
  if (run == this) run = nullptr;
}

void RunProgress::Ended(std::size_t index) {
  if (!terminal_) return;
  done_ += sizes_[index];
  ++filesDone_;
  WriteLine(Text());
}

std::string RunProgress::Text() const {
  return std::to_string(filesDone_) + " of " + Counted(sizes_.size(), "file", "files") +
         pace_.Text(done_, total_);
}

}  // namespace host
