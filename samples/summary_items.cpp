#include "summary_items.h"

#include <cmath>

namespace samples {

namespace {

std::uint32_t NextNumber(SampleBuilder& sample, Clock start) {
  sample.State().summaries.push_back(start);
  return static_cast<std::uint32_t>(sample.State().summaries.size());
}

float PutValue(Body& body, double value) {
  body.SignedFixed16(value);
  return static_cast<float>(value);
}

template <std::size_t N>
void PutLevels(SampleBuilder& sample, Body& body, const std::array<double, N>& levels,
               float (&field)[N]) {
  for (std::size_t i = 0; i < N; ++i) field[i] = sample.Level(body, levels[i]);
}

// A band of 0 has no value.
template <std::size_t N>
void PutBands(SampleBuilder& sample, Body& body, const std::vector<double>& bands,
              float (&field)[N]) {
  for (std::size_t i = 0; i < bands.size(); ++i) {
    field[i] = bands[i] == 0 ? sample.NoLevel(body) : sample.Level(body, bands[i]);
  }
}

double Power(float level) {
  return std::pow(10.0, static_cast<double>(level) / 10);
}

void SumOctaves(const float (&bands)[33], float (&octaves)[11]) {
  for (std::size_t octave = 0; octave < 11; ++octave) {
    float const* const third = bands + 3 * octave;
    bool const whole =
        third[0] != QV_NO_LEVEL && third[1] != QV_NO_LEVEL && third[2] != QV_NO_LEVEL;
    octaves[octave] = whole ? static_cast<float>(10 * std::log10(Power(third[0]) + Power(third[1]) +
                                                                 Power(third[2])))
                            : QV_NO_LEVEL;
  }
}

// The first thirteen bytes of a tally.
template <class R>
R BeginTally(SampleBuilder& sample, Body& body, int code, int kind, Clock time, double duration,
             int byte11) {
  auto record = sample.Begin<R>(code);
  PutStamp(body, time);
  record.RecordTime = time;
  record.Duration = PutDuration5(body, duration);
  record.Byte11 = PutByte(body, byte11);
  body.U8(kind);
  record.RecordIndex = NextNumber(sample, time);
  return record;
}

template <class R>
void EndTally(SampleBuilder& sample, const Body& body, const R& record) {
  sample.File().Item(2, body);
  sample.Deliver(record);
  ++sample.Census().Tallies;
}

}  // namespace

void Add(SampleBuilder& sample, const Bands431& bands) {
  auto record = sample.Begin<QvBands431>(QV_BANDS_431);
  Body body;
  PutStamp(body, bands.time);
  record.RecordTime = bands.time;
  record.Duration = PutDuration5(body, bands.duration);
  record.Byte11 = PutByte(body, bands.byte11);
  bool const thirds = (sample.State().setupFlags & 8) != 0;
  record.BandFlags = thirds ? 2 : 0;
  std::size_t place = thirds ? 0 : 1;
  for (double const band : bands.bands) {
    record.Bands[place] = sample.Level(body, band);
    place += thirds ? 1 : 3;
  }
  sample.File().Item(2, body);
  record.RecordIndex = NextNumber(sample, bands.time);
  sample.DeliverTimed(record, bands.time);
  ++sample.Census().Bands431;
}

void Add(SampleBuilder& sample, const Summary431& summary) {
  auto record = sample.Begin<QvSummary431>(QV_SUMMARY_431);
  Body body;
  PutStamp(body, summary.first);
  PutStamp(body, summary.second);
  record.RecordTime = summary.first;
  record.SecondTime = summary.second;
  record.Duration = PutDuration5(body, summary.duration);
  record.SummaryValue17 = PutValue(body, summary.values[0]);
  record.SummaryValue19 = PutValue(body, summary.values[1]);
  record.SummaryValue21 = PutValue(body, summary.values[2]);
  record.SummaryValue23 = PutValue(body, summary.values[3]);
  record.SummaryValue25 = PutValue(body, summary.values[4]);
  record.SummaryValue27 = PutValue(body, summary.values[5]);
  record.SummaryValue29 = PutValue(body, summary.values[6]);
  record.SummaryByte31 = PutByte(body, summary.bytes[0]);
  record.SummaryByte32 = PutByte(body, summary.bytes[1]);
  record.SummaryByte33 = PutByte(body, summary.bytes[2]);
  record.SummaryByte34 = PutByte(body, summary.bytes[3]);
  record.SummaryByte35 = PutByte(body, summary.bytes[4]);
  record.SummaryByte36 = PutByte(body, summary.bytes[5]);
  record.SummaryByte37 = PutByte(body, summary.bytes[6]);
  sample.File().Item(2, body);
  record.RecordIndex = NextNumber(sample, summary.first);
  sample.DeliverTimed(record, summary.first);
  ++sample.Census().Summaries431;
}

void Add(SampleBuilder& sample, const SpectrumSummary& summary) {
  Instrument const& state = sample.State();
  auto record = sample.Begin<QvSpectrumSummary>(QV_SPECTRUM_SUMMARY);
  // What no section fills behind byte 812 keeps what the host's buffer held.
  std::memset(reinterpret_cast<char*>(&record) + 812, kUnwritten, sizeof record - 812);
  Body body;
  PutStamp(body, summary.time);
  record.RecordTime = summary.time;
  record.Duration = PutDuration5(body, summary.duration);
  record.Level11 = sample.Level(body, summary.levels[0]);
  record.Level13 = sample.Level(body, summary.levels[1]);
  record.Level15 = sample.Level(body, summary.levels[2]);
  record.Level17 = sample.Level(body, summary.levels[3]);
  record.Level19 = sample.Level(body, summary.levels[4]);
  record.Level21 = sample.Level(body, summary.levels[5]);
  record.Byte23 = PutByte(body, summary.bytes[0]);
  record.Byte24 = PutByte(body, summary.bytes[1]);
  record.Byte25 = PutByte(body, summary.bytes[2]);
  record.Byte26 = PutByte(body, summary.bytes[3]);
  if (state.summaryLn) {
    record.SectionFlags |= 512;
    PutLevels(sample, body, summary.percentiles.levels, record.PercentileLevels);
    for (std::size_t i = 0; i < 6; ++i) {
      record.PercentileNumbers[i] = PutValue(body, summary.percentiles.numbers[i]);
    }
  }
  if (state.extraBlock) {
    record.SectionFlags |= 8;
    record.Span1 = PutSpan(sample, body, summary.span1);
    record.Span2 = PutSpan(sample, body, summary.span2);
    record.SpanByte = PutByte(body, summary.spanByte);
  }
  if (state.distribution2) {
    record.SectionFlags |= 256;
    record.DistributionPresent = 1;
    PutDistribution(sample, body, summary.distribution, record.Distribution);
  }
  PutBands(sample, body, summary.bands, record.Bands);
  SumOctaves(record.Bands, record.Octaves);
  if (state.secondSpectrum) PutBands(sample, body, summary.secondBands, record.SecondBands);
  SumOctaves(record.SecondBands, record.SecondOctaves);
  if (state.spectraKind == 2) {
    for (std::size_t row = 6; row-- > 0;) {
      PutBands(sample, body, summary.spectra.at(row), record.Spectra[row]);
    }
  }
  sample.File().Item(2, body);
  record.RecordIndex = NextNumber(sample, summary.time);
  sample.DeliverTimed(record, summary.time);
  ++sample.Census().SpectrumSummaries;
}

void Add(SampleBuilder& sample, const BandTableSummary& table) {
  auto record = sample.Begin<QvBandTable>(QV_BAND_TABLE);
  Body body;
  PutStamp(body, table.time);
  record.RecordTime = table.time;
  body.U16(table.word).Text(table.name, 8);
  record.Word6 = static_cast<std::uint16_t>(table.word);
  SetText(record.Text8, table.name);
  record.Level16 = sample.Level(body, table.level);
  PutBands(sample, body, table.bands, record.Bands);
  record.BandFlag = static_cast<std::uint16_t>(sample.State().bandFlag);
  sample.File().Item(2, body);
  record.RecordIndex = NextNumber(sample, table.time);
  sample.Deliver(record);
  ++sample.Census().BandTables;
}

void Add(SampleBuilder& sample, const NarrowTable& table) {
  auto record = sample.Begin<QvNarrowTable>(QV_NARROW_TABLE);
  Body body;
  PutStamp(body, table.time);
  record.RecordTime = table.time;
  body.U16(table.word);
  record.Word6 = static_cast<std::uint16_t>(table.word);
  record.Byte8 = PutByte(body, table.byte);
  record.Level9 = sample.Level(body, table.level);
  PutBands(sample, body, table.levels, record.Levels);
  sample.File().Item(2, body);
  record.RecordIndex = NextNumber(sample, table.time);
  sample.Deliver(record);
  ++sample.Census().NarrowTables;
}

void Add(SampleBuilder& sample, const TallyLevels& tally) {
  Body body;
  auto record = BeginTally<QvTallyLevels>(sample, body, QV_TALLY_LEVELS, 0, tally.time,
                                          tally.duration, tally.byte11);
  PutLevels(sample, body, tally.first, record.Levels13);
  PutLevels(sample, body, tally.second, record.Levels31);
  PutLevels(sample, body, tally.third, record.Levels49);
  record.Level55 = sample.Level(body, tally.level55);
  record.Level57 = sample.Level(body, tally.level57);
  for (std::size_t i = 0; i < 6; ++i) record.Values59[i] = PutValue(body, tally.values[i]);
  PutLevels(sample, body, tally.last, record.Levels71);
  EndTally(sample, body, record);
}

void Add(SampleBuilder& sample, const TallyBands& tally) {
  Body body;
  auto record = BeginTally<QvTallyBands>(sample, body, QV_TALLY_BANDS, 1, tally.time,
                                         tally.duration, tally.byte11);
  PutBands(sample, body, tally.first, record.Bands13);
  PutBands(sample, body, tally.second, record.Bands79);
  EndTally(sample, body, record);
}

void Add(SampleBuilder& sample, const TallyTotals& tally) {
  Body body;
  auto record = BeginTally<QvTallyTotals>(sample, body, QV_TALLY_TOTALS, tally.kind, tally.time,
                                          tally.duration, tally.byte11);
  body.U16(tally.word13).U8(0).U16(tally.word16).U8(0);
  record.Word13 = static_cast<std::uint16_t>(tally.word13);
  record.Word16 = static_cast<std::uint16_t>(tally.word16);
  record.Level19 = sample.Level(body, tally.level19);
  record.Level21 = sample.Level(body, tally.level21);
  EndTally(sample, body, record);
}

}  // namespace samples
