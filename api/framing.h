// The framing of the data part, which the pump and the census walk alike.
#pragma once

#include "api/context.h"

namespace qvslm {

// Type bytes of the data part. 1 to 8, 21, 27 and 129 to 132 go by their numbers.
inline constexpr u32 kEndOfData = 0;
inline constexpr u32 kReferenceItem = 'C';
inline constexpr u32 kEndLinesItem = 'E';
inline constexpr u32 kSetupItem = 'M';
inline constexpr u32 kSettingsItem = 'Q';
inline constexpr u32 kResultsItem = 'R';
inline constexpr u32 kSiteItem = 'S';

// Reads length and body of a framed item into RecordBuffer. QV_BAD_LENGTH above 6200 bytes and at
// the end of the file; QV_SEEK_FAILED, raised, for an item that ends above 2,147,483,647.
i32 ReadFramedBody();

// Goes back onto the type byte that was just read. QV_OK, or QV_SEEK_FAILED, raised.
i32 StepBackOneByte();

// Passes the two lines of an 'E' item and keeps the position behind them.
i32 PassEndLines();

}  // namespace qvslm
