#include "command_table.h"

#include <algorithm>
#include <limits>

#include "option_values.h"

namespace host {
namespace {

using Text = const std::string&;

// What several commands share.
constexpr OptionInfo zone = {
    "--tz",
    "",
    "ZONE",
    "place of the measurement, such as Europe/Berlin",
    [](Arguments& a, Text text) { a.sources.zone = text; },
    Values::Zones,
};
constexpr OptionInfo recursive = {
    "--recursive",
    "-r",
    "",
    "of a folder also what is in its folders",
    [](Arguments& a, Text) { a.sources.recursive = true; },
};
constexpr OptionInfo ending = {
    "--ending",
    "",
    "ENDING",
    "of the files taken from folders; qvd if not given, '*' for any",
    [](Arguments& a, Text text) { a.sources.ending = text; },
};
constexpr OptionInfo jobs = {
    "--jobs",
    "-j",
    "N",
    "files worked on at once; 1 if not given",
    [](Arguments& a, Text text) {
      a.sources.jobs = static_cast<int>(ReadCount("--jobs", text, 256));
    },
};

template <auto Options>
constexpr OptionInfo records = {
    "--records",
    "",
    "NAME,NAME",
    "only these kinds of records, such as Interval,Event",
    [](Arguments& a, Text text) { AddRecordNames((a.*Options).choice.records, text); },
    Values::Records,
};
template <auto Options>
constexpr OptionInfo since = {
    "--since",
    "",
    "TIME",
    "only records from this local time on, such as 2024-06-21T08:30",
    [](Arguments& a, Text text) { (a.*Options).choice.since = ReadClock("--since", text); },
};
template <auto Options>
constexpr OptionInfo until = {
    "--until",
    "",
    "TIME",
    "only records before this local time",
    [](Arguments& a, Text text) { (a.*Options).choice.until = ReadClock("--until", text); },
};
// Where --to is no place, times have the shorter names as well.
constexpr OptionInfo WithOther(OptionInfo option, std::string_view name) {
  option.other = name;
  return option;
}
template <auto Options>
constexpr OptionInfo from = WithOther(since<Options>, "--from");
template <auto Options>
constexpr OptionInfo to = WithOther(until<Options>, "--to");

constexpr OptionInfo infoJson = {
    "--json", "", "", "one JSON object a file", [](Arguments& a, Text) { a.info.json = true; },
};
constexpr OptionInfo infoQuick = {
    "--quick",
    "",
    "",
    "only what stands at the start and the end of a file",
    [](Arguments& a, Text) { a.info.quick = true; },
};
constexpr const OptionInfo* infoOptions[] = {&infoJson,  &infoQuick, &zone,
                                             &recursive, &ending,    &jobs};
constexpr Example infoExamples[] = {
    {"What is in this file?", "qvslm info samples/files/night_europe.qvd"},
    {"What is on this card, as seen in Berlin?",
     "qvslm info --quick --tz Europe/Berlin -r samples"},
};

constexpr OptionInfo dumpBrief = {
    "--brief",
    "",
    "",
    "one short line a record, for the eye",
    [](Arguments& a, Text) { a.dump.brief = true; },
};
constexpr OptionInfo dumpRaw = {
    "--raw",
    "",
    "",
    "numbers as they stand: 999.0 for a level without a value, no clock times",
    [](Arguments& a, Text) { a.dump.raw = true; },
};
constexpr OptionInfo dumpLimit = {
    "--limit",
    "",
    "N",
    "at most so many records of each file",
    [](Arguments& a, Text text) {
      a.dump.limit = ReadCount("--limit", text, std::numeric_limits<std::uint64_t>::max());
    },
};
constexpr OptionInfo dumpNoCensus = {
    "--no-census",
    "",
    "",
    "do not count first: no daylight span for a night of clock change",
    [](Arguments& a, Text) { a.dump.census = false; },
};
constexpr OptionInfo dumpCut = {
    "--cut",
    "",
    "",
    "also the records that the file does not wholly hold, marked",
    [](Arguments& a, Text) { a.dump.cut = true; },
};
constexpr const OptionInfo* dumpOptions[] = {
    &records<&Arguments::dump>,
    &from<&Arguments::dump>,
    &to<&Arguments::dump>,
    &dumpLimit,
    &dumpBrief,
    &dumpRaw,
    &dumpNoCensus,
    &dumpCut,
    &zone,
    &recursive,
    &ending,
};
constexpr Example dumpExamples[] = {
    {"The intervals of one morning, one JSON object a line:",
     "qvslm dump --records Interval --from 2024-10-27T06:00 --to 2024-10-27T12:00 "
     "samples/files/night_europe.qvd"},
    {"The first ten records, to look at:",
     "qvslm dump --brief --limit 10 samples/files/night_europe.qvd"},
};

constexpr OptionInfo exportTo = {
    "--to",
    "",
    "PLACE",
    "the folder (csv) or file to write; required",
    [](Arguments& a, Text text) { a.exported.place = text; },
    Values::File,
};
constexpr std::string_view formatWords = "csv jsonl sqlite xlsx mat";
constexpr OptionInfo exportFormat = {
    "--format",
    "",
    "FORMAT",
    "csv, jsonl, sqlite, xlsx or mat; by the ending of PLACE if not given",
    [](Arguments& a, Text text) { a.exported.format = ReadFormat("--format", text); },
    Values::Words,
    formatWords,
};
constexpr OptionInfo exportLong = {
    "--long",
    "",
    "",
    "one row for each element of an array",
    [](Arguments& a, Text) { a.exported.longTables = true; },
};
constexpr OptionInfo exportNoGuard = {
    "--no-csv-guard",
    "",
    "",
    "texts as they are, also those that a spreadsheet would run",
    [](Arguments& a, Text) { a.exported.guard = false; },
};
constexpr OptionInfo exportSeparator = {
    "--separator",
    "",
    "SIGN",
    "between the columns of csv; , if not given, or the word tab",
    [](Arguments& a, Text text) { a.exported.separator = ReadSign("--separator", text); },
};
constexpr OptionInfo exportDecimal = {
    "--decimal",
    "",
    "SIGN",
    "in the numbers of csv: . or ,",
    [](Arguments& a, Text text) { a.exported.decimal = ReadSign("--decimal", text); },
    Values::Words,
    ". ,",
};
constexpr const OptionInfo* exportOptions[] = {
    &exportTo,
    &exportFormat,
    &records<&Arguments::exported>,
    &since<&Arguments::exported>,
    &until<&Arguments::exported>,
    &exportLong,
    &exportNoGuard,
    &exportSeparator,
    &exportDecimal,
    &zone,
    &recursive,
    &ending,
    &jobs,
};
constexpr Example exportExamples[] = {
    {"Tables for a spreadsheet:",
     "qvslm export samples/files/night_europe.qvd --to night_tables --format csv"},
    {"A folder of files to one database:", "qvslm export -r samples --to month.sqlite"},
};

constexpr OptionInfo checkJson = {
    "--json", "", "", "one JSON object a file", [](Arguments& a, Text) { a.check.json = true; },
};
constexpr const OptionInfo* checkOptions[] = {&checkJson, &zone, &recursive, &ending, &jobs};
constexpr Example checkExamples[] = {
    {"Is this file whole?", "qvslm check samples/files/night_europe.qvd"},
    {"Which files of a folder are not?", "qvslm check -r samples --jobs 2"},
};

constexpr OptionInfo plotOutput = {
    "--output",
    "-o",
    "PICTURE",
    "the picture to write, .svg or .png; required",
    [](Arguments& a, Text text) { a.plot.output = text; },
    Values::File,
};
constexpr OptionInfo plotField = {
    "--field",
    "",
    "NAME",
    "the field of the records to draw, such as LevelA",
    [](Arguments& a, Text text) { a.plot.field = text; },
};
constexpr OptionInfo plotSpectrum = {
    "--spectrum",
    "",
    "",
    "levels over the bands of frequency in place of time",
    [](Arguments& a, Text) { a.plot.spectrum = true; },
};
constexpr const OptionInfo* plotOptions[] = {
    &plotOutput,
    &records<&Arguments::plot>,
    &plotField,
    &plotSpectrum,
    &from<&Arguments::plot>,
    &to<&Arguments::plot>,
    &zone,
    &recursive,
    &ending,
};
constexpr Example plotExamples[] = {
    {"The levels of a night:", "qvslm plot samples/files/night_europe.qvd -o night.svg"},
    {"One field of the intervals:",
     "qvslm plot samples/files/night_europe.qvd --records Interval --field LevelA -o levels.png"},
};

constexpr CommandInfo commands[] = {
    {Command::Info, "info", "what a file is and what it holds",
     "Tells instrument, titles, times, and how many records of which kind a file holds; of several "
     "files also the totals.",
     infoOptions, infoExamples},
    {Command::Dump, "dump", "its records, one JSON object a line",
     "Writes the records in the order of the file. Levels are decibels and null without a value, "
     "times seconds since 1970 with the local clock beside them.",
     dumpOptions, dumpExamples},
    {Command::Export, "export", "the records as tables, a database or sheets",
     "Writes the records of many files to a folder of csv tables, to JSON lines, to a database of "
     "SQLite, to a workbook or to a file of MATLAB. What is written is whole or not there.",
     exportOptions, exportExamples},
    {Command::Check, "check", "whether a file is whole, or where it breaks",
     "Reads each file to its end. Of one that is not whole it tells where it breaks, what was due "
     "there, and what was read before. Ends with 0 where all files are whole, with 3 where one is "
     "damaged but partly read, with 1 where of one nothing could be read.",
     checkOptions, checkExamples},
    {Command::Plot, "plot", "a picture of the levels",
     "Draws the levels of the files over local time, with marks of runs and gaps of pauses, by "
     "gnuplot, which must be there.",
     plotOptions, plotExamples},
};

constexpr NamedFact exitStatuses[] = {
    {"0", "everything was delivered, or the reader of the output has gone"},
    {"1", "of at least one file nothing could be read, or the output could not be written"},
    {"2", "wrong usage"},
    {"3", "at least one file ended early or is damaged; what was delivered before stands"},
};

constexpr NamedFact environmentVariables[] = {
    {"TZ", "place of the measurement where --tz does not tell it"},
    {"NO_COLOR", "where it is set and not empty, nothing is coloured"},
    {"TMPDIR", "folder of the copies of standard input, pipes and devices"},
};

}  // namespace

std::string_view Purpose() {
  return "reads the measurement files of sound level meters";
}

std::string_view AboutFiles() {
  return "FILE may be - for standard input, or a folder. Behind -- every argument is a FILE.";
}

std::span<const NamedFact> ExitStatuses() {
  return exitStatuses;
}

std::span<const NamedFact> EnvironmentVariables() {
  return environmentVariables;
}

std::span<const CommandInfo> Commands() {
  return commands;
}

const CommandInfo* FindCommand(std::string_view name) {
  auto const found = std::find_if(std::begin(commands), std::end(commands),
                                  [&](const CommandInfo& command) { return command.name == name; });
  return found == std::end(commands) ? nullptr : found;
}

std::string CommandNames() {
  std::string names;
  for (const CommandInfo& command : commands) {
    if (&command == std::end(commands) - 1) {
      names += " or ";
    } else if (!names.empty()) {
      names += ", ";
    }
    names += command.name;
  }
  return names;
}

}  // namespace host
