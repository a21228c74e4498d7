// What the records of a setup block show of its bytes, form by form; the fields that all forms
// share are filled already. The instruments of the samples have firmware above 2.01.
#pragma once

#include "block_bytes.h"

namespace samples {

QvSetupBand BandSetup(const Instrument& state, const BlockBytes& at, QvSetupBand record);
QvSetupLogging LoggingSetup(const Instrument& state, const BlockBytes& at, QvSetupLogging record);
QvSetupShort ShortSetup(const Instrument& state, const BlockBytes& at, QvSetupShort record);
QvSetupSpectrum SpectrumSetup(const Instrument& state, const BlockBytes& at,
                              QvSetupSpectrum record);
QvSetupNarrow NarrowSetup(const Instrument& state, const BlockBytes& at, QvSetupNarrow record);
QvSetupTally TallySetup(const Instrument& state, const BlockBytes& at, QvSetupTally record);

QvSetupBand431 BandSetup431(const Instrument& state, const BlockBytes& at, QvSetupBand431 record);
QvSetupLogging431 LoggingSetup431(const Instrument& state, const BlockBytes& at,
                                  QvSetupLogging431 record);
QvSetupShort431 ShortSetup431(const Instrument& state, const BlockBytes& at,
                              QvSetupShort431 record);

}  // namespace samples
