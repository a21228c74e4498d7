#include "fields/body_fields.h"
#include "fields/output_record.h"
#include "fields/record_time.h"
#include "records/records.h"

namespace qvslm {

namespace {

enum BlockFlag : u16 { kBlock1 = 64, kBlock2 = 32, kBlock3 = 16 };

constexpr u32 kGeneralBlock1 = 4096;

}  // namespace

// Bytes that no block fills keep the host's. A short body reads as zeros and is not reported.
i32 DecodeRec8() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvBlockImage>();
  StampRecord(record, QV_BLOCK_IMAGE);
  record.RecordTime = context.LastStopTime;
  record.BlockFlags = 0;
  record.LevelBase = context.Model == kModel442 ? context.StreamLevelBase : context.LevelOffset;

  BodyFields fields;
  bool const general = !IsModel431Or442();
  if (general || (context.SetupFlags & kBlock1) != 0) {
    fields.Raw(record.Block1, general ? kGeneralBlock1 : sizeof record.Block1);
    record.BlockFlags |= kBlock1;
  }
  NoteRecordTime(record.RecordTime);
  if (general || (context.SetupFlags & kBlock2) != 0) {
    fields.Raw(record.Block2, sizeof record.Block2);
    record.BlockFlags |= kBlock2;
  }
  if (general || (context.SetupFlags & kBlock3) != 0) {
    fields.Raw(record.Block3, sizeof record.Block3);
    record.BlockFlags |= kBlock3;
  }
  return 0;
}

}  // namespace qvslm
