#include "general_items.h"

#include <cmath>

namespace samples {

namespace {

std::uint32_t Next(std::vector<Clock>& starts, Clock start) {
  starts.push_back(start);
  return static_cast<std::uint32_t>(starts.size());
}

// Three bytes of a level distribution's base: whole decibels, tenths, hundredths.
void PutBase(const SampleBuilder& sample, Body& body, std::uint8_t* table) {
  Instrument const& state = sample.State();
  if (state.model == 442) {
    body.Raw({30, 2, 5});
    table[0] = 30;
    table[1] = 2;
    table[2] = 5;
    return;
  }
  body.Raw({0, 0, 0});
  long const hundredths = std::lround(state.levelOffset * 100);
  table[0] = static_cast<std::uint8_t>(hundredths / 100);
  table[1] = static_cast<std::uint8_t>(hundredths / 10 % 10);
  table[2] = static_cast<std::uint8_t>(hundredths % 10);
}

void PutCounts(Body& body, const std::vector<int>& counts, std::uint8_t* table) {
  for (int const count : counts) {
    body.U24(count);
    *table++ = static_cast<std::uint8_t>(count >> 16);
    *table++ = static_cast<std::uint8_t>(count >> 8);
    *table++ = static_cast<std::uint8_t>(count);
  }
}

float PutAux(Body& body, const AuxChannel& channel, int value) {
  body.U8(value);
  double const low = static_cast<double>(channel.low);
  return static_cast<float>((static_cast<double>(channel.high) - low) / 256 * value + low);
}

bool HasTable16(const Instrument& state) {
  return (state.above09 && state.model == 486) || (state.model < 486 && state.firmware > 1.099);
}

void PutSamples(const Instrument& state, Body& body, const Interval& interval, QvInterval& record) {
  record.IntervalFlags |= 0x0100;
  int const base = state.model == 442 ? state.streamLevelBase : static_cast<int>(state.levelOffset);
  int flagged = 0;
  body.U8(static_cast<int>(interval.samples.size()));
  std::uint8_t* next = record.Samples;
  for (int const sample : interval.samples) {
    int const level = sample < 0 ? -sample : sample;
    body.U8(level - base + (sample < 0 ? 128 : 0));
    flagged += sample < 0;
    *next++ = static_cast<std::uint8_t>(level);
  }
  record.SampleSpacing = state.intervalSamplePeriod / 32;
  if (!interval.samples.empty()) {
    double const share =
        static_cast<double>(flagged) / static_cast<double>(interval.samples.size());
    record.FlaggedSamplePercent = static_cast<float>(share * 100);
  }
}

}  // namespace

float PutSpan(const SampleBuilder& sample, Body& body, int value) {
  body.U16(value);
  return static_cast<float>(sample.State().model == 442 ? value : value * 12478.0 / 65536);
}

float PutDuration5(Body& body, double seconds) {
  body.Duration5(seconds);
  return static_cast<float>(seconds);
}

std::uint16_t PutByte(Body& body, int value) {
  body.U8(value);
  return static_cast<std::uint16_t>(value);
}

void PutDistribution(const SampleBuilder& sample, Body& body, const std::vector<int>& counts,
                     std::uint8_t* table) {
  PutBase(sample, body, table);
  PutCounts(body, counts, table + 3);
}

void Add(SampleBuilder& sample, const Event& event) {
  Instrument& state = sample.State();
  auto record = sample.Begin<QvEvent>(QV_EVENT);
  Body body;
  body.U8(13);
  PutStamp(body, event.time);
  body.U8(event.code | event.detail).U16(event.value16).U24(event.value24);
  sample.File().Item(4, body);

  record.RecordTime = event.time;
  record.EventCode = static_cast<std::uint16_t>(event.code);
  record.EventDetail = static_cast<std::uint16_t>(event.detail);
  record.EventValue16 = static_cast<std::uint16_t>(event.value16);
  record.EventValue24 = event.value24;
  record.RecordIndex = ++state.eventCount;
  bool const run = event.code == 64 || event.code == 80;
  if (sample.KeepsRecords()) (run ? state.runEvents : state.otherEvents).push_back(event.time);
  sample.DeliverTimed(record, event.time);

  QvRecordCensus& census = sample.Census();
  ++(state.model == 442 && state.mode == 0 ? census.EventsMode0
     : state.mode == 5                     ? census.EventsMode5
                                           : census.Events);
}

void Add(SampleBuilder& sample, const LevelMark& mark) {
  auto record = sample.Begin<QvLevelMark>(QV_LEVEL_MARK);
  Body body;
  body.U8(10);
  PutStamp(body, mark.time);
  record.Level = sample.Level(body, mark.level);
  body.U8(mark.status);
  sample.File().Item(5, body);

  record.RecordTime = mark.time;
  record.LevelOffset = sample.State().levelOffset;
  record.StatusBit5 = static_cast<std::uint16_t>(mark.status & 0x20);
  record.StatusCode = static_cast<std::uint16_t>(mark.status & 0x80 ? 128 : mark.status & 7);
  record.RecordIndex = Next(sample.State().marks, mark.time);
  sample.DeliverTimed(record, mark.time);
  ++sample.Census().LevelMarks;
}

void Add(SampleBuilder& sample, const Interval& interval) {
  Instrument& state = sample.State();
  auto record = sample.Begin<QvInterval>(QV_INTERVAL);
  Body body;
  PutStamp(body, interval.time);
  record.Duration = PutDuration5(body, interval.duration);
  record.LevelA = sample.Level(body, interval.levels[0]);
  record.LevelB = sample.Level(body, interval.levels[1]);
  record.LevelC = sample.Level(body, interval.levels[2]);
  if (record.LevelC > static_cast<float>(state.limitLevel)) record.IntervalFlags |= 0x0400;
  record.LevelD = sample.Level(body, interval.levels[3]);
  record.LevelE = sample.Level(body, interval.levels[4]);
  record.Byte1 = PutByte(body, interval.byte1);
  record.Byte2 = PutByte(body, interval.byte2);
  body.Fixed16(interval.percent);
  record.DurationPercent = static_cast<float>(interval.percent);
  record.ThresholdOrLevel = state.thresholdLevel;
  if (state.levelInRecord) {
    record.IntervalFlags |= 0x1000;
    record.ThresholdOrLevel = sample.Level(body, interval.levelInRecord);
  }
  if (state.intervalAux && !state.extraBlock && !state.above09) {
    record.Aux0 = PutAux(body, state.aux[0], interval.aux[0]);
    body.U8(0);
  }
  if (state.extraBlock) {
    record.IntervalFlags |= 0x0008;
    bool const noSpan1 = state.model == 442 && static_cast<float>(state.firmware) >= 3.6F;
    if (!noSpan1) record.Span1 = PutSpan(sample, body, interval.span1);
    record.Span2 = PutSpan(sample, body, interval.span2);
    record.Byte3 = PutByte(body, interval.byte3);
  }
  if (state.intervalAux) {
    record.IntervalFlags |= 0x0004;
    if (state.above09) {
      if (state.auxEnabled1 != 0) record.IntervalFlags |= 0x0010;
      record.Aux0 = PutAux(body, state.aux[0], interval.aux[0]);
      record.Aux1 = PutAux(body, state.aux[1], interval.aux[1]);
      record.Aux2 = PutAux(body, state.aux[2], interval.aux[2]);
    } else {
      record.Aux1 = PutAux(body, state.aux[1], interval.aux[1]);
      body.U8(0);
      record.Aux2 = PutAux(body, state.aux[2], interval.aux[2]);
      body.U8(0);
    }
  }
  if (state.distribution && HasTable16(state)) {
    record.IntervalFlags |= 0x0800;
    for (std::size_t i = 0; i < 16; ++i) {
      record.Table16[i] = static_cast<std::uint8_t>(PutByte(body, interval.table16[i]));
    }
  }
  if (state.intervalSamples) PutSamples(state, body, interval, record);
  sample.File().Item(1, body);

  auto const measured = static_cast<Clock>(interval.duration * interval.percent / 100);
  record.RecordTime = state.timeIsEnd ? interval.time - measured : interval.time;
  record.EndTime = state.timeIsEnd ? interval.time : interval.time + measured;
  record.RecordIndex = Next(state.intervals, record.RecordTime);
  sample.DeliverTimed(record, record.RecordTime);
  ++sample.Census().Intervals;
}

void Add(SampleBuilder& sample, const Summary& summary) {
  Instrument& state = sample.State();
  auto record = sample.Begin<QvSummary>(QV_SUMMARY);
  Body body;
  PutStamp(body, summary.time);
  record.Duration = PutDuration5(body, summary.duration);
  record.LevelA = sample.Level(body, summary.levels[0]);
  record.LevelB = sample.Level(body, summary.levels[1]);
  record.LevelC = sample.Level(body, summary.levels[2]);
  record.LevelD = sample.Level(body, summary.levels[3]);
  record.LevelE = sample.Level(body, summary.levels[4]);
  record.LevelF = sample.Level(body, summary.levels[5]);
  record.Byte1 = PutByte(body, summary.bytes[0]);
  record.Byte2 = PutByte(body, summary.bytes[1]);
  record.Byte3 = PutByte(body, summary.bytes[2]);
  record.Byte4 = PutByte(body, summary.bytes[3]);
  if (state.summaryLn) {
    record.SummaryFlags |= 0x0200;
    bool const wide = state.model == 431 || state.model == 442;
    for (std::size_t i = 0; i < 6; ++i) {
      record.PercentileLevels[i] = sample.Level(body, summary.percentiles.levels[i]);
    }
    for (std::size_t i = 0; i < 6; ++i) {
      int const number = summary.percentiles.numbers[i];
      wide ? body.SignedFixed16(number) : body.U8(number);
      record.PercentileNumbers[i] = static_cast<float>(number);
    }
  }
  auto const putAux = [&](std::size_t channel) {
    for (std::size_t i = 0; i < 3; ++i) {
      record.Aux[i][channel] = PutAux(body, state.aux[channel], summary.aux[channel][i]);
    }
  };
  if (state.summaryAux && !state.extraBlock && !state.above09) putAux(0);
  if (state.extraBlock) {
    record.SummaryFlags |= 0x0008;
    record.Span1 = PutSpan(sample, body, summary.span1);
    record.Span2 = PutSpan(sample, body, summary.span2);
    record.Byte5 = PutByte(body, summary.byte5);
  }
  if (state.summaryAux) {
    record.SummaryFlags |= 0x0004;
    if (state.above09 && state.auxEnabled1 != 0) record.SummaryFlags |= 0x0010;
    if (state.above09) putAux(0);
    putAux(1);
    putAux(2);
  }
  if (state.distribution2) {
    record.SummaryFlags |= 0x0100;
    record.DistributionPresent = 1;
    PutDistribution(sample, body, summary.distribution, record.Distribution);
  }
  sample.File().Item(2, body);

  record.RecordTime = summary.time;
  record.RecordIndex = Next(state.summaries, summary.time);
  sample.DeliverTimed(record, summary.time);
  ++sample.Census().Summaries;
}

void Add(SampleBuilder& sample, const BlockImage& image) {
  Instrument const& state = sample.State();
  auto record = sample.Begin<QvBlockImage>(QV_BLOCK_IMAGE, kUnwritten);
  bool const general = state.model != 431 && state.model != 442;
  record.BlockFlags = 0;
  record.LevelBase =
      state.model == 442 ? static_cast<float>(state.streamLevelBase) : state.levelOffset;
  record.RecordTime = state.lastStop;
  Body body;
  auto const put = [&](int flag, const std::string& block, std::uint8_t* field) {
    if (!general && (state.setupFlags & flag) == 0) return;
    body.Raw(block);
    std::memcpy(field, block.data(), block.size());
    record.BlockFlags = static_cast<std::uint16_t>(record.BlockFlags | flag);
  };
  put(64, image.block1, record.Block1);
  put(32, image.block2, record.Block2);
  put(16, image.block3, record.Block3);
  sample.File().Item(image.type, body);
  sample.DeliverTimed(record, record.RecordTime);

  QvRecordCensus& census = sample.Census();
  int const flags = state.setupFlags;
  auto const flagged =
      static_cast<std::uint32_t>((flags >> 6 & 1) + (flags >> 5 & 1) + (flags >> 4 & 1));
  if (image.type == 7) {
    census.BlockImages += 3;
  } else {
    (state.model == 442 && state.mode == 0 ? census.BlockImagesMode0 : census.BlockImages) +=
        flagged;
  }
}

}  // namespace samples
