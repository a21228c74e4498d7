#include <cmath>

#include "stream_items.h"

namespace samples {

namespace {

// What the stream adds to its levels: the level base on model 442, else the level offset, in
// streams of whole decibels rounded down.
double Offset(const Instrument& state) {
  if (state.model == 442) return state.streamLevelBase;
  auto const offset = static_cast<double>(state.levelOffset);
  return state.wholeDb ? std::floor(offset) : offset;
}

float PutFirst(const Instrument& state, Body& body, double level) {
  double const stored = level - Offset(state);
  if (state.wholeDb) {
    int const whole = static_cast<int>(std::lround(stored));
    body.U8(whole);
    return static_cast<float>(whole + Offset(state));
  }
  // Model 442 counts 1/256 of a decibel, the others 1/128.
  int const steps = state.model == 442 ? 256 : 128;
  int const parts = static_cast<int>(std::lround(stored * steps));
  body.U8(parts / steps).U8(parts % steps);
  return static_cast<float>(static_cast<double>(parts) / steps + Offset(state));
}

float PutSecond(const Instrument& state, Body& body, double level) {
  int const kind = state.secondLevelKind;
  if (level == 0) {
    state.wholeDb ? body.U8(0) : body.U16(0);
    return kind == 4 ? 0.0F : QV_NO_LEVEL;
  }
  double const offset = kind == 4 ? 0 : Offset(state) + (kind < 3 ? 16 : 0);
  int const parts = static_cast<int>(std::lround((level - offset) * 128));
  if (state.wholeDb) {
    int const whole = (parts + 64) / 128;
    body.U8(whole);
    return static_cast<float>(whole + offset);
  }
  body.U8(parts / 128).U8(parts % 128);
  return static_cast<float>(parts / 128.0 + offset);
}

// The record that takes the entries, which is delivered when it is full, at each run marker, and at
// the end.
class HistoryRecord {
 public:
  explicit HistoryRecord(SampleBuilder& sample) : sample_(sample) { Clear(); }

  void AddSample(float level, float second) {
    Store(level, second);
    sample_.State().streamTime += static_cast<double>(sample_.State().streamPeriod);
    if (record_.EntryCount == 60) Finish();
  }

  void AddMarker(int code, int detail) {
    Instrument& state = sample_.State();
    Store(-static_cast<float>(code), static_cast<float>(state.secondLevelKind == 0 ? 0 : detail));
    bool const run = code == 64 || code == 80;
    if (run && state.runEventsUsed < 99) {
      state.streamTime = state.runEvents.at(state.runEventsUsed++);
      Finish();
    } else if (record_.EntryCount == 60) {
      Finish();
    }
  }

  void Finish() {
    if (record_.EntryCount == 0) return;
    Instrument& state = sample_.State();
    record_.RecordTime = state.historyTime;
    sample_.DeliverTimed(record_, record_.RecordTime);
    state.historyTime = static_cast<Clock>(state.streamTime);
    Clear();
  }

 private:
  void Clear() {
    Instrument const& state = sample_.State();
    record_ = sample_.Begin<QvTimeHistory>(QV_TIME_HISTORY);
    record_.StreamFlags = static_cast<std::uint16_t>(
        state.secondLevelKind == 0 ? 0 : 0x0080 << state.secondLevelKind);
    record_.Reserved500 = 65535;
    record_.Reserved502 = 65535;
    record_.StreamPeriod = state.streamPeriod;
  }

  void Store(float first, float second) {
    record_.FirstLevels[record_.EntryCount] = first;
    record_.SecondLevels[record_.EntryCount] = second;
    ++record_.EntryCount;
    ++sample_.State().entries;
    ++sample_.Census().StreamEntries;
  }

  SampleBuilder& sample_;
  QvTimeHistory record_{};
};

void PutMarker(const Instrument& state, Body& body, const HistoryEntry& entry) {
  body.U8(128 | entry.marker);
  // Bytes that hold nothing must not be 0, which would end the stream.
  if (!state.wholeDb) body.U8(1);
  if (state.secondLevelKind == 0) return;
  body.U8(0x40 | entry.detail);
  if (!state.wholeDb) body.U8(1);
}

}  // namespace

void AddHistory(SampleBuilder& sample, const std::vector<HistoryEntry>& entries) {
  Instrument& state = sample.State();
  // Without a header the history begins with the first run.
  if (state.historyTime == 0 && !state.runEvents.empty()) state.historyTime = state.runEvents[0];
  Body body;
  HistoryRecord record(sample);
  for (const HistoryEntry& entry : entries) {
    if (entry.marker >= 0) {
      PutMarker(state, body, entry);
      if (sample.KeepsRecords()) record.AddMarker(entry.marker, entry.detail);
      continue;
    }
    float const first = PutFirst(state, body, entry.level);
    float const second = state.secondLevelKind == 0 ? 0 : PutSecond(state, body, entry.second);
    if (sample.KeepsRecords()) record.AddSample(first, second);
  }
  record.Finish();
  sample.File().Stream(state.model == 431 || state.model == 442 ? 7 : 6, body);
}

}  // namespace samples
