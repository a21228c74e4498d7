#include "check.h"

#include <cstdint>

#include "errors.h"
#include "plain_words.h"
#include "record_table.h"
#include "walk.h"

namespace host {
namespace {

// The first step of a walk that was not whole.
struct Break {
  std::int32_t offset = -1;
  std::uint32_t missing = 0;
  std::uint16_t code = QV_NO_RECORD;
};

struct Reading {
  std::uint64_t records = 0;  // whole ones
  std::uint64_t shortItems = 0;
  Facts counts = Facts::object();
  Break broken;
};

void NoteBreak(Break& broken, const QvWalk& walk) {
  if (broken.offset < 0 && walk.CutOffset >= 0)
    broken = {walk.CutOffset, walk.Missing, walk.CutCode};
}

Reading ReadToItsEnd(Translation& translation, const InputFile& file) {
  Reading reading;
  Progress progress(file.Name());
  const QvWalk& walk = translation.State();
  translation.ReadHeader();
  translation.Open(false);
  NoteBreak(reading.broken, walk);
  progress.SetTotal(file.Size());
  while (translation.Next()) {
    progress.Show(translation.Offset());
    NoteBreak(reading.broken, walk);
    const record_fields::RecordInfo* const info = translation.Info();
    if (walk.Whole == 0 || info == nullptr) continue;
    ++reading.records;
    if (walk.Short != 0) ++reading.shortItems;
    Facts& count = reading.counts[std::string(info->name)];
    count = count.is_null() ? 1 : count.get<std::uint64_t>() + 1;
  }
  NoteBreak(reading.broken, walk);
  return reading;
}

// Of a code that stands for two records the one for intervals.
std::string NameOfRecord(std::uint16_t code) {
  for (const record_fields::RecordInfo& info : record_fields::kRecords) {
    if (code != QV_NO_RECORD && info.code == code) return std::string(info.name);
  }
  return "";
}

// What the file should have held where it breaks.
std::string Due(const QvWalk& walk, const Break& broken, const std::string& kind) {
  if (broken.offset < 0) {
    return walk.End == QV_WALK_NOT_STARTED ? "the start of a measurement file"
                                           : "a record, or the end of the data";
  }
  if (kind.empty()) return "a record, or the end of the data";
  // How much of a text is missing nobody can tell.
  bool const isText = broken.missing == 1;
  return "the rest of " + OneRecord(kind) +
         (isText ? "" : ", " + Counted(broken.missing, "byte", "bytes"));
}

void AddBreak(Facts& facts, const QvWalk& walk, const Reading& reading) {
  const Break& broken = reading.broken;
  if (walk.End != QV_WALK_NOT_STARTED) {
    facts["offset"] = broken.offset < 0 ? walk.Offset : broken.offset;
    facts["record"] = reading.records + 1;
  }
  std::string const kind = NameOfRecord(broken.code);
  if (!kind.empty()) facts["kind"] = kind;
  facts["due"] = Due(walk, broken, kind);
  facts["why"] = QvWalkWhy(&walk);
  if (walk.Status < 0 && walk.Status != QV_END_OF_DATA) facts["status"] = walk.Status;
}

std::string CountsText(const Facts& counts) {
  std::string text;
  for (const auto& [name, count] : counts.items()) {
    text.append(text.empty() ? "" : ", ").append(CountedRecords(count.get<std::uint64_t>(), name));
  }
  return text;
}

// How the words are shown on a terminal.
constexpr std::string_view green = "\033[32m";
constexpr std::string_view yellow = "\033[33m";
constexpr std::string_view red = "\033[31m";

}  // namespace

FileReport FindDamage(const std::string& fileName) {
  Facts facts = {{"file", fileName}};
  try {
    InputFile const file(fileName);
    Translation translation(file);
    Reading const reading = ReadToItsEnd(translation, file);
    const QvWalk& walk = translation.State();
    Outcome const outcome = QvWalkWasWhole(&walk)  ? Outcome::Whole
                            : reading.records == 0 ? Outcome::NothingReadable
                                                   : Outcome::EndedEarly;
    facts["size"] = file.Size();
    facts["result"] = ResultWord(outcome);
    facts["records"] = reading.records;
    facts["read"] = reading.counts;
    if (reading.shortItems > 0) facts["short"] = reading.shortItems;
    if (outcome != Outcome::Whole) AddBreak(facts, walk, reading);
    return {outcome, facts};
  } catch (const FileError& fault) {
    facts["result"] = ResultWord(Outcome::NothingReadable);
    facts["why"] = fault.what();
    facts["status"] = fault.Code();
    return {Outcome::NothingReadable, facts};
  }
}

void ShowDamage(const FileReport& report, Output& output) {
  const Facts& facts = report.facts;
  std::string const& file = facts.at("file").get_ref<const std::string&>();
  auto const entry = [&](std::string_view label, const std::string& value) {
    constexpr std::size_t width = 12;
    std::string line = "  " + std::string(label);
    line.resize(2 + width + 1, ' ');
    output.Line(line + value);
  };
  std::string_view const colour = report.outcome == Outcome::Whole        ? green
                                  : report.outcome == Outcome::EndedEarly ? yellow
                                                                          : red;
  std::string rest;
  if (report.outcome == Outcome::Whole) {
    rest = ", " + Counted(facts.at("records").get<std::uint64_t>(), "record", "records");
  } else if (facts.contains("offset")) {
    rest = " at byte " + facts["offset"].dump() + " of " + facts["size"].dump();
  }
  output.Marked(file + ": ", colour, facts.at("result").get_ref<const std::string&>(), rest);
  if (facts.contains("short")) {
    entry("short", Counted(facts["short"].get<std::uint64_t>(), "item was", "items were") +
                       " shorter than the layout; fields behind their end are zero");
  }
  if (report.outcome == Outcome::Whole) return;
  if (report.outcome == Outcome::EndedEarly) {
    entry("read before", Counted(facts["records"].get<std::uint64_t>(), "record", "records") +
                             ": " + CountsText(facts["read"]));
  }
  if (facts.contains("record")) {
    std::string const kind =
        facts.contains("kind") ? ", " + OneRecord(facts["kind"].get<std::string>()) : "";
    entry("breaks in", "record " + facts["record"].dump() + kind);
  }
  if (facts.contains("due")) entry("was due", facts["due"].get<std::string>());
  entry("why", facts["why"].get<std::string>());
  if (facts.contains("status")) entry("status", facts["status"].dump());
}

void CheckTotals::Add(Outcome outcome) {
  (outcome == Outcome::Whole ? whole_ : outcome == Outcome::EndedEarly ? damaged_ : unreadable_)++;
}

void CheckTotals::Show(Output& output) const {
  output.Line(Counted(whole_ + damaged_ + unreadable_, "file", "files") + ": " +
              std::to_string(whole_) + " whole, " + std::to_string(damaged_) + " damaged, " +
              std::to_string(unreadable_) + " unreadable");
}

}  // namespace host
