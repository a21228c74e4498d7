#include "models/stream_fields.h"

#include "fields/stream_levels.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

struct Pair {
  u32 hi;
  u32 lo;
};

Pair ReadPair(BodyFields& fields) {
  bool const twoBytes = CurrentContext->WholeDbStream == 0;
  const u8* const bytes = fields.Take(twoBytes ? 2 : 1);
  return {bytes[0], twoBytes ? bytes[1] : 0U};
}

f64 OffsetInForce() {
  const TranslateContext& context = *CurrentContext;
  return context.WholeDbStream != 0 ? WholeLevelOffset() : context.LevelOffset;
}

f32 FieldOf(Pair pair, f64 offset) {
  auto const [hi, lo] = pair;
  return hi + lo == 0 ? 0.0F : Stored(Parts256(hi * 256 + lo) + offset);
}

}  // namespace

i32 DecodeStreamField(BodyFields& fields, f32& result) {
  result = FieldOf(ReadPair(fields), OffsetInForce());
  return fields.Status();
}

void DecodeStreamFields(BodyFields& fields, std::span<f32> values) {
  BodyFields row = fields;
  f64 const offset = OffsetInForce();
  for (f32& value : values) value = FieldOf(ReadPair(row), offset);
  fields = row;
}

i32 DecodeStreamRatio(BodyFields& fields, f32& result) {
  auto const [hi, lo] = ReadPair(fields);
  result = Stored((hi * 256 + lo) / 45590.0 * 8.0);
  return fields.Status();
}

i32 DecodeStreamSixteenth(BodyFields& fields, f32& result) {
  auto const [hi, lo] = ReadPair(fields);
  result = Stored(hi / 16.0);
  return fields.Status();
}

i32 DecodeStreamReferenced(BodyFields& fields, f32& result) {
  const TranslateContext& context = *CurrentContext;
  auto const [hi, lo] = ReadPair(fields);
  f64 const reference = context.WholeDbStream != 0
                            ? static_cast<f64>(TruncateToI32(context.ReferenceLevel))
                            : static_cast<f64>(context.ReferenceLevel);
  result = Stored(hi + lo / 256.0 - reference);
  return fields.Status();
}

i32 DecodeStreamCount(BodyFields& fields, f32& result, bool fraction) {
  auto const [hi, lo] = ReadPair(fields);
  if (CurrentContext->WholeDbStream != 0) {
    result = Stored(hi);
    return fields.Status();
  }
  result = Stored(hi * 256 + lo);
  if (fraction) result = Stored(result + fields.Byte() / 256.0);
  return fields.Status();
}

}  // namespace qvslm
