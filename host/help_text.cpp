#include "help_text.h"

#include <algorithm>

#include "command_table.h"

namespace host {
namespace {

constexpr std::size_t lineWidth = 80;

// Adds a text in lines of the width, each behind an indent; the first goes on with what is there.
void AddWrapped(std::vector<std::string>& lines, std::string line, std::size_t indent,
                std::string_view text) {
  line.resize(std::max(line.size(), indent), ' ');
  bool isFirst = true;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find(' '), text.size());
    std::string_view const word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!isFirst && line.size() + 1 + word.size() > lineWidth) {
      lines.push_back(line);
      line.assign(indent, ' ');
      isFirst = true;
    }
    line.append(isFirst ? "" : " ").append(word);
    isFirst = false;
  }
  lines.push_back(line);
}

std::vector<std::string> Overview() {
  std::vector<std::string> lines = {"qvslm " + std::string(Purpose()) + ".", ""};
  for (const CommandInfo& command : Commands()) {
    AddWrapped(lines, "qvslm " + std::string(command.name) + " [OPTION] FILE...", 34,
               command.summary);
  }
  for (const char* const line : {"qvslm help COMMAND", "qvslm --help | --version", ""}) {
    lines.emplace_back(line);
  }
  lines.emplace_back(AboutFiles());
  return lines;
}

}  // namespace

std::string OptionSynopsis(const OptionInfo& option) {
  bool const isLetter = option.other.size() == 2;
  std::string text = isLetter ? std::string(option.other) + ", " : "";
  text += option.name;
  if (!isLetter && !option.other.empty()) text.append(", ").append(option.other);
  if (!option.value.empty()) text.append(" ").append(option.value);
  return text;
}

std::vector<std::string> HelpText(std::string_view name) {
  const CommandInfo* const command = FindCommand(name);
  if (command == nullptr) return Overview();
  std::vector<std::string> lines = {"qvslm " + std::string(name) + " [OPTION] FILE...", ""};
  AddWrapped(lines, "", 0, command->description);
  lines.emplace_back();
  for (const OptionInfo* const option : command->options) {
    std::string const synopsis = "  " + OptionSynopsis(*option);
    constexpr std::size_t helpColumn = 26;
    if (synopsis.size() + 2 > helpColumn) {
      lines.push_back(synopsis);
      AddWrapped(lines, "", helpColumn, option->help);
    } else {
      AddWrapped(lines, synopsis, helpColumn, option->help);
    }
  }
  lines.emplace_back();
  for (const Example& example : command->examples) {
    lines.emplace_back(example.what);
    lines.push_back("  " + std::string(example.line));
  }
  return lines;
}

}  // namespace host
