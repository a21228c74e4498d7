#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <new>
#include <stdexcept>

#include "support/open_files.h"
#include "support/system_calls.h"

namespace test {
namespace {

std::string TemporaryPattern() {
  return (std::filesystem::temp_directory_path() / "qvslm-XXXXXX").string();
}

}  // namespace

std::string MakeTemporaryFile() {
  std::string path = TemporaryPattern();
  int const descriptor = mkstemp(path.data());
  if (descriptor < 0) throw std::runtime_error("cannot make a temporary file");
  close(descriptor);
  return path;
}

std::string MakeTemporaryFolder() {
  std::string path = TemporaryPattern();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
  return path;
}

GuardedPages TakeGuardedPages(std::size_t size) {
  auto const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::size_t const usable = (size + page - 1) / page * page;
  std::size_t const reserved = usable + page;
  void* const mapping =
      mmap(nullptr, reserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) throw std::bad_alloc();
  auto* const start = static_cast<std::uint8_t*>(mapping);
  mprotect(start + usable, page, PROT_NONE);
  return {start, usable, reserved};
}

void GiveBack(const GuardedPages& pages) {
  munmap(pages.start, pages.reserved);
}

long OpenFiles() {
  std::filesystem::directory_iterator const descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

FilledPipe::FilledPipe(std::string_view bytes) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("cannot make a pipe");
  reader_ = ends[0];
  ssize_t const written = write(ends[1], bytes.data(), bytes.size());
  close(ends[1]);
  if (written != static_cast<ssize_t>(bytes.size())) throw std::runtime_error("pipe is full");
}

FilledPipe::~FilledPipe() {
  close(reader_);
}

std::string FilledPipe::Path() const {
  return "/proc/self/fd/" + std::to_string(reader_);
}

}  // namespace test
