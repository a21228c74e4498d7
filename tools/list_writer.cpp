#include <algorithm>
#include <ostream>

#include "writers.h"

namespace field_table {
namespace {

// A cell of a Markdown table.
std::string Cell(const std::string& text) {
  std::string cell;
  for (char const c : text) {
    if (c == '|' || c == '<' || c == '*' || c == '_') cell += '\\';
    cell += c;
  }
  return cell;
}

std::string Type(const Field& field) {
  std::string type = field.type;
  if (type.ends_with("_t")) type.resize(type.size() - 2);
  for (int const count : field.dimensions) type += '[' + std::to_string(count) + ']';
  return type;
}

std::string Anchor(const std::string& name) {
  std::string anchor = name;
  std::transform(anchor.begin(), anchor.end(), anchor.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return anchor;
}

void WriteIndex(const std::vector<Record>& records, const std::map<int, std::string>& codes,
                std::ostream& out) {
  out << "| code | name in C | record | bytes |\n|---:|---|---|---:|\n";
  for (const Record& record : records) {
    if (record.code == 0) continue;
    out << "| " << record.code << " | `" << codes.at(record.code) << "` | [" << record.name << "](#"
        << Anchor(record.name) << ") | " << record.size << " |\n";
  }
  out << "\nBeside the output records:";
  std::string separator = " ";
  for (const Record& record : records) {
    if (record.code != 0) continue;
    out << separator << '[' << record.name << "](#" << Anchor(record.name) << ')';
    separator = ", ";
  }
  out << ".\n";
}

}  // namespace

void WriteList(const std::vector<Record>& records, const std::map<int, std::string>& codes,
               std::ostream& out) {
  out << "# Records\n\n"
         "<!-- Written by tools/field_table from api/include/qvslm_records.h; "
         "`cmake --build BUILD --target update_generated` writes it anew. -->\n\n"
         "Every record that the library delivers, field by field. The struct of a record is its "
         "name behind `Qv`.\nThe meaning of a field begins with what it holds: `level` (decibels, "
         "999.0 for no value), `dB` (decibels),\n`time` (seconds since 1970-01-01 00:00 UTC), `s` "
         "(seconds), `%`, `text`, `raw text` or `span` (two bytes as a\n"
         "number: on model 442 as it is, on others times 12478 / 65536), or with its source "
         "(register, "
         "position).\n\n";
  WriteIndex(records, codes, out);
  for (const Record& record : records) {
    out << "\n## " << record.name << "\n";
    for (const std::string& paragraph : record.description) out << '\n' << Cell(paragraph) << '\n';
    out << "\n`" << record.structName << "`, " << record.size << " bytes.\n\n"
        << "| offset | field | type | meaning |\n|---:|---|---|---|\n";
    for (const Field& field : record.fields) {
      out << "| " << field.offset << " | `" << field.name << "` | " << Type(field) << " | "
          << Cell(field.comment) << " |\n";
    }
  }
}

}  // namespace field_table
