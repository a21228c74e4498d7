// A measurement file taken apart at its own seams, so that mutations can move whole pieces.
//
// Taking apart never fails: what does not fit the framing is one last piece. Putting the pieces
// together again gives the same bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

enum class PartKind {
  HeaderLine,  // a line of the text header, with its line end
  Line,        // a line of a 'Q' or 'R' block
  EndLines,    // an 'E' item: two lines
  Item,        // type byte, length of two bytes, body
  Stream,      // type byte, entries, closing 0
  List,        // type byte, block length of one byte, blocks, closing 0
  EndOfData,   // the 0 byte
  Rest         // whatever cannot be told
};

struct Part {
  PartKind kind;
  std::string bytes;
};

using Parts = std::vector<Part>;

inline constexpr std::size_t kItemHead = 3;  // type byte and length

Parts TakeApart(std::string_view file);
std::string PutTogether(const Parts& parts);

// Where the lines of the text header stand.
struct HeaderPlace {
  std::size_t first = 0;  // index of the first line behind the titles
  std::size_t lines = 0;  // 0: no text header
};
HeaderPlace FindHeader(const Parts& parts);

// The number of the model line; 486 without one.
int ModelOf(const Parts& parts);

// An item with its length as it should be.
Part MakeItem(int type, std::string_view body);

}  // namespace fuzz
