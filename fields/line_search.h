// Searches for a line. From each line on they remember where they came to (fields/way_memory.h, fields/line_pieces.h), so
// that to search again for each item of a file costs no more than to read the file.
#pragma once

#include <cstddef>
#include <string_view>

#include "fields/data_file.h"

namespace qvslm {

// Reads lines until one opens with the letter; that line, or none at the end of the file. The text
// is left as if each line had been read into it.
LineRead ReadLineThatOpens(char letter, char* text, std::size_t size);

// A line as far as its first line feed or carriage return.
std::string_view WithoutLineEnd(std::string_view line);

// Reads on behind a line that the text holds, lines of a block that open with the letter, until one
// holds the register or is not of the block; that line, or what came before the end of the file. Of
// the text only that line counts.
LineRead ReadPastRegisters(char letter, i32 number, LineRead line, char* text, std::size_t size);

}  // namespace qvslm
