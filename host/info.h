// qvslm info: what a file is and what it holds.
#pragma once

#include <string>

#include "outcome.h"
#include "output.h"

namespace host {

Outcome Info(const std::string& fileName, Output& output);

}  // namespace host
