// The record pump: one call takes one item of the file, or a stretch of a streamed one. It owns
// framing and counting; the decoders own the records.

#include <cstring>
#include <limits>

#include "api/context.h"
#include "api/framing.h"
#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/output_record.h"
#include "models/models.h"
#include "records/records.h"
#include "settings/settings.h"

namespace qvslm {

namespace {

constexpr u16 kEveryFamily = 65535;

void NoteFirst(i32& firstOffset) {
  if (firstOffset < 1) firstOffset = CurrentContext->FileOffset;
}

// Reads an item whose decoder sets FileOffset itself.
template <class Decoder>
i32 ReadThen(Decoder decoder) {
  i32 const framed = ReadFramedBody();
  return framed < 0 ? framed : decoder();
}

// Reads an item and moves FileOffset behind it, whatever the decoder says.
template <class Decoder>
i32 ReadAndPass(Decoder decoder) {
  i32 const framed = ReadFramedBody();
  if (framed < 0) return framed;
  i32 const status = decoder();
  i32 const kept = KeepFilePosition();
  return kept < 0 ? kept : status;
}

i32 NoDecoder() {
  return CurrentContext->ErrorCode;
}

// Whether a family passes the filter by which one could be asked for alone.
bool IsWanted(QvRecordCode code) {
  u16 const filter = CurrentContext->RecordFilter;
  return filter == kEveryFamily || filter == code;
}

// The families 129 to 132: their decoders move about in the file, so the place is kept before.
template <class Decoder>
i32 BandItem(i32& firstOffset, QvRecordCode code, Decoder decoder) {
  NoteFirst(firstOffset);
  ++CurrentContext->Count129to132;
  return ReadThen([&] {
    i32 const kept = KeepFilePosition();
    if (kept < 0) return kept;
    return IsWanted(code) ? decoder() : CurrentContext->ErrorCode;
  });
}

i32 DecodeItem1() {
  TranslateContext& context = *CurrentContext;
  if (context.Mode == 4) {
    i32 const status = DecodeRec1Mode4();
    OutputAs<QvBandInterval>().RecordIndex = context.Count1;
    return status;
  }
  i32 const status = DecodeRec1(context.LimitLevel);
  OutputAs<QvInterval>().RecordIndex = context.Count1;
  return status;
}

template <class Record>
i32 CountedItem2(i32 (*decoder)()) {
  i32 const status = decoder();
  OutputAs<Record>().RecordIndex = CurrentContext->Count2;
  return status;
}

i32 TallyItem2() {
  i32 const status = DecodeRec2Model442Mode7();
  auto& record = OutputAs<QvTallyLevels>();
  if (record.RecordType >= QV_TALLY_LEVELS && record.RecordType <= QV_TALLY_TOTALS) {
    record.RecordIndex = CurrentContext->Count2;
  }
  return status;
}

// Item 2 by model and mode. Modes without a form leave the item where it is.
i32 DecodeItem2() {
  TranslateContext& context = *CurrentContext;
  if (!IsModel431Or442()) return CountedItem2<QvSummary>(DecodeRec2);
  if (context.Mode == 2 || context.Mode == 3) return CountedItem2<QvSummary>(DecodeRec2);
  if (context.Model == kModel431) {
    switch (context.Mode) {
      case 0:
        return CountedItem2<QvBands431>(DecodeRec2Model431Mode0);
      case 1:
        return CountedItem2<QvSummary431>(DecodeRec2Model431Mode1);
      default:
        return NoDecoder();
    }
  }
  switch (context.Mode) {
    case 0:
      return CountedItem2<QvSpectrumSummary>(DecodeRec2Model442Mode0);
    case 4:
      return CountedItem2<QvBandTable>(DecodeRec2Model442Mode4);
    case 5:
      return CountedItem2<QvNarrowTable>(DecodeRec2Model442Mode5);
    case 7:
      return TallyItem2();
    default:
      return NoDecoder();
  }
}

// Records 3, 4 and 5 have their sequence number in RecordIndex.
template <class Record>
i32 Counted(i32 (*decoder)(), u32 count) {
  i32 const status = decoder();
  OutputAs<Record>().RecordIndex = count;
  return status;
}

bool AdvanceBy(i32 bytes) {
  TranslateContext& context = *CurrentContext;
  if (context.FileOffset > std::numeric_limits<i32>::max() - bytes) return false;
  context.FileOffset += bytes;
  return true;
}

// One call's share of a sample stream.
i32 StreamStep(u32 type) {
  TranslateContext& context = *CurrentContext;
  if (context.StreamInProgress == 0) {
    NoteFirst(context.FirstOffset6);
    if (!AdvanceBy(1)) return FailWith(QV_SEEK_FAILED);
  }
  context.StreamInProgress = 1;
  context.StreamType = static_cast<i16>(type);
  i32 const status = DecodeStream();
  if (context.BytesRead == 0) [[unlikely]]
    CountBytesBehindFile();
  return status;
}

// One block of a list.
i32 ListStep(u32 type) {
  TranslateContext& context = *CurrentContext;
  if (context.StreamInProgress == 0) {
    NoteFirst(context.FirstOffset6);
    i32 const length = ReadFileByte();
    if (length < 0) {
      NoteBytesMissing(1);
      return QV_BAD_LENGTH;
    }
    context.RecordLength = static_cast<u32>(length);
    if (!AdvanceBy(2)) return FailWith(QV_SEEK_FAILED);
  }
  context.StreamInProgress = 1;
  context.StreamType = static_cast<i16>(type);
  return type == 27 ? DecodeStream27() : DecodeStream21();
}

i32 EndData() {
  TranslateContext& context = *CurrentContext;
  i32 const kept = KeepFilePosition();
  if (kept < 0) return kept;
  if (context.KeepFileOpen != 0) CloseDataFile();
  std::memcpy(context.Output, &context.EndRecord, sizeof context.EndRecord);
  return QV_END_OF_DATA;
}

i32 SettingsItem() {
  TranslateContext& context = *CurrentContext;
  i32 const back = StepBackOneByte();
  if (back < 0) return back;
  i32 const status = ParseQBlock();
  SetFirstOffsets(context.FileOffset);
  return status;
}

i32 ResultsItem() {
  TranslateContext& context = *CurrentContext;
  i32 const back = StepBackOneByte();
  if (back < 0) return back;
  if (context.Model == kModel431) return ParseRBlock431();
  if (context.Model == kModel442) return ParseRBlock442();
  return ParseRBlock();
}

i32 Dispatch(u32 type) {
  TranslateContext& context = *CurrentContext;
  bool const model431 = context.Model == kModel431;
  switch (type) {
    case kEndOfData:
      return EndData();
    case 1:
      NoteFirst(context.FirstOffset1);
      ++context.Count1;
      return ReadThen(DecodeItem1);
    case 2:
      NoteFirst(context.FirstOffset2);
      ++context.Count2;
      return ReadThen(DecodeItem2);
    case 3:
      NoteFirst(context.FirstOffset3);
      ++context.Count3;
      return ReadAndPass([&] { return Counted<QvDaySummary>(DecodeRec3, context.Count3); });
    case 4:
      NoteFirst(context.FirstOffset4);
      ++context.Count4;
      return ReadAndPass([&] { return Counted<QvEvent>(DecodeRec4, context.Count4); });
    case 5:
      NoteFirst(context.FirstOffset5);
      ++context.Count5;
      return ReadThen([&] { return Counted<QvLevelMark>(DecodeRec5, context.Count5); });
    case 6:
      return IsModel431Or442() ? ReadThen(NoDecoder) : StreamStep(type);
    case 7:
      return IsModel431Or442() ? StreamStep(type) : ReadAndPass(DecodeRec8);
    case 8:
      return ReadAndPass(DecodeRec8);
    case 21:
    case 27:
      return ListStep(type);
    case kReferenceItem:
      return ReadAndPass(model431 ? DecodeRecC431 : DecodeRecC);
    case kEndLinesItem:
      return PassEndLines();
    case kSetupItem:
      return ReadAndPass(DecodeRecM);
    case kSettingsItem:
      return SettingsItem();
    case kResultsItem:
      return ResultsItem();
    case kSiteItem:
      return ReadAndPass(model431 ? DecodeRecS431 : DecodeRecS);
    case 129:
      return BandItem(context.FirstOffset129, QV_INTERVAL_BANDS, DecodeRec129);
    case 130:
      return BandItem(context.FirstOffset130, QV_SUMMARY_BANDS, DecodeRec130);
    case 131:
      return BandItem(context.FirstOffset131, QV_LEVEL_MARK_BANDS, DecodeRec131);
    case 132:
      return BandItem(context.FirstOffset132, QV_INTERVAL_BAND_SERIES, DecodeRec132);
    default:
      if (type > 0xFF) NoteBytesMissing(1);
      return ReadAndPass(NoDecoder);
  }
}

}  // namespace

}  // namespace qvslm

std::int32_t QV_TranslateNextRec(void* record, void* contextBytes) {
  using namespace qvslm;
  if (record == nullptr || contextBytes == nullptr) return QV_NO_ARGUMENT;
  CurrentContext = static_cast<TranslateContext*>(contextBytes);
  TranslateContext& context = *CurrentContext;
  context.Output = record;
  context.RawRecordCopy = nullptr;
  *static_cast<u16*>(record) = QV_NO_RECORD;
  context.RecordFilter = kEveryFamily;
  context.BytesMissing = 0;

  if (context.File == nullptr && !OpenDataFile(context.FilePath)) return FailWith(QV_CANNOT_OPEN);
  context.ErrorCode = SeekDataFile(context.FileOffset);
  if (context.ErrorCode != 0) return FailWith(QV_SEEK_FAILED);

  i32 type = context.StreamType;
  if (context.StreamInProgress == 0) {
    context.RecordLength = 0;
    type = ReadFileByte();
  }
  context.RecordPos = 0;
  context.ErrorCode = Dispatch(static_cast<u32>(type));

  context.Output = nullptr;
  if (context.KeepFileOpen == 0) CloseDataFile();
  return context.ErrorCode;
}
