#include "records/distribution.h"

#include "fields/levels.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr i64 kBins = 151;
constexpr int kEighths = 1023;
constexpr int kEntries = 127;

u8 LowByte(i32 value) {
  return static_cast<u8>(value & 0xFF);
}

bool IsBin(i64 bin) {
  return bin >= 0 && bin < kBins;
}

}  // namespace

void WriteBaseLevel(u8* table) {
  if (CurrentContext->Model == kModel442) return;
  f64 const base = CurrentContext->LevelOffset;
  table[0] = LowByte(TruncateToI32(base));
  auto rest = static_cast<f32>((base - table[0]) * 10.0);
  table[1] = LowByte(TruncateToI32(rest));
  rest = static_cast<f32>((static_cast<f64>(rest) - table[1]) * 10.0 + 0.5);
  table[2] = LowByte(TruncateToI32(rest));
}

void ReduceDistribution(BodyFields& fields, u8 (&table)[440]) {
  u32 bins[kBins] = {};
  fields.Skip(3);
  f32 level = CurrentContext->LevelOffset;
  for (int eighth = 0; eighth < kEighths; ++eighth) {
    level = static_cast<f32>(level + 0.125);
    auto const count = static_cast<u32>(DecodeU24(fields));
    i32 const bin = TruncateToI32(level);
    if (IsBin(bin)) bins[bin] += count;
  }

  i64 bin = TruncateToI32(CurrentContext->LevelOffset);
  u8* entry = table + 3;
  for (int k = 0; k < kEntries; ++k) {
    ++bin;
    u32 const count = IsBin(bin) ? bins[bin] : 0;
    *entry++ = static_cast<u8>(count >> 16);
    *entry++ = static_cast<u8>(count >> 8);
    *entry++ = static_cast<u8>(count);
  }
  fields.Raw(table + 385, 40);
}

}  // namespace qvslm
