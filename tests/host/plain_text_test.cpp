// No text of a file, and no name of one, does anything to the terminal that shows it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::DataFile;
using test::Objects;
using test::Result;
using test::RunQvslm;
using test::Startable;
using test::TempFile;
using test::TempFolder;
using testing::HasSubstr;

// True without control characters but line feeds: none of C0, DEL, and C1 as UTF-8.
bool IsPlain(const std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    auto const before = static_cast<unsigned char>(i == 0 ? 0 : text[i - 1]);
    if ((byte < 0x20 && byte != '\n') || byte == 0x7F) return false;
    if (before == 0xC2 && byte < 0xA0) return false;
  }
  return true;
}

TEST(PlainText, TitlesSerialAndFirmwareInTheListing) {
  TempFile const file(
      Startable(DataFile()
                    .Titles("a\x1B[31mred\x07", "b\x9B\x32J\x85", "c\x7F\xE9\x80\x9F\xA0z")
                    .Header({.Model = 486, .Serial = " 1\x1B]0;x", .Firmware = "1.1\x1B[5mX"})
                    .EndOfData()));
  Result const result = RunQvslm({"info", file.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.out, HasSubstr("\n  serial       1\\u001b]0;x\n"));
  EXPECT_THAT(result.out, HasSubstr("\n  firmware     1.1\\u001b[5mX\n"));
  // U+0085 is one character of two bytes.
  EXPECT_THAT(result.out, HasSubstr("\n  title        a\\u001b[31mred\\u0007\n"));
  EXPECT_THAT(result.out, HasSubstr("\n  title        b\\u009b2J\\u0085\n"));
  EXPECT_THAT(result.out, HasSubstr("\n  title        c\\u007f\xC3\xA9\\u0080\\u009f\xC2\xA0z\n"));
  EXPECT_TRUE(IsPlain(result.out));
}

// All 255 characters of Latin-1 but those that end a line, eight in each title: JSON means them
// all, and holds no control character itself.
TEST(PlainText, TextsInJson) {
  for (int first = 1; first < 256; first += 8) {
    std::string title;
    std::string utf8;
    for (int code = first; code < first + 8 && code < 256; ++code) {
      if (code == '\n' || code == '\r') continue;
      title += static_cast<char>(code);
      if (code >= 0x80) utf8 += static_cast<char>(code < 0xC0 ? 0xC2 : 0xC3);
      utf8 += static_cast<char>(code < 0x80 ? code : 0x80 | (code & 0x3F));
    }
    TempFile const file(Startable(test::General().Q(2, title + "|").EndOfData()));
    Result const result = RunQvslm({"dump", "--records", "Settings", file.Path()});
    EXPECT_EQ(Objects(result).at(0).at("Title2"), utf8 + "|") << first;
    EXPECT_TRUE(IsPlain(result.out)) << first;
    EXPECT_TRUE(IsPlain(RunQvslm({"dump", "--brief", file.Path()}).out)) << first;
  }
}

TEST(PlainText, JsonEscapesC1) {
  TempFile const file(Startable(test::General().Q(2, "a\x85\x9B\x7Fz").EndOfData()));
  EXPECT_THAT(RunQvslm({"dump", file.Path()}).out, HasSubstr(R"("Title2":"a\u0085\u009b\u007fz")"));
}

TEST(PlainText, NamesOfFiles) {
  TempFolder const folder;
  std::string const path =
      folder.File("n\nqvslm: x\x1B[31m\xC2\x9B\x7F.qvd", Startable(test::General().EndOfData()));
  std::string const shown = folder.Path() + "/n\\u000aqvslm: x\\u001b[31m\\u009b\\u007f.qvd";
  EXPECT_THAT(RunQvslm({"info", path}).out, testing::StartsWith(shown + "\n  model "));
  Result const two = RunQvslm({"dump", path, path});
  EXPECT_EQ(Objects(two).at(0).at("file"), path);
  EXPECT_TRUE(IsPlain(two.out));
  EXPECT_THAT(RunQvslm({"dump", "--brief", path, path}).out,
              testing::StartsWith(shown + ": End  SiteNumber 0"));
}

TEST(PlainText, ErrorsAreOneLineEach) {
  TempFolder const folder;
  std::string const cut = folder.File("c\nd", test::General().EndOfData().Bytes());
  EXPECT_EQ(RunQvslm({"dump", cut}).err,
            "qvslm: " + folder.Path() +
                "/c\\u000ad: the file is shorter than the tail that is looked at first: 2500 "
                "bytes, 1000 on model 431 (-315)\n");
  EXPECT_EQ(RunQvslm({"dump", "no\r\nqvslm: such"}).err,
            "qvslm: no\\u000d\\u000aqvslm: such: the file cannot be opened: No such file or "
            "directory (-302)\n");
}

TEST(PlainText, WhatIsWrongOnTheCommandLineIsOneLineToo) {
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
           {"x\n\x1B[2J"},
           {"dump", "--limit", "x\n\x1B[2J", "file"},
           {"dump", "--records", "x\n\x1B[2J", "file"},
           {"dump", "--x\n\x1B[2J", "file"},
       }) {
    Result const result = RunQvslm(wrong);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("x\\u000a\\u001b[2J"));
    EXPECT_EQ(test::Lines(result.err).size(), 2u);  // and where help is to be had
    EXPECT_TRUE(IsPlain(result.err));
  }
}

// What is no UTF-8 becomes U+FFFD, one for each byte that begins no character.
TEST(PlainText, BytesThatAreNoUtf8) {
  struct Row {
    const char* name;
    const char* shown;
  };
  constexpr const char* mark = "\xEF\xBF\xBD";
  const Row rows[] = {
      {"\xFF", "?"},
      {"\x9B", "?"},
      {"a\xC3", "a?"},
      {"\xC3z", "?z"},
      {"\xC0\xAF", "??"},  // '/' in two bytes
      {"\xC1\xBF", "??"},
      {"\xE0\x9F\xBF", "???"},       // U+07FF in three
      {"\xED\xA0\x80", "???"},       // a surrogate
      {"\xF0\x8F\xBF\xBF", "????"},  // U+FFFF in four
      {"\xF4\x90\x80\x80", "????"},  // above U+10FFFF
      {"\xF5\x80\x80\x80", "????"},
      {"\xE2\x82", "??"},  // cut
      {"\xE2\x82z", "??z"},
      {"\xF0\x9F\x98z", "???z"},
      {"\x01\x1F !~\x7F", "\\u0001\\u001f !~\\u007f"},
      {"\xC2\x80\xC2\x9F", "\\u0080\\u009f"},
      {"\xC2\xA0", "\xC2\xA0"},
      {"\xDF\xBF", "\xDF\xBF"},
      {"\xE0\xA0\x80", "\xE0\xA0\x80"},
      {"\xE2\x82\xAC", "\xE2\x82\xAC"},
      {"\xED\x9F\xBF", "\xED\x9F\xBF"},
      {"\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
      {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
  };
  for (const Row& row : rows) {
    std::string shown;
    for (char const c : std::string(row.shown)) c == '?' ? shown += mark : shown += c;
    EXPECT_EQ(
        RunQvslm({"info", row.name}).err,
        "qvslm: " + shown + ": the file cannot be opened: No such file or directory (-302)\n");
  }
}

}  // namespace
