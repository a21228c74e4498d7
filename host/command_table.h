// The commands and their options, each told once: the command line is read by this table, and help,
// manual and completions are written from it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "arguments.h"

namespace host {

// What may stand as the value of an option, for completions.
enum class Values { Text, File, Records, Zones, Words };

struct OptionInfo {
  std::string_view name;   // --records
  std::string_view other;  // second name: -r or --from; empty without
  std::string_view value;  // what its value is called; empty for a switch
  std::string_view help;
  void (*take)(Arguments& arguments, const std::string& value);
  Values values = Values::Text;
  std::string_view words = "";  // the only values, where there are few
};

struct Example {
  std::string_view what;
  std::string_view line;
};

struct CommandInfo {
  Command command;
  std::string_view name;
  std::string_view summary;      // one line
  std::string_view description;  // paragraphs with an empty line between them
  std::span<const OptionInfo* const> options;
  std::span<const Example> examples;
};

// What else help and manual tell, each by a name.
struct NamedFact {
  std::string_view name;
  std::string_view what;
};

std::string_view Purpose();
std::string_view AboutFiles();
std::span<const NamedFact> ExitStatuses();
std::span<const NamedFact> EnvironmentVariables();

std::span<const CommandInfo> Commands();
// Null for a word that is no command.
const CommandInfo* FindCommand(std::string_view name);
// "info, dump, export, check or plot"
std::string CommandNames();

}  // namespace host
