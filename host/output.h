// Lines on standard output.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>

namespace host {

class Output {
 public:
  // Writes the line as plain text. False when it cannot be written: nobody reads any more, or the
  // disk is full.
  bool Line(std::string_view line);
  // The same with one part in a colour, on a terminal where NO_COLOR is not set.
  bool Marked(std::string_view before, std::string_view colour, std::string_view part,
              std::string_view after);
  // Writes out what is buffered; false as above.
  bool Flush();

  // True when writing failed because the reader at the other end of the pipe has gone, which is
  // how `qvslm dump FILE | head` ends.
  bool ReaderHasGone() const { return error_ == EPIPE; }
  bool Failed() const { return error_ != 0; }
  std::string WhatFailed() const;
  bool IsTerminal() const { return terminal_; }

  Output();

 private:
  bool Put(std::string_view bytes);
  bool NoteError();

  bool terminal_;
  bool colours_;
  int error_ = 0;  // errno of the first write that failed
};

}  // namespace host
