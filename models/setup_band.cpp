#include "fields/output_record.h"
#include "models/setup_band_positions.h"
#include "models/setup_effects.h"
#include "models/setups.h"

namespace qvslm {

// The flags for summaries are kept with their masks; forms 53 and 35 keep 1 and 0.
void DecodeSetupBand51() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvSetupBand>();
  DecodePositions(kSetupBand, &record);
  ClearKeptBytes();
  if (!IsFirmware(Firmware::Above201)) return;

  KeepStreamSettings(record);
  context.SummaryLnOn = record.FlagsA & 64;
  context.DistributionOn2 = record.FlagsA & 1;
  context.ExtraBlockOn = HasBit(record.FlagsD, 64);
  context.ModeFormFlag = 0;
  context.SecondSpectrumOn = record.SecondSpectrumOn;
  context.SpectraKind = record.SpectraKind;
  context.SetupKeptB = record.SetupByte99;
}

void DecodeSetupBand33() {
  DecodePositions(kSetupBand431, &OutputAs<QvSetupBand431>());
}

}  // namespace qvslm
