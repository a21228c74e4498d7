// qvslm check: whether a file is whole, or where it breaks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/marked_files.h"
#include "host/qvslm_process.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::Marks;
using test::Objects;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using testing::HasSubstr;

constexpr std::size_t markSize = 13;

TEST(Check, AWholeFile) {
  TempFile const file(Startable(Marks(2).EndOfData()));
  Result const result = RunQvslm({"check", file.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, file.Path() + ": whole, 3 records\n");
}

TEST(Check, AFileThatEndsWithinARecord) {
  std::string const bytes = Marks().Bytes();
  std::size_t const last = bytes.size() - markSize;
  TempFile const file(std::string_view(bytes).substr(0, bytes.size() - 5));
  Result const result = RunQvslm({"check", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, file.Path() + ": damaged at byte " + std::to_string(last) + " of " +
                            std::to_string(bytes.size() - 5) +
                            "\n"
                            "  read before  299 records: 299 level marks\n"
                            "  breaks in    record 300, a level mark\n"
                            "  was due      the rest of a level mark, 5 bytes\n"
                            "  why          the file ends before the end of its data\n"
                            "  status       -312\n");
  auto const facts = Objects(RunQvslm({"check", "--json", file.Path()})).at(0);
  EXPECT_EQ(facts.at("file"), file.Path());
  EXPECT_EQ(facts.at("result"), "damaged");
  EXPECT_EQ(facts.at("records"), 299);
  EXPECT_EQ(facts.at("read"), nlohmann::ordered_json({{"LevelMark", 299}}));
  EXPECT_EQ(facts.at("offset"), last);
  EXPECT_EQ(facts.at("record"), 300);
  EXPECT_EQ(facts.at("kind"), "LevelMark");
  EXPECT_EQ(facts.at("status"), -312);
}

TEST(Check, AFileThatEndsBetweenTwoRecords) {
  std::string const bytes = Marks().Bytes();
  TempFile const file(bytes);
  Result const result = RunQvslm({"check", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.out, HasSubstr(": damaged at byte " + std::to_string(bytes.size()) + " of " +
                                    std::to_string(bytes.size()) + "\n"));
  EXPECT_THAT(result.out, HasSubstr("  read before  300 records: 300 level marks\n"));
  EXPECT_THAT(result.out, HasSubstr("  breaks in    record 301\n"));
  EXPECT_THAT(result.out, HasSubstr("  was due      a record, or the end of the data\n"));
}

TEST(Check, AnItemThatNoWalkCanPass) {
  TempFile const file(Startable(Marks(2).Item(5, Body().Fill(7000, 1)).Item(5, Body())));
  Result const result = RunQvslm({"check", file.Path()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(result.out, HasSubstr("  read before  2 records: 2 level marks\n"));
  EXPECT_THAT(result.out, HasSubstr("  breaks in    record 3\n"));
  EXPECT_THAT(result.out, HasSubstr("  why          an item is longer than any can be\n"));
}

TEST(Check, WhatCannotBeRead) {
  TempFile const other("<html>" + std::string(5000, 'x'));
  Result const result = RunQvslm({"check", other.Path(), "no/such/file"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            other.Path() +
                ": unreadable\n"
                "  was due      the start of a measurement file\n"
                "  why          the file does not begin like a measurement file, or it cannot be "
                "read\n"
                "  status       -314\n"
                "no/such/file: unreadable\n"
                "  why          the file cannot be opened: No such file or directory\n"
                "  status       -302\n"
                "2 files: 0 whole, 0 damaged, 2 unreadable\n");
}

TEST(Check, TheWorstFileDecides) {
  TempFile const whole(Startable(Marks(2).EndOfData()));
  TempFile const cut(Marks());
  EXPECT_EQ(RunQvslm({"check", whole.Path(), cut.Path(), whole.Path()}).exitCode, 3);
  EXPECT_EQ(RunQvslm({"check", whole.Path(), "no/such/file", cut.Path()}).exitCode, 1);
  EXPECT_EQ(RunQvslm({"check", whole.Path(), whole.Path()}).exitCode, 0);
}

TEST(Check, ShortItemsAreToldOfAWholeFile) {
  TempFile const file(Startable(
      test::General().Item(4, Body().U8(0).Date(21, 6, 2024).Time(12, 31, 5)).EndOfData()));
  Result const result = RunQvslm({"check", file.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out, file.Path() +
                            ": whole, 2 records\n"
                            "  short        1 item was shorter than the layout; fields behind "
                            "their end are zero\n");
}

}  // namespace
