#include <map>
#include <ostream>

#include "writers.h"

namespace field_table {
namespace {

// C99 has no assertion for compilers: there an array type of negative size stands for it, each
// under a name of its own, for C99 allows no second definition of a type either.
constexpr const char* kHead = R"(/*
 * qvslm_layout.h: the place of every field of every record, and every record's size, proved by the
 * compiler that includes it; and the sizes by type code. Nothing else is declared here (in C99, which
 * has no assertions, names of types that begin with qv_layout_).
 *
 * Written by tools/field_table from qvslm_records.h; `cmake --build BUILD --target update_generated`
 * writes it anew.
 */
#ifndef QVSLM_LAYOUT_H
#define QVSLM_LAYOUT_H

#include <stddef.h>

#include "qvslm_records.h"

#if defined(__cplusplus)
#define QV_LAYOUT_HOLDS(name, condition) static_assert(condition, #name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define QV_LAYOUT_HOLDS(name, condition) _Static_assert(condition, #name)
#else
#define QV_LAYOUT_HOLDS(name, condition) typedef char qv_layout_##name[(condition) ? 1 : -1]
#endif
#define QV_SIZE(type, size) QV_LAYOUT_HOLDS(type, sizeof(type) == (size))
#define QV_AT(type, field, at) QV_LAYOUT_HOLDS(type##_##field, offsetof(type, field) == (at))
)";

constexpr const char* kSizes = R"(
/** Bytes of the record that a type code stands for; of code 1 those of its larger one. Else 0. */
static inline size_t QvRecordSize(uint16_t code) {
  /* A table: compilers put slow code for the known sizes of a switch in place. */
  static const uint16_t sizes[] = {
      /* clang-format off */
)";

constexpr const char* kTail = R"(      /* clang-format on */
  };
  return code < sizeof sizes / sizeof sizes[0] ? sizes[code] : 0;
}

#undef QV_AT
#undef QV_SIZE
#undef QV_LAYOUT_HOLDS

#endif
)";

}  // namespace

void WriteLayout(const std::vector<Record>& records, std::ostream& out) {
  out << kHead;
  for (const Record& record : records) {
    out << "\nQV_SIZE(" << record.structName << ", " << record.size << ");\n";
    for (const Field& field : record.fields) {
      out << "QV_AT(" << record.structName << ", " << field.name << ", " << field.offset << ");\n";
    }
  }
  std::map<int, const Record*> largest;
  for (const Record& record : records) {
    const Record*& known = largest[record.code];
    if (known == nullptr || known->size < record.size) known = &record;
  }
  out << kSizes;
  for (int code = 0; code <= largest.rbegin()->first; ++code) {
    auto const found = largest.find(code);
    bool const known = code != 0 && found != largest.end();
    out << "      " << (known ? "sizeof(" + found->second->structName + ")" : "0") << ", /* "
        << code << " */\n";
  }
  out << kTail;
}

}  // namespace field_table
