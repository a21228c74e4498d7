#include "input_file.h"

#include <unistd.h>

#include "descriptor.h"
#include "errors.h"
#include "platform.h"

namespace host {

InputFile::InputFile(const std::string& name) : name_(name), path_(name) {
  bool const isStandardInput = name == "-";
  Descriptor const file(isStandardInput ? STDIN_FILENO : OpenToRead(name));
  if (file.Number() < 0) FailWithErrno("the file cannot be opened");
  if (isStandardInput || !IsPlainFile(file.Number())) path_ = copy_.Take(file.Number());
}

std::uint64_t InputFile::Size() const {
  return SizeOf(path_);
}

}  // namespace host
