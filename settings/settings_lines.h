// The line frame that all blocks of settings and results share.
//
// A line is its block's letter, a register number from character 1, and a value from character 5
// on, whatever stands at character 4. A line that ends before character 5 has as value what an
// earlier line left there.
#pragma once

#include <cstring>
#include <string_view>

#include "fields/data_file.h"
#include "fields/line_search.h"
#include "fields/number_text.h"

namespace qvslm {

struct SettingsLine {
  i32 number;
  std::string_view value;
  std::string_view whole;
};

// Cuts a line at its line end and takes it apart.
SettingsLine TakeApart(char* line, std::size_t size);

// Reads lines into the buffer until one opens with the letter, then hands line after line to the
// taker as long as they do. FileOffset follows, and stands at the first line that is not of the
// block. Returns 0, or QV_SEEK_FAILED when an offset cannot tell the position.
template <std::size_t Size, class Taker>
i32 ReadSettingsLines(char letter, char (&line)[Size], Taker take) {
  auto read = static_cast<bool>(ReadLineThatOpens(letter, line, Size));
  while (read && line[0] == letter) {
    i32 const kept = KeepFilePosition();
    if (kept < 0) return kept;
    take(TakeApart(line, Size));
    read = static_cast<bool>(ReadLine(line, Size));
  }
  // Whether a block that ends with the file was whole cannot be known.
  if (!read) NoteBytesMissing(1);
  return 0;
}

}  // namespace qvslm
