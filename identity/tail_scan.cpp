#include "identity/tail_scan.h"

#include <cstdlib>
#include <memory>
#include <string_view>

#include "fields/data_file.h"
#include "fields/date_text.h"
#include "fields/number_text.h"
#include "identity/text_header.h"

namespace qvslm {

namespace {

constexpr i32 kTail431 = -1000;
constexpr i32 kTail = -2500;
constexpr i32 kFarthest = -4999;
constexpr i32 kStepBack = 50;
constexpr std::size_t kScanBlock = 2'100'000;
constexpr std::string_view kResultsBlock442 = "R  1,Hedrom-Pulke Model 442";

void TakeStopTime(std::string_view date, std::string_view time) {
  CurrentContext->LastStopTime = static_cast<i32>(DateToSecs(date, time, 0)) - 1;
}

// Backward from the end of the file: where a line's register lies above 6, some way back again. A
// NUL within a line ends its text, and so its length.
i32 WalkTailBackward() {
  TranslateContext& context = *CurrentContext;
  context.FileOffset = context.Model == kModel431 ? kTail431 : kTail;
  if (SeekFromEnd(context.FileOffset) != 0) return FailWith(QV_TAIL_SEEK_FAILED);
  context.LineBuffer[0] = '\0';
  i64 const end = FilePosition() - context.FileOffset;  // a device may go on
  while (context.FileOffset >= kFarthest && FilePosition() < end) {
    if (!ReadLine(context.LineBuffer, sizeof context.LineBuffer)) return 0;
    if (context.LineBuffer[0] != 'R') continue;
    std::string_view const text = context.LineBuffer;
    i32 const number = NumberAt(text, 1);
    if (number == 6) {
      TakeStopTime(Columns(text, 6, 9), Columns(text, 16));
      return 0;
    }
    if (number > 6) {
      i32 const back = kStepBack + static_cast<i32>(text.size());
      if (SeekDataFile(FilePosition() - back) != 0) return FailWith(QV_TAIL_SEEK_FAILED);
      context.FileOffset -= back;
    }
  }
  return 0;
}

// The last results block of the text, or npos; one at the very start does not count.
std::size_t FindResultsBlock(std::string_view text) {
  if (text.size() <= kResultsBlock442.size() + 1) return std::string_view::npos;
  std::size_t const found = text.rfind(kResultsBlock442, text.size() - kResultsBlock442.size() - 1);
  return found == 0 ? std::string_view::npos : found;
}

// The registers behind the block's start. Every 'R' counts; the number behind it decides. A level
// offset at the very end of the file may have had more digits.
bool TakeRegisters(std::string_view text, std::size_t from, bool endsWithFile) {
  bool stopSeen = false;
  bool offsetSeen = false;
  for (std::size_t at = text.find('R', from); at != std::string_view::npos;
       at = text.find('R', at + 1)) {
    std::string_view const line = text.substr(at);
    i32 const number = NumberAt(line, 1);
    if (number == 6) {
      TakeStopTime(Columns(line, 5, 9), Columns(line, 15, 8));
      stopSeen = true;
    } else if (number == 106) {
      CurrentContext->LevelOffset = static_cast<f32>(FloatNumber(Columns(line, 5)));
      if (endsWithFile && line.find('\n') == std::string_view::npos) NoteBytesMissing(1);
      offsetSeen = true;
    }
    if (stopSeen && offsetSeen) break;
  }
  return offsetSeen;
}

// Forward through memory, over the first stretch behind the header.
i32 SearchStretch442() {
  struct Free {
    void operator()(char* block) const { std::free(block); }
  };
  std::unique_ptr<char, Free> const block(static_cast<char*>(std::malloc(kScanBlock)));
  if (block == nullptr) return FailWith(QV_NO_MEMORY);
  std::size_t const count = ReadFileBlock(block.get(), kScanBlock);
  if (count < kScanBlock && ReadFailed()) return FailWith(QV_SEEK_FAILED);
  std::string_view const text(block.get(), count);
  std::size_t const found = FindResultsBlock(text);
  if (found == std::string_view::npos || !TakeRegisters(text, found + 1, count < kScanBlock)) {
    return FailWith(QV_NOT_FOUND);
  }
  return 0;
}

}  // namespace

i32 ScanFileTail() {
  i32 const header = ReadTextHeader(nullptr);
  if (header < 0) return header;
  return CurrentContext->Model == kModel442 ? SearchStretch442() : WalkTailBackward();
}

}  // namespace qvslm
