#include "arguments.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <iterator>

#include "record_table.h"

namespace host {
namespace {

// What getopt_long gives for an option; 1 is its own number for an argument that is none.
enum Option { PlainArgument = 1, Help = 'h', Records = 256, Limit, NoCensus, Brief, Cut, Zone };

constexpr option infoOptions[] = {
    {"help", no_argument, nullptr, Help},
    {"tz", required_argument, nullptr, Zone},
    {nullptr, 0, nullptr, 0},
};
constexpr option dumpOptions[] = {
    {"help", no_argument, nullptr, Help},
    {"brief", no_argument, nullptr, Brief},
    {"records", required_argument, nullptr, Records},
    {"limit", required_argument, nullptr, Limit},
    {"no-census", no_argument, nullptr, NoCensus},
    {"cut", no_argument, nullptr, Cut},
    {"tz", required_argument, nullptr, Zone},
    {nullptr, 0, nullptr, 0},
};

std::string RecordNames() {
  std::string names;
  for (const auto& record : record_fields::kRecords) {
    if (record.code != 0) names.append(names.empty() ? "" : ",").append(record.name);
  }
  return names;
}

bool IsRecordName(std::string_view name) {
  auto const& records = record_fields::kRecords;
  return std::any_of(std::begin(records), std::end(records),
                     [&](const auto& record) { return record.code != 0 && record.name == name; });
}

void AddRecords(std::vector<std::string>& names, std::string_view list) {
  for (;;) {
    std::size_t const comma = list.find(',');
    std::string const name(list.substr(0, comma));
    if (!IsRecordName(name)) {
      throw WrongUsage("--records: no record has the name \"" + name + "\"; the names are " +
                       RecordNames());
    }
    names.push_back(name);
    if (comma == std::string_view::npos) return;
    list.remove_prefix(comma + 1);
  }
}

std::uint64_t ReadLimit(std::string_view text) {
  std::uint64_t limit = 0;
  const char* const end = text.data() + text.size();
  auto const [stop, fault] = std::from_chars(text.data(), end, limit);
  if (fault != std::errc() || stop != end || limit == 0) {
    throw WrongUsage("--limit: \"" + std::string(text) +
                     "\" is no number from 1 to 18446744073709551615");
  }
  return limit;
}

Command ReadCommand(const std::string& word) {
  if (word == "--help" || word == "-h") return Command::Help;
  if (word == "--version") return Command::Version;
  if (word == "info") return Command::Info;
  if (word == "dump") return Command::Dump;
  throw WrongUsage("the command is info or dump, not " + word);
}

}  // namespace

Arguments ReadArguments(int argc, char** argv) {
  if (argc < 2) throw WrongUsage("a command is required: info or dump");
  Arguments arguments;
  arguments.command = ReadCommand(argv[1]);
  if (arguments.command == Command::Help || arguments.command == Command::Version) return arguments;

  // The command stands where getopt_long expects the name of the program. "-": every argument in
  // its order; ":": an option without its value is told apart, and nothing is printed.
  int const count = argc - 1;
  char** const words = argv + 1;
  const option* const options = arguments.command == Command::Info ? infoOptions : dumpOptions;
  for (;;) {
    // The argument that is read now: one with several letters stays until the last of them.
    int const at = optind;
    int const found = getopt_long(count, words, "-:h", options, nullptr);
    if (found == -1) break;
    switch (found) {
      case PlainArgument:
        arguments.files.emplace_back(optarg);
        break;
      case Help:
        arguments.command = Command::Help;
        return arguments;
      case Brief:
        arguments.dump.brief = true;
        break;
      case Cut:
        arguments.dump.cut = true;
        break;
      case Records:
        AddRecords(arguments.dump.records, optarg);
        break;
      case Limit:
        arguments.dump.limit = ReadLimit(optarg);
        break;
      case NoCensus:
        arguments.dump.census = false;
        break;
      case Zone:
        arguments.zone = optarg;
        break;
      case ':':
        throw WrongUsage(std::string(words[at]) + " needs a value");
      default:
        throw WrongUsage("there is no option " + std::string(words[at]) +
                         "; a file of such a name is written behind --");
    }
  }
  // Behind --.
  arguments.files.insert(arguments.files.end(), words + optind, words + count);
  if (arguments.files.empty()) throw WrongUsage("a FILE is required");
  arguments.dump.nameFile = arguments.files.size() > 1;
  return arguments;
}

std::span<const std::string_view> HelpText() {
  static constexpr std::string_view lines[] = {
      "Shows the measurement files of sound level meters.",
      "",
      "qvslm info FILE...            what a file is and what it holds",
      "qvslm dump [OPTION] FILE...   its records, one JSON object a line",
      "qvslm --help | --version",
      "",
      "FILE may be - for standard input. Behind -- every argument is a FILE.",
      "",
      "Both take --tz NAME, the time zone of the measurement: Europe/Berlin.",
      "",
      "Options of dump:",
      "  --brief              one short line a record, for the eye",
      "  --records NAME,NAME  only these kinds of records: Interval,Event",
      "  --limit N            at most so many records of each file",
      "  --no-census          do not count first: no daylight span for a night of clock change",
      "  --cut                also the records that the file does not wholly hold, marked",
  };
  return lines;
}

}  // namespace host
