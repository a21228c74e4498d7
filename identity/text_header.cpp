#include "identity/text_header.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "fields/data_file.h"
#include "fields/date_text.h"
#include "fields/local_time.h"
#include "fields/number_text.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr std::size_t kHeaderLine = 255;
constexpr std::size_t kTitleSize = sizeof QvEnd::Title1;

// Index in the table is the mode.
constexpr std::string_view kModes431[] = {"OBA ", "sSLM", "iSLM", "ENV "};
constexpr std::string_view kModes442[] = {"SSA", "ISM", "LOG", "ENV", "RTA",
                                          "FFT", "AUD", "TAL", "VIB"};

bool OpensHeader(char c) {
  return c == 'L' || c == ' ' || c == '*';
}

// A line of the header. Where a line is missing the text of the one before stays.
struct HeaderLine {
  char text[kHeaderLine] = "";

  bool Read() {
    LineRead const line = ReadLine(text, sizeof text);
    if (!line.complete) NoteBytesMissing(1);
    return static_cast<bool>(line);
  }

  // The line that opens the header, or the data where there is none: those are no lines to miss.
  bool ReadOpening() {
    LineRead const line = ReadLine(text, sizeof text);
    if (!line.complete && (!line || OpensHeader(text[0]))) NoteBytesMissing(1);
    return static_cast<bool>(line);
  }

  std::string_view View() const { return text; }

  void CutAtCarriageReturn() {
    if (char* const end = std::strchr(text, '\r')) *end = '\0';
  }

  // Reads the next line, and keeps it for the host if asked to.
  bool ReadInto(char* field, std::size_t size) {
    bool const read = Read();
    if (read && field != nullptr) KeepIn(field, size);
    return read;
  }

  void KeepIn(char* field, std::size_t size) {
    CutAtCarriageReturn();
    CopyText(field, size, text);
  }
};

// The titles in the order of the '@' lines; a title that is set already stays.
i32 ReadTitleLines(QvFileHeaderInfo* info) {
  QvEnd& end = CurrentContext->EndRecord;
  char* const titles[] = {end.Title1, end.Title2, end.Title3};
  HeaderLine line;
  bool read = false;
  for (std::size_t at = 0; at < std::size(titles); ++at) {
    read = line.Read();
    if (!read) continue;
    line.CutAtCarriageReturn();
    if (char* const mark = std::strchr(line.text, '@')) *mark = ' ';
    if (titles[at][0] == '\0') CopyText(titles[at], kTitleSize, line.text);
    if (info == nullptr) continue;
    char* const fields[] = {info->TitleLine1, info->TitleLine2, info->TitleLine3};
    CopyText(fields[at], kTitleSize, line.text);
  }
  return read ? KeepFilePosition() : FailWith(QV_SEEK_FAILED);
}

void TakeModel(const HeaderLine& line) {
  TranslateContext& context = *CurrentContext;
  context.Model = LowBits<i16>(WholeNumber(line.View()));
  // Without its last two characters, which are the line end where the line is not cut.
  std::string_view serial = Columns(line.View(), 3);
  serial.remove_suffix(std::min<std::size_t>(serial.size(), 2));
  std::memset(context.EndRecord.SerialText, 0, sizeof context.EndRecord.SerialText);
  serial.copy(context.EndRecord.SerialText, sizeof context.EndRecord.SerialText);
}

void TakeFirmware(const HeaderLine& line) {
  TranslateContext& context = *CurrentContext;
  context.FirmwareVersion = static_cast<f32>(FloatNumber(line.View()));
  context.FirmwareAbove09 = static_cast<f64>(context.FirmwareVersion) > 0.9 ? 1 : 0;
}

void TakeTime(const HeaderLine& line) {
  TranslateContext& context = *CurrentContext;
  u32 const seconds = DateToSecs(Columns(line.View(), 10, 9), Columns(line.View(), 20, 8), 0);
  context.HeaderTime = static_cast<i32>(seconds);
  context.StreamTime = seconds;
  context.FirstRunTime = seconds;
  if (context.LastStopTime < 1) context.LastStopTime = context.HeaderTime - 1;
}

template <std::size_t N>
void TakeMode(const HeaderLine& line, const std::string_view (&tags)[N]) {
  for (std::size_t mode = 0; mode < N; ++mode) {
    if (!line.View().starts_with(tags[mode])) continue;
    CurrentContext->Mode = static_cast<i32>(mode);
    return;
  }
}

}  // namespace

i32 ReadTextHeader(QvFileHeaderInfo* info) {
  TranslateContext& context = *CurrentContext;
  context.FirmwareVersion = 0;
  context.Model = kDefaultModel;
  context.FirmwareAbove09 = 0;
  if (info != nullptr) std::memset(info, 0, sizeof *info);

  HeaderLine line;
  bool read = line.ReadOpening();
  if (!read) return FailWith(QV_SEEK_FAILED);
  if (line.text[0] != '@' && line.text[0] != 'Q' && !OpensHeader(line.text[0])) {
    return FailWith(QV_SEEK_FAILED);
  }
  if (line.text[0] == '@') {
    context.ErrorCode = SeekDataFile(0);
    ReadTitleLines(info);
    read = line.ReadOpening();
    if (!read) return FailWith(QV_NO_TEXT_HEADER);
  }
  if (!OpensHeader(line.text[0])) return FailWith(QV_NO_TEXT_HEADER);

  constexpr std::size_t kSize = sizeof QvFileHeaderInfo::HeaderLine1;
  bool const asked = info != nullptr;
  if (asked) line.KeepIn(info->HeaderLine1, kSize);
  line.ReadInto(asked ? info->HeaderLine2 : nullptr, kSize);
  TakeModel(line);
  line.ReadInto(asked ? info->HeaderLine3 : nullptr, kSize);
  TakeFirmware(line);
  line.ReadInto(asked ? info->HeaderLine4 : nullptr, kSize);
  line.ReadInto(asked ? info->HeaderLine5 : nullptr, kSize);
  TakeTime(line);
  if (IsModel431Or442()) {
    line.ReadInto(asked ? info->HeaderLine6 : nullptr, kSize);
    if (context.Model == kModel431) {
      TakeMode(line, kModes431);
    } else {
      TakeMode(line, kModes442);
    }
    line.Read();
  }
  line.Read();
  return KeepFilePosition();
}

}  // namespace qvslm

std::int32_t QV_ReadFileHeader(const char* path, void* context, QvFileHeaderInfo* info) {
  using namespace qvslm;
  if (context == nullptr) return QV_NO_ARGUMENT;
  CurrentContext = static_cast<TranslateContext*>(context);
  ForgetLocalTime();
  if (!OpenDataFile(path)) return FailWith(QV_CANNOT_OPEN);
  i32 const status = ReadTextHeader(info);
  CloseDataFile();
  return status;
}
