#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/records.h"

namespace qvslm {

namespace {

// Run events also stand in streams as markers, which take their times from here.
bool IsRunEvent(u16 code) {
  return code == 64 || code == 80;
}

// Events beyond the room are dropped.
void KeepEventTime(i32 (&times)[kEventTimesKept], u16& writeIndex, i32 seconds) {
  if (writeIndex < kEventTimesKept) times[writeIndex++] = seconds;
}

}  // namespace

i32 DecodeRec4() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvEvent>(QV_EVENT);

  BodyFields fields;
  fields.Skip(1);
  Calendar stamp = DecodePackedStamp(fields);
  DecodeEventByte(fields, record.EventCode, record.EventDetail);
  DecodeU16Short(fields, record.EventValue16);
  record.EventValue24 = DecodeU24(fields);

  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec4);
  if (context.FirstRunTime == 0 && context.RunEventWriteIndex == 0) {
    context.FirstRunTime = static_cast<u32>(record.RecordTime);
  }
  if (IsRunEvent(record.EventCode)) {
    KeepEventTime(context.RunEventTimes, context.RunEventWriteIndex, record.RecordTime);
  } else {
    KeepEventTime(context.OtherEventTimes, context.OtherEventWriteIndex, record.RecordTime);
  }
  NoteRecordTime(record.RecordTime);
  return fields.Status();
}

i32 DecodeRec5() {
  auto& record = BeginRecord<QvLevelMark>(QV_LEVEL_MARK);
  record.LevelOffset = CurrentContext->LevelOffset;

  BodyFields fields;
  fields.Skip(1);
  Calendar stamp = DecodePackedStamp(fields);
  DecodeLevel(fields, record.Level);
  DecodeStatusByte(fields, record.StatusBit5, record.StatusCode);

  KeepFilePosition();
  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec5);
  NoteRecordTime(record.RecordTime);
  return 0;  // also for a short body
}

}  // namespace qvslm
