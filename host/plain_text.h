// Text from files and arguments, made safe to show: it can move no cursor, colour nothing, and end
// no line.
#pragma once

#include <string>
#include <string_view>

namespace host {

// The text as UTF-8 without control characters: those (C0, DEL and C1) are written as JSON writes
// them, \u001b, so that JSON stays JSON with the same meaning. Bytes that are no UTF-8 become
// U+FFFD. Everything that goes to stdout or stderr comes through here.
std::string PlainText(std::string_view text);

}  // namespace host
