#include "fields/output_record.h"
#include "models/setup_short_positions.h"
#include "models/setups.h"

namespace qvslm {

// Switches the optional blocks of intervals and days off.
void DecodeSetupShort52() {
  TranslateContext& context = *CurrentContext;
  DecodePositions(kSetupShort, &OutputAs<QvSetupShort>());
  context.ModeFormFlag = 1;
  context.LevelInRecordOn = 0;
  context.TimeIsEnd = 0;
  context.SettingQ206 = 0;
  context.DistributionOn2 = 0;
  context.DistributionOn = 0;
}

void DecodeSetupShort34() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvSetupShort431>();
  DecodePositions(kSetupShort431, &record);
  context.SetupKeptA = context.SetupKeptB = record.SetupByte75;
  context.SettingQ50 = context.SettingQ47 = record.SetupByte76;
}

}  // namespace qvslm
