// A copy of what cannot be sought in: standard input, a pipe, a device. It is removed at the end of
// its scope, and by every signal that ends the program and can be caught.
#pragma once

#include <string>

#include "temporary.h"

namespace host {

class TemporaryCopy {
 public:
  // Takes all that the source holds and gives the path of the copy. Throws FileError when the copy
  // cannot be made, or the source does not end within 2 GiB.
  std::string Take(int source);

 private:
  Temporary folder_;  // of its own; removed behind the file
  Temporary file_;
};

}  // namespace host
