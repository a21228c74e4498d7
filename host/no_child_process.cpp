// Where a process cannot be copied.
#include "child_process.h"
#include "errors.h"
#include "qvslmtranslate.h"

namespace host {

bool HasChildren() {
  return false;
}

ChildProcess StartChild(const std::function<std::string()>&) {
  throw FileError("no other process can be started", QV_CANNOT_OPEN);
}

void ReadChildren(const std::vector<ChildProcess*>&, const std::vector<std::string*>&) {}

bool WaitForChild(const ChildProcess&) {
  return false;
}

void EndChild(const ChildProcess&) {}

}  // namespace host
