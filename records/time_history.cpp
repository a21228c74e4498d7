#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <type_traits>

#include "fields/body_fields.h"
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

// Whether a time is a whole multiple of 2^-16 seconds and in the range of 32 bits, as the times and
// periods of instruments are: sums of a record's worth of them are exact in whatever way they are
// added.
bool IsExactTime(f64 seconds) {
  constexpr f64 kParts = 65536;
  f64 const parts = seconds * kParts;
  bool const inRange = std::abs(seconds) <= std::numeric_limits<i32>::max();
  return inRange && static_cast<f64>(static_cast<i64>(parts)) == parts;
}

// Takes the entries of one call from RecordBuffer into the output record. The places in both, and
// the running time, are kept here and written back by Close.
class StreamCall {
 public:
  // Takes entries until the record is complete, the stream ends, or the block does; true when the
  // record is complete. The status is that of the last read.
  bool Take(Entry& entry, i32& status) {
    while (pending_ < kEntriesPerRecord) {
      if (inRuns_ && IsSampleByte(*fields_.Ahead())) {
        inRuns_ = TakeSamplesAhead();
        if (inRuns_) continue;
      }
      Read(entry);
      status = fields_.Status();
      if (entry.lastByte == 0 || status < 0) return false;
      if (Collect(entry)) return true;
    }
    return true;
  }

  void Close() const {
    TranslateContext& context = *CurrentContext;
    context.RecordPos = fields_.Place();
    context.SampleCount += static_cast<u32>(pending_ - context.SamplesPending);
    context.SamplesPending = static_cast<i16>(pending_);
    context.StreamTime = time_;
  }

 private:
  bool TakeSamplesAhead() {
    if (levels_.twoBytes)
      return levels_.secondLevels ? TakeRun<true, true>() : TakeRun<true, false>();
    return levels_.secondLevels ? TakeRun<false, true>() : TakeRun<false, false>();
  }

  // Takes the samples ahead up to one that is not above 0; false when there was none. A record's
  // worth of bytes is converted whatever they are: in a loop without a choice processors take
  // several samples at once.
  template <bool kTwoBytes, bool kSecondLevels>
  bool TakeRun() {
    constexpr bool kBoth = kTwoBytes && kSecondLevels;
    using OneOrTwoBytes = std::conditional_t<kTwoBytes || kSecondLevels, u16, u8>;
    using Bytes = std::conditional_t<kBoth, u32, OneOrTwoBytes>;
    constexpr std::ptrdiff_t kSize = sizeof(Bytes);
    // Each entry takes so many bytes, marker or sample, and less than a record's worth of them has
    // been taken from the block before.
    static_assert(kSize * 2 * kEntriesPerRecord <= std::ptrdiff_t{kStreamBlock});
    StreamLevels const levels = levels_;
    const u8* const ahead = fields_.Ahead();
    f32 first[kEntriesPerRecord];
    f32 second[kEntriesPerRecord];
    u32 noSample = 0;  // the top bit of a byte is set when one of them is 0 or above 127
    u32 notAbove0 = 0;
    for (i32 at = 0; at < kEntriesPerRecord; ++at) {
      Bytes sample;
      std::memcpy(&sample, ahead + at * kSize, sizeof sample);
      u32 const hi = ByteOf(sample, 0);
      noSample |= hi | (hi - 1);
      first[at] = levels.FirstOfSample<f32>(hi, kTwoBytes ? ByteOf(sample, 1) : 0);
      notAbove0 |= first[at] > 0 ? 0U : 1U;
      if constexpr (kSecondLevels) {
        second[at] = kTwoBytes ? levels.Second<f32>(ByteOf(sample, 2), ByteOf(sample, 3))
                               : levels.Second<f32>(ByteOf(sample, 1), 0);
      }
    }
    i32 const room = kEntriesPerRecord - pending_;
    i32 taken = room;
    if ((noSample & 0x80) != 0 || notAbove0 != 0) {
      taken = 0;
      while (taken < room && IsSampleByte(ahead[taken * kSize]) && first[taken] > 0) ++taken;
    }
    auto const size = sizeof(f32) * static_cast<std::size_t>(taken);
    std::memcpy(record_.FirstLevels + pending_, first, size);
    if constexpr (kSecondLevels) std::memcpy(record_.SecondLevels + pending_, second, size);
    fields_.Pass(taken * kSize);
    pending_ += taken;
    AdvanceTime(taken);
    return taken > 0;
  }

  // A byte of a sample, by its place in the file.
  template <class Bytes>
  static u32 ByteOf(Bytes sample, int place) {
    constexpr bool kLowestFirst = std::endian::native == std::endian::little;
    int const fromLowest = kLowestFirst ? place : static_cast<int>(sizeof sample) - 1 - place;
    return (u32{sample} >> (8 * fromLowest)) & 0xFF;
  }

  // Adds the period of each sample taken.
  void AdvanceTime(i32 samples) {
    if (timesAreExact_) {
      time_ += samples * period_;
    } else {
      for (i32 at = 0; at < samples; ++at) time_ += period_;
    }
  }

  // Reads one entry of any kind.
  void Read(Entry& entry) {
    entry.lastByte = fields_.Byte();
    if (IsSampleByte(entry.lastByte)) {
      ReadSample(entry);
    } else if (entry.lastByte != 0) {
      ReadMarker(entry);
    }
  }

  void ReadMarker(Entry& entry) {
    entry.first = -static_cast<f32>(entry.lastByte);
    if (levels_.twoBytes) entry.lastByte = fields_.Byte();
    if (!levels_.secondLevels) return;
    entry.lastByte = fields_.Byte();
    entry.second = entry.lastByte;
    if (levels_.twoBytes) entry.lastByte = fields_.Byte();
  }

  void ReadSample(Entry& entry) {
    u32 const lo = levels_.twoBytes ? fields_.Byte() : u8{0};
    if (fields_.Status() < 0) return;
    entry.first = levels_.First(entry.lastByte, lo);
    if (!levels_.secondLevels) return;
    u32 const hi2 = fields_.Byte();
    u32 const lo2 = levels_.twoBytes ? fields_.Byte() : u8{0};
    if (fields_.Status() >= 0) entry.second = levels_.Second(hi2, lo2);
  }

  // Puts an entry into the record; true when that completes it.
  bool Collect(const Entry& entry) {
    if (!(entry.first > 0)) return CollectMarker(entry);
    record_.FirstLevels[pending_] = entry.first;
    if (levels_.secondLevels) record_.SecondLevels[pending_] = entry.second;
    ++pending_;
    AdvanceTime(1);
    return false;
  }

  // Puts a marker into the record, and a sample at or below 0, which counts as one. A run marker
  // sets the time to that of the event it answers to, and completes the record.
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
  BodyFields fields_;
  i32 pending_ = CurrentContext->SamplesPending;
  f64 time_ = CurrentContext->StreamTime;
  f64 period_ = CurrentContext->StreamPeriod;
  bool inRuns_ = levels_.OffsetIsSingle();
  bool timesAreExact_ = IsExactTime(time_) && IsExactTime(period_);
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
  // How many bytes came is not asked: the file's last stream fills no block of this size, and its
  // end is told by a 0 in the stream. Where the file is cut before that, the decoder goes on with
  // what stands in the buffer from the block before, as it does in every body that comes short; the
  // step counts how many bytes it used of that.
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

i32 SkipStreamBlock(i32& entry) {
  TranslateContext& context = *CurrentContext;
  i32 const block = context.FileOffset;
  context.RecordLength = kStreamBlock;
  context.AutoRefill = 1;
  ReadRecordBlock(kStreamBlock);
  context.RecordPos = entry;
  i32 status = 0;
  u8 last = 0;
  do {
    PassSamples();
    last = PassStreamEntry(status);
  } while (last != 0 && status >= 0 && context.FileOffset == block);
  context.AutoRefill = 0;
  bool const goesOn = last != 0 && status >= 0;
  entry = goesOn ? context.RecordPos : kBehindStream;
  if (goesOn) return status;
  if (context.FileOffset > std::numeric_limits<i32>::max() - context.RecordPos) {
    return FailWith(QV_SEEK_FAILED);
  }
  context.FileOffset += context.RecordPos;
  return status;
}

}  // namespace qvslm
