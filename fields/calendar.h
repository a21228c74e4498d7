// Dates in text from seconds, and calendar arithmetic.
#pragma once

#include "api/context.h"

namespace qvslm {

// Days of the month at the index, counted from 0. The rule of leap years stands at index 2, as the
// instruments have it: index 1 is 28 in every year.
i32 DaysInMonth(i32 month, i32 year, u32* days);

// Seconds since midnight, in standard time.
i32 SecsOfDay(i32 seconds);

}  // namespace qvslm
