#include <span>

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "fields/whole_number.h"
#include "records/firmware_rules.h"
#include "records/records.h"

namespace qvslm {

namespace {

enum IntervalFlag : u16 {
  kAuxPresent = 0x0004,
  kSpansPresent = 0x0008,
  kSecondAuxEnabled = 0x0010,
  kSamplesPresent = 0x0100,
  kAboveLimit = 0x0400,
  kTablePresent = 0x0800,
  kLevelPresent = 0x1000,
};

bool HasFirstSpan() {
  bool const newer442 =
      CurrentContext->Model == kModel442 && CurrentContext->FirmwareVersion >= 3.6F;
  return CurrentContext->ExtraBlockOn == 1 && !newer442;
}

bool HasTable16() {
  return CurrentContext->DistributionOn != 0 && HasTablesByFirmware();
}

void DecodeAuxiliary(f32& result, int channel) {
  DecodeScaledByte(CurrentContext->AuxChannel[channel], result);
}

// The whole decibels that a sample is raised by, as the instrument's signed byte.
i8 SampleBase() {
  const TranslateContext& context = *CurrentContext;
  f32 const base = context.Model == kModel442 ? context.StreamLevelBase : context.LevelOffset;
  return LowBits<i8>(TruncateToI32(base));
}

// Samples above 127 are flagged; those that are not 0 without the flag are raised by the base.
// Returns the status of the last byte, be it the count.
i32 DecodeSamples(QvInterval& record) {
  TranslateContext& context = *CurrentContext;
  u32 const count = ReadByte();
  if (count > 0) ReadRawBytes(record.Samples, count);
  auto const base = static_cast<u8>(SampleBase());
  u32 flagged = 0;
  for (u8& sample : std::span(record.Samples, count)) {
    auto const level = static_cast<u8>(sample & 0x7F);
    flagged += sample >> 7;
    sample = level == 0 ? u8{0} : static_cast<u8>(level + base);
  }
  record.SampleSpacing = static_cast<f32>(context.IntervalSamplePeriod / 32.0);
  if (count > 0) {
    record.FlaggedSamplePercent = static_cast<f32>(static_cast<f64>(flagged) / count * 100.0);
  }
  return context.ErrorCode;
}

void PlaceInTime(QvInterval& record, i32 seconds) {
  f64 const length = static_cast<f64>(record.Duration) * record.DurationPercent / 100.0;
  if (CurrentContext->TimeIsEnd != 0) {
    record.EndTime = seconds;
    record.RecordTime = TruncateToI32(seconds - length);
  } else {
    record.EndTime = TruncateToI32(seconds + length);
    record.RecordTime = seconds;
  }
}

}  // namespace

// A short body is reported only where the last field is a plain byte, a table or the samples.
i32 DecodeRec1(i16 limitLevel) {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvInterval>(QV_INTERVAL);
  bool const auxiliary = context.IntervalAuxOn == 1;
  i32 status = 0;

  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  DecodeDuration5(record.Duration);
  DecodeLevel(record.LevelA);
  DecodeLevel(record.LevelB);
  DecodeLevel(record.LevelC);
  if (static_cast<f64>(limitLevel) < record.LevelC) record.IntervalFlags |= kAboveLimit;
  DecodeLevel(record.LevelD);
  DecodeLevel(record.LevelE);
  record.Byte1 = ReadByte();
  record.Byte2 = ReadByte();
  DecodeFixed16(record.DurationPercent);
  record.ThresholdOrLevel = context.ThresholdLevel;
  if (context.LevelInRecordOn != 0) {
    record.IntervalFlags |= kLevelPresent;
    DecodeLevel(record.ThresholdOrLevel);
  }
  if (auxiliary && context.ExtraBlockOn == 0 && context.FirmwareAbove09 == 0) {
    DecodeAuxiliary(record.Aux0, 0);
    SkipByte();
  }
  if (context.ExtraBlockOn == 1) {
    record.IntervalFlags |= kSpansPresent;
    if (HasFirstSpan()) DecodeSpan(record.Span1);
    DecodeSpan(record.Span2);
    record.Byte3 = ReadByte(status);
  }
  if (auxiliary) {
    record.IntervalFlags |= kAuxPresent;
    if (context.FirmwareAbove09 == 1) {
      if (context.AuxEnabled1 != 0) record.IntervalFlags |= kSecondAuxEnabled;
      DecodeAuxiliary(record.Aux0, 0);
      DecodeAuxiliary(record.Aux1, 1);
      DecodeAuxiliary(record.Aux2, 2);
    } else {
      DecodeAuxiliary(record.Aux1, 1);
      SkipByte();
      DecodeAuxiliary(record.Aux2, 2);
      SkipByte();
    }
    status = 0;
  }
  if (HasTable16()) {
    record.IntervalFlags |= kTablePresent;
    ReadRawBytes(record.Table16, sizeof record.Table16);
    status = context.ErrorCode;
  }
  if (context.IntervalSamplesOn == 1) {
    record.IntervalFlags |= kSamplesPresent;
    status = DecodeSamples(record);
  }

  KeepFilePosition();
  PlaceInTime(record, NormalizeTime(stamp, &LastTimes.LastTimeRec1));
  NoteRecordTime(record.RecordTime);
  return status;
}

}  // namespace qvslm
