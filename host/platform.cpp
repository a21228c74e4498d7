#include "platform.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#include <direct.h>
#include <io.h>
#include <windows.h>
#include <winioctl.h>

#include <algorithm>
#include <system_error>
#include <vector>

#include "carried_zones.h"
#include "qvslm_zone.h"
#else
#include <sys/ioctl.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#endif

#if defined(_WIN32)
// Where no shell does it, the C library makes names of *.qvd.
extern "C" int _dowildcard;
int _dowildcard = -1;
#endif

namespace host {
namespace {

// What is removed when a signal ends the program. A handler reads it: no memory of the heap, and
// nothing of it changes without an EndPause.
using NotedPath = std::array<char, 4096>;
std::array<NotedPath, 64> noted{};

void Note(std::string_view path) {
  for (NotedPath& place : noted) {
    if (place[0] != '\0' || path.size() >= place.size()) continue;
    place[path.copy(place.data(), path.size())] = '\0';
    return;
  }
}

std::atomic<int> interrupt{0};  // what came first, 0 for none
static_assert(std::atomic<int>::is_always_lock_free, "a handler of signals writes it");

}  // namespace

unsigned ProcessorCount() {
  unsigned const count = std::thread::hardware_concurrency();
  return count == 0 ? 1 : count;
}

bool Interrupted() {
  return interrupt != 0;
}

bool IsPlainFile(int file) {
  struct stat state {};
  return fstat(file, &state) == 0 && S_ISREG(state.st_mode);
}

std::uint64_t SizeOf(const std::string& path) {
  struct stat state {};
  return stat(path.c_str(), &state) == 0 ? static_cast<std::uint64_t>(state.st_size) : 0;
}

std::tm LocalTime(std::int64_t seconds) {
  using namespace std::chrono;
  sys_seconds const local{std::chrono::seconds(seconds + UtcOffset(seconds))};
  auto const day = floor<days>(local);
  year_month_day const date(day);
  hh_mm_ss const clock(local - day);
  std::tm time{};
  time.tm_year = static_cast<int>(date.year()) - 1900;
  time.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  time.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
  time.tm_hour = static_cast<int>(clock.hours().count());
  time.tm_min = static_cast<int>(clock.minutes().count());
  time.tm_sec = static_cast<int>(clock.seconds().count());
  time.tm_wday = static_cast<int>(weekday(day).c_encoding());
  time.tm_yday = static_cast<int>((day - sys_days(date.year() / January / 1)).count());
  return time;
}

#if defined(_WIN32)

namespace {

// The lock stays with a handler: nothing is noted or made any more once the program ends.
SRWLOCK ending = SRWLOCK_INIT;

class EndPause {
 public:
  EndPause() { AcquireSRWLockExclusive(&ending); }
  ~EndPause() { ReleaseSRWLockExclusive(&ending); }
  EndPause(const EndPause&) = delete;
  EndPause& operator=(const EndPause&) = delete;
};

std::atomic<bool> holdsInterrupts{false};

// The zone asked for by its name; without one that of the C library is in force.
std::vector<QvZoneChange> zone;
std::string zoneName;

struct Console {
  HANDLE handle = INVALID_HANDLE_VALUE;
  DWORD mode = 0;  // as it was found
  bool changed = false;
};
Console consoles[2];
UINT codePage = 0;  // of the console's output as it was found; 0 where it is left alone

HANDLE HandleOf(int stream) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(stream));
}

void RestoreConsole() {
  for (const Console& console : consoles) {
    if (console.changed) SetConsoleMode(console.handle, console.mode);
  }
  if (codePage != 0) SetConsoleOutputCP(codePage);
}

// The console outlives the program, and gets back what it had.
void PrepareConsole() {
  for (int const stream : {STDOUT_FILENO, STDERR_FILENO}) {
    Console& console = consoles[stream - STDOUT_FILENO];
    console.handle = HandleOf(stream);
    if (!GetConsoleMode(console.handle, &console.mode)) continue;
    DWORD const wanted = console.mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING;
    console.changed = wanted != console.mode && SetConsoleMode(console.handle, wanted);
    UINT const found = GetConsoleOutputCP();
    if (codePage == 0 && found != CP_UTF8 && SetConsoleOutputCP(CP_UTF8)) codePage = found;
  }
  std::atexit(RestoreConsole);
}

// Open files cannot be removed: all are closed first.
void RemoveNoted() {
  constexpr int mostFiles = 2048;
  for (int file = STDERR_FILENO + 1; file < mostFiles; ++file) _close(file);
  for (const NotedPath& path : noted) DeleteFileA(path.data());
  for (const NotedPath& path : noted) RemoveDirectoryA(path.data());
}

// Runs in a thread of its own.
BOOL WINAPI OnControl(DWORD event) {
  int none = 0;
  if (holdsInterrupts && interrupt.compare_exchange_strong(none, static_cast<int>(event) + 1)) {
    // The system ends the program when this returns, but for the two that are keys.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    return TRUE;
  }
  AcquireSRWLockExclusive(&ending);
  RemoveNoted();
  RestoreConsole();
  ExitProcess(STATUS_CONTROL_C_EXIT);
}

void LetInvalidArgumentsFail(const wchar_t*, const wchar_t*, const wchar_t*, unsigned,
                             std::uintptr_t) {}

int ErrnoOf(DWORD error) {
  std::error_code const code(static_cast<int>(error), std::system_category());
  std::error_condition const condition = code.default_error_condition();
  return condition.category() == std::generic_category() ? condition.value() : EIO;
}

bool Holds(int stream) {
  if (_get_osfhandle(stream) >= 0) return true;
  int const null = _open("NUL", (stream == STDIN_FILENO ? _O_WRONLY : _O_RDONLY) | _O_BINARY);
  if (null < 0) return false;
  if (null == stream) return true;
  bool const done = _dup2(null, stream) == 0;
  _close(null);
  return done;
}

}  // namespace

bool PrepareStreams() {
  _set_invalid_parameter_handler(LetInvalidArgumentsFail);
  for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (!Holds(stream)) return false;
    _setmode(stream, _O_BINARY);
  }
  // Byte by byte a console cannot tell what a character is.
  constexpr std::size_t bufferSize = 4096;
  std::setvbuf(stderr, nullptr, _IOFBF, bufferSize);
  SetConsoleCtrlHandler(OnControl, TRUE);
  PrepareConsole();
  return true;
}

bool IsTerminal(int stream) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(stream), &mode) != 0 &&
         (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

int TerminalWidth(int stream) {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleScreenBufferInfo(HandleOf(stream), &info)) return 0;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

int ErrorOfWrite() {
  // The C library has no number of its own for a pipe whose other end is closed.
  bool const closed = _doserrno == ERROR_NO_DATA || _doserrno == ERROR_PIPE_NOT_CONNECTED;
  if (errno == EINVAL && closed) return EPIPE;
  // What is written in part, without an error of the system, found no room for the rest.
  bool const isPart = (errno == 0 || errno == EINVAL) && _doserrno == 0;
  return isPart ? ENOSPC : errno;
}

int OpenToRead(const std::string& path) {
  return _open(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
}

int OpenToWrite(const std::string& path) {
  int const file = _open(path.c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
  // Where the file system can, what is passed over takes no room.
  DWORD size = 0;
  if (file >= 0) {
    DeviceIoControl(HandleOf(file), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &size, nullptr);
  }
  return file;
}

bool MakeNotedFile(const std::string& path) {
  EndPause const pause;
  int const file = _open(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL, _S_IREAD | _S_IWRITE);
  if (file < 0) return false;
  _close(file);
  Note(path);
  return true;
}

bool MakeNotedFolder(const std::string& path) {
  EndPause const pause;
  if (_mkdir(path.c_str()) != 0) return false;
  Note(path);
  return true;
}

// What lies in a folder is as private as that folder.
bool MakeNotedPrivateFolder(const std::string& path) {
  return MakeNotedFolder(path);
}

bool Rename(const std::string& from, const std::string& to) {
  if (MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)) return true;
  errno = ErrnoOf(GetLastError());
  return false;
}

void HoldInterrupts() {
  holdsInterrupts = true;
}

void EndInterrupted() {
  RestoreConsole();
  std::fflush(nullptr);
  ExitProcess(STATUS_CONTROL_C_EXIT);
}

void BecomeChild() {}

void UseZoneOfEnvironment() {
  // What is no name is left to the C library: UTC0.
  if (const char* const name = std::getenv("TZ")) UseZoneNamed(name);
}

std::int32_t UtcOffset(std::int64_t seconds) {
  if (!zone.empty()) {
    auto const next = std::upper_bound(
        zone.begin() + 1, zone.end(), seconds,
        [](std::int64_t instant, const QvZoneChange& change) { return instant < change.From; });
    return std::prev(next)->Offset;
  }
  auto const time = static_cast<std::time_t>(seconds);
  const std::tm* const found = std::localtime(&time);
  if (found == nullptr) return 0;
  std::tm clock = *found;
  return static_cast<std::int32_t>(_mkgmtime(&clock) - time);
}

bool UseZoneNamed(const std::string& name) {
  std::vector<QvZoneChange> changes = zone_info::CarriedZone(name);
  if (changes.empty()) return false;
  zone = std::move(changes);
  zoneName = name;
  QvUseZone(zone.data(), zone.size());
  return true;
}

std::string ZoneInForce() {
  if (!zoneName.empty()) return zoneName;
  if (const char* const text = std::getenv("TZ")) return text;
  DYNAMIC_TIME_ZONE_INFORMATION system{};
  if (GetDynamicTimeZoneInformation(&system) == TIME_ZONE_ID_INVALID) return "";
  std::array<char, 512> name{};
  constexpr int whole = -1;
  WideCharToMultiByte(CP_UTF8, 0, system.TimeZoneKeyName, whole, name.data(),
                      static_cast<int>(name.size()) - 1, nullptr, nullptr);
  return name.data();
}

#else

namespace {

// Holds signals back, so that none comes between the making of a file and the note of its name.
class EndPause {
 public:
  EndPause() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
  }
  ~EndPause() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  EndPause(const EndPause&) = delete;
  EndPause& operator=(const EndPause&) = delete;

 private:
  sigset_t before_{};
};

// The signal ends the program as ever, but leaves nothing behind. Calls only what a handler may
// call.
void RemoveNotedAndEnd(int signal) {
  for (const NotedPath& path : noted) unlink(path.data());
  for (const NotedPath& path : noted) rmdir(path.data());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void NoteInterrupt(int signal) {
  // A process that was started from here gets Ctrl-C from the terminal, and is ended besides.
  int first = 0;
  if (!interrupt.compare_exchange_strong(first, signal) && first == signal) {
    RemoveNotedAndEnd(signal);
  }
}

// What whoever started the program wants ignored stays ignored. Some cannot be asked for.
bool IsLeftToUs(int signal) {
  struct sigaction action {};
  if (sigaction(signal, nullptr, &action) != 0) return false;
  return action.sa_handler == SIG_DFL || action.sa_handler == RemoveNotedAndEnd;
}

bool EndsPrograms(int signal) {
  constexpr int others[] = {SIGCHLD, SIGCONT, SIGURG, SIGWINCH, SIGTSTP, SIGTTIN, SIGTTOU};
  return std::find(std::begin(others), std::end(others), signal) == std::end(others);
}

void CatchSignals() {
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    if (EndsPrograms(signal) && IsLeftToUs(signal)) std::signal(signal, RemoveNotedAndEnd);
  }
}

bool MakeFolder(const std::string& path, mode_t mode) {
  CatchSignals();
  EndPause const pause;
  if (mkdir(path.c_str(), mode) != 0) return false;
  Note(path);
  return true;
}

std::string ZoneFolder() {
  const char* const folder = std::getenv("TZDIR");
  return folder == nullptr ? "/usr/share/zoneinfo" : folder;
}

bool HasZoneFile(const std::string& name) {
  std::ifstream file(ZoneFolder() + '/' + name, std::ios::binary);
  char magic[4] = {};
  file.read(magic, sizeof magic);
  return std::string_view(magic, sizeof magic) == "TZif";
}

}  // namespace

bool PrepareStreams() {
  for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // The null device, opened the wrong way round. A file takes the lowest number that is free.
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return false;
  }
  std::signal(SIGPIPE, SIG_IGN);
  return true;
}

bool IsTerminal(int stream) {
  return isatty(stream) != 0;
}

int TerminalWidth(int stream) {
  winsize size{};
  return ioctl(stream, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

int ErrorOfWrite() {
  return errno == 0 ? EIO : errno;
}

int OpenToRead(const std::string& path) {
  return open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

int OpenToWrite(const std::string& path) {
  return open(path.c_str(), O_WRONLY | O_CLOEXEC);
}

bool MakeNotedFile(const std::string& path) {
  CatchSignals();
  EndPause const pause;
  int const file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                        S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
  if (file < 0) return false;
  close(file);
  Note(path);
  return true;
}

bool MakeNotedFolder(const std::string& path) {
  return MakeFolder(path, S_IRWXU | S_IRWXG | S_IRWXO);
}

bool MakeNotedPrivateFolder(const std::string& path) {
  return MakeFolder(path, S_IRWXU);
}

bool Rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

void HoldInterrupts() {
  for (int const signal : {SIGHUP, SIGINT, SIGTERM}) {
    // Without a restart: what waits for a file or a process ends its wait.
    struct sigaction action {};
    action.sa_handler = NoteInterrupt;
    if (IsLeftToUs(signal)) sigaction(signal, &action, nullptr);
  }
}

void EndInterrupted() {
  std::fflush(nullptr);
  std::signal(interrupt, SIG_DFL);
  std::raise(interrupt);
  std::abort();
}

void BecomeChild() {
  EndPause const pause;
  noted.fill({});
  interrupt = 0;
  for (int const signal : {SIGHUP, SIGINT, SIGTERM}) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != NoteInterrupt) continue;
    std::signal(signal, RemoveNotedAndEnd);
  }
}

void UseZoneOfEnvironment() {}

std::int32_t UtcOffset(std::int64_t seconds) {
  std::time_t const time = static_cast<std::time_t>(seconds);
  std::tm clock{};
  return localtime_r(&time, &clock) == nullptr ? 0 : static_cast<std::int32_t>(clock.tm_gmtoff);
}

bool UseZoneNamed(const std::string& name) {
  bool const isPath = name.starts_with('/') || name.find("..") != std::string::npos;
  if (isPath || (name != "UTC" && !HasZoneFile(name))) return false;
  setenv("TZ", name.c_str(), 1);
  tzset();
  return true;
}

std::string ZoneInForce() {
  if (const char* const zone = std::getenv("TZ")) return *zone == '\0' ? "UTC" : zone;
  std::array<char, 4096> target{};
  ssize_t const size = readlink("/etc/localtime", target.data(), target.size());
  if (size <= 0) return "";
  std::string_view const path(target.data(), static_cast<std::size_t>(size));
  constexpr std::string_view folder = "zoneinfo/";
  std::size_t const at = path.find(folder);
  return at == std::string_view::npos ? "" : std::string(path.substr(at + folder.size()));
}

#endif

void ForgetNoted(const std::string& path) {
  EndPause const pause;
  for (NotedPath& place : noted) {
    if (path == place.data()) place[0] = '\0';
  }
}

}  // namespace host
