#include "models/setup_effects.h"

namespace qvslm {

void KeepStreamPeriod(u16 value, u16 unit) {
  f32& period = CurrentContext->StreamPeriod;
  switch (unit) {
    case 0:
      period = static_cast<f32>(value / 32.0);
      break;
    case 1:
      period = value;
      break;
    case 2:
      period = static_cast<f32>(value * 10.0);
      break;
    case 3:
      period = static_cast<f32>(value * 60.0);
      break;
    default:
      break;
  }
}

void ClearKeptBytes() {
  TranslateContext& context = *CurrentContext;
  context.SetupKeptA = 0;
  context.SettingQ50 = 0;
  context.SetupKeptB = 0;
  context.SettingQ47 = 0;
}

}  // namespace qvslm
