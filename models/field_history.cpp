#include "fields/byte_reader.h"
#include "fields/output_record.h"
#include "fields/stream_levels.h"
#include "fields/whole_number.h"
#include "models/list_blocks.h"
#include "models/models.h"
#include "models/position_table.h"
#include "models/stream_fields.h"

namespace qvslm {

namespace {

constexpr u16 kGroupSelector = 4;

// Walks the bits of a mask from 7 down to 0 and reads a value for each that is set. The reader is
// given the bit and where the value goes; a value that the block does not hold is not stored.
template <class Reader>
void DecodeGroup(u16 mask, f32 (&group)[8], Reader read) {
  for (int bit = 7; bit >= 0; --bit) {
    if ((mask >> bit & 1) == 0) continue;
    f32 value = 0;
    if (read(bit, value) >= 0) group[bit] = value;
  }
}

i32 ReadField(int, f32& value) {
  return DecodeStreamField(value);
}

i32 ReadPlainByte(f32& value) {
  i32 status = 0;
  value = ReadByte(status);
  return status;
}

void DecodeGroup2(QvFieldHistory& record) {
  bool const fraction = (record.StreamMaskD & 1) != 0;
  DecodeGroup(record.StreamMaskD, record.Group2, [&](int bit, f32& value) {
    if (bit == 1) return DecodeStreamCount(value, fraction);
    return bit == 0 ? ReadPlainByte(value) : DecodeStreamField(value);
  });
}

void DecodeGroup4(QvFieldHistory& record) {
  DecodeGroup(record.StreamMaskE, record.Group4, [](int bit, f32& value) {
    switch (bit) {
      case 2:
        return DecodeStreamRatio(value);
      case 1:
        return DecodeStreamSixteenth(value);
      case 0:
        return DecodeStreamReferenced(value);
      default:
        return DecodeStreamField(value);
    }
  });
}

// The tables are stored whether or not the block holds them.
void DecodeGroup6(QvFieldHistory& record) {
  constexpr u16 kFields = 0xFC;
  constexpr u16 kTable1 = 2;
  constexpr u16 kTable2 = 1;
  DecodeGroup(record.StreamMaskF & kFields, record.Group6, ReadField);
  if ((record.StreamMaskF & kTable1) != 0) {
    for (f32& band : record.Table1) DecodeStreamField(band);
  }
  if ((record.StreamMaskF & kTable2) != 0) {
    for (f32& band : record.Table2) DecodeStreamField(band);
  }
}

void DecodeSample(u8 first, QvFieldHistory& record) {
  TranslateContext& context = *CurrentContext;
  context.StreamTime += context.StreamPeriod;
  f32 value = 0;
  if (DecodeStreamLevel(first, value) >= 0) record.Level = value;
  if (context.StreamSelector == kGroupSelector) {
    DecodeGroup(record.StreamMaskA, record.Group1, ReadField);
    DecodeGroup2(record);
    DecodeGroup(record.StreamMaskB, record.Group3, ReadField);
    DecodeGroup4(record);
    DecodeGroup(record.StreamMaskC, record.Group5, ReadField);
    DecodeGroup6(record);
  } else if (context.StreamSelector > 0) {
    if (DecodeStreamField(value) >= 0) record.SecondValue = value;
  }
}

// A marker answers to an event record, and takes its time from it. Run markers set the stream's
// time too.
void DecodeMarker(u8 first, QvFieldHistory& record) {
  TranslateContext& context = *CurrentContext;
  record.Level = -1.0F;
  record.MarkerDetail = first & 15;
  record.MarkerKind = static_cast<u16>((first & 112) >> 4);
  if (record.MarkerKind == 4 || record.MarkerKind == 5) {
    if (context.RunEventReadIndex >= kEventTimesKept) return;
    record.RecordTime = context.RunEventTimes[context.RunEventReadIndex++];
    context.StreamTime = record.RecordTime;
  } else {
    if (context.OtherEventReadIndex >= kEventTimesKept) return;
    record.RecordTime = context.OtherEventTimes[context.OtherEventReadIndex++];
  }
}

void FillHead(QvFieldHistory& record) {
  TranslateContext& context = *CurrentContext;
  StampRecord(record, QV_FIELD_HISTORY);
  record.RecordTime = TruncateToI32(context.StreamTime);
  record.StreamSelector = context.StreamSelector;
  record.StreamMaskA = context.StreamMaskA;
  record.StreamMaskB = context.StreamMaskB;
  record.StreamMaskC = context.StreamMaskC;
  record.StreamMaskE = context.StreamMaskE;
  if (IsFirmware(Firmware::Above201)) {
    record.StreamMaskD = context.StreamMaskD;
    record.StreamMaskF = context.StreamMaskF;
  }
  record.StreamPeriod = context.StreamPeriod;
  record.RecordIndex = ++context.SampleCount;
}

}  // namespace

i32 DecodeStream27() {
  constexpr u8 kMarker = 128;
  TranslateContext& context = *CurrentContext;
  ClearOutput(sizeof(QvFieldHistory));
  auto& record = OutputAs<QvFieldHistory>();
  ReadRecordBlock(context.RecordLength);
  i32 status = 0;
  u8 const first = ReadByte(status);
  if (status >= 0) {
    FillHead(record);
    if (!PassBlock()) return FailWith(QV_SEEK_FAILED);
    if (first >= kMarker) {
      DecodeMarker(first, record);
    } else {
      DecodeSample(first, record);
    }
  }
  LookAhead();
  return 0;
}

}  // namespace qvslm
