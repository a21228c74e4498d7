// The blocks of lists 21 and 27: equal in length, without a count, ended by a block that begins
// with 0.
#pragma once

#include "api/context.h"

namespace qvslm {

// Moves FileOffset behind the block in hand, and counts what the file does not have of it. False
// where no offset reaches.
bool PassBlock();

// Reads the next block to see whether the list goes on; at the end mark the list is over, and
// FileOffset behind it. The next step reads the block again, and is the one to count what the file
// does not have of it.
void LookAhead();

}  // namespace qvslm
