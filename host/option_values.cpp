#include "option_values.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iomanip>
#include <sstream>

#include "arguments.h"
#include "record_table.h"

namespace host {
namespace {

[[noreturn]] void Refuse(std::string_view option, std::string_view text, const std::string& due) {
  throw WrongUsage(std::string(option) + ": \"" + std::string(text) + "\" is no " + due);
}

std::string Joined(const std::vector<std::string_view>& names) {
  std::string text;
  for (std::string_view const name : names) text.append(text.empty() ? "" : ",").append(name);
  return text;
}

bool IsDay(const std::tm& clock) {
  return std::chrono::year_month_day(std::chrono::year(clock.tm_year + 1900),
                                     std::chrono::month(static_cast<unsigned>(clock.tm_mon + 1)),
                                     std::chrono::day(static_cast<unsigned>(clock.tm_mday)))
      .ok();
}

}  // namespace

std::uint64_t ReadCount(std::string_view option, std::string_view text, std::uint64_t most) {
  std::uint64_t count = 0;
  const char* const end = text.data() + text.size();
  auto const [stop, fault] = std::from_chars(text.data(), end, count);
  if (fault != std::errc() || stop != end || count == 0 || count > most) {
    Refuse(option, text, "number from 1 to " + std::to_string(most));
  }
  return count;
}

std::tm ReadClock(std::string_view option, const std::string& text) {
  std::string whole = text;
  std::size_t const separator = std::string_view("2024-06-21").size();
  if (whole.size() > separator && whole[separator] == 'T') whole[separator] = ' ';
  // A text that comes out as it went in is wholly a time that there is.
  for (const char* const form : {"%Y-%m-%d %H:%M:%S", "%Y-%m-%d %H:%M", "%Y-%m-%d"}) {
    std::tm clock{};
    std::istringstream in(whole);
    std::ostringstream out;
    in >> std::get_time(&clock, form);
    if (in.fail() || !IsDay(clock)) continue;
    out << std::put_time(&clock, form);
    if (out.str() != whole) continue;
    clock.tm_isdst = -1;
    return clock;
  }
  Refuse(option, text, "date and time such as 2024-06-21 or 2024-06-21T08:30:00");
}

std::vector<std::string_view> RecordNames() {
  std::vector<std::string_view> names;
  for (const auto& record : record_fields::kRecords) {
    if (record.code != 0) names.push_back(record.name);
  }
  return names;
}

void AddRecordNames(std::vector<std::string>& names, std::string_view list) {
  std::vector<std::string_view> const known = RecordNames();
  for (;;) {
    std::size_t const comma = list.find(',');
    std::string_view const name = list.substr(0, comma);
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      throw WrongUsage("--records: no record has the name \"" + std::string(name) +
                       "\"; the names are " + Joined(known));
    }
    names.emplace_back(name);
    if (comma == std::string_view::npos) return;
    list.remove_prefix(comma + 1);
  }
}

char ReadSign(std::string_view option, std::string_view text) {
  if (text == "tab") return '\t';
  bool const isSign = text.size() == 1 && text[0] >= ' ' && text[0] <= '~' && text[0] != '"';
  if (!isSign) Refuse(option, text, "single sign, nor the word tab");
  return text[0];
}

ExportFormat ReadFormat(std::string_view option, std::string_view text) {
  if (text == "csv") return ExportFormat::Csv;
  if (text == "jsonl") return ExportFormat::JsonLines;
  if (text == "sqlite") return ExportFormat::Sqlite;
  if (text == "xlsx") return ExportFormat::Xlsx;
  if (text == "mat") return ExportFormat::Mat;
  Refuse(option, text, "format: csv, jsonl, sqlite, xlsx or mat");
}

}  // namespace host
