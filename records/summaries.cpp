#include "fields/byte_reader.h"
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

void DecodePercentiles(QvSummary& record) {
  for (f32& level : record.PercentileLevels) DecodeLevel(level);
  for (f32& number : record.PercentileNumbers) {
    if (IsModel431Or442()) {
      DecodeSignedFixed16(number);
    } else {
      number = ReadByte();
    }
  }
}

void DecodeAuxiliary(QvSummary& record, int channel) {
  for (auto& value : record.Aux) {
    DecodeScaledByte(CurrentContext->AuxChannel[channel], value[channel]);
  }
}

}  // namespace

i32 DecodeRec2() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvSummary>(QV_SUMMARY);
  bool const auxiliary = context.SummaryAuxOn == 1;

  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  DecodeDuration5(record.Duration);
  DecodeLevel(record.LevelA);
  DecodeLevel(record.LevelB);
  DecodeLevel(record.LevelC);
  DecodeLevel(record.LevelD);
  DecodeLevel(record.LevelE);
  DecodeLevel(record.LevelF);
  record.Byte1 = ReadByte();
  record.Byte2 = ReadByte();
  record.Byte3 = ReadByte();
  record.Byte4 = ReadByte();
  if (context.SummaryLnOn == 1) {
    record.SummaryFlags |= kPercentilesPresent;
    DecodePercentiles(record);
  }
  if (auxiliary && context.ExtraBlockOn == 0 && context.FirmwareAbove09 == 0) {
    DecodeAuxiliary(record, 0);
  }
  if (context.ExtraBlockOn == 1) {
    record.SummaryFlags |= kSpansPresent;
    DecodeSpan(record.Span1);
    DecodeSpan(record.Span2);
    record.Byte5 = ReadByte();
  }
  if (auxiliary) {
    record.SummaryFlags |= kAuxPresent;
    if (context.FirmwareAbove09 == 1) {
      if (context.AuxEnabled1 != 0) record.SummaryFlags |= kSecondAuxEnabled;
      DecodeAuxiliary(record, 0);
    }
    DecodeAuxiliary(record, 1);
    DecodeAuxiliary(record, 2);
  }
  if (context.DistributionOn2 == 1) {
    record.SummaryFlags |= kDistributionPresent;
    record.DistributionPresent = 1;
    ReadRawBytes(record.Distribution, sizeof record.Distribution);
    WriteBaseLevel(record.Distribution);
  }

  KeepFilePosition();
  record.RecordTime = NormalizeTime(stamp, &LastTimes.LastTimeRec2);
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

}  // namespace qvslm
