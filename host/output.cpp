#include "output.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace host {

Output::Output() : terminal_(isatty(STDOUT_FILENO) != 0) {
  // A pipe without a reader then fails the write instead of ending the program, which has temporary
  // files to remove.
  std::signal(SIGPIPE, SIG_IGN);
}

bool Output::Line(const std::string& line) {
  if (fault_ != Fault::None) return false;
  if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size()) return NoteFault();
  return std::fputc('\n', stdout) != EOF || NoteFault();
}

bool Output::Flush() {
  if (fault_ != Fault::None) return false;
  return std::fflush(stdout) == 0 || NoteFault();
}

bool Output::NoteFault() {
  fault_ = errno == EPIPE ? Fault::ReaderGone : Fault::WriteFailed;
  return false;
}

}  // namespace host
