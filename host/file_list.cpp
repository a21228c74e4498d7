#include "file_list.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

#include "errors.h"
#include "file_paths.h"

namespace host {
namespace {

namespace fs = std::filesystem;

bool SameLetters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

bool IsWanted(const fs::path& path, const Sources& sources) {
  std::string const name = NameOf(path.filename());
  if (name.starts_with('.')) return false;
  return sources.ending == "*" || SameLetters(NameOf(path.extension()), "." + sources.ending);
}

// Adds the files of one folder, and of the folders in it where they are asked for.
void AddFolder(FileList& list, const fs::path& folder, const Sources& sources) {
  std::vector<fs::path> files;
  std::vector<fs::path> folders;
  std::error_code fault;
  for (fs::directory_iterator entry(folder, fault), end; !fault && entry != end;
       entry.increment(fault)) {
    std::error_code ignored;
    if (entry->is_directory(ignored)) {
      // A link may lead back to where it stands.
      if (!entry->is_symlink(ignored)) folders.push_back(entry->path());
    } else if (entry->is_regular_file(ignored) && IsWanted(entry->path(), sources)) {
      files.push_back(entry->path());
    }
  }
  if (fault) {
    Remark(NameOf(folder), "the folder cannot be read: " + fault.message());
    list.outcome = Outcome::NothingReadable;
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) list.files.push_back(NameOf(file));
  if (!sources.recursive) return;
  std::sort(folders.begin(), folders.end());
  for (const fs::path& inner : folders) AddFolder(list, inner, sources);
}

}  // namespace

FileList FilesOf(const Sources& sources) {
  FileList list;
  for (const std::string& name : sources.names) {
    std::error_code ignored;
    if (name == "-" || !fs::is_directory(PathOf(name), ignored)) {
      list.files.push_back(name);
      continue;
    }
    std::size_t const before = list.files.size();
    AddFolder(list, PathOf(name), sources);
    if (list.files.size() == before && list.outcome == Outcome::Whole) {
      Remark(name, sources.ending == "*"
                       ? "the folder has no files"
                       : "the folder has no files that end in ." + sources.ending);
      list.outcome = Outcome::NothingReadable;
    }
  }
  return list;
}

}  // namespace host
