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

void DecodeHours(BodyFields& fields, f32 (&levels)[24]) {
  DecodeRow<DecodeFlaggedLevel>(fields, levels);
}

void DecodeAbsoluteHours(BodyFields& fields, f32 (&levels)[24]) {
  DecodeRow<DecodeFlaggedLevel>(fields, levels);
  for (f32& level : levels) {
    if (level < 0.0) level = -level;
  }
}

// The blocks below return the status of their last field: that of a plain byte, or a decoder's 0.

i32 DecodeExtraBlock(BodyFields& fields, QvDaySummary& record, Calendar& stamp) {
  record.DayFlags |= kExtraBlockPresent;
  DecodeSpan(fields, record.Span1);
  DecodeSpan(fields, record.Span2);
  record.Byte1 = fields.Byte();
  DecodePackedTime(fields, stamp);
  record.DayTimeSeconds = stamp.Hour * 3600 + stamp.Minute * 60 + stamp.Second;
  stamp.Hour = stamp.Minute = stamp.Second = 0;
  DecodeU16Short(fields, record.Value1);
  record.Byte2 = fields.Byte();
  for (u16& byte : record.Bytes8) byte = fields.Byte();
  return fields.Status();
}

i32 DecodeHourCounters(BodyFields& fields, QvDaySummary& record) {
  DecodeU16Short(fields, record.Value2);
  DecodeU16Short(fields, record.Value3);
  DecodeRow<DecodeU16Short>(fields, record.HourCounts);
  if (CurrentContext->SettingQ120 == 0) {
    DecodeRow<DecodeU16Short>(fields, record.HourValues);
    return 0;
  }
  for (int hour = 0; hour < 24; ++hour) {
    record.HourValues[hour] = fields.Byte();
    record.HourBcd[hour] = static_cast<u16>(PackedDecimal(fields.Byte()));
  }
  return fields.Status();
}

i32 DecodePercentiles(BodyFields& fields, QvDaySummary& record) {
  record.DayFlags |= kPercentilesPresent;
  DecodeRow<DecodeLevel>(fields, record.PercentileLevels);
  if (HasWidePercentileNumbers()) {
    DecodeRow<DecodeSignedFixed16>(fields, record.PercentileNumbers);
    return 0;
  }
  for (f32& number : record.PercentileNumbers) number = fields.Byte();
  return fields.Status();
}

i32 DecodeDistribution(BodyFields& fields, QvDaySummary& record) {
  record.DayFlags |= kDistributionPresent;
  record.DistributionPresent = 1;
  if (CurrentContext->FirmwareAbove09 == 0 && !IsModel431Or442()) {
    ReduceDistribution(fields, record.Distribution);
  } else {
    fields.Raw(record.Distribution, sizeof record.Distribution);
  }
  WriteBaseLevel(record.Distribution);
  return fields.Status();
}

}  // namespace

// A short body is reported where the last field is a plain byte or a raw table.
i32 DecodeRec3() {
  const TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvDaySummary>(QV_DAY_SUMMARY);
  i32 status = 0;

  BodyFields fields;
  Calendar stamp = ClearedCalendar();
  fields.Skip(1);
  DecodePackedDate(fields, stamp);
  DecodeLevel(fields, record.DayLevelA);
  DecodeLevel(fields, record.DayLevelB);
  DecodeLevel(fields, record.DayLevelC);
  DecodeHours(fields, record.HourLevels);
  DecodeLevel(fields, record.DayLevelD);
  DecodeLevel(fields, record.DayLevelE);
  DecodeLevel(fields, record.DayLevelF);
  DecodeLevel(fields, record.DayLevelG);
  DecodeDuration5(fields, record.Duration);
  if (HasTablesByFirmware()) {
    DecodeAbsoluteHours(fields, record.HourLevelsB);
    DecodeAbsoluteHours(fields, record.HourLevelsC);
  }
  if (context.ExtraBlockOn == 1) status = DecodeExtraBlock(fields, record, stamp);
  if (context.FirmwareAbove09 == 1) {
    if (context.SettingQ120 != 0) record.DayFlags |= kCountersByQ120;
    if (context.SettingQ118 != 0) record.DayFlags |= kCountersByQ118;
    if (context.SettingQ120 != 0 || context.SettingQ118 != 0)
      status = DecodeHourCounters(fields, record);
    if (context.SettingQ206 == 1) status = DecodePercentiles(fields, record);
  }
  if (HasDistribution()) status = DecodeDistribution(fields, record);

  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec3);
  NoteRecordTime(record.RecordTime);
  return status;
}

}  // namespace qvslm
