// Band records have no time of their own: each takes that of the record that owns it. Since
// fetching the owner overwrites RecordBuffer, the tables are converted first.

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/interval_head.h"
#include "records/record_seeker.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr u32 kShortForm129 = 200;
constexpr u16 kShortFormFlag = 0x2000;
constexpr u16 kNoSequence = 65535;

// Band levels count powers of two; this makes decibels of them.
constexpr f32 kDecibelsPerDoubling = 3.0102999210357666F;

f32 BandLevel(const u8* pair) {
  i32 const parts = static_cast<i8>(pair[0]) * 256 + pair[1];
  return static_cast<f32>(parts) * (1 / 256.0F) * kDecibelsPerDoubling;
}

const u8* BodyAt(i32 offset) {
  return CurrentContext->RecordBuffer + offset;
}

// Tables stand with their last band first: band 0 lies at the given body offset, the others before
// it, as far as the body's start. Those that are not there stay 0.
void ConvertBands(f32 (&bands)[34], i32 offset) {
  const u8* const first = BodyAt(offset);
  i32 const there = std::min(static_cast<i32>(std::size(bands)), offset / 2 + 1);
  for (i32 band = 0; band < there; ++band)
    bands[band] = BandLevel(first - std::ptrdiff_t{2} * band);
}

// The status of a band record is that of the byte read last, its owner's where there is one.
void NoteStatus(const BodyFields& fields) {
  CurrentContext->ErrorCode = fields.Status();
}

// The number that a body begins with.
u32 DecodeNumber() {
  BodyFields fields;
  u32 number = 0;
  DecodeU16(fields, number);
  NoteStatus(fields);
  return number;
}

// An owner that is not found is no failure of the translation.
i32 PresentTime() {
  i32 const now = PresentSeconds();
  CurrentContext->ErrorCode = 0;
  return now;
}

i32 TimeOfLevelMark(u32 number) {
  if (SeekRecord(5, number) < 0) return PresentTime();
  BodyFields fields;
  fields.Skip(1);
  Calendar stamp = DecodePackedStamp(fields);
  NoteStatus(fields);
  return NormalizeTime(stamp, &LastTimes->LastTimeRec131);
}

i32 TimeOfSummary(u32 number) {
  if (SeekRecord(2, number) < 0) return PresentTime();
  BodyFields fields;
  Calendar stamp = DecodePackedStamp(fields);
  NoteStatus(fields);
  return NormalizeTime(stamp, &LastTimes->LastTimeRec130);
}

// The interval's start, as the interval's own record has it.
i32 TimeOfInterval(u32 number, i32* slot) {
  if (SeekRecord(1, number) < 0) return PresentTime();
  BodyFields fields;
  Calendar stamp;
  IntervalHead const head = DecodeIntervalHead(fields, stamp);
  NoteStatus(fields);
  return head.Start(NormalizeTime(stamp, slot));
}

}  // namespace

i32 DecodeRec131() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvLevelMarkBands>(QV_LEVEL_MARK_BANDS);
  record.OwnerNumber = DecodeNumber();
  record.RecordIndex = context.Count129to132;
  ConvertBands(record.Bands, 69);
  if (context.ErrorCode >= 0) record.RecordTime = TimeOfLevelMark(record.OwnerNumber);
  return context.ErrorCode;
}

i32 DecodeRec130() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvSummaryBands>(QV_SUMMARY_BANDS);
  record.OwnerNumber = DecodeNumber();
  record.RecordIndex = context.Count129to132;
  ConvertBands(record.BandsA, 71);
  ConvertBands(record.BandsB, 140);
  ConvertBands(record.BandsC, 209);
  if (context.ErrorCode >= 0) record.RecordTime = TimeOfSummary(record.OwnerNumber);
  return context.ErrorCode;
}

i32 DecodeRec129() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvIntervalBands>(QV_INTERVAL_BANDS);
  record.OwnerNumber = DecodeNumber();
  record.RecordIndex = context.Count129to132;
  if (context.RecordLength < kShortForm129) {
    record.BandFlags = kShortFormFlag;
    ConvertBands(record.BandsA, 129);
    ConvertBands(record.BandsB, 60);  // down to the pair that is the owner number
    record.LevelPair1 = BandLevel(BodyAt(131));
    record.Value =
        static_cast<f32>((context.RecordBuffer[133] * 256 + context.RecordBuffer[134]) / 2.0);
    record.OverallLevel = BandLevel(BodyAt(135));
    record.ShortByte = context.RecordBuffer[137];
  } else {
    ConvertBands(record.BandsA, 69);
    ConvertBands(record.BandsB, 138);
    ConvertBands(record.BandsC, 207);
    record.OverallLevel = BandLevel(BodyAt(209));
  }
  if (context.ErrorCode >= 0) {
    record.RecordTime = TimeOfInterval(record.OwnerNumber, &LastTimes->LastTimeRec129);
  }
  return context.ErrorCode;
}

// The body holds the number of the interval before the owner, and on the owner's last table the
// owner's own number.
i32 DecodeRec132() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvIntervalBandSeries>(QV_INTERVAL_BAND_SERIES);
  u32 const number = DecodeNumber();
  record.RecordIndex = context.Count129to132;
  record.LastOfOwner = static_cast<i32>(number) == context.Owner132 ? 1 : 0;
  i32 const owner = static_cast<i32>(number) + (record.LastOfOwner == 1 ? 0 : 1);
  record.SequenceInOwner = ++context.Sequence132;
  record.OwnerNumber = static_cast<u32>(owner);
  ConvertBands(record.Bands, 69);
  if (context.ErrorCode >= 0) {
    if (owner != context.Owner132) {
      context.OwnerTime132 = TimeOfInterval(record.OwnerNumber, &LastTimes->LastTimeRec132);
      context.Owner132 = owner;
    }
    record.RecordTime = context.OwnerTime132;
  }
  if (record.LastOfOwner == 1) {
    context.Sequence132 = kNoSequence;
    context.Owner132 = -1;
  }
  return context.ErrorCode;
}

}  // namespace qvslm
