#include "fields/output_record.h"
#include "fields/whole_number.h"
#include "models/setup_effects.h"
#include "models/setup_spectrum_positions.h"
#include "models/setups.h"

namespace qvslm {

namespace {

// Five decimals, of which a last one of 5 or more raises the one before; it stays itself.
f32 Adjusted(f32 value) {
  i64 number = TruncateToI32(value * 100000.0);
  if (number % 10 >= 5) number += 10;
  return static_cast<f32>(static_cast<f64>(number) / 100000.0);
}

// Older firmware has other numbers for two of the codes.
u8 CodeOfNewFirmware(u8 code) {
  if (CurrentContext->FirmwareVersion >= 3.112F) return code;
  if (code == 2) return 3;
  if (code == 3) return 5;
  return code;
}

}  // namespace

void DecodeSetupSpectrum70() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvSetupSpectrum>();
  record.SetupFlagsByte = static_cast<u8>(context.SetupFlags);
  context.BandFlag = record.SetupFlagsByte & 128;
  DecodePositions(kSetupSpectrum, &record);
  record.SetupValue74 = Adjusted(record.SetupValue74);
  record.SetupByte130 = CodeOfNewFirmware(record.SetupByte130);
}

void DecodeSetupNarrow63() {
  auto& record = OutputAs<QvSetupNarrow>();
  DecodePositions(kSetupNarrow, &record);
  u8 const flags = BodyByte(47);
  record.SetupByte47Or78 = IsFirmware(Firmware::Above3115) ? BodyByte(78) : flags & 128;
  record.SetupByte47Bit64 = flags & 64;
}

void DecodeSetupTally60() {
  auto& record = OutputAs<QvSetupTally>();
  DecodePositions(kSetupTally, &record);
  ClearKeptBytes();
  if (IsFirmware(Firmware::Above201)) KeepStreamSettings(record);
}

}  // namespace qvslm
