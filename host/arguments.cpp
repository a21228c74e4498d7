#include "arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <deque>
#include <string_view>

#include "command_table.h"

namespace host {
namespace {

using Words = std::vector<std::string>;

Command ReadTopic(const Words& words, std::string& topic) {
  if (words.empty()) return Command::Help;
  if (FindCommand(words.front()) == nullptr) {
    throw WrongUsage("there is no command " + words.front() + "; the commands are " +
                     CommandNames());
  }
  topic = words.front();
  return Command::Help;
}

// The parser takes the word behind --name= for its value.
void RefuseEmptyValues(const Words& words) {
  for (const std::string& word : words) {
    if (word == "--") return;
    if (word.starts_with("--") && word.find('=') == word.size() - 1) {
      throw WrongUsage(word + " has no value behind it");
    }
  }
}

// The parser of one command. Every word is taken as it is written: without extra arguments a name
// in brackets is no list, and as an App of its own, not one of a parent, a command takes "++" for a
// file.
class CommandParser {
 public:
  CommandParser(const CommandInfo& command, std::size_t wordCount) : command_(command) {
    app_.set_help_flag("-h,--help");
    app_.allow_windows_style_options(false);
    // As many as there may be: fewer are taken for a list that goes on.
    app_.add_option("FILE", files_)
        ->expected(static_cast<int>(wordCount) + 1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    for (const OptionInfo* const option : command.options) {
      std::string names(option->name);
      if (!option->other.empty()) names.append(",").append(option->other);
      if (option->value.empty()) {
        options_.push_back(app_.add_flag(names)->disable_flag_override());
      } else {
        options_.push_back(app_.add_option(names, values_.emplace_back())
                               ->expected(1)
                               ->allow_extra_args(false)
                               ->type_name(std::string(option->value))
                               ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll));
      }
    }
  }

  // False where help is asked for.
  bool Read(Words words, Arguments& arguments) {
    try {
      std::reverse(words.begin(), words.end());
      app_.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
      return false;
    } catch (const CLI::ExtrasError&) {
      throw WrongUsage("there is no option " + app_.remaining().front() +
                       "; a file of such a name is written behind --");
    } catch (const CLI::ParseError& fault) {
      throw WrongUsage(fault.what());
    }
    for (std::size_t i = 0; i < options_.size(); ++i) {
      for (const std::string& value : options_[i]->results()) {
        command_.options[i]->take(arguments, value);
      }
    }
    arguments.sources.names = files_;
    return true;
  }

 private:
  const CommandInfo& command_;
  CLI::App app_;
  Words files_;
  std::vector<CLI::Option*> options_;
  std::deque<Words> values_;  // which stay where the parser knows them
};

void CheckNeeds(const Arguments& arguments) {
  if (arguments.sources.names.empty()) throw WrongUsage("a FILE is required");
  if (arguments.command == Command::Export && arguments.exported.place.empty()) {
    throw WrongUsage("--to PLACE is required: where to write");
  }
  if (arguments.command == Command::Plot && arguments.plot.output.empty()) {
    throw WrongUsage("-o PICTURE is required: where to draw");
  }
}

}  // namespace

Arguments ReadArguments(int argc, char** argv) {
  if (argc < 2) throw WrongUsage("a command is required: " + CommandNames());
  Arguments arguments;
  std::string_view const word = argv[1];
  Words const rest(argv + 2, argv + argc);
  if (word == "--version") {
    arguments.command = Command::Version;
  } else if (word == "--help" || word == "-h" || word == "help") {
    arguments.command = ReadTopic(rest, arguments.topic);
  } else if (const CommandInfo* const command = FindCommand(word)) {
    arguments.command = command->command;
    RefuseEmptyValues(rest);
    if (CommandParser(*command, rest.size()).Read(rest, arguments)) {
      CheckNeeds(arguments);
    } else {
      arguments.command = Command::Help;
      arguments.topic = command->name;
    }
  } else {
    throw WrongUsage("the command is " + CommandNames() + ", not " + std::string(word));
  }
  arguments.exported.sources = arguments.sources;
  return arguments;
}

}  // namespace host
