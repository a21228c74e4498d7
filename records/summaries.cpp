#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/distribution.h"
#include "records/records.h"

namespace qvslm {

namespace {

enum SummaryFlag : u16 {
  kAuxPresent = 0x0004,
  kSpansPresent = 0x0008,
  kSecondAuxEnabled = 0x0010,
  kDistributionPresent = 0x0100,
  kPercentilesPresent = 0x0200,
};

void DecodePercentiles(BodyFields& fields, QvSummary& record) {
  DecodeRow<DecodeLevel>(fields, record.PercentileLevels);
  for (f32& number : record.PercentileNumbers) {
    if (IsModel431Or442()) {
      DecodeSignedFixed16(fields, number);
    } else {
      number = fields.Byte();
    }
  }
}

void DecodeAuxiliary(BodyFields& fields, QvSummary& record, int channel) {
  for (auto& value : record.Aux) {
    DecodeScaledByte(fields, CurrentContext->AuxChannel[channel], value[channel]);
  }
}

}  // namespace

i32 DecodeRec2() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvSummary>(QV_SUMMARY);
  bool const auxiliary = context.SummaryAuxOn == 1;

  BodyFields fields;
  Calendar stamp = DecodePackedStamp(fields);
  DecodeDuration5(fields, record.Duration);
  DecodeLevel(fields, record.LevelA);
  DecodeLevel(fields, record.LevelB);
  DecodeLevel(fields, record.LevelC);
  DecodeLevel(fields, record.LevelD);
  DecodeLevel(fields, record.LevelE);
  DecodeLevel(fields, record.LevelF);
  record.Byte1 = fields.Byte();
  record.Byte2 = fields.Byte();
  record.Byte3 = fields.Byte();
  record.Byte4 = fields.Byte();
  if (context.SummaryLnOn == 1) {
    record.SummaryFlags |= kPercentilesPresent;
    DecodePercentiles(fields, record);
  }
  if (auxiliary && context.ExtraBlockOn == 0 && context.FirmwareAbove09 == 0) {
    DecodeAuxiliary(fields, record, 0);
  }
  if (context.ExtraBlockOn == 1) {
    record.SummaryFlags |= kSpansPresent;
    DecodeSpan(fields, record.Span1);
    DecodeSpan(fields, record.Span2);
    record.Byte5 = fields.Byte();
  }
  if (auxiliary) {
    record.SummaryFlags |= kAuxPresent;
    if (context.FirmwareAbove09 == 1) {
      if (context.AuxEnabled1 != 0) record.SummaryFlags |= kSecondAuxEnabled;
      DecodeAuxiliary(fields, record, 0);
    }
    DecodeAuxiliary(fields, record, 1);
    DecodeAuxiliary(fields, record, 2);
  }
  if (context.DistributionOn2 == 1) {
    record.SummaryFlags |= kDistributionPresent;
    record.DistributionPresent = 1;
    fields.Raw(record.Distribution, sizeof record.Distribution);
    WriteBaseLevel(record.Distribution);
  }

  KeepFilePosition();
  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec2);
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

}  // namespace qvslm
