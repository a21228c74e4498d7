#include "temporary_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "descriptor.h"
#include "errors.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

// The copy in use, for a handler of signals to remove; empty without one.
std::array<char, PATH_MAX> pathInUse{};
std::array<char, PATH_MAX> folderInUse{};

// The signal ends the program as ever, but leaves no copy behind. Calls only what a handler may
// call.
void RemoveCopyAndEnd(int signal) {
  unlink(pathInUse.data());
  rmdir(folderInUse.data());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

bool EndsPrograms(int signal) {
  constexpr int others[] = {SIGCHLD, SIGCONT, SIGURG, SIGWINCH, SIGTSTP, SIGTTIN, SIGTTOU};
  return std::find(std::begin(others), std::end(others), signal) == std::end(others);
}

void CatchSignals() {
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    struct sigaction action {};
    // What whoever started the program wants ignored stays ignored. Some cannot be asked for.
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
    if (EndsPrograms(signal)) std::signal(signal, RemoveCopyAndEnd);
  }
}

// Holds signals back, so that none comes between the making of a folder and the note of its name.
class SignalPause {
 public:
  SignalPause() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
  }
  ~SignalPause() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  SignalPause(const SignalPause&) = delete;
  SignalPause& operator=(const SignalPause&) = delete;

 private:
  sigset_t before_{};
};

void Note(std::array<char, PATH_MAX>& place, const std::string& path) {
  place[path.copy(place.data(), place.size() - 1)] = '\0';
}

// Makes a folder of its own in the one for temporary files.
std::string MakeFolder(const char* nameOfCopy) {
  std::error_code fault;
  std::filesystem::path const temporary = std::filesystem::temp_directory_path(fault);
  if (fault) {
    throw FileError("there is no folder for a temporary copy: " + fault.message(), QV_CANNOT_OPEN);
  }
  std::string folder = (temporary / "qvslm-XXXXXX").string();
  CatchSignals();
  SignalPause const pause;
  if (mkdtemp(folder.data()) == nullptr) FailWithErrno("no temporary folder can be made");
  Note(folderInUse, folder);
  Note(pathInUse, folder + nameOfCopy);
  return folder;
}

bool IsZero(std::string_view bytes) {
  return bytes.front() == '\0' && bytes.substr(1) == bytes.substr(0, bytes.size() - 1);
}

void Write(int file, std::string_view bytes) {
  constexpr const char* fault = "the temporary copy cannot be written";
  // Zeros become a hole: what gives nothing else, without end, fills no disk.
  if (IsZero(bytes)) {
    if (lseek(file, static_cast<off_t>(bytes.size()), SEEK_CUR) < 0) FailWithErrno(fault);
    return;
  }
  while (!bytes.empty()) {
    ssize_t const written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) FailWithErrno(fault);
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

TemporaryCopy::~TemporaryCopy() {
  if (folder_.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
  pathInUse[0] = folderInUse[0] = '\0';
}

std::string TemporaryCopy::Take(int source) {
  // The library can reach no byte behind these.
  constexpr std::uint64_t mostBytes = std::uint64_t{1} << 31;
  // The end record tells the name of the file.
  constexpr const char* name = "/stdin";
  folder_ = MakeFolder(name);
  std::string path = folder_ + name;
  Descriptor const copy(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (copy.Number() < 0) FailWithErrno("the temporary copy cannot be written");
  std::array<char, 65536> block;
  std::uint64_t total = 0;
  for (;;) {
    ssize_t const count = read(source, block.data(), block.size());
    if (count < 0 && errno != EINTR) FailWithErrno("the file cannot be read");
    if (count == 0) break;
    if (count < 0) continue;
    auto const size = static_cast<std::size_t>(count);
    total += size;
    if (total > mostBytes) throw FileError("the file does not end within 2 GiB", QV_CANNOT_OPEN);
    Write(copy.Number(), {block.data(), size});
  }
  // Gives a hole at the end its size.
  if (ftruncate(copy.Number(), static_cast<off_t>(total)) != 0) {
    FailWithErrno("the temporary copy cannot be written");
  }
  return path;
}

}  // namespace host
