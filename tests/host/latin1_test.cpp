// Texts of the instruments as qvslm shows them: characters above 127, and where a text begins and
// ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qvslm_process.h"
#include "support/translation.h"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

std::string Title2(const std::string& text) {
  TempFile const file(Startable(General().Q(2, text).EndOfData()));
  return Objects(RunQvslm({"dump", "--records", "Settings", file.Path()})).at(0).at("Title2");
}

TEST(Latin1, CharactersAbove127AreTwoBytes) {
  EXPECT_EQ(Title2("\x7E\x7F"), "\x7E\x7F");
  EXPECT_EQ(Title2("\x80\xBF"), "\xC2\x80\xC2\xBF");
  EXPECT_EQ(Title2("\xC0\xFF"), "\xC3\x80\xC3\xBF");
  EXPECT_EQ(Title2("L\xE4rm 5 \xB5Pa"), "L\xC3\xA4rm 5 \xC2\xB5Pa");
}

// A text of a site, 4 bytes from position 14 on; the byte behind it, 'n', is a field of its own.
std::string SiteText(std::initializer_list<int> bytes) {
  Body const site = Body().PadTo(300).Set(14, bytes).Set(18, {'n'});
  TempFile const file(Startable(General().Item('S', site).EndOfData()));
  return Objects(RunQvslm({"dump", "--records", "Site", file.Path()})).at(0).at("SiteText14");
}

TEST(Latin1, ATextEndsAtItsFirstNul) {
  EXPECT_EQ(SiteText({'A', 0, 'C', 'D'}), "A");
  EXPECT_EQ(SiteText({0, 'B', 'C', 'D'}), "");
}

TEST(Latin1, ATextWithoutANulEndsWithItsField) {
  EXPECT_EQ(SiteText({'A', 'B', 'C', 'D'}), "ABCD");
}

// What qvslm info shows of a title and of a serial number.
std::string Entry(const DataFile& data, const std::string& label) {
  TempFile const file(Startable(data));
  for (const std::string& line : Lines(RunQvslm({"info", file.Path()}).out)) {
    if (line.starts_with("  " + label + " ")) return line.substr(15);
  }
  return "none";
}
std::string Shown(const std::string& title) {
  return Entry(DataFile().Titles(title, "", "").Header({.Model = 486}).EndOfData(), "title");
}
std::string ShownSerial(const std::string& serial) {
  return Entry(DataFile().Header({.Model = 486, .Serial = serial}).EndOfData(), "serial");
}

TEST(Latin1, BlanksTabsAndLineEndsAreTrimmed) {
  EXPECT_EQ(Shown(" \t  a b\tc \t "), "a b\\u0009c");
  EXPECT_EQ(Shown("a"), "a");
  EXPECT_EQ(Shown(" \t "), "none");
  // A title ends at a carriage return, a serial number two characters before its line's end.
  EXPECT_EQ(ShownSerial(" \r 12\r34\r"), "12\\u000d34");
}

TEST(Latin1, OtherControlCharactersAreKeptAndEscaped) {
  EXPECT_EQ(Shown("\x01 a \x1F"), "\\u0001 a \\u001f");
  EXPECT_EQ(Shown(" \x1B[1m\x07 "), "\\u001b[1m\\u0007");
  EXPECT_EQ(Shown("\x0B\x0C"), "\\u000b\\u000c");
  EXPECT_EQ(Shown("\x7F\x85"), "\\u007f\\u0085");
  EXPECT_EQ(Shown("\xA0z\xA0"), "\xC2\xA0z\xC2\xA0");
}

}  // namespace
}  // namespace test
