// What is known of a file, as a screen.
#include <algorithm>
#include <string_view>

#include "info.h"
#include "plain_words.h"

namespace host {
namespace {

struct Line {
  const char* name;
  std::string_view label;
};
constexpr Line lines[] = {
    {"model", "model"},
    {"serial", "serial"},
    {"firmware", "firmware"},
    {"mode", "mode"},
    {"form", "form"},
    {"titles", "title"},
    {"sites", "sites"},
    {"size", "size"},
    {"zone", "zone"},
    {"headerTime", "header time"},
    {"start", "start"},
    {"lastStop", "last stop"},
    {"lastRecord", "last record"},
};

void ShowEntry(Output& output, std::string_view label, const std::string& value) {
  constexpr std::size_t width = 12;
  std::string line = "  " + std::string(label);
  line.resize(std::max(line.size(), 2 + width) + 1, ' ');
  output.Line(line + value);
}

std::string ValueText(std::string_view name, const Facts& value) {
  if (value.is_string()) return value.get<std::string>();
  return name == "size" ? SizeText(value.get<std::uint64_t>()) : value.dump();
}

}  // namespace

void ShowInfo(const Facts& facts, Output& output) {
  output.Line(facts.at("file").get_ref<const std::string&>());
  for (const Line& line : lines) {
    auto const found = facts.find(line.name);
    if (found == facts.end()) continue;
    if (!found->is_array()) {
      ShowEntry(output, line.label, ValueText(line.name, *found));
      continue;
    }
    for (const Facts& one : *found) ShowEntry(output, line.label, ValueText(line.name, one));
  }
  auto const holds = facts.find("holds");
  if (holds == facts.end()) return;
  std::string_view label = "holds";
  for (const auto& [name, count] : holds->items()) {
    ShowEntry(output, label, CountedRecords(count.get<std::uint64_t>(), name));
    label = "";
  }
  if (holds->empty()) ShowEntry(output, label, "no records");
}

void InfoTotals::Add(const Facts& facts) {
  ++files_;
  bytes_ += facts.at("size").get<std::uint64_t>();
  auto const holds = facts.find("holds");
  if (holds == facts.end()) return;
  for (const auto& [name, count] : holds->items()) {
    // Some counts have two names, by the mode of the file.
    std::string const words = CountedRecords(2, name);
    auto const same = std::find_if(holds_.begin(), holds_.end(), [&](const Held& held) {
      return CountedRecords(2, held.name) == words;
    });
    Held& held = same == holds_.end() ? holds_.emplace_back(Held{name, 0}) : *same;
    held.count += count.get<std::uint64_t>();
  }
}

void InfoTotals::Show(Output& output) const {
  std::string line = Counted(files_, "file", "files") + ", " + SizeText(bytes_);
  std::string_view before = ": ";
  for (const Held& held : holds_) {
    line.append(before).append(CountedRecords(held.count, held.name));
    before = ", ";
  }
  output.Line(line);
}

}  // namespace host
