#include "support/temp_file.h"

#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace test {

TempFile::TempFile(std::string_view bytes)
    : path_((std::filesystem::temp_directory_path() / "qvslm-XXXXXX").string()) {
  int const descriptor = mkstemp(path_.data());
  if (descriptor < 0) throw std::runtime_error("cannot make a temporary file");
  close(descriptor);
  Rewrite(bytes);
}

TempFile::~TempFile() {
  std::remove(path_.c_str());
}

void TempFile::Rewrite(std::string_view bytes) const {
  std::ofstream out(path_, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace test
