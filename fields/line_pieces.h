// What searches for a line have seen of stretches without a line feed.
//
// There a line is cut where its text is full, so lines lie as far apart as the text is long, and
// searches that begin at different places meet no sooner than at the next line feed. For each
// distance of such a line from the first one the memory keeps how far lines were passed. It belongs
// to the file in hand, like the memory of ways, and its loss changes no result.
#pragma once

#include <cstddef>

#include "api/context.h"

namespace qvslm {

// Where the last line begins that a search of the kind, which reads lines of up to this many
// characters, is known to pass from this place on; the place itself where none is known.
i32 LastPieceKnown(u32 kind, std::size_t length, i32 place);

// A search of the kind passes the line of this many characters at the place, which no line feed
// ends.
void PiecePassed(u32 kind, std::size_t length, i32 place);

void ForgetPieces();

}  // namespace qvslm
