#include "temporary.h"

#include <cerrno>
#include <filesystem>
#include <random>
#include <string_view>
#include <system_error>

#include "errors.h"
#include "file_paths.h"
#include "platform.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

std::string Letters() {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device chance;
  std::string text;
  for (int i = 0; i < 8; ++i) text += letters[chance() % letters.size()];
  return text;
}

}  // namespace

Temporary::~Temporary() {
  if (path_.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(PathOf(path_), ignored);
  ForgetNoted(path_);
}

Temporary& Temporary::operator=(Temporary&& other) noexcept {
  std::swap(path_, other.path_);
  return *this;
}

void Temporary::MoveTo(const std::string& path) {
  if (!Rename(path_, path)) FailWithErrno(path + " cannot be written");
  ForgetNoted(path_);
  path_.clear();
}

Temporary Temporary::Make(const std::string& stem, bool (*make)(const std::string& path),
                          const std::string& what) {
  for (;;) {
    std::string path = stem + Letters();
    if (make(path)) return Temporary(std::move(path));
    if (errno != EEXIST) FailWithErrno(what);
  }
}

Temporary Temporary::Folder() {
  std::error_code fault;
  std::filesystem::path const temporary = std::filesystem::temp_directory_path(fault);
  if (fault) {
    throw FileError("there is no folder for a temporary copy: " + fault.message(), QV_CANNOT_OPEN);
  }
  return Make(NameOf(temporary / "qvslm-"), MakeNotedPrivateFolder,
              "no temporary folder can be made");
}

Temporary Temporary::File(const std::string& path) {
  if (!MakeNotedFile(path)) FailWithErrno(path + " cannot be made");
  return Temporary(path);
}

Temporary Temporary::FileBeside(const std::string& path) {
  return Make(path + '.', MakeNotedFile, path + " cannot be written");
}

Temporary Temporary::FolderBeside(const std::string& path) {
  return Make(path + '.', MakeNotedFolder, path + " cannot be written");
}

}  // namespace host
