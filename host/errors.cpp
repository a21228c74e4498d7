#include "errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "plain_text.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

std::string WhatAnyCallMet(int status) {
  switch (status) {
    case QV_CANNOT_OPEN:
      return "the file cannot be opened";
    case QV_RECORD_TOO_SHORT:
      return "an item ends before its last field";
    case QV_BAD_LENGTH:
      return "the file ends without an end of data, or an item is longer than any can be";
    case QV_SEEK_FAILED:
      return "a seek failed, or the position lies above 2 GiB";
    default:
      return "the file cannot be read further";
  }
}

}  // namespace

void FailWithErrno(const std::string& what) {
  throw FileError(what + ": " + std::strerror(errno), QV_CANNOT_OPEN);
}

void Complain(const std::string& what) {
  std::fprintf(stderr, "qvslm: %s\n", PlainText(what).c_str());
}

void Report(const std::string& file, const std::string& what, int code) {
  Complain(file + ": " + what + " (" + std::to_string(code) + ")");
}

std::string WhatStartMet(int status) {
  switch (status) {
    case QV_NOT_FOUND:
      return "no results block with a level offset (register 106) in this file of model 442: the "
             "file may be incomplete";
    case QV_SEEK_FAILED:
      return "the file does not begin like a measurement file, or it cannot be read";
    case QV_TAIL_SEEK_FAILED:
      return "the file is shorter than the tail that is looked at first: 2500 bytes, 1000 on model "
             "431";
    case QV_NO_MEMORY:
      return "there is no memory to look through this file of model 442";
    default:
      return WhatAnyCallMet(status);
  }
}

std::string WhatWalkMet(int status) {
  return WhatAnyCallMet(status);
}

std::string WhatCensusMet(int status) {
  return status == QV_SEEK_FAILED ? WhatStartMet(status) : WhatAnyCallMet(status);
}

}  // namespace host
