// Which files a command works on, and how many at once.
#pragma once

#include <string>
#include <vector>

namespace host {

struct Sources {
  std::vector<std::string> names;  // files and folders, as they are written; - is standard input
  bool recursive = false;          // of folders also what is in their folders
  std::string ending = "qvd";      // of the files that are taken from folders; "*" for any
  int jobs = 1;                    // files worked on at once
  std::string zone;                // place of the measurement; empty for the zone in force
};

}  // namespace host
