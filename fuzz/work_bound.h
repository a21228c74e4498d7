// Holds each call of the library to a bound of work, and to closing what it opened.
//
// The C stream calls of a target are wrapped at link time (--wrap) and counted. A call is let
// through Bounded(), which compares what it did with what a file of that size justifies.
#pragma once

#include <cstddef>
#include <cstdint>

#include "oracles.h"

namespace fuzz {

struct Work {
  std::uint64_t streamCalls;   // fread and fseeko
  std::int64_t filesOpen;      // fopen less fclose
  std::int64_t processorTime;  // nanoseconds of this thread
};

Work WorkSoFar();

// How often a call may read and seek. Time grows with the file's size in each case.
enum class Reads {
  OverTheFile,  // block by block, and a few times over
  WithEachItem  // for searches that items set off, which go elsewhere and come back
};

void ExpectBound(const Work& before, const Work& after, std::size_t fileSize, Reads reads);

template <class Call>
auto Bounded(std::size_t fileSize, Reads reads, Call call) {
  Work const before = WorkSoFar();
  auto const result = call();
  ExpectBound(before, WorkSoFar(), fileSize, reads);
  return result;
}

// For calls that leave no file open.
template <class Call>
auto BoundedAndClosed(std::size_t fileSize, Reads reads, Call call) {
  std::int64_t const open = WorkSoFar().filesOpen;
  auto const result = Bounded(fileSize, reads, call);
  Expect(WorkSoFar().filesOpen == open, "a call left its file open");
  return result;
}

}  // namespace fuzz
