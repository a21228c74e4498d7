#include "fields/calendar.h"

#include <cstdio>
#include <iterator>

#include "fields/local_time.h"
#include "fields/month_names.h"
#include "fields/number_text.h"

namespace {

constexpr std::size_t kDateSize = 16;
constexpr std::size_t kTimeSize = 9;
constexpr std::size_t kScratch = 64;  // for whatever numbers a calendar may hold
constexpr const char* kDayNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// The stamp in standard time. The hour behind a change may still read as daylight.
qvslm::Calendar StandardCalendar(qvslm::i32 seconds) {
  qvslm::Calendar const stamp = qvslm::LocalCalendar(seconds);
  return stamp.DaylightFlag > 0 ? qvslm::LocalCalendar(qvslm::i64{seconds} - 3600) : stamp;
}

void WriteDate(const qvslm::Calendar& stamp, std::int16_t format, char* date) {
  char text[kScratch];
  int const day = stamp.Day;
  int const month = stamp.Month + 1;
  int const year = stamp.Year + 1900;
  int const shortYear = stamp.Year >= 100 ? stamp.Year - 100 : stamp.Year;
  const char* const monthName = qvslm::kMonthNames[month];
  switch (format) {
    case 0:
      std::snprintf(text, kScratch, "%02d%3s%4d", day, monthName, year);
      break;
    case 1:
      std::snprintf(text, kScratch, "%02d%3s %02d", day, monthName, shortYear);
      break;
    case 2:
      std::snprintf(text, kScratch, "%02d/%02d/%02d", month, day, shortYear);
      break;
    case 3:
      std::snprintf(text, kScratch, "%02d/%02d/%02d", day, month, shortYear);
      break;
    case 4:
      std::snprintf(text, kScratch, "%02d-%02d-%4d", month, day, year);
      break;
    case 6:
      std::snprintf(text, kScratch, "%s, %02d/%02d/%4d", kDayNames[stamp.WeekDay], month, day,
                    year);
      break;
    default:
      std::snprintf(text, kScratch, "%4d-%02d-%02d", year, month, day);
      break;
  }
  qvslm::CopyText(date, kDateSize, text);
}

}  // namespace

void TX_SecsToDate(const std::int32_t* seconds, char* date, char* time, std::int16_t format) {
  if (seconds == nullptr) return;
  qvslm::Calendar const stamp = StandardCalendar(*seconds < 0 ? 0 : *seconds);
  if (time != nullptr) {
    char text[kScratch];
    std::snprintf(text, kScratch, "%02d:%02d:%02d", stamp.Hour, stamp.Minute, stamp.Second);
    qvslm::CopyText(time, kTimeSize, text);
  }
  if (date != nullptr) WriteDate(stamp, format, date);
}

namespace qvslm {

i32 DaysInMonth(i32 month, i32 year, u32* days) {
  constexpr u32 kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 0 || month >= static_cast<i32>(std::size(kDays))) {
    *days = 0;
    return 0;
  }
  *days = kDays[month];
  if (month == 2) {
    if (year < 70) year += 100;
    if (year < 1900) year += 1900;
    bool const leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    if (leap) ++*days;
  }
  return 0;
}

i32 SecsOfDay(i32 seconds) {
  char date[kDateSize];
  char time[kTimeSize];
  TX_SecsToDate(&seconds, date, time, 0);
  return NumberAt(time, 0) * 3600 + NumberAt(time, 3) * 60 + NumberAt(time, 6);
}

}  // namespace qvslm
