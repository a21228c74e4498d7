#include "fields/line_pieces.h"

#include <new>
#include <vector>

namespace qvslm {

namespace {

// Lines that are known to be passed: the first and the end of the last one.
struct Passed {
  i32 first = 0;
  i32 end = 0;
};

struct Pieces {
  u32 kind;
  std::vector<Passed> byDistance;
};
struct PieceMemory {
  std::vector<Pieces> all;
};
ModuleState<PieceMemory> memory;

Passed* FindPassed(u32 kind, std::size_t length, i32 place) {
  for (Pieces& pieces : memory->all) {
    if (pieces.kind == kind) return &pieces.byDistance[static_cast<std::size_t>(place) % length];
  }
  return nullptr;
}

}  // namespace

i32 LastPieceKnown(u32 kind, std::size_t length, i32 place) {
  const Passed* const passed = FindPassed(kind, length, place);
  bool const known = passed != nullptr && place >= passed->first && place < passed->end;
  return known ? passed->end - static_cast<i32>(length) : place;
}

void PiecePassed(u32 kind, std::size_t length, i32 place) {
  Passed* passed = FindPassed(kind, length, place);
  if (passed == nullptr) {
    try {
      memory->all.push_back({kind, std::vector<Passed>(length)});
    } catch (const std::bad_alloc&) {
      return;
    }
    passed = FindPassed(kind, length, place);
  }
  i32 const end = place + static_cast<i32>(length);
  if (passed->end != place && passed->end != end) passed->first = place;
  passed->end = end;
}

void ForgetPieces() {
  memory->all.clear();
}

}  // namespace qvslm
