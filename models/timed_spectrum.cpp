#include <span>

#include "fields/byte_reader.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "models/list_blocks.h"
#include "models/models.h"

namespace qvslm {

namespace {

constexpr u16 kThirdOctaves = 128;

}  // namespace

i32 DecodeStream21() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvTimedSpectrum>(QV_TIMED_SPECTRUM);
  ReadRecordBlock(context.RecordLength);
  record.RecordIndex = ++context.Count21;
  if (!PassBlock()) return FailWith(QV_SEEK_FAILED);

  BodyFields fields;
  record.BlockByte = fields.Byte();
  DecodeDuration(fields, record.SpectrumTime, 3);
  DecodeLevel(fields, record.Level);
  std::size_t const bands = (context.SetupFlags & kThirdOctaves) != 0 ? 33 : 11;
  DecodeRow<DecodeLevel>(fields, std::span(record.Bands, bands));

  LookAhead();
  return 0;
}

}  // namespace qvslm
