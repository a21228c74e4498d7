// The exports between texts and seconds.
//
// An input is a format, a number of seconds, two flags for null arguments, and two texts.

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>

#include "oracles.h"

namespace {

using fuzz::Expect;

constexpr std::size_t kDateSize = 16;
constexpr std::size_t kTimeSize = 9;
constexpr std::int16_t kFormatOfToday = 5;  // reads the year from the clock

struct Input {
  std::int16_t format = 0;
  std::int32_t seconds = 0;
  std::uint8_t flags = 0;
  std::string_view texts;

  bool NullDate() const { return (flags & 1) != 0; }
  bool NullTime() const { return (flags & 2) != 0; }
  // Most formats lie in the table, or beside it.
  std::int16_t Format() const {
    return (flags & 4) != 0 ? format : static_cast<std::int16_t>((format & 15) - 3);
  }
};

template <class Number>
void Take(std::string_view& bytes, Number& number) {
  std::size_t const size = std::min(bytes.size(), sizeof number);
  std::memcpy(&number, bytes.data(), size);
  bytes.remove_prefix(size);
}

Input TakeApart(std::string_view bytes) {
  Input input;
  Take(bytes, input.format);
  Take(bytes, input.seconds);
  Take(bytes, input.flags);
  input.texts = bytes;
  return input;
}

// A text whose NUL is the last readable byte.
class GuardedText {
 public:
  explicit GuardedText(std::string_view text) : buffer_(text.size() + 1) {
    std::memcpy(buffer_.Data(), text.data(), text.size());
  }
  const char* Get() const { return reinterpret_cast<const char*>(buffer_.Data()); }

 private:
  test::GuardedBuffer buffer_;
};

void TryDateToSecs(const Input& input) {
  std::size_t const half = std::min(input.texts.find('\0'), input.texts.size());
  GuardedText const date(input.texts.substr(0, half));
  GuardedText const time(half < input.texts.size() ? input.texts.substr(half + 1) : "");
  const char* const dateText = input.NullDate() ? nullptr : date.Get();
  const char* const timeText = input.NullTime() ? nullptr : time.Get();
  std::int16_t const format = input.Format();

  std::uint32_t const seconds = TX_DateToSecs(dateText, timeText, format);
  Expect(seconds <= 0x7FFFFFFF, "seconds fit 31 bits");
  if (format < 0 || format > 5) Expect(seconds == 0, "a format outside the table gives 0");
  if (format == kFormatOfToday) return;
  if (input.NullDate()) {
    Expect(TX_DateToSecs("", timeText, format) == seconds, "a null date is an empty text");
  }
  if (input.NullTime()) {
    Expect(TX_DateToSecs(dateText, "00:00:00", format) == seconds, "a null time is midnight");
  }
  TX_DateToSecs("31Oct2021", "02:30:00", 0);
  Expect(TX_DateToSecs(dateText, timeText, format) == seconds,
         "a conversion does not depend on those before it");
}

// '9' stands for a digit, 'a' for a letter.
bool HasForm(std::string_view text, std::string_view form) {
  auto const fits = [](char c, char wanted) {
    if (wanted == '9') return c >= '0' && c <= '9';
    if (wanted == 'a') return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return c == wanted;
  };
  return std::equal(text.begin(), text.end(), form.begin(), form.end(), fits);
}

std::string_view FormOf(std::int16_t format) {
  constexpr std::string_view kForms[] = {"99aaa9999",  "99aaa 99",   "99/99/99",       "99/99/99",
                                         "99-99-9999", "9999-99-99", "aaa, 99/99/9999"};
  return kForms[format < 0 || format > 6 ? 5 : format];
}

// The seconds that the texts stand for: in summer they show the hour before.
std::uint32_t Shown(std::int32_t seconds) {
  std::time_t const instant = std::max(seconds, 0);
  std::tm broken{};
  localtime_r(&instant, &broken);
  return static_cast<std::uint32_t>(instant - (broken.tm_isdst > 0 ? 3600 : 0));
}

void TrySecsToDate(const Input& input) {
  static fuzz::PatternBuffer dateBuffer(kDateSize);
  static fuzz::PatternBuffer timeBuffer(kTimeSize);
  auto* const date = reinterpret_cast<char*>(dateBuffer.Data());
  auto* const time = reinterpret_cast<char*>(timeBuffer.Data());
  dateBuffer.Refill();
  timeBuffer.Refill();
  std::int16_t const format = input.Format();
  TX_SecsToDate(&input.seconds, input.NullDate() ? nullptr : date,
                input.NullTime() ? nullptr : time, format);

  if (input.NullDate()) {
    Expect(dateBuffer.IsUntouchedFrom(0), "a date that is not asked for is not written");
  } else {
    std::string_view const form = FormOf(format);
    Expect(std::memchr(date, '\0', kDateSize) != nullptr && HasForm(date, form), "form of a date");
    Expect(dateBuffer.IsUntouchedFrom(form.size() + 1), "nothing is written behind a date");
  }
  if (input.NullTime()) {
    Expect(timeBuffer.IsUntouchedFrom(0), "a time that is not asked for is not written");
  } else {
    Expect(time[kTimeSize - 1] == '\0' && HasForm(time, "99:99:99"), "form of a time");
  }
  if (!input.NullDate() && !input.NullTime() && format >= 0 && format <= 4) {
    Expect(TX_DateToSecs(date, time, format) == Shown(input.seconds),
           "the texts of seconds stand for these seconds");
  }
  TX_SecsToDate(nullptr, date, time, format);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input const input = TakeApart({reinterpret_cast<const char*>(data), size});
  TryDateToSecs(input);
  TrySecsToDate(input);
  return 0;
}
