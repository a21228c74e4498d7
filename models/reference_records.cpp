#include <string_view>

#include "fields/data_file.h"
#include "fields/line_search.h"
#include "fields/number_text.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "fields/whole_number.h"
#include "models/models.h"
#include "models/reference_positions.h"

namespace qvslm {

namespace {

Calendar DecodeStampAt(u32 position) {
  BodyFields fields(position);
  return DecodePackedStamp(fields);
}

i32 PlainSecondsAt(u32 position) {
  Calendar stamp = DecodeStampAt(position);
  return LocalSeconds(stamp);
}

i32 NormalizedSecondsAt(u32 position) {
  Calendar stamp = DecodeStampAt(position);
  return NormalizeTime(stamp, nullptr);
}

constexpr i32 kLevelOffsetRegister = 106;

// Takes a line's level offset, a signed number of eight bits and its decimals.
void TakeLevelOffset(std::string_view line) {
  constexpr std::size_t kValueColumn = 5;
  f64 offset = 0;
  if (line.size() > kValueColumn) ParseDouble(line.substr(kValueColumn), &offset);
  if (offset >= 128.0) offset -= 256.0;
  CurrentContext->LevelOffset = static_cast<f32>(offset);
}

// Register 106 of the next results block. A last line without a line end reaches the end of the
// file and counts no more.
void LookAheadForLevelOffset() {
  char text[321] = "";
  LineRead line = ReadLineThatOpens('R', text, sizeof text);
  if (line.complete && NumberAt(WithoutLineEnd(text), 1) != kLevelOffsetRegister) {
    line = ReadPastRegisters('R', kLevelOffsetRegister, line, text, sizeof text);
  }
  if (line.complete && text[0] == 'R') return TakeLevelOffset(WithoutLineEnd(text));
  // The file ended before the block, or within it: the levels of all that follows lack their
  // offset.
  if (!line.complete && (!line || text[0] == 'R')) NoteBytesMissing(1);
}

}  // namespace

// The record's own levels have the offset as it stood before the look ahead.
i32 DecodeRecC431() {
  auto& record = BeginRecord<QvReference431>(QV_REFERENCE_431);
  DecodePositions(kReference431, &record);
  record.ReferenceTime9 = PlainSecondsAt(9);
  record.ReferenceTime15 = PlainSecondsAt(15);

  i64 const behindRecord = FilePosition();
  LookAheadForLevelOffset();
  return SeekDataFile(behindRecord) == 0 ? QV_OK : FailWith(QV_SEEK_FAILED);
}

i32 DecodeRecC() {
  auto& record = BeginRecord<QvReference>(QV_REFERENCE);
  DecodePositions(kReference, &record);
  record.ReferenceTime9 = NormalizedSecondsAt(9);
  record.ReferenceTime15 = NormalizedSecondsAt(15);
  CurrentContext->ReferenceLevel = record.ReferenceValue37;
  return 0;  // also for a short body
}

}  // namespace qvslm
