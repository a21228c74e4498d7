// The fields of many records, each field's values one behind the other, as tables by columns want them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "record_table.h"
#include "row_memory.h"

namespace python {

// One field of all records. Times have 64 bits, everything else is as it stands in the records. No
// value is missing where there are no bits; else one bit for each value, of each byte the lowest
// first, is 1 where there is one.
struct Column {
  const record_fields::FieldInfo* field;
  RowMemory values;
  std::size_t valueBytes = 0;
  RowMemory bits;
  std::size_t bitBytes = 0;
  std::size_t missing = 0;
};

// Of all fields but texts and reserved bytes. Levels without a value and no times are missing.
std::vector<Column> ColumnsOf(const record_fields::RecordInfo& record, const std::uint8_t* rows,
                              std::size_t count);

}  // namespace python
