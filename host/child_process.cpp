#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string_view>

#include "errors.h"
#include "platform.h"

namespace host {
namespace {

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

bool HasChildren() {
  return true;
}

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
  pid_t const child = fork();
  if (child == 0) {
    BecomeChild();
    dup2(messages[1], STDERR_FILENO);
    bool const done = WriteAll(bytes[1], work());
    // The objects of the process that it was copied from are not its own to end.
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
  return {child, bytes[0], messages[0]};
}

void ReadChildren(const std::vector<ChildProcess*>& children,
                  const std::vector<std::string*>& texts) {
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
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void EndChild(const ChildProcess& child) {
  kill(child.id, SIGTERM);
}

}  // namespace host
