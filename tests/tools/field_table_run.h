// Runs field_table over small headers.
//
//   Written const written = Generate(RecordOf("float Level; /* level */\n"));
//   EXPECT_EQ(written.errors, "");
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "support/file_contents.h"
#include "support/temp_file.h"

namespace test {

inline constexpr std::string_view kCodes =
    "typedef enum QvRecordCode {\n  QV_NO_RECORD = 0,\n  QV_MARK = 5\n} QvRecordCode;\n";

inline constexpr std::string_view kRecords =
    "/**\n * Code 5, from item 5: a mark.\n *\n * More of it.\n */\n"
    "typedef struct QvMark {\n"
    "  uint16_t RecordType; /* 5 */\n"
    "  uint8_t Reserved2[2]; /* zero */\n"
    "  float Level; /* level: of the mark,\n"
    "                  when it | was made */\n"
    "} QvMark;\n";

// The same record with the given lines behind its code and two bytes.
inline std::string RecordOf(std::string_view fields) {
  return "/**\n * Code 5, from item 5: a mark.\n */\ntypedef struct QvMark {\n"
         "  uint16_t RecordType; /* 5 */\n  uint16_t SiteNumber; /* the site */\n" +
         std::string(fields) + "} QvMark;\n";
}

struct Written {
  int exitCode;
  std::string table;
  std::string list;
  std::string layout;
  std::string errors;
};

inline Written Generate(std::string_view recordsHeader, std::string_view codesHeader = kCodes) {
  TempFile const records(recordsHeader);
  TempFile const codes(codesHeader);
  TempFile const table("");
  TempFile const list("");
  TempFile const layout("");
  TempFile const errors("");
  std::string const command = std::string(FIELD_TABLE_PROGRAM) + " " + records.Path() + " " +
                              codes.Path() + " " + table.Path() + " " + list.Path() + " " +
                              layout.Path() + " 2>" + errors.Path();
  int const status = std::system(command.c_str());
  return {WEXITSTATUS(status), Contents(table.Path()), Contents(list.Path()),
          Contents(layout.Path()), Contents(errors.Path())};
}

inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  std::size_t const at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// From the first place of a text on; empty without it.
inline std::string From(const std::string& text, std::string_view start) {
  std::size_t const at = text.find(start);
  return at == std::string::npos ? "" : text.substr(at);
}

}  // namespace test
