#include "input_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

#include "descriptor.h"
#include "errors.h"

namespace host {

InputFile::InputFile(const std::string& name) : name_(name), path_(name) {
  bool const isStandardInput = name == "-";
  Descriptor const file(isStandardInput ? STDIN_FILENO : open(name.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat state {};
  if (file.Number() < 0 || fstat(file.Number(), &state) != 0) {
    FailWithErrno("the file cannot be opened");
  }
  if (isStandardInput || !S_ISREG(state.st_mode)) path_ = copy_.Take(file.Number());
}

std::uint64_t InputFile::Size() const {
  std::error_code fault;
  std::uintmax_t const size = std::filesystem::file_size(path_, fault);
  return fault ? 0 : size;
}

}  // namespace host
