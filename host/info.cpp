#include "info.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "errors.h"
#include "latin1.h"
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

class Listing {
 public:
  explicit Listing(Output& output) : output_(output) {}
  // Writes nothing for an empty value: what a file does not tell is left out.
  void Entry(std::string_view label, const std::string& value) {
    constexpr std::size_t width = 12;
    if (value.empty()) return;
    std::string line = "  " + std::string(label);
    line.resize(std::max(line.size(), 2 + width) + 1, ' ');
    output_.Line(line + value);
  }

 private:
  Output& output_;
};

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

void ListIdentity(Listing& listing, const Translation& translation, int headerStatus,
                  const Findings& found) {
  const QvFileHeaderInfo& header = translation.Header();
  const char* const serial = translation.Serial();
  std::string const serialText = Trimmed(TextFromLatin1(serial, std::strlen(serial)));

  listing.Entry("model", std::to_string(translation.Model()));
  listing.Entry("serial", FirstOf(serialText, Text(found.end.SerialText)));
  listing.Entry("firmware", Text(header.HeaderLine3));
  listing.Entry("mode", Text(header.HeaderLine6));
  listing.Entry("form", Form(headerStatus, header));
  listing.Entry("title", FirstOf(Text(found.end.Title1), Text(header.TitleLine1)));
  listing.Entry("title", FirstOf(Text(found.end.Title2), Text(header.TitleLine2)));
  listing.Entry("title", FirstOf(Text(found.end.Title3), Text(header.TitleLine3)));

  if (translation.SiteCount() > 0) listing.Entry("sites", std::to_string(translation.SiteCount()));
}

void ListTimes(Listing& listing, const QvFileHeaderInfo& header, const Findings& found) {
  std::int32_t const headerTime = HeaderTime(header);
  std::int32_t const fallback = headerTime > 0 ? headerTime : found.firstBlockTime;
  listing.Entry("header time", LocalTimeText(headerTime));
  listing.Entry("start", LocalTimeText(found.firstRunStart > 0 ? found.firstRunStart : fallback));
  listing.Entry("last stop", LocalTimeText(found.end.EndRecordStopTime));
  listing.Entry("last record", LocalTimeText(found.end.LatestRecordTime));
}

void ListCensus(Output& output, const QvRecordCensus& census) {
  constexpr std::size_t countWidth = 12;
  constexpr std::size_t nameWidth = 18;
  auto const* const bytes = reinterpret_cast<const std::uint8_t*>(&census);
  output.Line("  holds");
  for (const record_fields::FieldInfo& field : record_fields::kRecordCensusFields) {
    std::uint32_t count;
    std::memcpy(&count, bytes + field.offset, sizeof count);
    if (count == 0) continue;
    std::string line = std::to_string(count);
    line.insert(0, countWidth - line.size(), ' ');
    std::string name(field.name);
    name.resize(std::max(name.size(), nameWidth), ' ');
    output.Line(line.append("  ").append(name).append("  ").append(field.comment));
  }
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

}  // namespace

Outcome Info(const std::string& fileName, Output& output) {
  try {
    InputFile const file(fileName);
    Translation translation(file);
    translation.LookUpSerial();
    translation.LookUpSites();
    Progress progress(fileName);
    Findings found;
    auto const note = [&] {
      Note(translation, found);
      return true;
    };
    WalkResult const walk = Walk(translation, file, {}, progress, note);
    if (walk.header != QV_OK && walk.header != QV_NO_TEXT_HEADER) return Outcome::NothingReadable;

    output.Line(fileName);
    Listing listing(output);
    ListIdentity(listing, translation, walk.header, found);
    ListTimes(listing, translation.Header(), found);
    ListCensus(output, translation.Census());
    if (walk.outcome != Outcome::Whole) return Outcome::EndedEarly;
    int const census = translation.State().CensusStatus;
    if (census == QV_OK) return Outcome::Whole;
    Report(fileName, "the count ended early, and holds for the part before that", census);
    return Outcome::EndedEarly;
  } catch (const FileError& fault) {
    Report(fileName, fault.what(), fault.Code());
    return Outcome::NothingReadable;
  }
}

}  // namespace host
