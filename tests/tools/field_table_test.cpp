// The generator as a program: what it writes of a header, and how it refuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/field_table_run.h"

namespace test {
namespace {

using testing::HasSubstr;

TEST(FieldTable, WritesTableListAndLayout) {
  Written const written = Generate(kRecords);
  EXPECT_EQ(written.exitCode, 0);
  EXPECT_EQ(written.errors, "");
  EXPECT_THAT(written.table, HasSubstr("{\"QvMark\", \"Mark\", 5, 8, kMarkFields}"));
  EXPECT_THAT(written.list, HasSubstr("| 5 | `QV_MARK` | [Mark](#mark) | 8 |"));
  EXPECT_THAT(written.layout, HasSubstr("\nQV_SIZE(QvMark, 8);\n"));
}

TEST(FieldTable, WritesNothingOfAHeaderThatItRefuses) {
  Written const written = Generate(Replaced(std::string(kRecords), "float", "double"));
  EXPECT_EQ(written.exitCode, 1);
  EXPECT_EQ(written.table + written.list + written.layout, "");
}

struct Ended {
  int exitCode;
  std::string errors;
};

Ended RunWith(const std::string& arguments) {
  TempFile const errors("");
  int const status =
      std::system((FIELD_TABLE_PROGRAM " " + arguments + " 2>" + errors.Path()).c_str());
  return {WEXITSTATUS(status), Contents(errors.Path())};
}

TEST(FieldTable, TellsHowItIsUsed) {
  for (const char* const arguments : {"only two", "one two three four five six"}) {
    Ended const ended = RunWith(arguments);
    EXPECT_EQ(ended.exitCode, 2);
    EXPECT_THAT(ended.errors, testing::StartsWith("usage: field_table "));
  }
}

TEST(FieldTable, NeedsFilesThatItCanReadAndWrite) {
  TempFile const records(kRecords);
  TempFile const codes(kCodes);
  std::string const both = records.Path() + " " + codes.Path();
  struct Row {
    std::string arguments, complaint;
  };
  const Row rows[] = {
      {"/no/such " + codes.Path() + " /dev/null /dev/null /dev/null", "read /no/such"},
      {records.Path() + " /no/such /dev/null /dev/null /dev/null", "read /no/such"},
      {both + " /no/such/place /dev/null /dev/null", "write /no/such/place"},
      {both + " /dev/null /dev/full /dev/null", "write /dev/full"},
      {both + " /dev/null /dev/null /dev/full", "write /dev/full"},
  };
  for (const Row& row : rows) {
    Ended const ended = RunWith(row.arguments);
    EXPECT_EQ(ended.exitCode, 1) << row.arguments;
    EXPECT_EQ(ended.errors, "field_table: cannot " + row.complaint + "\n");
  }
  EXPECT_EQ(RunWith(both + " /dev/null /dev/null /dev/null").exitCode, 0);
}

}  // namespace
}  // namespace test
