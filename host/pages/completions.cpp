#include <string_view>

#include "command_table.h"
#include "option_values.h"
#include "pages/pages.h"

namespace host {
namespace {

std::string Joined(const std::vector<std::string_view>& words) {
  std::string text;
  for (std::string_view const word : words) text.append(text.empty() ? "" : " ").append(word);
  return text;
}

std::vector<std::string_view> NamesOf(const OptionInfo& option) {
  std::vector<std::string_view> names = {option.name};
  if (!option.other.empty()) names.push_back(option.other);
  return names;
}

std::string CommandWords() {
  std::vector<std::string_view> words;
  for (const CommandInfo& command : Commands()) words.push_back(command.name);
  words.insert(words.end(), {"help", "--help", "--version"});
  return Joined(words);
}

// Zones from the list that comes with them.
constexpr std::string_view zones =
    "$(awk '$1 == \"Z\" { print $2 } $1 == \"L\" { print $3 }' /usr/share/zoneinfo/tzdata.zi "
    "2>/dev/null)";

// The statement that offers the values of an option.
std::string BashValues(const OptionInfo& option) {
  switch (option.values) {
    case Values::File:
      return "COMPREPLY=($(compgen -f -- \"$cur\"))";
    case Values::Records:
      return "_qvslm_list \"" + Joined(RecordNames()) + "\"";
    case Values::Zones:
      return "COMPREPLY=($(compgen -W \"" + std::string(zones) + "\" -- \"$cur\"))";
    case Values::Words:
      return "COMPREPLY=($(compgen -W \"" + std::string(option.words) + "\" -- \"$cur\"))";
    case Values::Text:
      break;
  }
  return ":";
}

void AddBashCommand(std::string& script, const CommandInfo& command) {
  std::string names = "--help";
  script += "    " + std::string(command.name) + ")\n      case $previous in\n";
  for (const OptionInfo* const option : command.options) {
    std::string pattern;
    for (std::string_view const name : NamesOf(*option)) {
      names.append(" ").append(name);
      pattern.append(pattern.empty() ? "" : "|").append(name);
    }
    if (!option->value.empty()) {
      script += "        " + pattern + ") " + BashValues(*option) + "; return ;;\n";
    }
  }
  script += "      esac\n      options=\"" + names + "\" ;;\n";
}

// In brackets and behind a colon zsh has meanings of its own.
std::string ZshText(std::string_view text) {
  std::string plain;
  for (char const c : text) {
    if (c == '\'') {
      plain += "'\\''";
    } else if (c == '[' || c == ']' || c == ':' || c == '\\') {
      plain += '\\';
      plain += c;
    } else {
      plain += c;
    }
  }
  return plain;
}

std::string ZshValues(const OptionInfo& option) {
  switch (option.values) {
    case Values::File:
      return "_files";
    case Values::Records:
      return std::string("_values -s , record ").append(Joined(RecordNames()));
    case Values::Zones:
      return "_time_zone";
    case Values::Words:
      return std::string("(").append(option.words).append(")");
    case Values::Text:
      break;
  }
  return "";
}

}  // namespace

std::string BashCompletion() {
  std::string script =
      "# Completion of qvslm for bash.\n"
      "# The last name of a list with commas.\n"
      "_qvslm_list() {\n"
      "  local before=\n"
      "  [[ $cur == *,* ]] && before=${cur%,*},\n"
      "  COMPREPLY=($(compgen -P \"$before\" -W \"$1\" -- \"${cur##*,}\"))\n"
      "}\n\n"
      "_qvslm() {\n"
      "  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} options=\n"
      "  COMPREPLY=()\n"
      "  if [ \"$COMP_CWORD\" -eq 1 ] || [ \"${COMP_WORDS[1]}\" = help ]; then\n"
      "    COMPREPLY=($(compgen -W \"" +
      CommandWords() +
      "\" -- \"$cur\"))\n"
      "    return\n"
      "  fi\n"
      "  case ${COMP_WORDS[1]} in\n";
  for (const CommandInfo& command : Commands()) AddBashCommand(script, command);
  script +=
      "  esac\n"
      "  if [[ $cur == -* ]]; then\n"
      "    COMPREPLY=($(compgen -W \"$options\" -- \"$cur\"))\n"
      "  else\n"
      "    COMPREPLY=($(compgen -f -- \"$cur\"))\n"
      "  fi\n"
      "}\n"
      "complete -o filenames -F _qvslm qvslm\n";
  return script;
}

std::string ZshCompletion() {
  std::string script =
      "#compdef qvslm\n"
      "# Completion of qvslm for zsh.\n"
      "local -a commands=(\n";
  for (const CommandInfo& command : Commands()) {
    script += "  '" + std::string(command.name) + ":" + ZshText(command.summary) + "'\n";
  }
  script +=
      "  'help:how a command is used'\n"
      ")\n"
      "if (( CURRENT == 2 )); then\n"
      "  _describe command commands\n"
      "  return\n"
      "fi\n"
      "local command=${words[2]}\n"
      "shift words; (( CURRENT-- ))\n"
      "case $command in\n";
  for (const CommandInfo& command : Commands()) {
    script += "  " + std::string(command.name) + ")\n    _arguments '--help[how it is used]'";
    for (const OptionInfo* const option : command.options) {
      for (std::string_view const name : NamesOf(*option)) {
        script += " \\\n      '" + std::string(name) + "[" + ZshText(option->help) + "]";
        if (!option->value.empty()) {
          script.append(":").append(ZshText(option->value)).append(":");
          script.append(ZshValues(*option));
        }
        script += "'";
      }
    }
    script += " \\\n      '*:file:_files' ;;\n";
  }
  script += "  help) _describe command commands ;;\nesac\n";
  return script;
}

}  // namespace host
