#include "errors.h"

#include <cstdio>

namespace host {
void Report(const std::string& file, const std::string& what, int code) {
  std::fprintf(stderr, "qvslm: %s: %s (%d)\n", file.c_str(), what.c_str(), code);
}

void Remark(const std::string& file, const std::string& what) {
  std::fprintf(stderr, "qvslm: %s: %s\n", file.c_str(), what.c_str());
}

}  // namespace host
