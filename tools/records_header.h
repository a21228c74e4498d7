// Reads the structs of api/include/qvslm_records.h and the type codes of
// api/include/qvslmtranslate.h.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace field_table {

struct Field {
  std::string type;  // as written: uint16_t
  std::string name;
  std::vector<int> dimensions;
  int offset = 0;
  std::string comment;  // on one line
};

struct Record {
  std::string structName;
  std::string name;  // without the Qv
  int code = 0;      // 0 for structs that are no output record
  int size = 0;
  std::vector<std::string> description;  // the paragraphs above the struct
  std::vector<Field> fields;
};

// Both throw std::runtime_error, with what is wrong, when the header breaks its own rules: a field
// without a comment or of another type than its comment says, a field or a record that a compiler
// would pad.
std::vector<Record> ReadRecords(const std::string& text);
// Enumerators of QvRecordCode by value.
std::map<int, std::string> ReadCodes(const std::string& text);

// Every record's code is one of the codes, and every code but 0 has a record.
void CheckCodes(const std::vector<Record>& records, const std::map<int, std::string>& codes);

std::size_t ElementSize(const std::string& type);
// The first word of a comment when it names a kind: "level", "dB", "time", "s", "%", "text",
// "raw text"; else empty.
std::string Kind(const Field& field);
bool IsReserved(const Field& field);

}  // namespace field_table
