// A stamp of local time as internal tests write it: months count from 1, years from 0.
#pragma once

#include "fields/local_time.h"

namespace test {

inline qvslm::Calendar At(int year, int month, int day, int hour = 0, int minute = 0,
                          int second = 0, int flag = -1) {
  qvslm::Calendar calendar = qvslm::ClearedCalendar();
  calendar.Year = year - 1900;
  calendar.Month = month - 1;
  calendar.Day = day;
  calendar.Hour = hour;
  calendar.Minute = minute;
  calendar.Second = second;
  calendar.DaylightFlag = flag;
  return calendar;
}

}  // namespace test
