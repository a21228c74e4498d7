// The parsers of settings and results blocks: numbered lines of text. Each takes the block that
// begins at the file's position, delivers its record and leaves FileOffset behind the block. All
// return 0, or QV_SEEK_FAILED when the block ends where no offset reaches.
#pragma once

#include "api/context.h"

namespace qvslm {

i32 ParseQBlock();
i32 ParseRBlock();
i32 ParseRBlock431();
i32 ParseRBlock442();

}  // namespace qvslm
