// Files and folders that are there for a while.
#pragma once

#include <string>
#include <utility>

namespace host {

// Is removed at the end of its scope, a folder with all that is in it; and also when a signal or
// Ctrl-C ends the program, then a folder only once it is empty.
class Temporary {
 public:
  Temporary() = default;  // none
  ~Temporary();
  Temporary(Temporary&& other) noexcept : path_(std::move(other.path_)) { other.path_.clear(); }
  Temporary& operator=(Temporary&& other) noexcept;

  const std::string& Path() const { return path_; }
  // Gives a file its place in one step, also over one that is there; it is none of ours then.
  // Throws FileError.
  void MoveTo(const std::string& path);

  // These throw FileError.
  static Temporary Folder();  // among the temporary ones
  static Temporary File(const std::string& path);
  // Next to a path, on the same disk, under a name of their own.
  static Temporary FileBeside(const std::string& path);
  static Temporary FolderBeside(const std::string& path);

 private:
  explicit Temporary(std::string path) : path_(std::move(path)) {}
  static Temporary Make(const std::string& stem, bool (*make)(const std::string& path),
                        const std::string& what);

  std::string path_;
};

}  // namespace host
