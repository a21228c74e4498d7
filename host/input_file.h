// A file as the library wants it: one that can be sought in. Standard input, pipes and devices are
// copied to a temporary file first.
#pragma once

#include <cstdint>
#include <string>

#include "temporary_copy.h"

namespace host {

class InputFile {
 public:
  // "-" is standard input. Throws FileError when the file cannot be had.
  explicit InputFile(const std::string& name);

  const std::string& Name() const { return name_; }  // as the user wrote it
  const char* Path() const { return path_.c_str(); }
  // Bytes that the file has now; it may grow while it is read.
  std::uint64_t Size() const;

 private:
  std::string name_;
  std::string path_;
  TemporaryCopy copy_;
};

}  // namespace host
