// The forms in which the records are written out.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "records_header.h"

namespace field_table {

// The C++ tables that record_info.h describes.
void WriteTable(const std::vector<Record>& records, std::ostream& out);
// The list for readers, docs/records.md.
void WriteList(const std::vector<Record>& records, const std::map<int, std::string>& codes,
               std::ostream& out);
// The header qvslm_layout.h, by which a host's compiler proves every offset and size.
void WriteLayout(const std::vector<Record>& records, std::ostream& out);

}  // namespace field_table
