// The list of the records for readers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/field_table_run.h"

namespace test {
namespace {

using testing::HasSubstr;

// A second output record, and two structs that are none.
constexpr std::string_view kMore =
    "/** Code 12, from item 130: bands. */\n"
    "typedef struct QvMarkBands {\n"
    "  uint16_t RecordType; /* 12 */\n"
    "  uint16_t Bands[3]; /* a*b <c> d_e | f */\n"
    "} QvMarkBands;\n"
    "/** Counts. */\ntypedef struct QvMarkCensus {\n  uint32_t A; /* a */\n} QvMarkCensus;\n"
    "/** Lines. */\ntypedef struct QvHead {\n  char A[4]; /* text */\n} QvHead;\n";

std::string ListOfAll() {
  Written const written =
      Generate(std::string(kRecords) + std::string(kMore),
               Replaced(std::string(kCodes), "QV_MARK = 5", "QV_MARK = 5, QV_MARK_BANDS = 12"));
  EXPECT_EQ(written.errors, "");
  return written.list;
}

TEST(ListWriter, BeginsWithAnIndex) {
  EXPECT_THAT(ListOfAll(),
              HasSubstr("\n\n| code | name in C | record | bytes |\n|---:|---|---|---:|\n"
                        "| 5 | `QV_MARK` | [Mark](#mark) | 8 |\n"
                        "| 12 | `QV_MARK_BANDS` | [MarkBands](#markbands) | 8 |\n"
                        "\nBeside the output records: [MarkCensus](#markcensus), [Head](#head).\n"
                        "\n## Mark\n"));
}

TEST(ListWriter, HasASectionForEachRecord) {
  EXPECT_EQ(From(ListOfAll(), "## Mark\n"),
            "## Mark\n"
            "\nCode 5, from item 5: a mark.\n"
            "\nMore of it.\n"
            "\n`QvMark`, 8 bytes.\n"
            "\n| offset | field | type | meaning |\n|---:|---|---|---|\n"
            "| 0 | `RecordType` | uint16 | 5 |\n"
            "| 2 | `Reserved2` | uint8[2] | zero |\n"
            "| 4 | `Level` | float | level: of the mark, when it \\| was made |\n"
            "\n## MarkBands\n"
            "\nCode 12, from item 130: bands.\n"
            "\n`QvMarkBands`, 8 bytes.\n"
            "\n| offset | field | type | meaning |\n|---:|---|---|---|\n"
            "| 0 | `RecordType` | uint16 | 12 |\n"
            "| 2 | `Bands` | uint16[3] | a\\*b \\<c> d\\_e \\| f |\n"
            "\n## MarkCensus\n"
            "\nCounts.\n"
            "\n`QvMarkCensus`, 4 bytes.\n"
            "\n| offset | field | type | meaning |\n|---:|---|---|---|\n"
            "| 0 | `A` | uint32 | a |\n"
            "\n## Head\n"
            "\nLines.\n"
            "\n`QvHead`, 4 bytes.\n"
            "\n| offset | field | type | meaning |\n|---:|---|---|---|\n"
            "| 0 | `A` | char[4] | text |\n");
}

}  // namespace
}  // namespace test
