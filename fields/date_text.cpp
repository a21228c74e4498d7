#include "fields/date_text.h"

#include <iterator>

#include "fields/local_time.h"
#include "fields/month_names.h"
#include "fields/number_text.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool SameName(std::string_view text, std::string_view name) {
  if (text.size() < name.size()) return false;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (LowerCase(text[at]) != LowerCase(name[at])) return false;
  }
  return true;
}

// Years count from 1900, and those before 70 lie behind 2000.
i32 YearField(i32 year) {
  if (year > 1900) year -= 1900;
  return year < 70 ? LowBits<i32>(i64{year} + 100) : year;
}

i32 LessOne(i32 number) {
  return LowBits<i32>(i64{number} - 1);
}

// The day, and the month by its name, blanks allowed between. A date without a day is in February.
void TakeDayAndMonthName(std::string_view date, Calendar& calendar) {
  calendar.Day = WholeNumber(date);
  std::string_view name = Columns(date, 2);
  while (!name.empty() && name[0] == ' ') name.remove_prefix(1);
  calendar.Month = 0;
  for (i32 month = 1; month < static_cast<i32>(std::size(kMonthNames)); ++month) {
    if (!SameName(name, kMonthNames[month])) continue;
    calendar.Month = month - 1;
    break;
  }
  if (calendar.Day < 1) calendar.Month = 1;
}

bool TakeDate(std::string_view date, i16 format, Calendar& calendar) {
  switch (format) {
    case 0:
    case 1:
      TakeDayAndMonthName(date, calendar);
      calendar.Year = YearField(NumberAt(date, 5));
      return true;
    case 2:
    case 4:
      calendar.Month = LessOne(NumberAt(date, 0));
      calendar.Day = NumberAt(date, 3);
      calendar.Year = YearField(NumberAt(date, 6));
      return true;
    case 3:
      calendar.Day = NumberAt(date, 0);
      calendar.Month = LessOne(NumberAt(date, 3));
      calendar.Year = YearField(NumberAt(date, 6));
      return true;
    case 5: {
      Calendar const today = PresentCalendar();
      TakeDayAndMonthName(date, calendar);
      calendar.Year = today.Month < calendar.Month ? today.Year - 1 : today.Year;
      return true;
    }
    default:
      return false;
  }
}

}  // namespace

std::string_view Columns(std::string_view text, std::size_t column, std::size_t width) {
  return column < text.size() ? text.substr(column, width) : std::string_view();
}

u32 DateToSecs(std::string_view date, std::string_view time, i16 format) {
  Calendar calendar = ClearedCalendar();
  if (!TakeDate(date, format, calendar)) return 0;
  calendar.Hour = NumberAt(time, 0);
  calendar.Minute = NumberAt(time, 3);
  calendar.Second = NumberAt(time, 6);
  i32 const seconds = LocalSeconds(calendar);
  return seconds < 0 ? 0 : static_cast<u32>(seconds);
}

}  // namespace qvslm

std::uint32_t TX_DateToSecs(const char* date, const char* time, std::int16_t format) {
  // A host may have changed its zone since the last file.
  qvslm::ForgetLocalTime();
  return qvslm::DateToSecs(date == nullptr ? "" : date, time == nullptr ? "" : time, format);
}
