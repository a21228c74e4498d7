// Where the row of a table stores: a field of a record of the public header, by its name.
#pragma once

#include <cstddef>

#include "api/context.h"

namespace qvslm {

struct FieldPlace {
  u16 offset;
  u16 size;
};

}  // namespace qvslm

// offsetof and sizeof take the name of a field, and no constexpr can hand a name on. Hence macros,
// for the rows of tables and nothing else.
#define QV_FIELD(record, name)                   \
  ::qvslm::FieldPlace {                          \
    offsetof(record, name), sizeof(record::name) \
  }

// The first two members of a row whose field has the row's number in its name.
#define QV_NUMBERED(number, record, prefix) number, QV_FIELD(record, prefix##number)
