#include <span>

#include "fields/data_file.h"
#include "fields/output_record.h"
#include "fields/record_time.h"
#include "fields/whole_number.h"
#include "records/firmware_rules.h"
#include "records/interval_head.h"
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

// The whole decibels that a sample is raised by, as the instrument's signed byte.
i8 SampleBase() {
  const TranslateContext& context = *CurrentContext;
  f32 const base = context.Model == kModel442 ? context.StreamLevelBase : context.LevelOffset;
  return LowBits<i8>(TruncateToI32(base));
}

// Samples above 127 are flagged; those that are not 0 without the flag are raised by the base.
// The count is one byte, and so is the number of flagged ones.
void DecodeSamples(BodyFields& fields, QvInterval& record) {
  u8 const count = fields.Byte();
  if (count > 0) fields.Raw(record.Samples, count);
  auto const base = static_cast<u8>(SampleBase());
  u8 flagged = 0;
  for (u8& sample : std::span(record.Samples, count)) {
    auto const level = static_cast<u8>(sample & 0x7F);
    flagged = static_cast<u8>(flagged + (sample >> 7));
    sample = level == 0 ? u8{0} : static_cast<u8>(level + base);
  }
  record.SampleSpacing = static_cast<f32>(CurrentContext->IntervalSamplePeriod / 32.0);
  if (flagged > 0) {
    record.FlaggedSamplePercent = static_cast<f32>(static_cast<f64>(flagged) / count * 100.0);
  }
}

void PlaceInTime(QvInterval& record, const IntervalHead& head, i32 seconds) {
  record.RecordTime = head.Start(seconds);
  record.EndTime =
      CurrentContext->TimeIsEnd != 0 ? seconds : TruncateToI32(seconds + head.Length());
}

}  // namespace

// A short body is reported only where the last field is a plain byte, a table or the samples.
i32 DecodeRec1(i16 limitLevel) {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvInterval>(QV_INTERVAL);
  bool const auxiliary = context.IntervalAuxOn == 1;
  i32 status = 0;

  BodyFields fields;
  Calendar stamp;
  IntervalHead const head = DecodeIntervalHead(fields, stamp);
  record.Duration = head.Duration;
  record.LevelA = head.LevelA;
  record.LevelB = head.LevelB;
  record.LevelC = head.LevelC;
  record.LevelD = head.LevelD;
  record.LevelE = head.LevelE;
  record.Byte1 = head.Byte1;
  record.Byte2 = head.Byte2;
  record.DurationPercent = head.DurationPercent;
  if (static_cast<f64>(limitLevel) < record.LevelC) record.IntervalFlags |= kAboveLimit;
  record.ThresholdOrLevel = context.ThresholdLevel;
  if (context.LevelInRecordOn != 0) {
    record.IntervalFlags |= kLevelPresent;
    DecodeLevel(fields, record.ThresholdOrLevel);
  }
  if (auxiliary && context.ExtraBlockOn == 0 && context.FirmwareAbove09 == 0) {
    DecodeScaledByte(fields, context.AuxChannel[0], record.Aux0);
    fields.Skip(1);
  }
  if (context.ExtraBlockOn == 1) {
    record.IntervalFlags |= kSpansPresent;
    if (HasFirstSpan()) DecodeSpan(fields, record.Span1);
    DecodeSpan(fields, record.Span2);
    record.Byte3 = fields.Byte();
    status = fields.Status();
  }
  if (auxiliary) {
    record.IntervalFlags |= kAuxPresent;
    if (context.FirmwareAbove09 == 1) {
      if (context.AuxEnabled1 != 0) record.IntervalFlags |= kSecondAuxEnabled;
      DecodeScaledByte(fields, context.AuxChannel[0], record.Aux0);
      DecodeScaledByte(fields, context.AuxChannel[1], record.Aux1);
      DecodeScaledByte(fields, context.AuxChannel[2], record.Aux2);
    } else {
      DecodeScaledByte(fields, context.AuxChannel[1], record.Aux1);
      fields.Skip(1);
      DecodeScaledByte(fields, context.AuxChannel[2], record.Aux2);
      fields.Skip(1);
    }
    status = 0;
  }
  if (HasTable16()) {
    record.IntervalFlags |= kTablePresent;
    fields.Raw(record.Table16, sizeof record.Table16);
    status = fields.Status();
  }
  if (context.IntervalSamplesOn == 1) {
    record.IntervalFlags |= kSamplesPresent;
    DecodeSamples(fields, record);
    status = fields.Status();
  }

  KeepFilePosition();
  PlaceInTime(record, head, NormalizeTime(stamp, &LastTimes->LastTimeRec1));
  NoteRecordTime(record.RecordTime);
  return status;
}

}  // namespace qvslm
