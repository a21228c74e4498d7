#include "fields/byte_reader.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/distribution.h"
#include "records/firmware_rules.h"
#include "records/records.h"

namespace qvslm {

namespace {

enum DayFlag : u16 {
  kExtraBlockPresent = 0x0008,
  kCountersByQ120 = 0x0040,
  kCountersByQ118 = 0x0080,
  kDistributionPresent = 0x0100,
  kPercentilesPresent = 0x0200,
};

bool HasDistribution() {
  const TranslateContext& context = *CurrentContext;
  if (context.DistributionOn == 0) return false;
  return context.Model == kDefaultModel || IsModel431Or442() || IsOlderModelAbove1099();
}

bool HasWidePercentileNumbers() {
  const TranslateContext& context = *CurrentContext;
  if (context.Model == kModel431) return true;
  return context.Model == kModel442 && static_cast<f64>(context.FirmwareVersion) > 3.116;
}

void DecodeHours(f32 (&levels)[24]) {
  for (f32& level : levels) DecodeFlaggedLevel(level);
}

void DecodeAbsoluteHours(f32 (&levels)[24]) {
  for (f32& level : levels) {
    DecodeFlaggedLevel(level);
    if (level < 0.0) level = -level;
  }
}

// The blocks below return the status of their last field: that of a plain byte, or a decoder's 0.

i32 DecodeExtraBlock(QvDaySummary& record, Calendar& stamp) {
  record.DayFlags |= kExtraBlockPresent;
  DecodeSpan(record.Span1);
  DecodeSpan(record.Span2);
  record.Byte1 = ReadByte();
  DecodePackedTime(stamp);
  record.DayTimeSeconds = stamp.Hour * 3600 + stamp.Minute * 60 + stamp.Second;
  stamp.Hour = stamp.Minute = stamp.Second = 0;
  DecodeU16Short(record.Value1);
  record.Byte2 = ReadByte();
  for (u16& byte : record.Bytes8) byte = ReadByte();
  return CurrentContext->ErrorCode;
}

i32 DecodeHourCounters(QvDaySummary& record) {
  DecodeU16Short(record.Value2);
  DecodeU16Short(record.Value3);
  for (u16& count : record.HourCounts) DecodeU16Short(count);
  if (CurrentContext->SettingQ120 == 0) {
    for (u16& value : record.HourValues) DecodeU16Short(value);
    return 0;
  }
  for (int hour = 0; hour < 24; ++hour) {
    record.HourValues[hour] = ReadByte();
    record.HourBcd[hour] = static_cast<u16>(PackedDecimal(ReadByte()));
  }
  return CurrentContext->ErrorCode;
}

i32 DecodePercentiles(QvDaySummary& record) {
  record.DayFlags |= kPercentilesPresent;
  for (f32& level : record.PercentileLevels) DecodeLevel(level);
  if (HasWidePercentileNumbers()) {
    for (f32& number : record.PercentileNumbers) DecodeSignedFixed16(number);
    return 0;
  }
  for (f32& number : record.PercentileNumbers) number = ReadByte();
  return CurrentContext->ErrorCode;
}

i32 DecodeDistribution(QvDaySummary& record) {
  record.DayFlags |= kDistributionPresent;
  record.DistributionPresent = 1;
  if (CurrentContext->FirmwareAbove09 == 0 && !IsModel431Or442()) {
    ReduceDistribution(record.Distribution);
  } else {
    ReadRawBytes(record.Distribution, sizeof record.Distribution);
  }
  WriteBaseLevel(record.Distribution);
  return CurrentContext->ErrorCode;
}

}  // namespace

// A short body is reported where the last field is a plain byte or a raw table.
i32 DecodeRec3() {
  const TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvDaySummary>(QV_DAY_SUMMARY);
  i32 status = 0;

  Calendar stamp = ClearedCalendar();
  SkipByte();
  DecodePackedDate(stamp);
  DecodeLevel(record.DayLevelA);
  DecodeLevel(record.DayLevelB);
  DecodeLevel(record.DayLevelC);
  DecodeHours(record.HourLevels);
  DecodeLevel(record.DayLevelD);
  DecodeLevel(record.DayLevelE);
  DecodeLevel(record.DayLevelF);
  DecodeLevel(record.DayLevelG);
  DecodeDuration5(record.Duration);
  if (HasTablesByFirmware()) {
    DecodeAbsoluteHours(record.HourLevelsB);
    DecodeAbsoluteHours(record.HourLevelsC);
  }
  if (context.ExtraBlockOn == 1) status = DecodeExtraBlock(record, stamp);
  if (context.FirmwareAbove09 == 1) {
    if (context.SettingQ120 != 0) record.DayFlags |= kCountersByQ120;
    if (context.SettingQ118 != 0) record.DayFlags |= kCountersByQ118;
    if (context.SettingQ120 != 0 || context.SettingQ118 != 0) status = DecodeHourCounters(record);
    if (context.SettingQ206 == 1) status = DecodePercentiles(record);
  }
  if (HasDistribution()) status = DecodeDistribution(record);

  record.RecordTime = NormalizeTime(stamp, &LastTimes.LastTimeRec3);
  NoteRecordTime(record.RecordTime);
  return status;
}

}  // namespace qvslm
