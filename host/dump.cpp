#include "dump.h"

#include <algorithm>

#include "brief_line.h"
#include "errors.h"
#include "record_json.h"
#include "walk.h"

namespace host {
namespace {

bool IsWanted(std::string_view record, const std::vector<std::string>& names) {
  return names.empty() || std::find(names.begin(), names.end(), record) != names.end();
}

std::string BriefText(const Translation& translation, const record_fields::RecordInfo& info,
                      const std::string& fileName) {
  std::string text = fileName.empty() ? "" : fileName + ": ";
  text += BriefLine(info, translation.Record());
  if (translation.State().Short != 0) text += "  short";
  if (translation.State().Whole == 0) text += "  cut";
  return text;
}

std::string JsonText(const Translation& translation, const record_fields::RecordInfo& info,
                     const std::string& fileName) {
  Json json = RecordJson(info, translation.Record());
  if (translation.State().Short != 0) json["short"] = true;
  if (translation.State().Whole == 0) json["cut"] = true;
  if (!fileName.empty()) json["file"] = fileName;
  constexpr int oneLine = -1;
  // A file name may be no UTF-8.
  return json.dump(oneLine, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

Outcome Dump(const std::string& fileName, const DumpOptions& options, Output& output) {
  try {
    InputFile const file(fileName);
    Translation translation(file);
    Progress progress(fileName);
    std::uint64_t written = 0;
    auto const write = [&] {
      const record_fields::RecordInfo* const info = translation.Info();
      if (info != nullptr && IsWanted(info->name, options.choice.records)) {
        if (output.IsTerminal()) progress.Wipe();
        auto const text = options.brief ? BriefText : JsonText;
        if (!output.Line(text(translation, *info, options.nameFile ? fileName : std::string()))) {
          return false;
        }
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
