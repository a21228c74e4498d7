#include <cmath>

#include "stream_items.h"

namespace samples {

namespace {

// Counts a block of a list where the census does.
void CountBlock(SampleBuilder& sample) {
  Instrument const& state = sample.State();
  QvRecordCensus& census = sample.Census();
  int const mode = state.model == 442 ? state.mode : -1;
  ++(mode == 7   ? census.ListBlocksMode7
     : mode == 0 ? census.ListBlocksMode0
     : mode == 4 ? census.ListBlocksMode4
                 : census.StreamEntries);
}

// One field of a list 27, in two bytes, less the level offset.
float PutField(const SampleBuilder& sample, Body& body, double level) {
  auto const offset = static_cast<double>(sample.State().levelOffset);
  int const parts = static_cast<int>(std::lround((level - offset) * 256));
  body.U16(parts);
  return static_cast<float>(parts / 256.0 + offset);
}

// The fields of one group, from bit 7 of its mask down. `own` writes those of another form and
// tells so.
template <class Own>
void PutGroup(const SampleBuilder& sample, Body& body, int group, double level, float (&fields)[8],
              Own own) {
  int const mask = sample.State().streamMasks[group - 1];
  for (int bit = 7; bit >= 0; --bit) {
    if ((mask >> bit & 1) == 0 || own(bit)) continue;
    fields[bit] = PutField(sample, body, level + group + bit / 8.0);
  }
}

void PutTable(const SampleBuilder& sample, Body& body, const std::vector<double>& bands,
              float (&table)[33]) {
  for (std::size_t band = 0; band < 33; ++band) {
    table[band] = PutField(sample, body, bands.at(band));
  }
}

void PutGroups(const SampleBuilder& sample, Body& body, const FieldEntry& entry,
               QvFieldHistory& record) {
  Instrument const& state = sample.State();
  double const level = entry.fields;
  auto const none = [](int) { return false; };
  PutGroup(sample, body, 1, level, record.Group1, none);
  PutGroup(sample, body, 2, level, record.Group2, [&](int bit) {
    if (bit == 1) {  // a count, with a fraction when bit 0 is set
      body.U16(1200);
      record.Group2[1] = 1200;
      if ((state.streamMasks[1] & 1) != 0) {
        body.U8(64);
        record.Group2[1] = 1200.25F;
      }
    } else if (bit == 0) {
      body.U8(21);
      record.Group2[0] = 21;
    }
    return bit < 2;
  });
  PutGroup(sample, body, 3, level, record.Group3, none);
  PutGroup(sample, body, 4, level, record.Group4, [&](int bit) {
    if (bit == 2) {
      body.U16(22795);  // half of the scale
      record.Group4[2] = 4;
    } else if (bit == 1) {
      body.U8(200).U8(7);
      record.Group4[1] = 12.5F;
    } else if (bit == 0) {
      body.U8(40).U8(128);
      record.Group4[0] = static_cast<float>(40.5 - static_cast<double>(state.referenceLevel));
    }
    return bit < 3;
  });
  PutGroup(sample, body, 5, level, record.Group5, none);
  PutGroup(sample, body, 6, level, record.Group6, [&](int bit) {
    if (bit == 1) PutTable(sample, body, entry.table1, record.Table1);
    if (bit == 0) PutTable(sample, body, entry.table2, record.Table2);
    return bit < 2;
  });
}

}  // namespace

void AddSpectra(SampleBuilder& sample, const std::vector<TimedSpectrum>& spectra) {
  Instrument& state = sample.State();
  std::vector<Body> blocks;
  for (const TimedSpectrum& spectrum : spectra) {
    auto record = sample.Begin<QvTimedSpectrum>(QV_TIMED_SPECTRUM);
    Body body;
    body.U8(spectrum.first).Duration3(spectrum.time);
    record.BlockByte = static_cast<std::uint8_t>(spectrum.first);
    record.SpectrumTime = static_cast<float>(spectrum.time);
    record.Level = sample.Level(body, spectrum.level);
    for (std::size_t band = 0; band < spectrum.bands.size(); ++band) {
      record.Bands[band] = sample.Level(body, spectrum.bands[band]);
    }
    record.RecordIndex = ++state.spectra;
    sample.Deliver(record);
    CountBlock(sample);
    blocks.push_back(body);
  }
  sample.File().List(21, static_cast<int>(blocks.front().Size()), blocks);
}

void AddFields(SampleBuilder& sample, const std::vector<FieldEntry>& entries) {
  Instrument& state = sample.State();
  bool const above201 = state.firmware > 2.01;
  std::vector<Body> blocks;
  std::size_t length = 0;
  for (const FieldEntry& entry : entries) {
    auto record = sample.Begin<QvFieldHistory>(QV_FIELD_HISTORY);
    auto const mask = [&](int group) {
      return static_cast<std::uint16_t>(state.streamMasks[group - 1]);
    };
    record.StreamSelector = static_cast<std::uint16_t>(state.streamSelector);
    record.StreamMaskA = mask(1);
    record.StreamMaskB = mask(3);
    record.StreamMaskC = mask(5);
    record.StreamMaskE = mask(4);
    record.StreamMaskD = above201 ? mask(2) : std::uint16_t{0};
    record.StreamMaskF = above201 ? mask(6) : std::uint16_t{0};
    record.StreamPeriod = state.streamPeriod;
    record.RecordIndex = ++state.entries;
    record.RecordTime = static_cast<Clock>(state.streamTime);
    Body body;
    if (entry.marker >= 0) {
      body.U8(128 | entry.marker << 4 | entry.detail);
      record.Level = -1;
      record.MarkerKind = static_cast<std::uint16_t>(entry.marker);
      record.MarkerDetail = static_cast<std::uint16_t>(entry.detail);
      if (entry.marker == 4 || entry.marker == 5) {
        record.RecordTime = state.runEvents.at(state.runEventsUsed++);
        state.streamTime = record.RecordTime;
      } else {
        record.RecordTime = state.otherEvents.at(state.otherEventsUsed++);
      }
    } else {
      state.streamTime += static_cast<double>(state.streamPeriod);
      double const base =
          state.model == 442 ? state.streamLevelBase : static_cast<double>(state.levelOffset);
      int const steps = state.model == 442 ? 256 : 128;
      int const parts = static_cast<int>(std::lround((entry.level - base) * steps));
      body.U8(parts / steps).U8(parts % steps);
      record.Level = static_cast<float>(static_cast<double>(parts) / steps + base);
      if (state.streamSelector == 4) {
        PutGroups(sample, body, entry, record);
      } else if (state.streamSelector > 0) {
        record.SecondValue = PutField(sample, body, entry.second);
      }
    }
    sample.Deliver(record);
    CountBlock(sample);
    length = body.Size() > length ? body.Size() : length;
    blocks.push_back(body);
  }
  sample.File().List(27, static_cast<int>(length), blocks);
}

}  // namespace samples
