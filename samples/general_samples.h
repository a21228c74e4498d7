// Samples of model 486 and its relatives.
#pragma once

#include "sample.h"

namespace samples {

Sample GeneralSpine(const std::string& name);
Sample GeneralShortTerm(const std::string& name);
Sample GeneralDay(const std::string& name);
Sample GeneralTimeHistory(const std::string& name);
Sample GeneralSettingsForm(const std::string& name);
Sample GeneralTitleForm(const std::string& name);
Sample GeneralEndStamps(const std::string& name);
Sample GeneralFirmware09(const std::string& name);
Sample GeneralOlderModel(const std::string& name);
Sample GeneralBlocks(const std::string& name);

}  // namespace samples
