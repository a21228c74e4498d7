// What is installed beside the program, written from the table of commands.
#pragma once

#include <string>

namespace host {

std::string ManualPage();  // qvslm.1, for man
std::string BashCompletion();
std::string ZshCompletion();

}  // namespace host
