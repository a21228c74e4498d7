// Quick lookups of serial number and sites, for hosts that list files without translating them.

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "fields/data_file.h"
#include "fields/date_text.h"
#include "fields/number_text.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr std::size_t kSerialSize = 81;

std::string_view Line() {
  return CurrentContext->LineBuffer;
}

// Lines that begin behind the highest offset of a file are not read: a device may have no end.
bool NextLine() {
  if (FilePosition() > std::numeric_limits<i32>::max()) return false;
  return static_cast<bool>(ReadLine(CurrentContext->LineBuffer, sizeof CurrentContext->LineBuffer));
}

bool IsRegister(i32 number) {
  return Line().starts_with('Q') && NumberAt(Line(), 1) == number;
}

std::string_view WithoutLineEnd(std::string_view text) {
  text.remove_suffix(std::min<std::size_t>(text.size(), 2));
  return text;
}

struct Instrument {
  u16 model = static_cast<u16>(kDefaultModel);
  f32 firmware = -1.0F;
  char serial[kSerialSize + 1] = "";
};

// Takes the lines behind the one that opens with 'L'. False when the last of them is missing.
bool TakeHeader(Instrument& found) {
  if (NextLine()) {
    found.model = LowBits<u16>(WholeNumber(Line()));
    CopyText(found.serial, kSerialSize, WithoutLineEnd(Columns(Line(), 3)));
  }
  bool const read = NextLine();
  if (read) found.firmware = static_cast<f32>(FloatNumber(Line()));
  return read;
}

// Looks for register 233 from the 'Q' line in hand on. False when the file ends before.
bool TakeSerialRegister(Instrument& found) {
  while (NumberAt(Line(), 1) != 233) {
    if (!NextLine()) return false;
  }
  found.serial[0] = 'A';
  CopyText(found.serial + 1, kSerialSize, Columns(Line(), 5));
  found.serial[WithoutLineEnd(found.serial).size()] = '\0';
  return true;
}

bool FindInstrument(Instrument& found) {
  while (NextLine()) {
    if (Line().starts_with('L')) return TakeHeader(found);
    if (Line().starts_with('Q')) return TakeSerialRegister(found);
  }
  return false;
}

}  // namespace

}  // namespace qvslm

std::int32_t QV_ReadFileSN(const char* path, void* context, std::uint16_t* model, char* serial,
                           float* firmware) {
  using namespace qvslm;
  if (context == nullptr) return QV_NO_ARGUMENT;
  CurrentContext = static_cast<TranslateContext*>(context);
  if (!OpenDataFile(path)) return FailWith(QV_CANNOT_OPEN);

  Instrument found;
  bool const read = FindInstrument(found);
  CloseDataFile();
  if (model != nullptr) *model = found.model;
  if (serial != nullptr) CopyText(serial, kSerialSize, found.serial);
  if (firmware != nullptr) *firmware = found.firmware;
  if (!read) return FailWith(QV_NOT_FOUND);
  return found.serial[0] == '\0' ? FailWith(QV_NO_TEXT_HEADER) : QV_OK;
}

std::int32_t QV_ReadSiteNum(const char* path, void* context, std::int16_t* count) {
  using namespace qvslm;
  if (context == nullptr) return QV_NO_ARGUMENT;
  CurrentContext = static_cast<TranslateContext*>(context);
  i16 sites = -1;
  if (!OpenDataFile(path)) {
    if (count != nullptr) *count = 0;
    return FailWith(QV_CANNOT_OPEN);
  }
  while (sites < 0 && NextLine()) {
    if (IsRegister(157)) sites = LowBits<i16>(NumberAt(Line(), 5));
  }
  CloseDataFile();
  if (count != nullptr) *count = std::max<i16>(sites, 0);
  return sites < 1 ? FailWith(QV_NO_TEXT_HEADER) : QV_OK;
}
