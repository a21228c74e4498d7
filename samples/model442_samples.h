// Samples of model 442, one for each of its modes that write records of their own.
#pragma once

#include "sample.h"

namespace samples {

Sample Model442Spectra(const std::string& name);
Sample Model442Short(const std::string& name);
Sample Model442Logging(const std::string& name);
Sample Model442Environment(const std::string& name);
Sample Model442Bands(const std::string& name);
Sample Model442Narrow(const std::string& name);
Sample Model442Tally(const std::string& name);

}  // namespace samples
