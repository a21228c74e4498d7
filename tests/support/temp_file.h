// A file of given bytes that lives as long as the object.
#pragma once

#include <string>
#include <string_view>

#include "data_file_writer.h"

namespace test {

class TempFile {
 public:
  explicit TempFile(std::string_view bytes);
  explicit TempFile(const samples::DataFile& file) : TempFile(file.Bytes()) {}
  ~TempFile();
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const std::string& Path() const { return path_; }
  const char* CPath() const { return path_.c_str(); }
  // Replaces the contents, in the same file.
  void Rewrite(std::string_view bytes) const;

 private:
  std::string path_;
};

}  // namespace test
