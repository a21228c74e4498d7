#include "records_header.h"

#include <algorithm>
#include <regex>
#include <set>
#include <stdexcept>

namespace field_table {
namespace {

[[noreturn]] void Fail(const std::string& where, const std::string& what) {
  throw std::runtime_error(where + ": " + what);
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

// The text on one line, with single blanks.
std::string OneLine(const std::string& text) {
  std::string line;
  bool gap = false;
  for (char const c : text) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
      gap = !line.empty();
      continue;
    }
    if (gap) line += ' ';
    gap = false;
    line += c;
  }
  return line;
}

// The paragraphs of a /** comment, without its asterisks.
std::vector<std::string> Paragraphs(const std::string& comment) {
  std::vector<std::string> paragraphs(1);
  std::size_t start = 0;
  while (start < comment.size()) {
    std::size_t const end = std::min(comment.find('\n', start), comment.size());
    std::string line = comment.substr(start, end - start);
    line.erase(0, std::min(line.find_first_not_of(" *"), line.size()));
    if (line.empty() && !paragraphs.back().empty()) paragraphs.emplace_back();
    if (!line.empty()) {
      if (!paragraphs.back().empty()) paragraphs.back() += ' ';
      paragraphs.back() += OneLine(line);
    }
    start = end + 1;
  }
  if (paragraphs.back().empty()) paragraphs.pop_back();
  return paragraphs;
}

std::vector<int> Dimensions(const std::string& brackets) {
  static const std::regex number("[0-9]+");
  std::vector<int> dimensions;
  for (std::sregex_iterator it(brackets.begin(), brackets.end(), number), end; it != end; ++it) {
    dimensions.push_back(std::stoi(it->str()));
  }
  return dimensions;
}

int Size(const Field& field) {
  int size = static_cast<int>(ElementSize(field.type));
  for (int const count : field.dimensions) size *= count;
  return size;
}

void CheckComment(const Record& record, const Field& field) {
  std::string const where = record.structName + "." + field.name;
  if (field.comment.empty()) Fail(where, "no comment");
  std::string const kind = Kind(field);
  bool const text = kind == "text" || kind == "raw text";
  if ((field.type == "char") != text) Fail(where, "text stands in char fields, and only there");
  if (kind == "level" && field.type != "float") Fail(where, "a level is a float");
  if (kind == "time" && field.type != "int32_t") Fail(where, "a time is an int32_t");
  if (field.dimensions.size() > 2) Fail(where, "more than two dimensions");
}

std::vector<Field> ReadFields(const std::string& structName, const std::string& body) {
  static const std::regex member(
      R"((\w+)\s+(\w+)((?:\[[0-9]+\])*);(?:[ \t]*/\*((?:[^*]|\*(?!/))*)\*/)?)");
  std::vector<Field> fields;
  auto between = body.begin();
  for (std::sregex_iterator it(body.begin(), body.end(), member), end; it != end; ++it) {
    if (!IsBlank(std::string(between, (*it)[0].first))) Fail(structName, "not a plain field list");
    between = (*it)[0].second;
    fields.push_back({(*it)[1], (*it)[2], Dimensions((*it)[3]), 0, OneLine((*it)[4])});
  }
  if (!IsBlank(std::string(between, body.end()))) Fail(structName, "not a plain field list");
  return fields;
}

// Places the fields one behind the other. Every field must be naturally aligned where it comes to
// lie, and the record must end on its alignment: then no compiler has a reason to pad, and all
// agree.
void PlaceFields(Record& record) {
  int next = 0;
  int alignment = 1;
  for (Field& field : record.fields) {
    int const element = static_cast<int>(ElementSize(field.type));
    CheckComment(record, field);
    if (next % element != 0) {
      Fail(record.structName + "." + field.name,
           "offset " + std::to_string(next) + " is not naturally aligned");
    }
    field.offset = next;
    next += Size(field);
    alignment = std::max(alignment, element);
  }
  if (next % alignment != 0) {
    Fail(record.structName, "its size of " + std::to_string(next) +
                                " bytes is no multiple of its alignment of " +
                                std::to_string(alignment));
  }
  record.size = next;
}

}  // namespace

std::size_t ElementSize(const std::string& type) {
  static const std::map<std::string, std::size_t> sizes = {
      {"uint8_t", 1}, {"char", 1}, {"uint16_t", 2}, {"uint32_t", 4}, {"int32_t", 4}, {"float", 4}};
  auto const size = sizes.find(type);
  if (size == sizes.end()) Fail(type, "not a type of record fields");
  return size->second;
}

std::string Kind(const Field& field) {
  static const char* const kinds[] = {"level", "dB", "time", "s", "%", "text", "raw text"};
  for (std::string const kind : kinds) {
    if (!field.comment.starts_with(kind)) continue;
    std::string const rest = field.comment.substr(kind.size(), 1);
    if (rest.empty() || rest == ":" || rest == ";" || rest == ",") return kind;
  }
  return "";
}

bool IsReserved(const Field& field) {
  return field.name.starts_with("Reserved") || field.name.starts_with("Unwritten") ||
         field.name.starts_with("Unused");
}

std::vector<Record> ReadRecords(const std::string& text) {
  static const std::regex opening(R"(typedef struct Qv(\w+) \{\n)");
  static const std::regex code(R"(^Code ([0-9]+), )");
  std::vector<Record> records;
  for (std::sregex_iterator it(text.begin(), text.end(), opening), end; it != end; ++it) {
    Record record;
    record.name = (*it)[1];
    record.structName = "Qv" + record.name;
    auto const bodyStart = static_cast<std::size_t>((*it)[0].second - text.begin());
    std::size_t const bodyEnd = text.find("\n} " + record.structName + ";", bodyStart);
    if (bodyEnd == std::string::npos) Fail(record.structName, "no end");
    record.fields = ReadFields(record.structName, text.substr(bodyStart, bodyEnd - bodyStart));

    auto const structStart = static_cast<std::size_t>(it->position());
    std::size_t const comment = text.rfind("/**", structStart);
    std::size_t const commentEnd = text.find("*/", comment);
    if (comment == std::string::npos || commentEnd + 3 != structStart) {
      Fail(record.structName, "no comment above");
    }
    record.description = Paragraphs(text.substr(comment + 3, commentEnd - comment - 3));
    std::smatch found;
    if (std::regex_search(record.description.at(0), found, code)) record.code = std::stoi(found[1]);

    PlaceFields(record);
    records.push_back(std::move(record));
  }
  if (records.empty()) Fail("the records", "none found");
  return records;
}

std::map<int, std::string> ReadCodes(const std::string& text) {
  std::size_t const start = text.find("typedef enum QvRecordCode {");
  std::size_t const end = text.find("} QvRecordCode;");
  if (start == std::string::npos || end == std::string::npos) Fail("QvRecordCode", "not found");
  static const std::regex enumerator(R"((QV_\w+) = ([0-9]+))");
  std::string const body = text.substr(start, end - start);
  std::map<int, std::string> codes;
  for (std::sregex_iterator it(body.begin(), body.end(), enumerator), last; it != last; ++it) {
    codes[std::stoi((*it)[2])] = (*it)[1];
  }
  return codes;
}

void CheckCodes(const std::vector<Record>& records, const std::map<int, std::string>& codes) {
  std::set<int> described = {0};
  for (const Record& record : records) {
    if (!codes.contains(record.code)) Fail(record.structName, "its code has no name");
    described.insert(record.code);
  }
  for (const auto& [code, name] : codes) {
    if (!described.contains(code)) Fail(name, "no record has this code");
  }
}

}  // namespace field_table
