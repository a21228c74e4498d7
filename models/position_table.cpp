#include "models/position_table.h"

#include <cstring>
#include <string_view>

#include "fields/levels.h"
#include "fields/number_text.h"

namespace qvslm {

namespace {

template <class Value>
void Store(u8* field, Value value) {
  std::memcpy(field, &value, sizeof value);
}

// Values of one form that fill the field.
template <class Decoder>
void StoreValues(BodyFields& fields, u8* field, u16 size, Decoder decode) {
  for (u8* const end = field + size; field < end; field += sizeof(f32)) {
    f32 value = 0;
    decode(fields, value);
    Store(field, value);
  }
}

void StoreWideBytes(BodyFields& fields, u8* field, u16 size) {
  for (u8* const end = field + size; field < end; field += sizeof(u16)) {
    Store(field, u16{fields.Byte()});
  }
}

// The quotient and the sum are both rounded to f32.
void DecodeFixed24Wide(BodyFields& fields, f32& result) {
  f32 const whole = fields.Byte();
  auto const fraction = static_cast<f32>(fields.Word() / 65535.0);
  result = whole + fraction;
}

void DecodeRatio(BodyFields& fields, f32& result) {
  result = static_cast<f32>(fields.Word() / 32512.0);
}

// Two digits at least, of packed decimals as they stand or of a plain number.
char* PutPacked(char* text, u8 byte) {
  constexpr char kDigits[] = "0123456789abcdef";
  *text++ = kDigits[byte / 16];
  *text++ = kDigits[byte % 16];
  return text;
}

char* PutPlain(char* text, u8 byte) {
  if (byte >= 100) *text++ = static_cast<char>('0' + byte / 100);
  *text++ = static_cast<char>('0' + byte / 10 % 10);
  *text++ = static_cast<char>('0' + byte % 10);
  return text;
}

// Numbers with a mark between them.
template <std::size_t Count>
void StoreText(u8* field, u16 size, char* (*put)(char*, u8), char mark, const u8 (&bytes)[Count]) {
  char text[4 * Count];
  char* end = text;
  for (u8 const byte : bytes) {
    if (end != text) *end++ = mark;
    end = put(end, byte);
  }
  CopyText(reinterpret_cast<char*>(field), size,
           std::string_view(text, static_cast<std::size_t>(end - text)));
}

void StoreDateOrClock(BodyFields& fields, const Position& position, u8* field) {
  u8 const a = fields.Byte();
  u8 const b = fields.Byte();
  if (position.form == BodyForm::ShortClockText) {
    return StoreText(field, position.field.size, PutPacked, ':', {a, b});
  }
  u8 const c = fields.Byte();
  switch (position.form) {
    case BodyForm::DateText:
      return StoreText(field, position.field.size, PutPacked, '/', {c, b, a});
    case BodyForm::PlainClockText:
      return StoreText(field, position.field.size, PutPlain, ':', {a, b, c});
    default:
      return StoreText(field, position.field.size, PutPacked, ':', {a, b, c});
  }
}

void DecodePosition(const Position& position, u8* field) {
  BodyFields fields(position.at);
  u16 const size = position.field.size;
  switch (position.form) {
    case BodyForm::Byte:
      return size == 1 ? Store(field, fields.Byte()) : Store(field, u16{fields.Byte()});
    case BodyForm::Bytes:
      return fields.Raw(field, size);
    case BodyForm::EndedBytes:
      return fields.Raw(field, size - 1U);
    case BodyForm::WideBytes:
      return StoreWideBytes(fields, field, size);
    case BodyForm::Word:
      return size == 2 ? Store(field, static_cast<u16>(fields.Word()))
                       : Store(field, fields.Word());
    case BodyForm::Fixed16:
      return StoreValues(fields, field, size, DecodeFixed16);
    case BodyForm::SignedFixed16:
      return StoreValues(fields, field, size, DecodeSignedFixed16);
    case BodyForm::Fixed24:
      return StoreValues(fields, field, size, DecodeFixed24);
    case BodyForm::Fixed24Wide:
      return StoreValues(fields, field, size, DecodeFixed24Wide);
    case BodyForm::Level:
      return StoreValues(fields, field, size, DecodeLevel);
    case BodyForm::Ratio:
      return StoreValues(fields, field, size, DecodeRatio);
    default:
      return StoreDateOrClock(fields, position, field);
  }
}

}  // namespace

bool IsFirmware(Firmware firmware) {
  f32 const version = CurrentContext->FirmwareVersion;
  f64 const widened = version;
  switch (firmware) {
    case Firmware::UpTo201:
      return !(widened > 2.01);
    case Firmware::Above201:
      return widened > 2.01;
    case Firmware::Above3115:
      return widened > 3.115;
    case Firmware::Below36:
      return !(version >= 3.6F);
    case Firmware::From36:
      return version >= 3.6F;
    default:
      return true;
  }
}

void DecodePositions(std::span<const Position> positions, void* record) {
  for (const Position& position : positions) {
    if (!IsFirmware(position.firmware)) continue;
    DecodePosition(position, static_cast<u8*>(record) + position.field.offset);
  }
}

i32 BodyStatus(u32 size) {
  return CurrentContext->RecordLength < size ? QV_RECORD_TOO_SHORT : QV_OK;
}

u8 BodyByte(u32 at) {
  return at < CurrentContext->RecordLength ? CurrentContext->RecordBuffer[at] : u8{0};
}

}  // namespace qvslm
