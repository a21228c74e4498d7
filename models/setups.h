// The forms of the setup record. Each fills the record behind the frame and leaves its settings in
// the context; the frame gives the status.
#pragma once

#include "api/context.h"

namespace qvslm {

void DecodeSetupBand51();
void DecodeSetupBand33();
void DecodeSetupShort52();
void DecodeSetupShort34();
void DecodeSetupLogging53();
void DecodeSetupLogging35();
void DecodeSetupSpectrum70();
void DecodeSetupNarrow63();
void DecodeSetupTally60();

}  // namespace qvslm
