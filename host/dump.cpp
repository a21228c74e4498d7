#include "dump.h"

#include "brief_line.h"
#include "errors.h"
#include "record_filter.h"
#include "record_json.h"
#include "walk.h"

namespace host {
namespace {

std::string BriefText(const Translation& translation, const record_fields::RecordInfo& info,
                      const std::string& fileName) {
  std::string text = fileName.empty() ? "" : fileName + ": ";
  text += BriefLine(info, translation.Record());
  if (translation.State().Short != 0) text += "  short";
  if (translation.State().Whole == 0) text += "  cut";
  return text;
}

std::string JsonText(RecordJson& json, const Translation& translation,
                     const record_fields::RecordInfo& info, const std::string& fileName) {
  JsonMarks const marks = {.shortItem = translation.State().Short != 0,
                           .cut = translation.State().Whole == 0,
                           .file = fileName};
  return json.Text(info, translation.Record(), marks);
}

}  // namespace

Outcome Dump(const std::string& fileName, const DumpOptions& options, Output& output) {
  try {
    InputFile const file(fileName);
    Translation translation(file);
    Progress progress(fileName);
    std::string const shownName = options.nameFile ? fileName : "";
    RecordJson json(options.raw ? JsonValues::Raw : JsonValues::Told);
    RecordFilter const filter(options.choice);
    std::uint64_t written = 0;
    auto const write = [&] {
      const record_fields::RecordInfo* const info = translation.Info();
      if (info != nullptr && filter.Wants(*info, translation.Record())) {
        std::string const text = options.brief ? BriefText(translation, *info, shownName)
                                               : JsonText(json, translation, *info, shownName);
        if (!output.Line(text)) return false;
        ++written;
      }
      return !options.limit || written < *options.limit;
    };
    WalkOptions const how = {.census = options.census, .cut = options.cut};
    return Walk(translation, file, how, progress, write).outcome;
  } catch (const FileError& fault) {
    Report(fileName, fault.what(), fault.Code());
    return Outcome::NothingReadable;
  }
}

}  // namespace host
