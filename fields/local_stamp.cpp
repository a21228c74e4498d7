#include "fields/local_stamp.h"

#include "fields/local_years.h"

namespace qvslm {

namespace {

i64 DaysBeforeMonth(i64 year, i64 month) {
  constexpr i64 kDays[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  return kDays[month] + (month > 1 && IsLeapYear(year) ? 1 : 0);
}

}  // namespace

YearAndDay YearOfDay(i64 day) {
  constexpr i64 kDaysOf400Years = 146097;
  i64 year = 70 + FloorOf(day * 400, kDaysOf400Years);
  while (DaysBeforeYear(year) > day) --year;
  while (DaysBeforeYear(year + 1) <= day) ++year;
  return {year, day - DaysBeforeYear(year)};
}

i64 LocalCount(const Calendar& calendar) {
  i64 const years = FloorOf(calendar.Month, 12);
  i64 const month = calendar.Month - years * 12;
  i64 const year = calendar.Year + years;
  i64 const day = DaysBeforeYear(year) + DaysBeforeMonth(year, month) + calendar.Day - 1;
  i64 const minutes = i64{calendar.Hour} * 60 + calendar.Minute;
  return day * kSecondsOfDay + minutes * 60 + calendar.Second;
}

Calendar StampOf(i64 local, i32 flag) {
  i64 const day = FloorOf(local, kSecondsOfDay);
  auto const clock = static_cast<i32>(local - day * kSecondsOfDay);
  auto const [year, yearDay] = YearOfDay(day);
  i64 month = 11;
  while (DaysBeforeMonth(year, month) > yearDay) --month;
  i64 const weekDay = day + 4 - FloorOf(day + 4, 7) * 7;  // the first day of 1970 was a Thursday
  return {clock % 60,
          clock / 60 % 60,
          clock / kSecondsOfHour,
          static_cast<i32>(yearDay - DaysBeforeMonth(year, month) + 1),
          static_cast<i32>(month),
          static_cast<i32>(year),
          static_cast<i32>(weekDay),
          static_cast<i32>(yearDay),
          flag};
}

}  // namespace qvslm
