// The proof of the layout that a host's compiler takes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/field_table_run.h"

namespace test {
namespace {

using testing::HasSubstr;

TEST(LayoutWriter, HoldsEveryOffsetAndSize) {
  EXPECT_THAT(Generate(kRecords).layout, HasSubstr("\n#define QV_AT(type, field, at) "
                                                   "QV_LAYOUT_HOLDS(type##_##field, "
                                                   "offsetof(type, field) == (at))\n"
                                                   "\nQV_SIZE(QvMark, 8);\n"
                                                   "QV_AT(QvMark, RecordType, 0);\n"
                                                   "QV_AT(QvMark, Reserved2, 2);\n"
                                                   "QV_AT(QvMark, Level, 4);\n\n"));
}

// Of two records of one code the larger one counts, whichever comes first.
TEST(LayoutWriter, HasASizeForEachCode) {
  std::string const wide =
      "/** Code 5, in another mode. */\ntypedef struct QvWideMark {\n"
      "  uint16_t RecordType; /* 5 */\n  uint16_t B[9]; /* b */\n} QvWideMark;\n";
  std::string const other =
      "/** Code 2, another. */\ntypedef struct QvOther {\n"
      "  uint16_t RecordType; /* 2 */\n} QvOther;\n"
      "/** No record. */\ntypedef struct QvNone {\n  uint32_t A; /* a */\n} QvNone;\n";
  std::string const codes =
      Replaced(std::string(kCodes), "QV_MARK = 5", "QV_OTHER = 2, QV_MARK = 5");
  for (bool const wideFirst : {false, true}) {
    std::string const mark(kRecords);
    Written const written = Generate((wideFirst ? wide + mark : mark + wide) + other, codes);
    EXPECT_THAT(written.layout, HasSubstr("static const uint16_t sizes[] = {\n"
                                          "      /* clang-format off */\n"
                                          "      0, /* 0 */\n"
                                          "      0, /* 1 */\n"
                                          "      sizeof(QvOther), /* 2 */\n"
                                          "      0, /* 3 */\n"
                                          "      0, /* 4 */\n"
                                          "      sizeof(QvWideMark), /* 5 */\n"
                                          "      /* clang-format on */\n"
                                          "  };\n"))
        << wideFirst;
  }
}

}  // namespace
}  // namespace test
