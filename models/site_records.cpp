#include "fields/output_record.h"
#include "models/models.h"
#include "models/site_positions.h"

namespace qvslm {

namespace {

constexpr u32 kBodySize = 226;

// The record itself carries the number of the site before.
template <class Record, std::size_t Count>
i32 DecodeSite(QvRecordCode code, const Position (&positions)[Count]) {
  auto& record = BeginRecord<Record>(code);
  DecodePositions(positions, &record);
  CurrentContext->SiteNumber = record.NewSiteNumber;
  return BodyStatus(kBodySize);
}

}  // namespace

i32 DecodeRecS431() {
  return DecodeSite<QvSite431>(QV_SITE_431, kSite431);
}

i32 DecodeRecS() {
  return DecodeSite<QvSite>(QV_SITE, kSite);
}

}  // namespace qvslm
