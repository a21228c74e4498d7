// qvslm info: what a file is and what it holds.
#pragma once

#include <string>

#include "outcome.h"
#include "output.h"

namespace host {

struct InfoOptions {
  bool json = false;
  bool quick = false;  // nothing that takes a pass over the whole file
};

Outcome Info(const std::string& fileName, Output& output);

}  // namespace host
