// Item 2 of model 442 in modes 4 and 5: tables of levels.

#include <span>

#include "fields/data_file.h"
#include "fields/levels.h"
#include "fields/output_record.h"
#include "fields/packed_time.h"
#include "fields/record_time.h"
#include "models/models.h"

namespace qvslm {

namespace {

i32 DecodeStamp(BodyFields& fields, i32& slot) {
  Calendar stamp = DecodePackedStamp(fields);
  return NormalizeTime(stamp, &slot);
}

}  // namespace

i32 DecodeRec2Model442Mode4() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvBandTable>(QV_BAND_TABLE);
  BodyFields fields;
  record.RecordIndex = static_cast<u32>(++context.FetchIndex2);
  record.RecordTime = DecodeStamp(fields, LastTimes->LastTimeRec2Mode4);
  DecodeU16Short(fields, record.Word6);
  fields.Raw(reinterpret_cast<u8*>(record.Text8), sizeof record.Text8 - 1);
  DecodeLevel(fields, record.Level16);
  std::size_t const bands = context.BandFlag != 0 ? 33 : 11;
  DecodeRow<DecodeLevel>(fields, std::span(record.Bands, bands));
  record.BandFlag = context.BandFlag;
  KeepFilePosition();
  return 0;  // also for a short body
}

i32 DecodeRec2Model442Mode5() {
  TranslateContext& context = *CurrentContext;
  auto& record = BeginRecord<QvNarrowTable>(QV_NARROW_TABLE);
  BodyFields fields;
  record.RecordIndex = static_cast<u32>(++context.FetchIndex2);
  record.RecordTime = DecodeStamp(fields, LastTimes->LastTimeRec2Mode5);
  DecodeU16Short(fields, record.Word6);
  record.Byte8 = fields.Byte();
  DecodeLevel(fields, record.Level9);
  DecodeRow<DecodeLevel>(fields, record.Levels);
  KeepFilePosition();
  return 0;  // also for a short body
}

}  // namespace qvslm
