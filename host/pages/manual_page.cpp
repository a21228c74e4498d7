#include <string_view>

#include "command_table.h"
#include "help_text.h"
#include "pages/pages.h"

namespace host {
namespace {

// A text in which nothing is a request of the formatter.
std::string Plain(std::string_view text) {
  std::string plain;
  for (char const c : text) {
    if (c == '\\') {
      plain += "\\e";
    } else if (c == '-') {
      plain += "\\-";
    } else if (c == '\'') {
      plain += "\\(aq";
    } else {
      plain += c;
    }
  }
  return plain.starts_with('.') ? "\\&" + plain : plain;
}

std::string Capitals(std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return capitals;
}

void AddCommand(std::string& page, const CommandInfo& command) {
  page += ".SS " + Plain(command.name) + "\n.B qvslm " + Plain(command.name) +
          "\n.RI [ OPTION ]\\ FILE .\\|.\\|.\n.PP\n" + Plain(command.description) + "\n";
  for (const OptionInfo* const option : command.options) {
    page += ".TP\n.B " + Plain(OptionSynopsis(*option)) + "\n" + Plain(option->help) + "\n";
  }
}

}  // namespace

std::string ManualPage() {
  std::string page =
      ".TH QVSLM 1 \"\" \"qvslm\" \"User Commands\"\n"
      ".SH NAME\nqvslm \\- " +
      Plain(Purpose()) + "\n.SH SYNOPSIS\n";
  for (const CommandInfo& command : Commands()) {
    page += ".B qvslm " + Plain(command.name) + "\n.RI [ OPTION ]\\ FILE .\\|.\\|.\n.br\n";
  }
  page += ".SH DESCRIPTION\n" + Plain(AboutFiles()) + "\n.SH COMMANDS\n";
  for (const CommandInfo& command : Commands()) AddCommand(page, command);
  page += ".SH EXAMPLES\n";
  for (const CommandInfo& command : Commands()) {
    for (const Example& example : command.examples) {
      page += ".PP\n" + Plain(example.what) + "\n.PP\n.nf\n.RS\n" + Plain(example.line) +
              "\n.RE\n.fi\n";
    }
  }
  for (auto const& [title, rows] : {std::pair("exit status", ExitStatuses()),
                                    std::pair("environment", EnvironmentVariables())}) {
    page += ".SH " + Capitals(title) + "\n";
    for (const NamedFact& row : rows) {
      page += ".TP\n.B " + Plain(row.name) + "\n" + Plain(row.what) + "\n";
    }
  }
  return page;
}

}  // namespace host
