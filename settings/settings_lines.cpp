#include "settings/settings_lines.h"

namespace qvslm {

namespace {

constexpr std::size_t kNumberColumn = 1;
constexpr std::size_t kValueColumn = 5;

void CutAt(char* line, char mark) {
  if (char* const end = std::strchr(line, mark)) *end = '\0';
}

std::string_view TextIn(const char* text, std::size_t room) {
  const void* const end = std::memchr(text, '\0', room);
  return {text,
          end == nullptr ? room : static_cast<std::size_t>(static_cast<const char*>(end) - text)};
}

}  // namespace

SettingsLine TakeApart(char* line, std::size_t size) {
  CutAt(line, '\n');
  CutAt(line, '\r');
  std::string_view const whole = line;
  return {NumberAt(whole, kNumberColumn), TextIn(line + kValueColumn, size - kValueColumn), whole};
}

}  // namespace qvslm
