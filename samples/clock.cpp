#include "clock.h"

#include <chrono>
#include <cstdio>

namespace samples {

namespace {

struct Fields {
  int year, month, day, hour, minute, second;
};

Fields Split(Clock reading) {
  using namespace std::chrono;
  sys_seconds const instant{seconds(reading)};
  sys_days const midnight = floor<days>(instant);
  year_month_day const date(midnight);
  int const rest = static_cast<int>((instant - midnight).count());
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          rest / kHour,
          rest % kHour / kMinute,
          rest % kMinute};
}

std::string Format(const char* form, int first, int second, int third) {
  char text[48];
  std::snprintf(text, sizeof text, form, first, second, third);
  return text;
}

}  // namespace

Clock At(int year, int month, int day, int hour, int minute, int second) {
  using namespace std::chrono;
  sys_days const midnight = std::chrono::year(year) / month / day;
  return static_cast<Clock>(sys_seconds(midnight).time_since_epoch().count()) + hour * kHour +
         minute * kMinute + second;
}

std::string DateText(Clock reading) {
  static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  Fields const at = Split(reading);
  char text[48];
  std::snprintf(text, sizeof text, "%02d%s%04d", at.day, kMonths[at.month - 1], at.year);
  return text;
}

std::string TimeText(Clock reading) {
  Fields const at = Split(reading);
  return Format("%02d:%02d:%02d", at.hour, at.minute, at.second);
}

std::string LengthText(int seconds) {
  return Format("%02d:%02d:%02d", seconds / kHour, seconds % kHour / kMinute, seconds % kMinute);
}

void PutDate(Body& body, Clock reading) {
  Fields const at = Split(reading);
  body.Date(at.day, at.month, at.year);
}

void PutStamp(Body& body, Clock reading) {
  Fields const at = Split(reading);
  PutDate(body, reading);
  body.Time(at.hour, at.minute, at.second);
}

}  // namespace samples
