// A file as the library wants it: one that can be sought in. Standard input, pipes and devices are
// copied to a temporary file first.
#pragma once

#include <cstdint>
#include <string>

namespace host {

class InputFile {
 public:
  // "-" is standard input. Throws FileError when the file cannot be had.
  explicit InputFile(const std::string& name);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const std::string& Name() const { return name_; }  // as the user wrote it
  const char* Path() const { return path_.c_str(); }
  // Bytes that the file has now; it may grow while it is read.
  std::uint64_t Size() const;

 private:
  void Spool(int descriptor);

  std::string name_;
  std::string path_;
  std::string folder_;  // of the temporary copy; empty without one
};

}  // namespace host
