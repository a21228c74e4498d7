#include "fields/line_search.h"

#include <limits>

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

// Reads lines as long as they are to be passed. Behind the highest offset nothing is remembered.
template <class IsPassed>
LineRead ReadWhile(u32 kind, Leaves leaves, char* text, std::size_t size, IsPassed isPassed) {
  Way way(kind);
  LineRead line;
  while (FilePosition() <= std::numeric_limits<i32>::max()) {
    WayPoint point{static_cast<i32>(FilePosition())};
    bool const known = way.Known(point, [&](WayPoint step) {
      SeekDataFile(step.at);
      ReadLine(text, size);
    });
    if (known) SeekDataFile(point.at);
    line = ReadLine(text, size);
    bool const passed = line.complete && isPassed();
    if (!passed || FilePosition() > std::numeric_limits<i32>::max()) way.Ended(point);
    if (!passed) return line;
    way.Passed(point, leaves, static_cast<u32>(line.length) + 1);
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
    line = ReadWhile(KindOf(Search::ForLetter, letter, size), Leaves::Text, text, size,
                     [&] { return text[0] != letter; });
  }
  return text[0] == letter ? line : LineRead{};
}

LineRead ReadPastRegisters(char letter, i32 number, char* text, std::size_t size) {
  return ReadWhile(KindOf(Search::ForRegister, letter, size), Leaves::Nothing, text, size, [&] {
    return text[0] == letter && NumberAt(WithoutLineEnd(text), 1) != number;
  });
}

}  // namespace qvslm
