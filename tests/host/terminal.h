// Runs a command on a terminal.
#pragma once

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace test {

// What a command of the shell writes to a terminal of its own.
inline std::string OnTerminal(const std::string& command) {
  int terminal = -1;
  pid_t const child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    alarm(60);
    execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  std::string text;
  char block[4096];
  ssize_t count;
  while ((count = read(terminal, block, sizeof block)) > 0) {
    text.append(block, static_cast<std::size_t>(count));
  }
  close(terminal);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  return text;
}

}  // namespace test
