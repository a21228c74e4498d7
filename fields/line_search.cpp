#include "fields/line_search.h"

#include <limits>

#include "fields/line_pieces.h"
#include "fields/number_text.h"
#include "fields/way_memory.h"

namespace qvslm {

namespace {

// Lines are cut at the size of the text, so searches into texts of one size go alike.
enum class Search : u32 { ForLetter = 1, ForRegister = 2 };

u32 KindOf(Search search, char letter, std::size_t size) {
  return (static_cast<u32>(search) << 24) + (u32{static_cast<u8>(letter)} << 16) +
         static_cast<u32>(size);
}

bool EndsWithFeed(LineRead line, const char* text) {
  return line.length > 0 && text[line.length - 1] == '\n';
}

// Goes to the end of a known way, or to the end of a known row of cut lines, to read on there. Ways
// of searches from different places meet behind line feeds, and only there are they remembered.
WayPoint GoAhead(Way& way, u32 kind, std::size_t size, bool behindFeed) {
  WayPoint point{static_cast<i32>(FilePosition())};
  i32 const from = point.at;
  if (!behindFeed) {
    point.at = LastPieceKnown(kind, size - 1, from);
  } else if (!way.Known(point)) {
    return point;
  }
  if (point.at != from) SeekDataFile(point.at);
  return point;
}

// Reads lines as long as they are to be passed, behind a line that the text holds. Behind the
// highest offset nothing is remembered.
template <class IsPassed>
LineRead ReadWhile(u32 kind, Leaves leaves, LineRead line, char* text, std::size_t size,
                   IsPassed isPassed) {
  Way way(kind, text);
  while (FilePosition() <= std::numeric_limits<i32>::max()) {
    WayPoint const point = GoAhead(way, kind, size, EndsWithFeed(line, text));
    line = ReadLine(text, size);
    bool const passed = line.complete && isPassed();
    if (!passed || FilePosition() > std::numeric_limits<i32>::max()) way.Ended(point);
    if (!passed) return line;
    way.Passed(point, leaves, static_cast<u32>(line.length) + 1);
    if (!EndsWithFeed(line, text)) PiecePassed(kind, size - 1, point.at);
  }
  do {
    line = ReadLine(text, size);
  } while (line.complete && isPassed());
  return line;
}

}  // namespace

std::string_view WithoutLineEnd(std::string_view line) {
  line = line.substr(0, line.find('\n'));
  return line.substr(0, line.find('\r'));
}

LineRead ReadLineThatOpens(char letter, char* text, std::size_t size) {
  LineRead line = ReadLine(text, size);
  if (line && text[0] != letter) {
    line = ReadWhile(KindOf(Search::ForLetter, letter, size), Leaves::Text, line, text, size,
                     [&] { return text[0] != letter; });
  }
  return text[0] == letter ? line : LineRead{};
}

LineRead ReadPastRegisters(char letter, i32 number, LineRead line, char* text, std::size_t size) {
  return ReadWhile(
      KindOf(Search::ForRegister, letter, size), Leaves::Nothing, line, text, size,
      [&] { return text[0] == letter && NumberAt(WithoutLineEnd(text), 1) != number; });
}

}  // namespace qvslm
