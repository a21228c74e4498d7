// Lets the library's calls of the C library fail: which, the how-manieth, and how.
//
// A program that links faulty_calls.cpp with the link options of CMakeLists.txt here sends the
// calls of the objects linked into it, the library's among them, through this file. They are
// counted, and fail, only while an InLibrary lives.
#pragma once

#include <string_view>

namespace test {

enum class CCall { Open, Buffer, Read, Seek, Tell, Line, Byte, Close, Allocate };
std::string_view NameOf(CCall call);

enum class Damage {
  kFails,  // the result says so; of a file that is closed its handle is given back all the same
  kComesShort,  // reads: half of what was asked for comes
  kOneByte,     // reads: one byte comes
};

struct Fault {
  CCall call;
  int at = 1;
  Damage damage = Damage::kFails;
  bool lasting = false;  // all calls from there on
};

// Counts begin anew; without a fault nothing fails.
void ArmFault();
void ArmFault(const Fault& fault);

// How often the fault has struck since it was armed.
int Strikes();
// The calls made since then.
int CallsOf(CCall call);
// What the library holds: files opened and not closed, blocks of memory allocated and not freed.
int FilesHeld();
int BlocksHeld();

// The stretch of a test that runs in the library.
class InLibrary {
 public:
  InLibrary();
  ~InLibrary();
  InLibrary(const InLibrary&) = delete;
  InLibrary& operator=(const InLibrary&) = delete;
};

}  // namespace test
