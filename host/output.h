// Lines on standard output.
#pragma once

#include <string>

namespace host {

class Output {
 public:
  // False when the line cannot be written: nobody reads any more, or the disk is full.
  bool Line(const std::string& line);
  // Writes out what is buffered; false as above.
  bool Flush();

  // True when writing failed because the reader at the other end of the pipe has gone, which is
  // how `qvslm dump FILE | head` ends.
  bool ReaderHasGone() const { return fault_ == Fault::ReaderGone; }
  bool Failed() const { return fault_ == Fault::WriteFailed; }
  bool IsTerminal() const { return terminal_; }

  Output();

 private:
  enum class Fault { None, ReaderGone, WriteFailed };
  bool NoteFault();

  bool terminal_;
  Fault fault_ = Fault::None;
};

}  // namespace host
