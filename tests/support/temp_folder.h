// A folder of files with names of the test's choice. It lives as long as the object.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "support/system_calls.h"

namespace test {

class TempFolder {
 public:
  TempFolder() : path_(MakeTemporaryFolder()) {}
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }
  bool Empty() const { return std::filesystem::is_empty(path_); }
  // Writes a file into the folder and gives its path.
  std::string File(std::string_view name, std::string_view bytes) const {
    std::string path = path_ + '/' + std::string(name);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("cannot write " + path);
    return path;
  }

 private:
  std::string path_;
};

}  // namespace test
