// A function in a process of its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace host {

struct ChildProcess {
  int id = -1;
  int bytes = -1;     // pipe of what its work gives
  int messages = -1;  // pipe of what it writes to stderr
};

// Where there are none the work is this process's.
bool HasChildren();

// Starts the work. Throws FileError where there can be no other process.
ChildProcess StartChild(const std::function<std::string()>& work);

// Waits until one of the pipes has something or has ended, or until an interrupt, and adds what
// there is to the texts, two for each child: bytes, messages. Pipes that have ended are closed and
// become -1.
void ReadChildren(const std::vector<ChildProcess*>& children,
                  const std::vector<std::string*>& texts);

// Waits for its end; true where it ended by itself and well.
bool WaitForChild(const ChildProcess& child);

// Ends it.
void EndChild(const ChildProcess& child);

}  // namespace host
