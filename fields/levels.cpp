#include "fields/levels.h"

#include "fields/byte_reader.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

f64 Fixed(u32 whole, u32 parts) {
  return whole + parts / 256.0;
}

f32 Stored(f64 value) {
  return static_cast<f32>(value);
}

}  // namespace

void DecodeU8(u32& result) {
  result = ReadByte();
}

void DecodeU16(u32& result) {
  result = ReadWord();
}

void DecodeU16Short(u16& result) {
  result = static_cast<u16>(ReadWord());
}

i32 DecodeU24() {
  u32 const high = ReadByte();
  return static_cast<i32>(high * 65536 + ReadWord());
}

void DecodeEventByte(u16& event, u16& detail) {
  u8 const byte = ReadByte();
  event = byte & 0x70;
  detail = byte & 0x0F;
}

void DecodeStatusByte(u16& flag, u16& code) {
  u8 const byte = ReadByte();
  flag = byte & 0x20;
  code = byte & 0x87;
  if (code > 128) code = 128;
}

void DecodeFixed16(f32& result) {
  u32 const hi = ReadByte();
  result = Stored(Fixed(hi, ReadByte()));
}

void DecodeSignedFixed16(f32& result) {
  i32 const hi = ReadByte();
  result = Stored((hi >= 192 ? hi - 256 : hi) + ReadByte() / 256.0);
}

void DecodeFixed24(f32& result) {
  u32 const whole = ReadByte();
  f32 const fraction = Stored(ReadWord() / 65536.0);
  result = Stored(whole + static_cast<f64>(fraction));
}

void DecodeLevel(f32& result) {
  u32 const hi = ReadByte();
  u32 const lo = ReadByte();
  result = lo == 0 ? kNoLevel : Stored(Fixed(hi, lo) + CurrentContext->LevelOffset);
}

void DecodeLevelZeroMarked(f32& result) {
  u32 const hi = ReadByte();
  u32 const lo = ReadByte();
  result = hi + lo == 0 ? kNoLevel : Stored(Fixed(hi, lo) + CurrentContext->LevelOffset);
}

void DecodeFlaggedLevel(f32& result) {
  u32 const hi = ReadByte();
  u32 const lo = ReadByte();
  result = Stored(Fixed(hi, lo));
  if (hi + lo > 0) result = Stored(static_cast<f64>(result) + CurrentContext->LevelOffset);
  if ((lo & 2) == 0) result = -result;
  if ((lo & 1) == 0) result = 0;
}

void DecodeScaledByte(const AuxiliaryChannel& channel, f32& result) {
  f64 const low = channel.Low;
  result = Stored((channel.High - low) / 256.0 * ReadByte() + low);
}

void DecodeSpan(f32& result) {
  u32 const value = ReadWord();
  result = CurrentContext->Model == kModel442 ? static_cast<f32>(value)
                                              : Stored(value * 12478.0 / 65536.0);
}

void DecodeDuration(f32& result, i32 kind) {
  if (kind == 3) {
    u32 const seconds = ReadByte();
    result = Stored(seconds + ReadWord() / 65536.0);
  } else if (kind == 5 || kind == 6) {
    u32 const hours = ReadWord();
    u32 const minutes = ReadByte();
    u32 const whole = ReadByte();
    f64 const fraction = kind == 5 ? ReadByte() / 256.0 : ReadWord() / 65536.0;
    f32 const seconds = Stored(whole + fraction);
    result = Stored(hours * 3600.0 + minutes * 60.0 + seconds);
  } else {
    result = 0;
  }
}

void DecodeDuration5(f32& result) {
  DecodeDuration(result, 5);
}

f64 WholeLevelOffset() {
  f32 const offset = CurrentContext->LevelOffset;
  f64 whole = TruncateToI32(offset);
  if (offset < 0 && TruncateToI32(offset * 10.0) % 10 != 0) whole -= 1.0;
  return whole;
}

namespace {

// What is added to a level of a stream.
f64 StreamOffset() {
  if (CurrentContext->Model == kModel442) return CurrentContext->StreamLevelBase;
  return CurrentContext->WholeDbStream != 0 ? WholeLevelOffset() : CurrentContext->LevelOffset;
}

bool SecondLevelOfOldFirmware() {
  i16 const model = CurrentContext->Model;
  f64 const version = CurrentContext->FirmwareVersion;
  if (model == kDefaultModel) return version < 1.111;
  return model < kDefaultModel && !IsModel431Or442() && version < 1.127;
}

}  // namespace

i32 DecodeStreamLevel(u8 first, f32& result) {
  TranslateContext& context = *CurrentContext;
  u32 lo = 0;
  if (context.WholeDbStream == 0) {
    lo = ReadByte();
    if (context.ErrorCode < 0) return context.ErrorCode;
  }
  result = Stored(first + (context.Model == kModel442 ? lo : 2 * lo) / 256.0);
  if (first + lo >= 1) result = Stored(result + StreamOffset());
  return 0;
}

i32 DecodeStreamLevel2(f32& result) {
  TranslateContext& context = *CurrentContext;
  u32 const hi = ReadByte();
  if (context.ErrorCode < 0) return context.ErrorCode;
  u32 lo = 0;
  if (context.WholeDbStream == 0) {
    lo = ReadByte();
    if (context.ErrorCode < 0) return context.ErrorCode;
  }
  result = Stored(hi + 2 * lo / 256.0);
  if (context.SecondLevelKind == 4) return 0;

  u32 const sum = hi + lo;
  if (sum == 0 || sum == 2) {
    result = kNoLevel;
    return 0;
  }
  result = Stored(result + StreamOffset());
  bool const raised =
      context.SecondLevelKind < 3 || (context.SecondLevelKind == 3 && SecondLevelOfOldFirmware());
  if (raised) result = Stored(result + 16.0);
  return 0;
}

}  // namespace qvslm
