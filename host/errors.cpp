#include "errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "plain_text.h"
#include "progress.h"
#include "qvslmtranslate.h"

namespace host {

void FailWithErrno(const std::string& what) {
  throw FileError(what + ": " + std::strerror(errno), QV_CANNOT_OPEN);
}

void Complain(const std::string& what) {
  WipeProgress();
  std::fprintf(stderr, "qvslm: %s\n", PlainText(what).c_str());
  std::fflush(stderr);
}

void Report(const std::string& file, const std::string& what, int code) {
  Complain(file + ": " + what + " (" + std::to_string(code) + ")");
}

void Remark(const std::string& file, const std::string& what) {
  Complain(file + ": " + what);
}

}  // namespace host
