// The name in a path whose characters may have two bytes, as in Japanese code pages: which they are
// is the system's to tell, so that no export shows it here.
#include <gtest/gtest.h>

#include <string_view>

#include "api/file_path.h"

namespace {

using qvslm::FileNameIn;

bool NeverLeads(char) {
  return false;
}

// Code page 932.
bool LeadsInJapanese(char c) {
  auto const byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

TEST(FileNameIn, StandsBehindTheLastSeparator) {
  struct Row {
    std::string_view path, name;
  };
  constexpr Row kRows[] = {
      {"night.qvd", "night.qvd"},
      {"/data/night.qvd", "night.qvd"},
      {"C:\\data\\a.qvd", "a.qvd"},
      {"C:a.qvd", ":a.qvd"},
      {"data/", ""},
      {"", ""},
      {"a\\b/c.qvd", "c.qvd"},
      {"C:", ":"},
      {"/a:b/c", "c"},
      {"/a/b:c\\d.qvd", "d.qvd"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(FileNameIn(row.path, NeverLeads), row.name) << row.path;
    EXPECT_EQ(FileNameIn(row.path, LeadsInJapanese), row.name) << row.path;
  }
}

// 0x83 0x5C is one letter, whose second byte is a backslash alone.
TEST(FileNameIn, SecondBytesSeparateNothing) {
  constexpr std::string_view kPath = "C:\\\x83\x5C\\\x83\x5C\x83t\x83g.qvd";
  EXPECT_EQ(FileNameIn(kPath, LeadsInJapanese), "\x83\x5C\x83t\x83g.qvd");
  EXPECT_EQ(FileNameIn(kPath, NeverLeads), "\x83t\x83g.qvd");
  // A first byte that ends the path has no second one.
  EXPECT_EQ(FileNameIn("a/b\x83", LeadsInJapanese), "b\x83");
}

}  // namespace
