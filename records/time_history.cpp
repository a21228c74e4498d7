#include <cstring>
#include <limits>

#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/output_record.h"
#include "fields/record_time.h"
#include "fields/stream_levels.h"
#include "fields/whole_number.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr i32 kEntriesPerRecord = 60;
constexpr u16 kMarkersThatPace = 99;

// The text that RaiseError forms for a status of 0.
constexpr char kNoErrorText[] = "Error <  0>";

// One entry of the stream. A marker has its negated first byte as first level, and lastByte is the
// byte of it that was read last: a 0 there ends the stream.
struct Entry {
  f32 first = 0;
  f32 second = 0;  // stays from entry to entry where none is stored
  u8 lastByte = 0;
};

u16 StreamFlags() {
  u32 const kind = CurrentContext->SecondLevelKind;
  return kind == 0 ? u16{0} : static_cast<u16>(u32{1} << ((kind + 7) % 32));
}

// Completes the output record. The next one begins at the stream's running time.
void FinishSampleRecord() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvTimeHistory>();
  StampRecord(record, QV_TIME_HISTORY);
  record.RecordTime = context.HeaderTime;
  record.StreamFlags = StreamFlags();
  record.Reserved500 = 65535;
  record.Reserved502 = 65535;
  record.StreamPeriod = context.StreamPeriod;
  record.EntryCount = static_cast<u16>(context.SamplesPending);
  NoteRecordTime(record.RecordTime);
  context.SamplesPending = 0;
  context.HeaderTime = TruncateToI32(context.StreamTime);
}

// The code of a marker and its detail, from the values that stand for them.
i32 MarkerCode(f32 first) {
  return (static_cast<u32>(TruncateToI32(-first)) - 128U) & 0x70U;
}
u32 MarkerDetail(f32 second) {
  return (static_cast<u32>(TruncateToI32(second)) - 128U) & 0x0FU;
}

// Takes the entries of one call from RecordBuffer into the output record. The places in both, and
// the running time, are kept here and written back by Close.
class StreamCall {
 public:
  // Takes entries until the record is complete, the stream ends, or the block does; true when the
  // record is complete. The status is that of the last read.
  bool Take(Entry& entry, i32& status) {
    for (;;) {
      TakePlainSamples();
      if (pending_ >= kEntriesPerRecord) return true;
      Read(entry);
      status = status_;
      if (entry.lastByte == 0 || status_ < 0) return false;
      if (CollectMarker(entry) || pending_ >= kEntriesPerRecord) return true;
    }
  }

  void Close() const {
    TranslateContext& context = *CurrentContext;
    context.RecordPos = static_cast<i32>(next_ - context.RecordBuffer);
    context.SampleCount += static_cast<u32>(pending_ - context.SamplesPending);
    context.SamplesPending = static_cast<i16>(pending_);
    context.StreamTime = time_;
  }

 private:
  void TakePlainSamples() {
    if (levels_.twoBytes) {
      levels_.secondLevels ? TakeRun<true, true>() : TakeRun<true, false>();
    } else {
      levels_.secondLevels ? TakeRun<false, true>() : TakeRun<false, false>();
    }
  }

  // The samples ahead, one form at a time. What is no sample above 0 is left to Read.
  template <bool kTwoBytes, bool kSecondLevels>
  void TakeRun() {
    constexpr std::ptrdiff_t kBytes = std::ptrdiff_t{kTwoBytes ? 2 : 1} * (kSecondLevels ? 2 : 1);
    StreamLevels const levels = levels_;
    const u8* next = next_;
    i32 pending = pending_;
    f64 time = time_;
    for (; pending < kEntriesPerRecord && end_ - next >= kBytes; next += kBytes) {
      if (!IsSampleByte(next[0])) break;
      f32 const first = levels.First(next[0], kTwoBytes ? next[1] : 0);
      if (!(first > 0)) break;
      record_.FirstLevels[pending] = first;
      if constexpr (kSecondLevels) {
        const u8* const second = next + kBytes / 2;
        record_.SecondLevels[pending] = levels.Second(second[0], kTwoBytes ? second[1] : 0);
      }
      time += period_;
      ++pending;
    }
    next_ = next;
    pending_ = pending;
    time_ = time;
  }

  // Reads one entry of any kind.
  void Read(Entry& entry) {
    entry.lastByte = Next();
    if (IsSampleByte(entry.lastByte)) {
      ReadSample(entry);
    } else if (entry.lastByte != 0) {
      ReadMarker(entry);
    }
  }

  u8 Next() {
    if (next_ == end_) {
      status_ = QV_RECORD_TOO_SHORT;
      return 0;
    }
    return *next_++;
  }

  void ReadMarker(Entry& entry) {
    entry.first = -static_cast<f32>(entry.lastByte);
    if (levels_.twoBytes) entry.lastByte = Next();
    if (!levels_.secondLevels) return;
    entry.lastByte = Next();
    entry.second = entry.lastByte;
    if (levels_.twoBytes) entry.lastByte = Next();
  }

  void ReadSample(Entry& entry) {
    u32 const lo = levels_.twoBytes ? Next() : u8{0};
    if (status_ < 0) return;
    entry.first = levels_.First(entry.lastByte, lo);
    if (!levels_.secondLevels) return;
    u32 const hi2 = Next();
    u32 const lo2 = levels_.twoBytes ? Next() : u8{0};
    if (status_ >= 0) entry.second = levels_.Second(hi2, lo2);
  }

  // Puts a marker into the record, and a sample at or below 0, which counts as one. A run marker sets the
  // time to that of the event it answers to, and completes the record.
  bool CollectMarker(const Entry& entry) {
    TranslateContext& context = *CurrentContext;
    i32 const code = MarkerCode(entry.first);
    record_.FirstLevels[pending_] = static_cast<f32>(-1.0 * code);
    record_.SecondLevels[pending_] = static_cast<f32>(MarkerDetail(entry.second));
    ++pending_;
    bool const runEvent = code == 64 || code == 80;
    if (!runEvent || context.RunEventReadIndex >= kMarkersThatPace) return false;
    time_ = context.RunEventTimes[context.RunEventReadIndex++];
    return true;
  }

  QvTimeHistory& record_ = OutputAs<QvTimeHistory>();
  StreamLevels levels_ = StreamLevelsInForce();
  const u8* next_ = CurrentContext->RecordBuffer;
  const u8* end_ = next_ + CurrentContext->RecordLength;
  i32 status_ = 0;
  i32 pending_ = CurrentContext->SamplesPending;
  f64 time_ = CurrentContext->StreamTime;
  f64 period_ = CurrentContext->StreamPeriod;
};

}  // namespace

i32 DecodeStream() {
  TranslateContext& context = *CurrentContext;
  if (context.HeaderTime == 0) {
    context.HeaderTime = context.RunEventTimes[0];
    context.FirstRunTime = static_cast<u32>(context.RunEventTimes[0]);
  }
  context.RecordLength = kStreamBlock;
  ClearOutput(sizeof(QvTimeHistory));
  ReadRecordBlock(kStreamBlock);

  StreamCall call;
  Entry entry;
  i32 status = 0;
  bool const complete = call.Take(entry, status);
  call.Close();
  // What is raised for each entry, with the status of a step without a fault.
  context.LastError = 0;
  std::memcpy(context.ErrorText, kNoErrorText, sizeof kNoErrorText);

  bool const ended = !complete && entry.lastByte == 0;
  if (complete || (ended && context.SamplesPending > 0)) {
    FinishSampleRecord();
    status = 0;
  }
  if (context.FileOffset > std::numeric_limits<i32>::max() - context.RecordPos) {
    return FailWith(QV_SEEK_FAILED);
  }
  context.FileOffset += context.RecordPos;
  if (ended && status >= 0) context.StreamInProgress = 0;
  return status == QV_RECORD_TOO_SHORT ? 0 : status;
}

i32 SkipStreamBlock() {
  TranslateContext& context = *CurrentContext;
  context.RecordLength = kStreamBlock;
  context.AutoRefill = 1;
  ReadRecordBlock(kStreamBlock);
  i32 status = 0;
  u8 last = 0;
  do {
    PassSamples();
    last = PassStreamEntry(status);
  } while (last != 0 && status >= 0);
  context.AutoRefill = 0;
  if (context.FileOffset > std::numeric_limits<i32>::max() - context.RecordPos) {
    return FailWith(QV_SEEK_FAILED);
  }
  context.FileOffset += context.RecordPos;
  return status;
}

}  // namespace qvslm
