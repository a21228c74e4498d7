// The columns that the fields of a record make in a table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "record_info.h"

namespace host {

// dB, s, % and so on; empty for plain numbers and texts.
std::string_view UnitOf(const record_fields::FieldInfo& field);

// One value of a field: a text, a number, an element of an array. A time makes two, its seconds
// and what the clock showed.
struct Column {
  const record_fields::FieldInfo* field;
  std::string name;  // Level, Bands[3], Aux[0][2], StopTimeLocal[1]
  bool clock;        // what the clock showed
  std::size_t offset;
};

// The columns of a record in its order, without reserved bytes and the type code. They depend on
// the field table alone, not on any file.
std::vector<Column> ColumnsOf(const record_fields::RecordInfo& info);

// Where the time of a record stands; null for records without one.
const record_fields::FieldInfo* TimeField(const record_fields::RecordInfo& info);

}  // namespace host
