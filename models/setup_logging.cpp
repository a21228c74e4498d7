#include "fields/output_record.h"
#include "models/setup_effects.h"
#include "models/setup_logging_positions.h"
#include "models/setups.h"

namespace qvslm {

// At firmware 2.01 or below the record's fields of StreamMaskD and StreamMaskF are not written, and
// lie behind what the frame cleared: the masks take what the host's buffer holds, and no stream of
// that firmware uses them.
void DecodeSetupLogging53() {
  auto& record = OutputAs<QvSetupLogging>();
  record.SetupByte139 = 0;
  DecodePositions(kSetupLogging, &record);
  KeepStreamSettings(record);
  KeepLoggingSettings(record);
  CurrentContext->ModeFormFlag = 0;
}

void DecodeSetupLogging35() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvSetupLogging431>();
  DecodePositions(kSetupLogging431, &record);
  KeepLoggingSettings(record);
  KeepSixValues(record);
  context.WholeDbStream = HasBit(record.FlagsB, 4);
  context.SecondLevelKind = record.SecondLevelKind;
  KeepStreamPeriod(record.PeriodValue, record.PeriodUnit);
  context.ModeFormFlag = 1;
}

}  // namespace qvslm
