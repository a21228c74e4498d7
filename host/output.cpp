#include "output.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>

#include "plain_text.h"

namespace host {

Output::Output() : terminal_(isatty(STDOUT_FILENO) != 0) {
  // A pipe without a reader then fails the write instead of ending the program, which has temporary
  // files to remove.
  std::signal(SIGPIPE, SIG_IGN);
}

bool Output::Line(std::string_view line) {
  if (Failed()) return false;
  std::string const plain = PlainText(line);
  if (std::fwrite(plain.data(), 1, plain.size(), stdout) != plain.size()) return NoteError();
  return std::fputc('\n', stdout) != EOF || NoteError();
}

bool Output::Flush() {
  if (Failed()) return false;
  return std::fflush(stdout) == 0 || NoteError();
}

std::string Output::WhatFailed() const {
  return std::strerror(error_);
}

bool Output::NoteError() {
  error_ = errno == 0 ? EIO : errno;
  return false;
}

}  // namespace host
