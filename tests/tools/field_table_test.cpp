// The generator refuses a header that breaks its own rules.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "support/temp_file.h"

namespace {

constexpr std::string_view kCodes =
    "typedef enum QvRecordCode {\n  QV_NO_RECORD = 0,\n  QV_MARK = 5\n} QvRecordCode;\n";

constexpr std::string_view kRecords =
    "/**\n * Code 5, from item 5: a mark.\n *\n * More of it.\n */\n"
    "typedef struct QvMark {\n"
    "  uint16_t RecordType; /* 5 */\n"
    "  uint8_t Reserved2[2]; /* zero */\n"
    "  float Level; /* level: of the mark,\n"
    "                  when it | was made */\n"
    "} QvMark;\n";

struct Result {
  int exitCode;
  std::string table;
  std::string list;
  std::string layout;
  std::string errors;
};

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

Result Generate(std::string_view recordsHeader, std::string_view codesHeader = kCodes) {
  test::TempFile const records(recordsHeader);
  test::TempFile const codes(codesHeader);
  test::TempFile const table("");
  test::TempFile const list("");
  test::TempFile const layout("");
  test::TempFile const errors("");
  std::string const command = std::string(FIELD_TABLE_PROGRAM) + " " + records.Path() + " " +
                              codes.Path() + " " + table.Path() + " " + list.Path() + " " +
                              layout.Path() + " 2>" + errors.Path();
  int const status = std::system(command.c_str());
  return {WEXITSTATUS(status), Contents(table.Path()), Contents(list.Path()),
          Contents(layout.Path()), Contents(errors.Path())};
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  std::size_t const at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(FieldTable, WritesTableListAndLayout) {
  Result const result = Generate(kRecords);
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_NE(result.table.find("{\"Level\", FieldType::F32, FieldKind::Level, 4, 0, 0, false, "
                              "\"level: of the mark, when it | was made\"}"),
            std::string::npos)
      << result.table;
  EXPECT_NE(result.table.find("{\"QvMark\", \"Mark\", 5, 8, kMarkFields}"), std::string::npos);
  EXPECT_NE(result.list.find("| 5 | `QV_MARK` | [Mark](#mark) | 8 |"), std::string::npos)
      << result.list;
  EXPECT_NE(result.list.find("| 4 | `Level` | float | level: of the mark, when it \\| was made |"),
            std::string::npos);
  EXPECT_NE(result.list.find("\nMore of it.\n"), std::string::npos);
  EXPECT_NE(result.layout.find("\nQV_SIZE(QvMark, 8);\n"
                               "QV_AT(QvMark, RecordType, 0);\n"
                               "QV_AT(QvMark, Reserved2, 2);\n"
                               "QV_AT(QvMark, Level, 4);\n\n"),
            std::string::npos)
      << result.layout;
}

TEST(FieldTable, RefusesWhatTheHeaderMayNotSay) {
  struct Row {
    std::string_view from, to, complaint;
  };
  constexpr Row rows[] = {
      {"Reserved2[2]", "Reserved2[4]", "QvMark.Level: offset 6 is not naturally aligned"},
      {"Reserved2[2]", "Reserved2[1]", "QvMark.Level: offset 3 is not naturally aligned"},
      {"float Level; /* level:", "float Level; /* level */\n  uint16_t Tail; /* tail:",
       "QvMark: its size of 10 bytes is no multiple of its alignment of 4"},
      {" /* zero */", "", "QvMark.Reserved2: no comment"},
      {"float Level", "double Level", "double: not a type of record fields"},
      {"float Level", "uint32_t Level", "QvMark.Level: a level is a float"},
      {"level: of", "time: of", "QvMark.Level: a time is an int32_t"},
      {"level: of", "text: of", "QvMark.Level: text stands in char fields, and only there"},
      {"float Level", "float *Level", "QvMark: not a plain field list"},
      {"} QvMark;", "} QvMerk;", "QvMark: no end"},
      {"Code 5,", "Code 6,", "QvMark: its code has no name"},
      {"*/\ntypedef", "*/\n\n\ntypedef", "QvMark: no comment above"},
  };
  for (const Row& row : rows) {
    Result const result = Generate(Replaced(std::string(kRecords), row.from, row.to));
    EXPECT_EQ(result.exitCode, 1) << row.to;
    EXPECT_EQ(result.errors, "field_table: " + std::string(row.complaint) + "\n");
  }
}

TEST(FieldTable, RefusesACodeWithoutARecord) {
  Result const result =
      Generate(kRecords, Replaced(std::string(kCodes), "QV_MARK = 5", "QV_MARK = 5, QV_NEW = 9"));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "field_table: QV_NEW: no record has this code\n");
}

TEST(FieldTable, RefusesAHeaderThatIsNone) {
  EXPECT_EQ(Generate("").errors, "field_table: the records: none found\n");
  EXPECT_EQ(Generate(kRecords, "").errors, "field_table: QvRecordCode: not found\n");
}

TEST(FieldTable, TellsHowItIsUsed) {
  EXPECT_EQ(WEXITSTATUS(std::system(FIELD_TABLE_PROGRAM " only two 2>/dev/null")), 2);
}

}  // namespace
