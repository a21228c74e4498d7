#include "input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "errors.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

[[noreturn]] void Fail(const std::string& what) {
  throw FileError(what + ": " + std::strerror(errno), QV_CANNOT_OPEN);
}

// Closes what it holds at the end of its scope, on every way out.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ > STDERR_FILENO) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }

 private:
  int number_;
};

void WriteAll(int descriptor, const char* bytes, std::size_t count) {
  while (count > 0) {
    ssize_t const written = write(descriptor, bytes, count);
    if (written < 0 && errno != EINTR) Fail("the temporary copy cannot be written");
    if (written <= 0) continue;
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
}

// The temporary copy in use, for a handler of signals to remove; empty without one.
std::array<char, PATH_MAX> spooledPath{};
std::array<char, PATH_MAX> spooledFolder{};

// Ctrl-C ends the program as ever, but leaves no copy behind. Calls only what a handler may call.
void RemoveCopyAndEnd(int signal) {
  unlink(spooledPath.data());
  rmdir(spooledFolder.data());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void RemoveCopyOnSignals(const std::string& path, const std::string& folder) {
  if (path.size() >= spooledPath.size()) return;
  spooledPath[path.copy(spooledPath.data(), spooledPath.size() - 1)] = '\0';
  spooledFolder[folder.copy(spooledFolder.data(), spooledFolder.size() - 1)] = '\0';
  for (int const signal : {SIGINT, SIGTERM, SIGHUP}) {
    // What whoever started the program wants ignored stays ignored.
    if (std::signal(signal, RemoveCopyAndEnd) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

void RemoveCopy(const std::string& folder) {
  if (folder.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  spooledPath[0] = spooledFolder[0] = '\0';
}

}  // namespace

InputFile::InputFile(const std::string& name) : name_(name), path_(name) {
  Descriptor const file(name == "-" ? STDIN_FILENO : open(name.c_str(), O_RDONLY));
  struct stat state {};
  if (file.Number() < 0 || fstat(file.Number(), &state) != 0) Fail("the file cannot be opened");
  if (name == "-" || !S_ISREG(state.st_mode)) {
    try {
      Spool(file.Number());
    } catch (...) {
      RemoveCopy(folder_);
      throw;
    }
  }
}

InputFile::~InputFile() {
  RemoveCopy(folder_);
}

void InputFile::Spool(int descriptor) {
  std::error_code fault;
  std::filesystem::path const temporary = std::filesystem::temp_directory_path(fault);
  if (fault) {
    throw FileError("there is no folder for a temporary copy: " + fault.message(), QV_CANNOT_OPEN);
  }
  std::string pattern = (temporary / "qvslm-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) Fail("no temporary folder can be made");
  folder_ = pattern;
  // The end record tells the name of the file.
  path_ = folder_ + "/stdin";
  RemoveCopyOnSignals(path_, folder_);
  Descriptor const copy(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR));
  if (copy.Number() < 0) Fail("the temporary copy cannot be written");
  std::array<char, 65536> block;
  for (;;) {
    ssize_t const count = read(descriptor, block.data(), block.size());
    if (count == 0) return;
    if (count < 0 && errno != EINTR) Fail("the file cannot be read");
    if (count > 0) WriteAll(copy.Number(), block.data(), static_cast<std::size_t>(count));
  }
}

std::uint64_t InputFile::Size() const {
  std::error_code fault;
  std::uintmax_t const size = std::filesystem::file_size(path_, fault);
  return fault ? 0 : size;
}

}  // namespace host
