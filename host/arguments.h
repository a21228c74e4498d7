// What the user asks for on the command line.
#pragma once

#include <stdexcept>
#include <string>

#include "check.h"
#include "dump.h"
#include "export.h"
#include "info.h"
#include "plot.h"
#include "sources.h"

namespace host {

enum class Command { Help, Version, Info, Dump, Export, Check, Plot };

struct Arguments {
  Command command = Command::Help;
  std::string topic;  // command that help is asked for; empty for all
  Sources sources;
  InfoOptions info;
  DumpOptions dump;
  CheckOptions check;
  ExportOptions exported;  // with the same sources
  PlotOptions plot;
};

// The command line cannot be understood; what() says why.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws WrongUsage.
Arguments ReadArguments(int argc, char** argv);

}  // namespace host
