// How the work on a file ended; the numbers are exit codes.
#pragma once

namespace host {

enum class Outcome {
  Whole = 0,            // everything that the file holds was delivered
  NothingReadable = 1,  // not one record could be had
  WrongUsage = 2,
  EndedEarly = 3,  // records were delivered, but not all that the file should hold
};

// The same of one file, in a word.
constexpr const char* ResultWord(Outcome outcome) {
  return outcome == Outcome::Whole        ? "whole"
         : outcome == Outcome::EndedEarly ? "damaged"
                                          : "unreadable";
}

// What the program ends with after two files: an unreadable file weighs more than a cut one.
constexpr Outcome Worse(Outcome a, Outcome b) {
  if (a == Outcome::NothingReadable || b == Outcome::NothingReadable) {
    return Outcome::NothingReadable;
  }
  return a == Outcome::Whole ? b : a;
}

}  // namespace host
