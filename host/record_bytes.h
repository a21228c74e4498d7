// Values as they stand in the bytes of a record.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>

#include "record_info.h"

namespace host {

template <class T>
T ReadAs(const std::uint8_t* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// A field of whole numbers.
inline std::int64_t ReadWhole(record_fields::FieldType type, const std::uint8_t* bytes) {
  switch (type) {
    case record_fields::FieldType::U8:
      return *bytes;
    case record_fields::FieldType::U16:
      return ReadAs<std::uint16_t>(bytes);
    case record_fields::FieldType::U32:
      return ReadAs<std::uint32_t>(bytes);
    case record_fields::FieldType::I32:
      return ReadAs<std::int32_t>(bytes);
    case record_fields::FieldType::F32:
    case record_fields::FieldType::Char:
      break;
  }
  return 0;
}

// Writes a whole number, and gives the end of it.
inline char* PutWhole(char* at, record_fields::FieldType type, const std::uint8_t* bytes) {
  constexpr int most = 20;
  return std::to_chars(at, at + most, ReadWhole(type, bytes)).ptr;
}

}  // namespace host
