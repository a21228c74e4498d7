// Item 2 of model 442 in mode 7: one of three forms, by the body's kind byte.

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "models/models.h"

namespace qvslm {

namespace {

template <std::size_t Count>
void DecodeLevels(f32 (&levels)[Count]) {
  for (f32& level : levels) DecodeLevel(level);
}

void DecodeTallyLevels(QvTallyLevels& record) {
  DecodeLevels(record.Levels13);
  DecodeLevels(record.Levels31);
  DecodeLevels(record.Levels49);
  DecodeLevel(record.Level55);
  DecodeLevel(record.Level57);
  for (f32& value : record.Values59) DecodeSignedFixed16(value);
  DecodeLevels(record.Levels71);
}

void DecodeTallyBands(QvTallyBands& record) {
  DecodeLevels(record.Bands13);
  DecodeLevels(record.Bands79);
}

void DecodeTallyTotals(QvTallyTotals& record) {
  DecodeU16Short(record.Word13);
  SkipByte();
  DecodeU16Short(record.Word16);
  SkipByte();
  DecodeLevel(record.Level19);
  DecodeLevel(record.Level21);
}

}  // namespace

// A body without its kind byte yields no record, and the item stays where it is.
i32 DecodeRec2Model442Mode7() {
  TranslateContext& context = *CurrentContext;
  // The head is the same in all three forms.
  auto& head = BeginRecord<QvTallyLevels>(QV_NO_RECORD);
  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  i32 const seconds = NormalizeTime(stamp, &LastTimes.LastTimeRec2Mode7);
  f32 duration = 0;
  DecodeDuration5(duration);
  u8 const byte11 = ReadByte();
  i32 status = 0;
  u8 const kind = ReadByte(status);
  if (status < 0) return status;

  head.RecordIndex = static_cast<u32>(++context.FetchIndex2);
  head.RecordTime = seconds;
  head.Duration = duration;
  head.Byte11 = byte11;
  switch (kind) {
    case 0:
      head.RecordType = QV_TALLY_LEVELS;
      DecodeTallyLevels(head);
      break;
    case 1:
      head.RecordType = QV_TALLY_BANDS;
      DecodeTallyBands(OutputAs<QvTallyBands>());
      break;
    default:
      head.RecordType = QV_TALLY_TOTALS;
      DecodeTallyTotals(OutputAs<QvTallyTotals>());
      break;
  }
  KeepFilePosition();
  return 0;  // also for a body that ends behind its kind byte
}

}  // namespace qvslm
