// The value of a field as JSON.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "record_info.h"

namespace host {

// Numbers with a fraction keep the shortest digits that give the same 32-bit number back.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool,
                                  std::int64_t, std::uint64_t, float>;

// The value of one field as it stands in the object: a number, a text, an array of them; null for a
// level without a value and a number that is none.
Json FieldValue(const record_fields::FieldInfo& field, const std::uint8_t* record);
// The clock of the measurement for a time field, or an array of them; null for no time.
Json FieldClock(const record_fields::FieldInfo& field, const std::uint8_t* record);

}  // namespace host
