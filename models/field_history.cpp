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
void DecodeGroup(BodyFields& fields, u16 mask, f32 (&group)[8], Reader read) {
  for (int bit = 7; bit >= 0; --bit) {
    if ((mask >> bit & 1) == 0) continue;
    f32 value = 0;
    if (read(fields, bit, value) >= 0) group[bit] = value;
  }
}

i32 ReadField(BodyFields& fields, int, f32& value) {
  return DecodeStreamField(fields, value);
}

i32 ReadPlainByte(BodyFields& fields, f32& value) {
  value = fields.Byte();
  return fields.Status();
}

void DecodeGroup2(BodyFields& fields, QvFieldHistory& record) {
  bool const fraction = (record.StreamMaskD & 1) != 0;
  DecodeGroup(fields, record.StreamMaskD, record.Group2,
              [&](BodyFields& body, int bit, f32& value) {
                if (bit == 1) return DecodeStreamCount(body, value, fraction);
                return bit == 0 ? ReadPlainByte(body, value) : DecodeStreamField(body, value);
              });
}

void DecodeGroup4(BodyFields& fields, QvFieldHistory& record) {
  DecodeGroup(fields, record.StreamMaskE, record.Group4, [](BodyFields& body, int bit, f32& value) {
    switch (bit) {
      case 2:
        return DecodeStreamRatio(body, value);
      case 1:
        return DecodeStreamSixteenth(body, value);
      case 0:
        return DecodeStreamReferenced(body, value);
      default:
        return DecodeStreamField(body, value);
    }
  });
}

// The tables are stored whether or not the block holds them.
void DecodeGroup6(BodyFields& fields, QvFieldHistory& record) {
  constexpr u16 kFields = 0xFC;
  constexpr u16 kTable1 = 2;
  constexpr u16 kTable2 = 1;
  DecodeGroup(fields, record.StreamMaskF & kFields, record.Group6, ReadField);
  if ((record.StreamMaskF & kTable1) != 0) {
    DecodeStreamFields(fields, record.Table1);
  }
  if ((record.StreamMaskF & kTable2) != 0) {
    DecodeStreamFields(fields, record.Table2);
  }
}

void DecodeSample(BodyFields& fields, u8 first, QvFieldHistory& record) {
  TranslateContext& context = *CurrentContext;
  context.StreamTime += context.StreamPeriod;
  f32 value = 0;
  if (DecodeStreamLevel(fields, first, value) >= 0) record.Level = value;
  if (context.StreamSelector == kGroupSelector) {
    DecodeGroup(fields, record.StreamMaskA, record.Group1, ReadField);
    DecodeGroup2(fields, record);
    DecodeGroup(fields, record.StreamMaskB, record.Group3, ReadField);
    DecodeGroup4(fields, record);
    DecodeGroup(fields, record.StreamMaskC, record.Group5, ReadField);
    DecodeGroup6(fields, record);
  } else if (context.StreamSelector > 0) {
    if (DecodeStreamField(fields, value) >= 0) record.SecondValue = value;
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
  BodyFields fields;
  u8 const first = fields.Byte();
  if (fields.Status() >= 0) {
    FillHead(record);
    if (!PassBlock()) return FailWith(QV_SEEK_FAILED);
    if (first >= kMarker) {
      DecodeMarker(first, record);
    } else {
      DecodeSample(fields, first, record);
    }
  }
  LookAhead();
  return 0;
}

}  // namespace qvslm
