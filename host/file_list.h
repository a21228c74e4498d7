// The files that names on the command line stand for.
#pragma once

#include <string>
#include <vector>

#include "outcome.h"
#include "sources.h"

namespace host {

struct FileList {
  std::vector<std::string> files;
  Outcome outcome =
      Outcome::Whole;  // NothingReadable where a folder could not be read, or is empty
};

// A name that is no folder stands for itself. A folder stands for its files of the ending, in the
// order of their names; hidden ones are left out. Says on stderr what cannot be read.
FileList FilesOf(const Sources& sources);

}  // namespace host
