// A copy of what cannot be sought in: standard input, a pipe, a device. It is removed at the end of
// its scope, and by every signal that ends the program and can be caught.
#pragma once

#include <string>

namespace host {

class TemporaryCopy {
 public:
  TemporaryCopy() = default;
  ~TemporaryCopy();
  TemporaryCopy(const TemporaryCopy&) = delete;
  TemporaryCopy& operator=(const TemporaryCopy&) = delete;

  // Takes all that the source holds and gives the path of the copy. Throws FileError when the copy
  // cannot be made, or the source does not end within 2 GiB.
  std::string Take(int source);

 private:
  std::string folder_;  // of its own; empty without a copy
};

}  // namespace host
