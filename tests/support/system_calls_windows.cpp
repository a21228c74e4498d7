#include <io.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <new>
#include <stdexcept>

#include "support/open_files.h"
#include "support/system_calls.h"

namespace test {
namespace {

// Of this process and its own count: nobody else uses it.
std::filesystem::path NewTemporaryPath() {
  static int count = 0;
  std::string const name =
      "qvslm-" + std::to_string(GetCurrentProcessId()) + '-' + std::to_string(++count);
  return std::filesystem::temp_directory_path() / name;
}

}  // namespace

std::string MakeTemporaryFile() {
  std::filesystem::path const path = NewTemporaryPath();
  std::ofstream const file(path);
  return path.string();
}

std::string MakeTemporaryFolder() {
  std::filesystem::path const path = NewTemporaryPath();
  std::filesystem::create_directory(path);
  return path.string();
}

GuardedPages TakeGuardedPages(std::size_t size) {
  SYSTEM_INFO system;
  GetSystemInfo(&system);
  std::size_t const page = system.dwPageSize;
  std::size_t const usable = (size + page - 1) / page * page;
  std::size_t const reserved = usable + page;
  void* const mapping = VirtualAlloc(nullptr, reserved, MEM_RESERVE, PAGE_NOACCESS);
  if (mapping == nullptr) throw std::bad_alloc();
  if (usable > 0 && VirtualAlloc(mapping, usable, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
    throw std::bad_alloc();
  }
  return {static_cast<std::uint8_t*>(mapping), usable, reserved};
}

void GiveBack(const GuardedPages& pages) {
  VirtualFree(pages.start, 0, MEM_RELEASE);
}

long OpenFiles() {
  constexpr int most = 2048;
  long open = 0;
  for (int file = 0; file < most; ++file) {
    if (_get_osfhandle(file) != -1) ++open;
  }
  return open;
}

FilledPipe::FilledPipe(std::string_view) {
  throw std::runtime_error("pipes have no paths here");
}

FilledPipe::~FilledPipe() = default;

std::string FilledPipe::Path() const {
  return "";
}

}  // namespace test
