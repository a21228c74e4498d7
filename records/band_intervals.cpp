#include "fields/byte_reader.h"
#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "records/records.h"

namespace qvslm {

namespace {

constexpr u16 kThirdOctaves = 128;

void DecodeBands(f32& overall, f32 (&bands)[33]) {
  int const count = (CurrentContext->SetupFlags & kThirdOctaves) != 0 ? 33 : 11;
  DecodeLevel(overall);
  for (int band = 0; band < count; ++band) DecodeLevel(bands[band]);
}

}  // namespace

// A short body is reported only where the trailer is the last field.
i32 DecodeRec1Mode4() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvBandInterval>(QV_INTERVAL);
  i32 status = 0;

  Calendar stamp = ClearedCalendar();
  DecodePackedDate(stamp);
  DecodePackedTime(stamp);
  record.RecordTime = NormalizeTime(stamp, &LastTimes.LastTimeRec1Mode4);
  DecodeDuration(record.Duration, 6);
  SkipByte();
  SkipByte();
  SkipByte();
  DecodeU16Short(record.BandValueA);
  DecodeU16Short(record.BandValueB);
  record.BandByte = ReadByte();
  DecodeBands(record.Overall1, record.Bands1);
  DecodeBands(record.Overall2, record.Bands2);
  DecodeBands(record.Overall3, record.Bands3);
  if (static_cast<f64>(context.FirmwareVersion) > 2.10599) record.BandTrailer = ReadByte(status);

  KeepFilePosition();
  return status;
}

}  // namespace qvslm
