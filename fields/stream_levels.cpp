#include "fields/stream_levels.h"

#include "fields/byte_reader.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

bool HasOldSecondLevels() {
  i16 const model = CurrentContext->Model;
  f64 const version = CurrentContext->FirmwareVersion;
  if (model == kDefaultModel) return version < 1.111;
  return model < kDefaultModel && !IsModel431Or442() && version < 1.127;
}

f64 OffsetInForce() {
  const TranslateContext& context = *CurrentContext;
  if (context.Model == kModel442) return context.StreamLevelBase;
  return context.WholeDbStream != 0 ? WholeLevelOffset() : context.LevelOffset;
}

}  // namespace

f64 WholeLevelOffset() {
  f32 const offset = CurrentContext->LevelOffset;
  f64 whole = TruncateToI32(offset);
  if (offset < 0 && TruncateToI32(offset * 10.0) % 10 != 0) whole -= 1.0;
  return whole;
}

StreamLevels StreamLevelsInForce() {
  const TranslateContext& context = *CurrentContext;
  u16 const kind = context.SecondLevelKind;
  bool const raised = kind < 3 || (kind == 3 && HasOldSecondLevels());
  return {
      .twoBytes = context.WholeDbStream == 0,
      .secondLevels = kind != 0,
      .firstShift = context.Model == kModel442 ? 0U : 1U,
      .offset = OffsetInForce(),
      .secondRaise = raised ? 16.0F : 0.0F,
      .plainSecond = kind == 4,
  };
}

i32 DecodeStreamLevel(BodyFields& fields, u8 first, f32& result) {
  u32 lo = 0;
  if (CurrentContext->WholeDbStream == 0) {
    lo = fields.Byte();
    if (fields.Status() < 0) return fields.Status();
  }
  result = StreamLevelsInForce().First(first, lo);
  return 0;
}

i32 DecodeStreamLevel2(BodyFields& fields, f32& result) {
  bool const twoBytes = CurrentContext->WholeDbStream == 0;
  const u8* const bytes = fields.Take(twoBytes ? 2 : 1);
  if (fields.Status() < 0) return fields.Status();
  result = StreamLevelsInForce().Second(bytes[0], twoBytes ? bytes[1] : 0U);
  return 0;
}

u32 PassSamples() {
  TranslateContext& context = *CurrentContext;
  i32 const bytes = (context.WholeDbStream == 0 ? 2 : 1) * (context.SecondLevelKind != 0 ? 2 : 1);
  i32 const last = static_cast<i32>(context.RecordLength) - bytes;
  i32 const from = context.RecordPos;
  i32 at = from;
  while (at <= last && IsSampleByte(context.RecordBuffer[at])) at += bytes;
  context.RecordPos = at;
  return static_cast<u32>((at - from) / bytes);
}

u8 PassStreamEntry(i32& status) {
  const TranslateContext& context = *CurrentContext;
  bool const twoBytes = context.WholeDbStream == 0;
  bool const secondLevel = context.SecondLevelKind != 0;
  u8 const first = ReadByte(status);
  if (status < 0 || first == 0) return first;
  u8 last = first;
  if (twoBytes) last = ReadByte(status);
  if (secondLevel && status >= 0) last = ReadByte(status);
  if (secondLevel && twoBytes && status >= 0) last = ReadByte(status);
  return IsSampleByte(first) ? first : last;
}

}  // namespace qvslm
