#include <cmath>

#include "general_items.h"

namespace samples {

namespace {

// A level of an hour: 0 for none, negative for one that is marked.
float PutHour(const Instrument& state, Body& body, double level) {
  if (level == 0) {
    body.U16(0);
    return 0;
  }
  auto const offset = static_cast<double>(state.levelOffset);
  int parts = static_cast<int>(std::lround((std::abs(level) - offset) * 256));
  parts |= 3;                 // present, not marked
  if (level < 0) parts -= 2;  // marked
  body.U16(parts);
  auto const measured = static_cast<float>(parts / 256.0 + offset);
  return level < 0 ? -measured : measured;
}

// The distribution of old general models: 1023 counts of eighths of a decibel, then 40 bytes. The
// record has whole decibels instead.
void PutLongDistribution(const Instrument& state, Body& body, const std::vector<int>& counts,
                         QvDaySummary& record) {
  body.Raw({9, 9, 9});
  record.Distribution[0] = static_cast<std::uint8_t>(state.levelOffset);  // whole here
  std::uint8_t* table = record.Distribution + 3;
  // The first seven eighths lie below the first whole decibel of the table.
  for (int i = 0; i < 7; ++i) body.U24(1);
  for (int const count : counts) {
    int sum = 0;
    for (int eighth = 0; eighth < 8; ++eighth) {
      body.U24(count / 8 + eighth);
      sum += count / 8 + eighth;
    }
    *table++ = static_cast<std::uint8_t>(sum >> 16);
    *table++ = static_cast<std::uint8_t>(sum >> 8);
    *table++ = static_cast<std::uint8_t>(sum);
  }
  ++table;
  for (int i = 0; i < 40; ++i) *table++ = static_cast<std::uint8_t>(PutByte(body, 100 + i));
}

void PutHourlyCounters(const Instrument& state, Body& body, const DaySummary& day,
                       QvDaySummary& record) {
  body.U16(day.value2).U16(day.value3);
  record.Value2 = static_cast<std::uint16_t>(day.value2);
  record.Value3 = static_cast<std::uint16_t>(day.value3);
  for (std::size_t hour = 0; hour < 24; ++hour) {
    body.U16(day.counts[hour]);
    record.HourCounts[hour] = static_cast<std::uint16_t>(day.counts[hour]);
  }
  for (std::size_t hour = 0; hour < 24; ++hour) {
    record.HourValues[hour] = static_cast<std::uint16_t>(day.values[hour]);
    if (state.settingQ120 == 0) {
      body.U16(day.values[hour]);
    } else {
      body.U8(day.values[hour]).Packed(day.digits[hour]);
      record.HourBcd[hour] = static_cast<std::uint16_t>(day.digits[hour]);
    }
  }
}

void PutDistribution440(const SampleBuilder& sample, Body& body, const DaySummary& day,
                        QvDaySummary& record) {
  PutDistribution(sample, body, day.distribution, record.Distribution);
  for (std::size_t i = 384; i < 440; ++i) {
    record.Distribution[i] = static_cast<std::uint8_t>(PutByte(body, static_cast<int>(i) - 300));
  }
}

}  // namespace

void Add(SampleBuilder& sample, const DaySummary& day) {
  Instrument& state = sample.State();
  bool const above1099 = state.model < 486 && state.firmware > 1.099;
  auto record = sample.Begin<QvDaySummary>(QV_DAY_SUMMARY);
  Body body;
  body.U8(3);
  PutDate(body, day.date);
  record.DayLevelA = sample.Level(body, day.levels[0]);
  record.DayLevelB = sample.Level(body, day.levels[1]);
  record.DayLevelC = sample.Level(body, day.levels[2]);
  for (std::size_t h = 0; h < 24; ++h) record.HourLevels[h] = PutHour(state, body, day.hours[h]);
  record.DayLevelD = sample.Level(body, day.levels[3]);
  record.DayLevelE = sample.Level(body, day.levels[4]);
  record.DayLevelF = sample.Level(body, day.levels[5]);
  record.DayLevelG = sample.Level(body, day.levels[6]);
  record.Duration = PutDuration5(body, day.duration);
  if ((state.above09 && state.model == 486) || above1099) {
    for (std::size_t h = 0; h < 24; ++h) {
      record.HourLevelsB[h] = std::abs(PutHour(state, body, day.hoursB[h]));
    }
    for (std::size_t h = 0; h < 24; ++h) {
      record.HourLevelsC[h] = std::abs(PutHour(state, body, day.hoursC[h]));
    }
  }
  if (state.extraBlock) {
    record.DayFlags |= 0x0008;
    record.Span1 = PutSpan(sample, body, day.span1);
    record.Span2 = PutSpan(sample, body, day.span2);
    record.Byte1 = PutByte(body, day.byte1);
    body.Time(day.timeOfDay / kHour, day.timeOfDay % kHour / kMinute, day.timeOfDay % kMinute);
    record.DayTimeSeconds = day.timeOfDay;
    body.U16(day.value1);
    record.Value1 = static_cast<std::uint16_t>(day.value1);
    record.Byte2 = PutByte(body, day.byte2);
    for (std::size_t i = 0; i < 8; ++i) record.Bytes8[i] = PutByte(body, day.bytes8[i]);
  }
  if (state.settingQ120 != 0) record.DayFlags |= 0x0040;
  if (state.settingQ118 != 0) record.DayFlags |= 0x0080;
  if (state.settingQ118 != 0 || state.settingQ120 != 0) PutHourlyCounters(state, body, day, record);
  if (state.above09 && state.dayLn) {
    record.DayFlags |= 0x0200;
    bool const wide = state.model == 431 || (state.model == 442 && state.firmware > 3.116);
    for (std::size_t i = 0; i < 6; ++i) {
      record.PercentileLevels[i] = sample.Level(body, day.percentiles.levels[i]);
    }
    for (std::size_t i = 0; i < 6; ++i) {
      int const number = day.percentiles.numbers[i];
      wide ? body.SignedFixed16(number) : body.U8(number);
      record.PercentileNumbers[i] = static_cast<float>(number);
    }
  }
  bool const known = state.model == 486 || state.model == 431 || state.model == 442;
  if (state.distribution && (known || above1099)) {
    record.DayFlags |= 0x0100;
    record.DistributionPresent = 1;
    if (!state.above09 && state.model != 431 && state.model != 442) {
      PutLongDistribution(state, body, day.distribution, record);
    } else {
      PutDistribution440(sample, body, day, record);
    }
  }
  sample.File().Item(3, body);

  record.RecordTime = day.date;
  record.RecordIndex = ++state.dayCount;
  sample.DeliverTimed(record, day.date);
  ++sample.Census().DaySummaries;
}

}  // namespace samples
