// What is read of the structs in a header, seen in the list that is written of them, and what their
// header may not say.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/field_table_run.h"

namespace test {
namespace {

using testing::HasSubstr;

// The lines of the list that tell of the fields behind the site, from offset 4 on.
std::string FieldsOf(std::string_view fields) {
  Written const written = Generate(RecordOf(fields));
  EXPECT_EQ(written.errors, "");
  return From(written.list, "| 4 |");
}

TEST(RecordsHeader, TypesHaveTheirSizes) {
  EXPECT_EQ(FieldsOf("  uint8_t A; /* a */\n"
                     "  char B; /* text */\n"
                     "  uint16_t C; /* c */\n"
                     "  uint32_t D; /* d */\n"
                     "  int32_t E; /* e */\n"
                     "  float F; /* f */\n"),
            "| 4 | `A` | uint8 | a |\n"
            "| 5 | `B` | char | text |\n"
            "| 6 | `C` | uint16 | c |\n"
            "| 8 | `D` | uint32 | d |\n"
            "| 12 | `E` | int32 | e |\n"
            "| 16 | `F` | float | f |\n");
}

TEST(RecordsHeader, ArraysAndTablesTakeTheirPlace) {
  EXPECT_EQ(FieldsOf("  uint8_t A[3]; /* a */\n"
                     "  uint8_t B; /* b */\n"
                     "  uint16_t C[2][5]; /* c */\n"
                     "  float D; /* d */\n"),
            "| 4 | `A` | uint8[3] | a |\n"
            "| 7 | `B` | uint8 | b |\n"
            "| 8 | `C` | uint16[2][5] | c |\n"
            "| 28 | `D` | float | d |\n");
}

TEST(RecordsHeader, CommentsAreOneLine) {
  EXPECT_EQ(FieldsOf("  uint32_t A; /*  of 2 * 3\n\t bytes,  in\n\n all  */\n"),
            "| 4 | `A` | uint32 | of 2 \\* 3 bytes, in all |\n");
}

TEST(RecordsHeader, TheCommentAboveHasParagraphs) {
  std::string const header =
      Replaced(RecordOf("  uint32_t A; /* a */\n"), "a mark.\n",
               "a mark, told\n *   in two lines.\n *\n *\n * The  second\n * paragraph.\n *\n");
  EXPECT_THAT(Generate(header).list, HasSubstr("## Mark\n\n"
                                               "Code 5, from item 5: a mark, told in two lines.\n\n"
                                               "The second paragraph.\n\n"
                                               "`QvMark`, 8 bytes.\n"));
}

TEST(RecordsHeader, AStructWithoutACodeIsNoOutputRecord) {
  std::string const more =
      "/** Counts. */\ntypedef struct QvCounts {\n  uint32_t A; /* a */\n} QvCounts;\n";
  Written const written = Generate(std::string(kRecords) + more);
  EXPECT_THAT(written.table, HasSubstr("{\"QvCounts\", \"Counts\", 0, 4, kCountsFields}"));
  // "Code" has to come first, with its number.
  Written const late = Generate(std::string(kRecords) + Replaced(more, "Counts.", "Of Code 7, x."));
  EXPECT_THAT(late.table, HasSubstr("{\"QvCounts\", \"Counts\", 0, 4, kCountsFields}"));
}

TEST(RecordsHeader, RefusesWhatItMayNotSay) {
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
      {"uint8_t Reserved2[2]", "char Reserved2[2]",
       "QvMark.Reserved2: text stands in char fields, and only there"},
      {"float Level", "float Level[1][1][1]", "QvMark.Level: more than two dimensions"},
      {"float Level", "float *Level", "QvMark: not a plain field list"},
      {"  float", "  int x = 3;\n  float", "QvMark: not a plain field list"},
      {"made */\n", "made */\n  // more\n", "QvMark: not a plain field list"},
      {"} QvMark;", "} QvMerk;", "QvMark: no end"},
      {"Code 5,", "Code 6,", "QvMark: its code has no name"},
      {"*/\ntypedef", "*/\n\n\ntypedef", "QvMark: no comment above"},
  };
  for (const Row& row : rows) {
    Written const written = Generate(Replaced(std::string(kRecords), row.from, row.to));
    EXPECT_EQ(written.exitCode, 1) << row.to;
    EXPECT_EQ(written.errors, "field_table: " + std::string(row.complaint) + "\n");
  }
}

TEST(RecordsHeader, RefusesACodeWithoutARecord) {
  Written const written =
      Generate(kRecords, Replaced(std::string(kCodes), "QV_MARK = 5", "QV_MARK = 5, QV_NEW = 9"));
  EXPECT_EQ(written.exitCode, 1);
  EXPECT_EQ(written.errors, "field_table: QV_NEW: no record has this code\n");
}

TEST(RecordsHeader, RefusesAHeaderThatIsNone) {
  EXPECT_EQ(Generate("").errors, "field_table: the records: none found\n");
  EXPECT_EQ(Generate(kRecords, "").errors, "field_table: QvRecordCode: not found\n");
}

}  // namespace
}  // namespace test
