// Counts what a step of a translation should do without: memory, formatted texts, conversions of
// local time. Calls of the objects linked into the program are counted, through the link options of
// CMakeLists.txt here, and C++ allocations of the whole program.
#pragma once

namespace test {

struct Costs {
  int allocations = 0;
  int formats = 0;
  int conversions = 0;  // mktime and localtime

  Costs& operator+=(const Costs& more);
  Costs operator-(const Costs& before) const;
};

// All so far.
Costs CostsSoFar();

}  // namespace test
