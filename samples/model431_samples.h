// Samples of model 431, one for each of its modes.
#pragma once

#include "sample.h"

namespace samples {

Sample Model431Octaves(const std::string& name);
Sample Model431Short(const std::string& name);
Sample Model431Logging(const std::string& name);
Sample Model431Environment(const std::string& name);

}  // namespace samples
