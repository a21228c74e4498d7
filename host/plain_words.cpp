#include "plain_words.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace host {
namespace {

struct Words {
  std::string_view record;
  std::string_view counts;  // names in the census, with blanks between them
  std::string_view one;
  std::string_view many;
};

constexpr Words words[] = {
    {"LevelMark", "LevelMarks", "level mark", "level marks"},
    {"LevelMarkBands", "LevelMarkBands", "spectrum of a level mark", "spectra of level marks"},
    {"DaySummary", "DaySummaries", "day summary", "day summaries"},
    {"Interval", "Intervals", "interval", "intervals"},
    {"BandInterval", "BandIntervals", "band interval", "band intervals"},
    {"IntervalBands", "IntervalBands", "spectrum of an interval", "spectra of intervals"},
    {"IntervalBandSeries", "IntervalBandSeries", "spectrum within an interval",
     "spectra within intervals"},
    {"", "BlockImages BlockImagesMode0", "image block", "image blocks"},
    {"BlockImage", "", "block image", "block images"},
    {"Summary", "Summaries", "summary", "summaries"},
    {"Summary431", "Summaries431", "summary", "summaries"},
    {"SummaryBands", "SummaryBands", "spectrum of a summary", "spectra of summaries"},
    {"Event", "Events EventsMode0 EventsMode5", "event", "events"},
    {"Settings", "SettingsBlocks", "block of settings", "blocks of settings"},
    {"Results", "ResultsBlocks ResultsBlocksMode0", "block of results", "blocks of results"},
    {"Results431", "", "block of results", "blocks of results"},
    {"Results442", "", "block of results", "blocks of results"},
    {"", "StreamEntries", "entry of histories", "entries of histories"},
    {"TimeHistory", "", "piece of time history", "pieces of time history"},
    {"FieldHistory", "", "entry of field history", "entries of field history"},
    {"TimedSpectrum", "", "timed spectrum", "timed spectra"},
    {"", "ListBlocksMode0 ListBlocksMode4 ListBlocksMode7", "list block", "list blocks"},
    {"Site", "Sites", "site", "sites"},
    {"Site431", "", "site", "sites"},
    {"Reference", "References", "reference", "references"},
    {"Reference431", "", "reference", "references"},
    {"Bands431", "Bands431", "table of bands", "tables of bands"},
    {"BandTable", "BandTables", "table of bands", "tables of bands"},
    {"NarrowTable", "NarrowTables", "narrow-band table", "narrow-band tables"},
    {"SetupBand", "SetupBands", "band setup", "band setups"},
    {"SetupBand431", "SetupBands431", "band setup", "band setups"},
    {"SetupShort", "SetupShorts", "short-term setup", "short-term setups"},
    {"SetupShort431", "SetupShorts431", "short-term setup", "short-term setups"},
    {"SetupLogging", "SetupLoggings", "logging setup", "logging setups"},
    {"SetupLogging431", "SetupLoggings431", "logging setup", "logging setups"},
    {"SetupSpectrum", "SetupSpectra", "spectrum setup", "spectrum setups"},
    {"SetupNarrow", "SetupNarrows", "narrow-band setup", "narrow-band setups"},
    {"SetupTally", "SetupTallies", "tally setup", "tally setups"},
    {"", "SetupsMode6 SetupsMode8", "setup without a record", "setups without a record"},
    {"SpectrumSummary", "SpectrumSummaries", "summary of spectra", "summaries of spectra"},
    {"", "Tallies", "tally", "tallies"},
    {"TallyLevels", "", "tally of levels", "tallies of levels"},
    {"TallyBands", "", "tally of bands", "tallies of bands"},
    {"TallyTotals", "", "tally of totals", "tallies of totals"},
    {"End", "", "end record", "end records"},
};

bool HasWord(std::string_view list, std::string_view word) {
  while (!list.empty()) {
    std::size_t const end = std::min(list.find(' '), list.size());
    if (list.substr(0, end) == word) return true;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return false;
}

Words WordsFor(std::string_view name) {
  for (const Words& row : words) {
    if (row.record == name || HasWord(row.counts, name)) return row;
  }
  return {name, name, name, name};
}

}  // namespace

std::string Counted(std::uint64_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

std::string CountedRecords(std::uint64_t count, std::string_view name) {
  Words const found = WordsFor(name);
  return Counted(count, found.one, found.many);
}

std::string OneRecord(std::string_view name) {
  std::string const word(WordsFor(name).one);
  bool const isVowel = std::string_view("aeio").find(word.front()) != std::string_view::npos;
  return (isVowel ? "an " : "a ") + word;
}

std::string SizeText(std::uint64_t bytes) {
  constexpr const char* units[] = {"kB", "MB", "GB", "TB"};
  if (bytes < 1000) return Counted(bytes, "byte", "bytes");
  double size = static_cast<double>(bytes) / 1000;
  std::size_t unit = 0;
  // What would be shown as 1000.0 is 1.0 of the next.
  while (size >= 999.95 && unit + 1 < std::size(units)) {
    size /= 1000;
    ++unit;
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f %s", size, units[unit]);
  return text.data();
}

std::string LengthText(std::uint64_t seconds) {
  std::array<char, 48> text{};
  auto const hours = static_cast<unsigned long long>(seconds / 3600);
  auto const minutes = static_cast<unsigned>(seconds / 60 % 60);
  auto const rest = static_cast<unsigned>(seconds % 60);
  if (hours > 0) {
    std::snprintf(text.data(), text.size(), "%llu:%02u:%02u", hours, minutes, rest);
  } else {
    std::snprintf(text.data(), text.size(), "%u:%02u", minutes, rest);
  }
  return text.data();
}

}  // namespace host
