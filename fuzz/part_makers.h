// New parts for a file, well formed in their frame and at random within.
#pragma once

#include <string>

#include "file_parts.h"
#include "part_mutations.h"

namespace fuzz {

int SomeItemType(Chance& chance);
Part SomeItem(Chance& chance);
Part SomeSetup(int model, Chance& chance);
Part SomeStream(int model, Chance& chance);
Part SomeList(Chance& chance);
// A line of a block that opens with the letter, with a number and a value as they occur.
Part SomeLine(char letter, int model, Chance& chance);

int SomeModel(Chance& chance);
std::string SomeFirmwareLine(Chance& chance);
std::string SomeModeLine(int model, Chance& chance);
std::string SomeTimeLine(Chance& chance);

}  // namespace fuzz
