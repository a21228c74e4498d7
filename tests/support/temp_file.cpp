#include "support/temp_file.h"

#include <cstdio>
#include <fstream>

#include "support/system_calls.h"

namespace test {

TempFile::TempFile(std::string_view bytes) : path_(MakeTemporaryFile()) {
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
