#include "band_items.h"

#include "general_items.h"
#include "sound.h"

namespace samples {

namespace {

// Decibels of one power of two, in single precision as the instruments' makers had it.
constexpr double kPowerOfTwo = static_cast<double>(3.0103F);

float PutBand(Body& body, int parts) {
  body.BandPair(parts >> 8, parts & 0xFF);
  return static_cast<float>(parts / 256.0 * kPowerOfTwo);
}

// A byte that nobody reads, then the table with its last band first.
void PutTable(Body& body, const BandTable& table, float (&bands)[34]) {
  body.U8(34);
  for (std::size_t band = 34; band-- > 0;) bands[band] = PutBand(body, table[band]);
}

// The first fields of the four records.
template <class R>
R BeginBands(SampleBuilder& sample, int code, int owner, Clock ownerTime) {
  auto record = sample.template Begin<R>(code);
  record.OwnerNumber = static_cast<std::uint32_t>(owner);
  record.RecordIndex = ++sample.State().bandCount;
  record.RecordTime = ownerTime;
  return record;
}

Clock StartOf(const std::vector<Clock>& starts, int number) {
  return starts.at(static_cast<std::size_t>(number - 1));
}

}  // namespace

BandTable StreetBandTable(double level, std::uint32_t seed) {
  BandTable table{};
  std::vector<double> const bands = StreetBands(level, 33, seed);
  for (std::size_t band = 0; band < 33; ++band) {
    table[band] = static_cast<int>(bands[band] * 256 / 3.0103);
  }
  table[33] = -256;  // below the range of the instrument: half of nothing
  return table;
}

void Add(SampleBuilder& sample, const IntervalBands& bands) {
  auto record = BeginBands<QvIntervalBands>(sample, QV_INTERVAL_BANDS, bands.owner,
                                            StartOf(sample.State().intervals, bands.owner));
  Body body;
  body.U16(bands.owner);
  PutTable(body, bands.bandsA, record.BandsA);
  PutTable(body, bands.bandsB, record.BandsB);
  PutTable(body, bands.bandsC, record.BandsC);
  record.OverallLevel = PutBand(body, bands.overall);
  sample.File().Item(129, body);
  sample.Deliver(record);
  ++sample.Census().IntervalBands;
}

void Add(SampleBuilder& sample, const ShortIntervalBands& bands) {
  auto record = BeginBands<QvIntervalBands>(sample, QV_INTERVAL_BANDS, bands.owner,
                                            StartOf(sample.State().intervals, bands.owner));
  record.BandFlags = 0x2000;
  Body body;
  record.BandsB[30] = PutBand(body, bands.owner);
  for (std::size_t band = 30; band-- > 0;) record.BandsB[band] = PutBand(body, bands.bandsB[band]);
  PutTable(body, bands.bandsA, record.BandsA);
  record.LevelPair1 = PutBand(body, bands.pair1);
  body.U16(bands.value);
  record.Value = static_cast<float>(bands.value / 2.0);
  record.OverallLevel = PutBand(body, bands.overall);
  record.ShortByte = PutByte(body, bands.byte);
  sample.File().Item(129, body);
  sample.Deliver(record);
  ++sample.Census().IntervalBands;
}

void Add(SampleBuilder& sample, const SummaryBands& bands) {
  auto record = BeginBands<QvSummaryBands>(sample, QV_SUMMARY_BANDS, bands.owner,
                                           StartOf(sample.State().summaries, bands.owner));
  Body body;
  body.U16(bands.owner).U16(0);
  PutTable(body, bands.bandsA, record.BandsA);
  PutTable(body, bands.bandsB, record.BandsB);
  PutTable(body, bands.bandsC, record.BandsC);
  sample.File().Item(130, body);
  sample.Deliver(record);
  ++sample.Census().SummaryBands;
}

void Add(SampleBuilder& sample, const MarkBands& bands) {
  auto record = BeginBands<QvLevelMarkBands>(sample, QV_LEVEL_MARK_BANDS, bands.owner,
                                             StartOf(sample.State().marks, bands.owner));
  Body body;
  body.U16(bands.owner);
  PutTable(body, bands.bands, record.Bands);
  sample.File().Item(131, body);
  sample.Deliver(record);
  ++sample.Census().LevelMarkBands;
}

void Add(SampleBuilder& sample, const SeriesBands& bands) {
  Instrument& state = sample.State();
  auto record = BeginBands<QvIntervalBandSeries>(sample, QV_INTERVAL_BAND_SERIES, bands.owner,
                                                 bands.ownerTime);
  if (state.seriesOwner != bands.owner) state.seriesNumber = 0;
  state.seriesOwner = bands.last ? -1 : bands.owner;
  record.LastOfOwner = bands.last;
  record.SequenceInOwner = static_cast<std::uint16_t>(state.seriesNumber++);
  // The number is that of the interval before, and the interval's own on the last of its series.
  Body body;
  body.U16(bands.last ? bands.owner : bands.owner - 1);
  PutTable(body, bands.bands, record.Bands);
  sample.File().Item(132, body);
  sample.Deliver(record);
  ++sample.Census().IntervalBandSeries;
}

void Add(SampleBuilder& sample, const BandInterval& interval) {
  Instrument& state = sample.State();
  auto record = sample.Begin<QvBandInterval>(QV_INTERVAL);
  Body body;
  PutStamp(body, interval.time);
  record.RecordTime = interval.time;
  body.Duration6(interval.duration).Raw({4, 33, 3});
  record.Duration = static_cast<float>(interval.duration);
  body.U16(interval.valueA).U16(interval.valueB);
  record.BandValueA = static_cast<std::uint16_t>(interval.valueA);
  record.BandValueB = static_cast<std::uint16_t>(interval.valueB);
  record.BandByte = static_cast<std::uint8_t>(PutByte(body, interval.byte));
  auto const put = [&](std::size_t index, float& overall, float(&bands)[33]) {
    overall = sample.Level(body, interval.overall[index]);
    std::size_t const count = (state.setupFlags & 128) != 0 ? 33 : 11;
    for (std::size_t band = 0; band < count; ++band) {
      bands[band] = sample.Level(body, interval.bands[index].at(band));
    }
  };
  put(0, record.Overall1, record.Bands1);
  put(1, record.Overall2, record.Bands2);
  put(2, record.Overall3, record.Bands3);
  if (state.firmware > 2.10599) record.BandTrailer = PutByte(body, interval.trailer);
  sample.File().Item(1, body);

  state.intervals.push_back(interval.time);
  record.RecordIndex = static_cast<std::uint32_t>(state.intervals.size());
  sample.Deliver(record);
  ++sample.Census().BandIntervals;
}

}  // namespace samples
