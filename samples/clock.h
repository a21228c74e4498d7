// Readings of an instrument's clock: seconds since 1970-01-01 00:00 as that clock shows them. On a
// host whose zone is UTC a reading and the time of a record are the same number.
#pragma once

#include <cstdint>
#include <string>

#include "data_file_writer.h"

namespace samples {

using Clock = std::int32_t;

inline constexpr Clock kMinute = 60;
inline constexpr Clock kHour = 3600;
inline constexpr Clock kDay = 86400;

Clock At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// As the text lines of a file write it: "21Jun2024" and "12:30:00".
std::string DateText(Clock reading);
std::string TimeText(Clock reading);
// Hours, minutes and seconds of a length of time: "01:30:00".
std::string LengthText(int seconds);

// Packed date and time of day, six bytes; or the date alone, three.
void PutStamp(Body& body, Clock reading);
void PutDate(Body& body, Clock reading);

}  // namespace samples
