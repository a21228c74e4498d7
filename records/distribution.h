// The level distribution of summaries: three bytes of base level, then counts of three bytes.
#pragma once

#include "fields/body_fields.h"

namespace qvslm {

// Writes the level offset over the three base bytes: whole decibels, tenths, hundredths. Model 442
// keeps what the file holds.
void WriteBaseLevel(u8* table);

// Reads the long form of a day's distribution, with counts for each eighth of a decibel, and
// reduces it to the table of whole decibels. The table has been cleared.
void ReduceDistribution(BodyFields& fields, u8 (&table)[440]);

}  // namespace qvslm
