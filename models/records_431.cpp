// Item 2 of model 431 in modes 0 and 1.

#include "fields/byte_reader.h"
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
i32 DecodeStamp() {
  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  return LocalSeconds(stamp);
}

}  // namespace

i32 DecodeRec2Model431Mode0() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvBands431>(QV_BANDS_431);
  record.RecordTime = DecodeStamp();
  DecodeDuration5(record.Duration);
  record.Byte11 = ReadByte();
  if ((context.SetupFlags & kAllThirds) != 0) {
    record.BandFlags = kAllThirdsShown;
    for (f32& band : record.Bands) DecodeLevel(band);
  } else {
    for (int band = 1; band < 30; band += 3) DecodeLevel(record.Bands[band]);
  }
  KeepFilePosition();
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

i32 DecodeRec2Model431Mode1() {
  auto& record = BeginRecord<QvSummary431>(QV_SUMMARY_431);
  record.RecordTime = DecodeStamp();
  record.SecondTime = DecodeStamp();
  DecodeDuration5(record.Duration);
  DecodeSignedFixed16(record.SummaryValue17);
  DecodeSignedFixed16(record.SummaryValue19);
  DecodeSignedFixed16(record.SummaryValue21);
  DecodeSignedFixed16(record.SummaryValue23);
  DecodeSignedFixed16(record.SummaryValue25);
  DecodeSignedFixed16(record.SummaryValue27);
  DecodeSignedFixed16(record.SummaryValue29);
  record.SummaryByte31 = ReadByte();
  record.SummaryByte32 = ReadByte();
  record.SummaryByte33 = ReadByte();
  record.SummaryByte34 = ReadByte();
  record.SummaryByte35 = ReadByte();
  record.SummaryByte36 = ReadByte();
  i32 status = 0;
  record.SummaryByte37 = ReadByte(status);
  KeepFilePosition();
  NoteRecordTime(record.RecordTime);
  return status;
}

}  // namespace qvslm
