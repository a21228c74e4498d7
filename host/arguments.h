// What the user asks for on the command line.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "dump.h"

namespace host {

enum class Command { Help, Version, Info, Dump };

struct Arguments {
  Command command = Command::Help;
  std::vector<std::string> files;  // as they are written
  std::string zone;                // a name of the tz database; empty for the zone in force
  DumpOptions dump;
};

// The command line cannot be understood; what() says why.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws WrongUsage.
Arguments ReadArguments(int argc, char** argv);

// What --help shows, line by line.
std::span<const std::string_view> HelpText();

}  // namespace host
