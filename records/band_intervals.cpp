#include <span>

#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr u16 kThirdOctaves = 128;

void DecodeBands(BodyFields& fields, f32& overall, f32 (&bands)[33]) {
  std::size_t const count = (CurrentContext->SetupFlags & kThirdOctaves) != 0 ? 33 : 11;
  DecodeLevel(fields, overall);
  DecodeRow<DecodeLevel>(fields, std::span(bands, count));
}

}  // namespace

// A short body is reported only where the trailer is the last field.
i32 DecodeRec1Mode4() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvBandInterval>(QV_INTERVAL);
  i32 status = 0;

  BodyFields fields;
  Calendar stamp = DecodePackedStamp(fields);
  record.RecordTime = NormalizeTime(stamp, &LastTimes->LastTimeRec1Mode4);
  DecodeDuration(fields, record.Duration, 6);
  fields.Skip(3);
  DecodeU16Short(fields, record.BandValueA);
  DecodeU16Short(fields, record.BandValueB);
  record.BandByte = fields.Byte();
  DecodeBands(fields, record.Overall1, record.Bands1);
  DecodeBands(fields, record.Overall2, record.Bands2);
  DecodeBands(fields, record.Overall3, record.Bands3);
  if (static_cast<f64>(context.FirmwareVersion) > 2.10599) {
    record.BandTrailer = fields.Byte();
    status = fields.Status();
  }

  KeepFilePosition();
  return status;
}

}  // namespace qvslm
