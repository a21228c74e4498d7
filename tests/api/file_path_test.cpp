// What the start of a translation makes of the file's path: the name in the end record, and the
// path by which the file is opened again.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "support/temp_folder.h"
#include "support/translation.h"

namespace {

using samples::Body;
using test::General;
using test::Session;
using test::Startable;
using test::TempFolder;

Body Mark() {
  return Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(1);
}

std::string FileNameOf(const std::string& path) {
  Session session;
  if (session.Start(path) != QV_OK) return "not started";
  if (session.Next() != QV_END_OF_DATA) return "no end record";
  auto const record = session.As<QvEnd>();
  return std::string(record.FileName, strnlen(record.FileName, sizeof record.FileName));
}

// The name of the file is what stands behind the last separator; a colon belongs to it.
TEST(FilePath, FileNameBehindTheLastSeparator) {
  struct Row {
    const char* name;  // in a folder, so behind a '/'
    const char* expected;
  };
  constexpr Row kRows[] = {
      {"data.ext", "data.ext"},
      {"C:data.ext", ":data.ext"},
      {"C:\\dir\\data.ext", "data.ext"},
      {"dir\\data.ext", "data.ext"},
      {"dir\\C:data.ext", ":data.ext"},
      {"C:\\data:ext", ":ext"},
      {"dir\\", ""},
      {"dir:", ":"},
      {"\xC4\xD6\xDC data", "\xC4\xD6\xDC data"},
  };
  TempFolder const folder;
  std::string const bytes = Startable(General().EndOfData());
  std::filesystem::path const home = std::filesystem::current_path();
  for (const Row& row : kRows) {
    std::string const path = folder.File(row.name, bytes);
    EXPECT_EQ(FileNameOf(path), row.expected) << row.name;
    // The same name without a folder before it.
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(FileNameOf(row.name), row.expected) << row.name;
    std::filesystem::current_path(home);
  }
}

TEST(FilePath, ALongFileNameIsKeptWhole) {
  TempFolder const folder;
  std::string const name(255, 'n');
  folder.File(name, Startable(General().EndOfData()));
  std::filesystem::path const home = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(FileNameOf(name), name);
  std::filesystem::current_path(home);
}

// A path of the given length to the file "data" in the folder.
std::string PathOfLength(const TempFolder& folder, std::size_t length) {
  std::string path = folder.Path() + '/';
  while (path.size() + 4 + 2 <= length) path += "./";
  while (path.size() + 4 < length) path += '/';
  return path + "data";
}

// A path of up to 259 bytes is kept, and opens the file again behind the end of its data. A longer
// one opens the file once.
TEST(FilePath, LongPathsOpenButAreNotKept) {
  TempFolder const folder;
  folder.File("data", Startable(General().Item(5, Mark()).EndOfData().Item(5, Mark())));
  struct Row {
    std::size_t length;
    bool kept;
  };
  constexpr Row kRows[] = {{100, true},  {258, true},  {259, true},   {260, false},
                           {261, false}, {300, false}, {1000, false}, {4000, false}};
  for (const Row& row : kRows) {
    std::string const path = PathOfLength(folder, row.length);
    ASSERT_EQ(path.size(), row.length);
    Session session;
    ASSERT_EQ(session.Start(path), QV_OK) << row.length;
    EXPECT_EQ(session.Next(), QV_OK);
    EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
    EXPECT_EQ(session.Next(), QV_END_OF_DATA);
    EXPECT_EQ(session.Next(), row.kept ? QV_OK : QV_CANNOT_OPEN) << row.length;
    EXPECT_EQ(session.Code(), row.kept ? QV_LEVEL_MARK : QV_NO_RECORD) << row.length;
  }
}

TEST(FilePath, APathThatIsNotKeptLeavesNoOtherFileInItsPlace) {
  TempFolder const folder;
  std::string const other = folder.File("other", Startable(General().Item(5, Mark()).EndOfData()));
  folder.File("data", Startable(General().EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(other), QV_OK);
  QV_StopTranslate();
  ASSERT_EQ(session.Start(PathOfLength(folder, 400)), QV_OK);
  EXPECT_EQ(session.Next(), QV_END_OF_DATA);
  EXPECT_EQ(session.Next(), QV_CANNOT_OPEN);
}

TEST(FilePath, APathMayHoldAnyBytes) {
  TempFolder const folder;
  std::string const path =
      folder.File("\x01\xFF\x80 \"%s\" data", Startable(General().Item(5, Mark()).EndOfData()));
  Session session;
  ASSERT_EQ(session.Start(path), QV_OK);
  EXPECT_EQ(session.Next(), QV_OK);
  EXPECT_EQ(session.Code(), QV_LEVEL_MARK);
}

}  // namespace
