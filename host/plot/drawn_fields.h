// Which field of which record is drawn.
#pragma once

#include <cstdint>
#include <vector>

#include "plot.h"
#include "record_info.h"

namespace host {

struct DrawnField {
  const record_fields::RecordInfo* record;
  const record_fields::FieldInfo* field;
};

// The fields that the options ask for: the one named of the records chosen, or of each record the
// one that tells most. Throws WrongUsage where there is none.
std::vector<DrawnField> LevelFields(const PlotOptions& options);
// The same of fields of bands.
std::vector<DrawnField> BandFields(const PlotOptions& options);

}  // namespace host
