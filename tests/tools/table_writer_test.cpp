// The C++ tables of the records.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/field_table_run.h"

namespace test {
namespace {

using testing::HasSubstr;

// The rows behind the site, from offset 4 on.
std::string RowsOf(std::string_view fields) {
  Written const written = Generate(RecordOf(fields));
  EXPECT_EQ(written.errors, "");
  std::string const rows = From(written.table, "\"SiteNumber\"");
  return rows.substr(rows.find('\n') + 1, rows.find("};") - rows.find('\n') - 1);
}

TEST(TableWriter, WritesATableForEachRecordAndOneOfThemAll) {
  EXPECT_EQ(From(Generate(kRecords).table, "inline"),
            "inline constexpr FieldInfo kMarkFields[] = {\n"
            "    {\"RecordType\", FieldType::U16, FieldKind::Plain, 0, 0, 0, false, \"5\"},\n"
            "    {\"Reserved2\", FieldType::U8, FieldKind::Plain, 2, 0, 2, true, \"zero\"},\n"
            "    {\"Level\", FieldType::F32, FieldKind::Level, 4, 0, 0, false, "
            "\"level: of the mark, when it | was made\"},\n"
            "};\n\n"
            "inline constexpr RecordInfo kRecords[] = {\n"
            "    {\"QvMark\", \"Mark\", 5, 8, kMarkFields},\n"
            "};\n\n}  // namespace record_fields\n");
}

TEST(TableWriter, TypesHaveTheirNames) {
  EXPECT_EQ(RowsOf("  uint8_t A; /* a */\n"
                   "  char B; /* raw text */\n"
                   "  uint16_t C; /* c */\n"
                   "  uint32_t D; /* d */\n"
                   "  int32_t E; /* e */\n"
                   "  float F; /* f */\n"),
            "    {\"A\", FieldType::U8, FieldKind::Plain, 4, 0, 0, false, \"a\"},\n"
            "    {\"B\", FieldType::Char, FieldKind::RawText, 5, 0, 0, false, \"raw text\"},\n"
            "    {\"C\", FieldType::U16, FieldKind::Plain, 6, 0, 0, false, \"c\"},\n"
            "    {\"D\", FieldType::U32, FieldKind::Plain, 8, 0, 0, false, \"d\"},\n"
            "    {\"E\", FieldType::I32, FieldKind::Plain, 12, 0, 0, false, \"e\"},\n"
            "    {\"F\", FieldType::F32, FieldKind::Plain, 16, 0, 0, false, \"f\"},\n");
}

TEST(TableWriter, AnArrayHasACountATableRowsToo) {
  EXPECT_EQ(RowsOf("  float A[7]; /* a */\n  float B[3][11]; /* b */\n"),
            "    {\"A\", FieldType::F32, FieldKind::Plain, 4, 0, 7, false, \"a\"},\n"
            "    {\"B\", FieldType::F32, FieldKind::Plain, 32, 3, 11, false, \"b\"},\n");
}

// A kind is the first word of the comment, with nothing or a mark behind it.
TEST(TableWriter, KindsAreTheFirstWordsOfComments) {
  struct Row {
    std::string type, comment, kind;
  };
  const Row rows[] = {
      {"float", "level", "Level"},       {"float", "level: x", "Level"},
      {"float", "dB; x", "Decibels"},    {"float", "s, x", "Seconds"},
      {"float", "%", "Percent"},         {"int32_t", "time: x", "Time"},
      {"char", "text, x", "Text"},       {"char", "raw text; x", "RawText"},
      {"float", "levels", "Plain"},      {"float", "level of x", "Plain"},
      {"float", "seconds", "Plain"},     {"float", "a level: x", "Plain"},
      {"uint32_t", "times: x", "Plain"}, {"float", "Level: x", "Plain"},
  };
  for (const Row& row : rows) {
    std::string const count = row.type == "char" ? "[4]" : "";
    EXPECT_THAT(RowsOf("  " + row.type + " A" + count + "; /* " + row.comment + " */\n"),
                HasSubstr(", FieldKind::" + row.kind + ", 4, 0, "))
        << row.comment;
  }
}

TEST(TableWriter, ReservedBytesAreMarked) {
  for (const char* const name : {"Reserved4", "Unwritten", "Unused4"}) {
    EXPECT_THAT(RowsOf("  uint32_t " + std::string(name) + "; /* zero */\n"), HasSubstr(", true, "))
        << name;
  }
  for (const char* const name : {"NotReserved", "Use", "Reserve"}) {
    EXPECT_THAT(RowsOf("  uint32_t " + std::string(name) + "; /* zero */\n"),
                HasSubstr(", false, "))
        << name;
  }
}

TEST(TableWriter, CommentsAreQuoted) {
  EXPECT_THAT(RowsOf("  uint32_t A; /* of \"a\\b\" */\n"), HasSubstr(R"("of \"a\\b\""})"));
}

}  // namespace
}  // namespace test
