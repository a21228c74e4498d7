// The text lines at the head of a file: which instrument wrote it.
#pragma once

#include "api/context.h"

namespace qvslm {

// Reads the header from the file's start into the context, and into info unless that is null.
// FileOffset becomes the first byte of the data. QV_OK, QV_SEEK_FAILED (no header line of a data
// file) or QV_NO_TEXT_HEADER (the settings form; FileOffset stands behind the title lines), both
// raised.
i32 ReadTextHeader(QvFileHeaderInfo* info);

}  // namespace qvslm
