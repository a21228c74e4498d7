// The look at a file's tail before the walk: facts that early records need and only the results
// block at the end of the file holds.
#pragma once

#include "api/context.h"

namespace qvslm {

// Reads the text header, then looks up the last stop time (register R6), and on model 442 the level
// offset (register R106). FileOffset is left as a scratch value. QV_OK or a negative status.
i32 ScanFileTail();

}  // namespace qvslm
