// Which firmware of which model has the tables of intervals and days.
#pragma once

#include "api/context.h"

namespace qvslm {

// A model below 486 at firmware above 1.099.
inline bool IsOlderModelAbove1099() {
  bool const above = static_cast<f64>(CurrentContext->FirmwareVersion) > 1.099;
  return above && CurrentContext->Model < kDefaultModel;
}

// Model 486 at firmware above 0.9, or such an older model.
inline bool HasTablesByFirmware() {
  if (CurrentContext->Model == kDefaultModel) return CurrentContext->FirmwareAbove09 == 1;
  return IsOlderModelAbove1099();
}

}  // namespace qvslm
