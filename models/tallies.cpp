// Item 2 of model 442 in mode 7: one of three forms, by the body's kind byte.

#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "models/models.h"

namespace qvslm {

namespace {

void DecodeTallyLevels(BodyFields& fields, QvTallyLevels& record) {
  DecodeRow<DecodeLevel>(fields, record.Levels13);
  DecodeRow<DecodeLevel>(fields, record.Levels31);
  DecodeRow<DecodeLevel>(fields, record.Levels49);
  DecodeLevel(fields, record.Level55);
  DecodeLevel(fields, record.Level57);
  DecodeRow<DecodeSignedFixed16>(fields, record.Values59);
  DecodeRow<DecodeLevel>(fields, record.Levels71);
}

void DecodeTallyBands(BodyFields& fields, QvTallyBands& record) {
  DecodeRow<DecodeLevel>(fields, record.Bands13);
  DecodeRow<DecodeLevel>(fields, record.Bands79);
}

void DecodeTallyTotals(BodyFields& fields, QvTallyTotals& record) {
  DecodeU16Short(fields, record.Word13);
  fields.Skip(1);
  DecodeU16Short(fields, record.Word16);
  fields.Skip(1);
  DecodeLevel(fields, record.Level19);
  DecodeLevel(fields, record.Level21);
}

}  // namespace

// A body without its kind byte yields no record, and the item stays where it is.
i32 DecodeRec2Model442Mode7() {
  TranslateContext& context = *CurrentContext;
  // The head is the same in all three forms.
  auto& head = BeginRecord<QvTallyLevels>(QV_NO_RECORD);
  BodyFields fields;
  Calendar stamp = DecodePackedStamp(fields);
  i32 const seconds = NormalizeTime(stamp, &LastTimes->LastTimeRec2Mode7);
  f32 duration = 0;
  DecodeDuration5(fields, duration);
  u8 const byte11 = fields.Byte();
  u8 const kind = fields.Byte();
  if (fields.Status() < 0) return fields.Status();

  head.RecordIndex = static_cast<u32>(++context.FetchIndex2);
  head.RecordTime = seconds;
  head.Duration = duration;
  head.Byte11 = byte11;
  switch (kind) {
    case 0:
      head.RecordType = QV_TALLY_LEVELS;
      DecodeTallyLevels(fields, head);
      break;
    case 1:
      head.RecordType = QV_TALLY_BANDS;
      DecodeTallyBands(fields, OutputAs<QvTallyBands>());
      break;
    default:
      head.RecordType = QV_TALLY_TOTALS;
      DecodeTallyTotals(fields, OutputAs<QvTallyTotals>());
      break;
  }
  KeepFilePosition();
  return 0;  // also for a body that ends behind its kind byte
}

}  // namespace qvslm
