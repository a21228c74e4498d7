#include "clock_text.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform.h"
#include "stamp_text.h"

namespace host {
namespace {

constexpr std::int32_t kQuarterSeconds = 900;
constexpr std::size_t kOffsetSize = 6;  // +02:00

char* PutDigits(char* at, unsigned value, int digits) {
  for (int i = digits - 1; i >= 0; --i) {
    at[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  return at + digits;
}

// Date and time without the offset, 19 characters.
char* PutDateAndTime(char* at, std::int64_t localSeconds) {
  using namespace std::chrono;
  sys_seconds const time{seconds(localSeconds)};
  sys_days const day = floor<days>(time);
  year_month_day const date(day);
  hh_mm_ss const clock(time - day);
  at = PutDigits(at, static_cast<unsigned>(static_cast<int>(date.year())), 4);
  *at++ = '-';
  at = PutDigits(at, static_cast<unsigned>(date.month()), 2);
  *at++ = '-';
  at = PutDigits(at, static_cast<unsigned>(date.day()), 2);
  *at++ = 'T';
  at = PutDigits(at, static_cast<unsigned>(clock.hours().count()), 2);
  *at++ = ':';
  at = PutDigits(at, static_cast<unsigned>(clock.minutes().count()), 2);
  *at++ = ':';
  return PutDigits(at, static_cast<unsigned>(clock.seconds().count()), 2);
}

}  // namespace

const ClockText::Quarter* ClockText::QuarterOf(std::int32_t seconds) {
  std::int32_t const number = seconds / kQuarterSeconds;
  if (number == quarter_.number) return &quarter_;
  std::int32_t const first = std::max(number * kQuarterSeconds, 1);
  constexpr std::int64_t latest = std::numeric_limits<std::int32_t>::max();
  auto const last =
      static_cast<std::int32_t>(std::min(first + std::int64_t{kQuarterSeconds} - 1, latest));
  std::int32_t const offset = UtcOffset(first);
  if (UtcOffset(last) != offset) return nullptr;
  quarter_.number = number;
  quarter_.offset = offset;
  std::string const text = LocalTimeText(first);
  text.copy(quarter_.offsetText, kOffsetSize, text.size() - kOffsetSize);
  return &quarter_;
}

std::optional<std::int32_t> ClockText::Offset(std::int32_t seconds) {
  if (seconds <= 0) return std::nullopt;
  if (const Quarter* const quarter = QuarterOf(seconds)) return quarter->offset;
  return UtcOffset(seconds);
}

char* ClockText::Put(char* at, std::int32_t seconds) {
  if (seconds <= 0) return at;
  if (const Quarter* const quarter = QuarterOf(seconds)) {
    at = PutDateAndTime(at, std::int64_t{seconds} + quarter->offset);
    std::memcpy(at, quarter->offsetText, kOffsetSize);
    return at + kOffsetSize;
  }
  std::string const text = LocalTimeText(seconds);
  return std::copy(text.begin(), text.end(), at);
}

char* ClockText::PutWithMilliseconds(char* at, double seconds) {
  double const whole = std::floor(seconds);
  if (!(whole > 0 && whole <= std::numeric_limits<std::int32_t>::max())) return at;
  auto const milliseconds = static_cast<unsigned>(std::floor((seconds - whole) * 1000));
  char* const begin = at;
  at = Put(at, static_cast<std::int32_t>(whole));
  if (at == begin) return at;
  constexpr std::size_t part = 4;  // .123
  std::memmove(at - kOffsetSize + part, at - kOffsetSize, kOffsetSize);
  at[-static_cast<std::ptrdiff_t>(kOffsetSize)] = '.';
  PutDigits(at - kOffsetSize + 1, milliseconds, 3);
  return at + part;
}

}  // namespace host
