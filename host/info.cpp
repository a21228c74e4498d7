#include "info.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "errors.h"
#include "latin1.h"
#include "platform.h"
#include "record_table.h"
#include "stamp_text.h"
#include "walk.h"

namespace host {
namespace {

// What only the walk through the records tells.
struct Findings {
  std::int32_t firstBlockTime = 0;  // of the first settings block
  std::int32_t firstRunStart = 0;
  QvEnd end{};
};

template <std::size_t N>
std::string Text(const char (&field)[N]) {
  return Trimmed(TextFromLatin1(field, N));
}

std::string FirstOf(const std::string& a, const std::string& b) {
  return a.empty() ? b : a;
}

// Leaves out an empty text: what a file does not tell is no fact.
void Add(Facts& facts, const char* name, const std::string& text) {
  if (!text.empty()) facts[name] = text;
}

std::string Form(int headerStatus, const QvFileHeaderInfo& header) {
  bool const titles = header.TitleLine1[0] != '\0';
  if (headerStatus == QV_NO_TEXT_HEADER) {
    return titles ? "titles, then settings lines" : "settings lines";
  }
  return titles ? "titles, then text header" : "text header";
}

std::int32_t HeaderTime(const QvFileHeaderInfo& header) {
  std::string const line = TextFromLatin1(header.HeaderLine5, sizeof header.HeaderLine5);
  constexpr std::size_t dateColumn = 10;
  constexpr std::size_t timeColumn = 20;
  if (line.size() < timeColumn) return 0;
  return static_cast<std::int32_t>(
      TX_DateToSecs(line.substr(dateColumn, 9).c_str(), line.substr(timeColumn, 8).c_str(), 0));
}

void AddTitles(Facts& facts, const QvFileHeaderInfo& header, const Findings& found) {
  Facts titles = Facts::array();
  for (const std::string& title : {FirstOf(Text(found.end.Title1), Text(header.TitleLine1)),
                                   FirstOf(Text(found.end.Title2), Text(header.TitleLine2)),
                                   FirstOf(Text(found.end.Title3), Text(header.TitleLine3))}) {
    if (!title.empty()) titles.push_back(title);
  }
  if (!titles.empty()) facts["titles"] = titles;
}

void AddIdentity(Facts& facts, const Translation& translation, int headerStatus,
                 const Findings& found) {
  const QvFileHeaderInfo& header = translation.Header();
  const char* const serial = translation.Serial();
  std::string const serialText = Trimmed(TextFromLatin1(serial, std::strlen(serial)));

  facts["model"] = translation.Model();
  Add(facts, "serial", FirstOf(serialText, Text(found.end.SerialText)));
  Add(facts, "firmware", Text(header.HeaderLine3));
  Add(facts, "mode", Text(header.HeaderLine6));
  Add(facts, "form", Form(headerStatus, header));
  AddTitles(facts, header, found);
  if (translation.SiteCount() > 0) facts["sites"] = translation.SiteCount();
}

void AddTimes(Facts& facts, const QvFileHeaderInfo& header, const Findings& found) {
  std::int32_t const headerTime = HeaderTime(header);
  std::int32_t const fallback = headerTime > 0 ? headerTime : found.firstBlockTime;
  Add(facts, "start", LocalTimeText(found.firstRunStart > 0 ? found.firstRunStart : fallback));
  Add(facts, "lastStop", LocalTimeText(found.end.EndRecordStopTime));
  Add(facts, "lastRecord", LocalTimeText(found.end.LatestRecordTime));
}

void AddCensus(Facts& facts, const QvRecordCensus& census) {
  auto const* const bytes = reinterpret_cast<const std::uint8_t*>(&census);
  Facts holds = Facts::object();
  for (const record_fields::FieldInfo& field : record_fields::kRecordCensusFields) {
    std::uint32_t count;
    std::memcpy(&count, bytes + field.offset, sizeof count);
    if (count != 0) holds[std::string(field.name)] = count;
  }
  facts["holds"] = holds;
}

void Note(const Translation& translation, Findings& found) {
  constexpr int runStart = 64;
  switch (translation.State().Code) {
    case QV_SETTINGS:
      if (found.firstBlockTime == 0) {
        found.firstBlockTime = translation.As<QvSettings>().BlockTime;
      }
      break;
    case QV_EVENT: {
      auto const event = translation.As<QvEvent>();
      if (event.EventCode == runStart && found.firstRunStart == 0) {
        found.firstRunStart = event.RecordTime;
      }
      break;
    }
    case QV_END:
      found.end = translation.As<QvEnd>();
      break;
    default:
      break;
  }
}

bool IsReadable(int headerStatus) {
  return headerStatus == QV_OK || headerStatus == QV_NO_TEXT_HEADER;
}

Facts FirstFacts(const InputFile& file, const Translation& translation, int headerStatus,
                 const Findings& found) {
  Facts facts = {{"file", file.Name()}, {"size", file.Size()}};
  AddIdentity(facts, translation, headerStatus, found);
  Add(facts, "zone", ZoneInForce());
  Add(facts, "headerTime", LocalTimeText(HeaderTime(translation.Header())));
  return facts;
}

FileReport QuickInfo(const InputFile& file, Translation& translation) {
  int const header = translation.ReadHeader();
  if (IsReadable(header)) return {Outcome::Whole, FirstFacts(file, translation, header, {})};
  Report(file.Name(), StatusWords(header), header);
  return {Outcome::NothingReadable, {}};
}

FileReport FullInfo(const InputFile& file, Translation& translation) {
  Progress progress(file.Name());
  Findings found;
  auto const note = [&] {
    Note(translation, found);
    return true;
  };
  WalkResult const walk = Walk(translation, file, {}, progress, note);
  if (!IsReadable(walk.header)) return {Outcome::NothingReadable, {}};
  // Also a file without a record has told what stands in its header.
  Outcome const outcome = walk.outcome == Outcome::Whole ? Outcome::Whole : Outcome::EndedEarly;
  FileReport report = {outcome, FirstFacts(file, translation, walk.header, found)};
  AddTimes(report.facts, translation.Header(), found);
  AddCensus(report.facts, translation.Census());
  int const census = translation.State().CensusStatus;
  if (report.outcome == Outcome::Whole && census != QV_OK) {
    Report(file.Name(), "the count ended early, and holds for the part before that", census);
    report.outcome = Outcome::EndedEarly;
  }
  report.facts["whole"] = report.outcome == Outcome::Whole;
  return report;
}

}  // namespace

FileReport FindInfo(const std::string& fileName, const InfoOptions& options) {
  try {
    InputFile const file(fileName);
    Translation translation(file);
    translation.LookUpSerial();
    translation.LookUpSites();
    return options.quick ? QuickInfo(file, translation) : FullInfo(file, translation);
  } catch (const FileError& fault) {
    Report(fileName, fault.what(), fault.Code());
    return {Outcome::NothingReadable, {}};
  }
}

}  // namespace host
