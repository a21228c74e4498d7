#include "robustness/faulty_calls.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>

// The linker makes these of the C library's own names.
extern "C" {
std::FILE* __real_fopen(const char* path, const char* mode);
int __real_setvbuf(std::FILE* file, char* buffer, int mode, std::size_t size);
std::size_t __real_fread(void* target, std::size_t size, std::size_t count, std::FILE* file);
int __real_fseeko(std::FILE* file, off_t offset, int from);
off_t __real_ftello(std::FILE* file);
char* __real_fgets(char* text, int size, std::FILE* file);
int __real_fgetc(std::FILE* file);
int __real_ferror(std::FILE* file);
void __real_clearerr(std::FILE* file);
int __real_fclose(std::FILE* file);
void* __real_malloc(std::size_t size);
void __real_free(void* block);
}

namespace test {
namespace {

constexpr std::string_view kNames[] = {"fopen", "setvbuf", "fread",  "fseeko", "ftello",
                                       "fgets", "fgetc",   "fclose", "malloc"};
constexpr std::size_t kCalls = std::size(kNames);

bool inLibrary = false;
std::optional<Fault> armed;
int strikes = 0;
std::array<int, kCalls> counts{};
std::set<std::FILE*> files;
std::set<std::FILE*> unreadable;  // that a read failed on
std::set<void*> blocks;

// Counts a call of the library's, and tells whether the fault strikes it.
bool Struck(CCall call) {
  if (!inLibrary) return false;
  int const number = ++counts[static_cast<std::size_t>(call)];
  if (!armed || armed->call != call) return false;
  bool const struck = armed->lasting ? number >= armed->at : number == armed->at;
  if (struck) {
    ++strikes;
    errno = EIO;
  }
  return struck;
}

template <class T>
T* Held(std::set<T*>& set, T* thing) {
  if (inLibrary && thing != nullptr) set.insert(thing);
  return thing;
}

template <class T>
void Released(std::set<T*>& set, T* thing) {
  if (inLibrary) set.erase(thing);
}

}  // namespace

std::string_view NameOf(CCall call) {
  return kNames[static_cast<std::size_t>(call)];
}

void ArmFault() {
  armed.reset();
  strikes = 0;
  counts.fill(0);
}

void ArmFault(const Fault& fault) {
  ArmFault();
  armed = fault;
}

int Strikes() {
  return strikes;
}

int CallsOf(CCall call) {
  return counts[static_cast<std::size_t>(call)];
}

int FilesHeld() {
  return static_cast<int>(files.size());
}

int BlocksHeld() {
  return static_cast<int>(blocks.size());
}

InLibrary::InLibrary() {
  inLibrary = true;
}

InLibrary::~InLibrary() {
  inLibrary = false;
}

}  // namespace test

extern "C" {

using test::CCall;
using test::Damage;

std::FILE* __wrap_fopen(const char* path, const char* mode) {
  if (test::Struck(CCall::Open)) return nullptr;
  return test::Held(test::files, __real_fopen(path, mode));
}

int __wrap_setvbuf(std::FILE* file, char* buffer, int mode, std::size_t size) {
  return test::Struck(CCall::Buffer) ? EOF : __real_setvbuf(file, buffer, mode, size);
}

std::size_t __wrap_fread(void* target, std::size_t size, std::size_t count, std::FILE* file) {
  if (!test::Struck(CCall::Read)) return __real_fread(target, size, count, file);
  if (test::armed->damage == Damage::kFails) {
    test::unreadable.insert(file);
    return 0;
  }
  std::size_t const less = test::armed->damage == Damage::kComesShort ? count / 2 : 1;
  return __real_fread(target, size, less, file);
}

int __wrap_fseeko(std::FILE* file, off_t offset, int from) {
  return test::Struck(CCall::Seek) ? -1 : __real_fseeko(file, offset, from);
}

off_t __wrap_ftello(std::FILE* file) {
  return test::Struck(CCall::Tell) ? -1 : __real_ftello(file);
}

char* __wrap_fgets(char* text, int size, std::FILE* file) {
  return test::Struck(CCall::Line) ? nullptr : __real_fgets(text, size, file);
}

int __wrap_fgetc(std::FILE* file) {
  return test::Struck(CCall::Byte) ? EOF : __real_fgetc(file);
}

int __wrap_ferror(std::FILE* file) {
  return test::unreadable.count(file) != 0 ? 1 : __real_ferror(file);
}

void __wrap_clearerr(std::FILE* file) {
  test::unreadable.erase(file);
  __real_clearerr(file);
}

int __wrap_fclose(std::FILE* file) {
  bool const struck = test::Struck(CCall::Close);
  test::Released(test::files, file);
  test::unreadable.erase(file);
  int const result = __real_fclose(file);
  return struck ? EOF : result;
}

void* __wrap_malloc(std::size_t size) {
  if (test::Struck(CCall::Allocate)) return nullptr;
  return test::Held(test::blocks, __real_malloc(size));
}

void __wrap_free(void* block) {
  test::Released(test::blocks, block);
  __real_free(block);
}

}  // extern "C"
