#include "models/stream_fields.h"

#include "fields/byte_reader.h"
#include "fields/stream_levels.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

struct Pair {
  u32 hi;
  u32 lo;
  i32 status;
};

Pair ReadPair() {
  TranslateContext& context = *CurrentContext;
  bool const twoBytes = context.WholeDbStream == 0;
  const u8* const bytes = TakeBytes(twoBytes ? 2 : 1);
  return {bytes[0], twoBytes ? bytes[1] : 0U, context.ErrorCode};
}

}  // namespace

i32 DecodeStreamField(f32& result) {
  const TranslateContext& context = *CurrentContext;
  auto const [hi, lo, status] = ReadPair();
  f64 const offset = context.WholeDbStream != 0 ? WholeLevelOffset() : context.LevelOffset;
  result = hi + lo == 0 ? 0.0F : Stored(Parts256(hi * 256 + lo) + offset);
  return status;
}

i32 DecodeStreamRatio(f32& result) {
  auto const [hi, lo, status] = ReadPair();
  result = Stored((hi * 256 + lo) / 45590.0 * 8.0);
  return status;
}

i32 DecodeStreamSixteenth(f32& result) {
  auto const [hi, lo, status] = ReadPair();
  result = Stored(hi / 16.0);
  return status;
}

i32 DecodeStreamReferenced(f32& result) {
  const TranslateContext& context = *CurrentContext;
  auto const [hi, lo, status] = ReadPair();
  f64 const reference = context.WholeDbStream != 0
                            ? static_cast<f64>(TruncateToI32(context.ReferenceLevel))
                            : static_cast<f64>(context.ReferenceLevel);
  result = Stored(hi + lo / 256.0 - reference);
  return status;
}

i32 DecodeStreamCount(f32& result, bool fraction) {
  auto [hi, lo, status] = ReadPair();
  if (CurrentContext->WholeDbStream != 0) {
    result = Stored(hi);
    return status;
  }
  result = Stored(hi * 256 + lo);
  if (fraction) result = Stored(result + ReadByte(status) / 256.0);
  return status;
}

}  // namespace qvslm
