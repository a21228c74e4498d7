// The field forms of list 27. Each reads one byte in streams of whole decibels, else two, and
// returns the status of the last byte read.
#pragma once

#include <span>

#include "fields/body_fields.h"

namespace qvslm {

// A level, with the level offset where it is not 0.
i32 DecodeStreamField(BodyFields& fields, f32& result);
// As many of them as there are values.
void DecodeStreamFields(BodyFields& fields, std::span<f32> values);
i32 DecodeStreamRatio(BodyFields& fields, f32& result);
i32 DecodeStreamSixteenth(BodyFields& fields, f32& result);
// A level less the reference level.
i32 DecodeStreamReferenced(BodyFields& fields, f32& result);
// A count; with a fraction it has a third byte, in streams of two.
i32 DecodeStreamCount(BodyFields& fields, f32& result, bool fraction);

}  // namespace qvslm
