#include "models/position_table.h"

#include <cstdio>
#include <cstring>

#include "fields/byte_reader.h"
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
void StoreValues(u8* field, u16 size, Decoder decode) {
  for (u8* const end = field + size; field < end; field += sizeof(f32)) {
    f32 value = 0;
    decode(value);
    Store(field, value);
  }
}

void StoreWideBytes(u8* field, u16 size) {
  for (u8* const end = field + size; field < end; field += sizeof(u16)) {
    Store(field, u16{ReadByte()});
  }
}

// The quotient and the sum are both rounded to f32.
void DecodeFixed24Wide(f32& result) {
  f32 const whole = ReadByte();
  auto const fraction = static_cast<f32>(ReadWord() / 65535.0);
  result = whole + fraction;
}

void DecodeRatio(f32& result) {
  result = static_cast<f32>(ReadWord() / 32512.0);
}

void StoreText(u8* field, u16 size, const char* format, int a, int b, int c) {
  char text[16];
  std::snprintf(text, sizeof text, format, a, b, c);
  CopyText(reinterpret_cast<char*>(field), size, text);
}

void DecodePosition(const Position& position, u8* field) {
  u16 const size = position.size;
  auto const next = [] { return int{ReadByte()}; };
  switch (position.form) {
    case BodyForm::Byte:
      return size == 1 ? Store(field, ReadByte()) : Store(field, u16{ReadByte()});
    case BodyForm::Bytes:
      return ReadRawBytes(field, size);
    case BodyForm::WideBytes:
      return StoreWideBytes(field, size);
    case BodyForm::Word:
      return size == 2 ? Store(field, static_cast<u16>(ReadWord())) : Store(field, ReadWord());
    case BodyForm::Fixed16:
      return StoreValues(field, size, DecodeFixed16);
    case BodyForm::SignedFixed16:
      return StoreValues(field, size, DecodeSignedFixed16);
    case BodyForm::Fixed24:
      return StoreValues(field, size, DecodeFixed24);
    case BodyForm::Fixed24Wide:
      return StoreValues(field, size, DecodeFixed24Wide);
    case BodyForm::Level:
      return StoreValues(field, size, DecodeLevel);
    case BodyForm::Ratio:
      return StoreValues(field, size, DecodeRatio);
    default:
      break;
  }
  int const a = next();
  int const b = next();
  switch (position.form) {
    case BodyForm::DateText:
      return StoreText(field, size, "%02x/%02x/%02x", next(), b, a);
    case BodyForm::ClockText:
      return StoreText(field, size, "%02x:%02x:%02x", a, b, next());
    case BodyForm::PlainClockText:
      return StoreText(field, size, "%02d:%02d:%02d", a, b, next());
    default:
      return StoreText(field, size, "%02x:%02x", a, b, 0);
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
    CurrentContext->RecordPos = position.at;
    DecodePosition(position, static_cast<u8*>(record) + position.offset);
  }
}

i32 BodyStatus(u32 size) {
  return CurrentContext->RecordLength < size ? QV_RECORD_TOO_SHORT : QV_OK;
}

u8 BodyByte(u32 at) {
  return at < CurrentContext->RecordLength ? CurrentContext->RecordBuffer[at] : u8{0};
}

}  // namespace qvslm
