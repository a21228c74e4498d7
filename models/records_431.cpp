// Item 2 of model 431 in modes 0 and 1.

#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "models/models.h"

namespace qvslm {

namespace {

constexpr u16 kAllThirds = 8;  // of the setup's flags
constexpr u16 kAllThirdsShown = 2;

// A stamp in plain local time.
i32 DecodeStamp(BodyFields& fields) {
  Calendar stamp = DecodePackedStamp(fields);
  return LocalSeconds(stamp);
}

}  // namespace

i32 DecodeRec2Model431Mode0() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvBands431>(QV_BANDS_431);
  BodyFields fields;
  record.RecordTime = DecodeStamp(fields);
  DecodeDuration5(fields, record.Duration);
  record.Byte11 = fields.Byte();
  if ((context.SetupFlags & kAllThirds) != 0) {
    record.BandFlags = kAllThirdsShown;
    DecodeRow<DecodeLevel>(fields, record.Bands);
  } else {
    for (int band = 1; band < 30; band += 3) DecodeLevel(fields, record.Bands[band]);
  }
  KeepFilePosition();
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

i32 DecodeRec2Model431Mode1() {
  auto& record = BeginRecord<QvSummary431>(QV_SUMMARY_431);
  BodyFields fields;
  record.RecordTime = DecodeStamp(fields);
  record.SecondTime = DecodeStamp(fields);
  DecodeDuration5(fields, record.Duration);
  DecodeSignedFixed16(fields, record.SummaryValue17);
  DecodeSignedFixed16(fields, record.SummaryValue19);
  DecodeSignedFixed16(fields, record.SummaryValue21);
  DecodeSignedFixed16(fields, record.SummaryValue23);
  DecodeSignedFixed16(fields, record.SummaryValue25);
  DecodeSignedFixed16(fields, record.SummaryValue27);
  DecodeSignedFixed16(fields, record.SummaryValue29);
  record.SummaryByte31 = fields.Byte();
  record.SummaryByte32 = fields.Byte();
  record.SummaryByte33 = fields.Byte();
  record.SummaryByte34 = fields.Byte();
  record.SummaryByte35 = fields.Byte();
  record.SummaryByte36 = fields.Byte();
  record.SummaryByte37 = fields.Byte();
  KeepFilePosition();
  NoteRecordTime(record.RecordTime);
  return fields.Status();
}

}  // namespace qvslm
