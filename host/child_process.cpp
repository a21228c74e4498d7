#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "errors.h"

namespace host {
namespace {

// The processes that run, for a handler of signals to end; 0 where there is none.
constexpr std::size_t mostChildren = 256;
std::array<volatile pid_t, mostChildren> running{};
pid_t parent = 0;

constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// Nothing is left behind when this process has ended. Calls only what a handler may call.
void EndChildrenAndEnd(int signal) {
  if (getpid() == parent) {
    for (pid_t const child : running) {
      if (child > 0) kill(child, SIGTERM);
    }
    for (pid_t const child : running) {
      if (child > 0) waitpid(child, nullptr, 0);
    }
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void CatchSignals() {
  if (parent == getpid()) return;
  parent = getpid();
  for (int const signal : endingSignals) {
    struct sigaction action {};
    // What whoever started the program wants ignored stays ignored.
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) continue;
    std::signal(signal, EndChildrenAndEnd);
  }
}

// Holds signals back while the list of processes is behind.
class SignalPause {
 public:
  SignalPause() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
  }
  ~SignalPause() { Resume(); }
  SignalPause(const SignalPause&) = delete;
  SignalPause& operator=(const SignalPause&) = delete;
  void Resume() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

void Note(pid_t child) {
  auto const free = std::find(running.begin(), running.end(), 0);
  if (free != running.end()) *free = child;
}

void Forget(pid_t child) {
  std::replace(running.begin(), running.end(), static_cast<volatile pid_t>(child),
               static_cast<volatile pid_t>(0));
}

bool WriteAll(int pipe, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t const written = write(pipe, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Adds what is there; closes a pipe that has ended.
void Drain(int& pipe, std::string& text) {
  std::array<char, 65536> block;
  ssize_t const count = read(pipe, block.data(), block.size());
  if (count > 0) {
    text.append(block.data(), static_cast<std::size_t>(count));
  } else if (count == 0 || errno != EINTR) {
    close(pipe);
    pipe = -1;
  }
}

}  // namespace

ChildProcess StartChild(const std::function<std::string()>& work) {
  int bytes[2];
  int messages[2];
  if (pipe2(bytes, O_CLOEXEC) != 0) FailWithErrno("no pipe can be made");
  if (pipe2(messages, O_CLOEXEC) != 0) {
    close(bytes[0]);
    close(bytes[1]);
    FailWithErrno("no pipe can be made");
  }
  std::fflush(nullptr);
  CatchSignals();
  SignalPause pause;
  pid_t const child = fork();
  if (child == 0) {
    running.fill(0);
    for (int const signal : endingSignals) {
      struct sigaction action {};
      bool const isOurs =
          sigaction(signal, nullptr, &action) == 0 && action.sa_handler == EndChildrenAndEnd;
      if (isOurs) std::signal(signal, SIG_DFL);
    }
    dup2(messages[1], STDERR_FILENO);
    pause.Resume();
    bool const done = WriteAll(bytes[1], work());
    // Nothing of this process's own buffers and objects is the child's to end.
    std::fflush(nullptr);
    _exit(done ? 0 : 1);
  }
  close(bytes[1]);
  close(messages[1]);
  if (child < 0) {
    close(bytes[0]);
    close(messages[0]);
    FailWithErrno("no other process can be started");
  }
  Note(child);
  return {child, bytes[0], messages[0]};
}

void ReadChildren(std::vector<ChildProcess*> children, std::vector<std::string*> texts) {
  std::vector<pollfd> waiting;
  for (const ChildProcess* const child : children) {
    waiting.push_back({child->bytes, POLLIN, 0});
    waiting.push_back({child->messages, POLLIN, 0});
  }
  // Pipes of -1 are passed over.
  if (poll(waiting.data(), waiting.size(), -1) <= 0) return;
  for (std::size_t i = 0; i < waiting.size(); ++i) {
    ChildProcess& child = *children[i / 2];
    if (waiting[i].revents != 0) Drain(i % 2 == 0 ? child.bytes : child.messages, *texts[i]);
  }
}

bool WaitForChild(const ChildProcess& child) {
  int status = 0;
  while (waitpid(child.id, &status, 0) < 0 && errno == EINTR) continue;
  SignalPause const pause;
  Forget(child.id);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void EndChild(const ChildProcess& child) {
  kill(child.id, SIGTERM);
}

}  // namespace host
