#include "output.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "plain_text.h"
#include "platform.h"
#include "progress.h"

namespace host {

namespace {

bool WantsNoColour() {
  const char* const wish = std::getenv("NO_COLOR");
  return wish != nullptr && *wish != '\0';
}

}  // namespace

Output::Output()
    : terminal_(host::IsTerminal(STDOUT_FILENO)), colours_(terminal_ && !WantsNoColour()) {}

bool Output::Line(std::string_view line) {
  return Put(PlainText(line)) && Put("\n");
}

bool Output::Marked(std::string_view before, std::string_view colour, std::string_view part,
                    std::string_view after) {
  if (!colours_) return Line(std::string(before).append(part).append(after));
  constexpr std::string_view plain = "\033[0m";
  return Put(PlainText(before)) && Put(colour) && Put(PlainText(part)) && Put(plain) &&
         Put(PlainText(after)) && Put("\n");
}

bool Output::Put(std::string_view bytes) {
  if (Failed()) return false;
  if (terminal_) WipeProgress();
  errno = 0;
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() || NoteError();
}

bool Output::Flush() {
  if (Failed()) return false;
  errno = 0;
  return std::fflush(stdout) == 0 || NoteError();
}

std::string Output::WhatFailed() const {
  return std::strerror(error_);
}

bool Output::NoteError() {
  error_ = ErrorOfWrite();
  return false;
}

}  // namespace host
