// field_table: reads the public headers and writes what they say of the records, as C++ tables for
// the host and the tests, as a list for readers, and as a proof of the layout for compilers.
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "records_header.h"
#include "writers.h"

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) throw std::runtime_error("cannot read " + path);
  return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::cerr << "usage: field_table qvslm_records.h qvslmtranslate.h TABLE.h LIST.md LAYOUT.h\n";
    return 2;
  }
  try {
    auto const records = field_table::ReadRecords(ReadFile(argv[1]));
    auto const codes = field_table::ReadCodes(ReadFile(argv[2]));
    field_table::CheckCodes(records, codes);
    std::ostringstream table;
    field_table::WriteTable(records, table);
    WriteFile(argv[3], table.str());
    std::ostringstream list;
    field_table::WriteList(records, codes, list);
    WriteFile(argv[4], list.str());
    std::ostringstream layout;
    field_table::WriteLayout(records, layout);
    WriteFile(argv[5], layout.str());
  } catch (const std::exception& fault) {
    std::cerr << "field_table: " << fault.what() << '\n';
    return 1;
  }
  return 0;
}
