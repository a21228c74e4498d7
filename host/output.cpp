#include "output.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "plain_text.h"
#include "platform.h"

namespace host {

Output::Output() : terminal_(host::IsTerminal(STDOUT_FILENO)) {}

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
  int const fault = ErrorOfWrite();
  error_ = fault == 0 ? EIO : fault;
  return false;
}

}  // namespace host
