#include "export.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>

#include "errors.h"
#include "export/record_sink.h"
#include "export/written_file.h"
#include "file_list.h"
#include "input_file.h"
#include "option_values.h"
#include "outcome.h"
#include "platform.h"
#include "progress.h"
#include "walk.h"

namespace host {
namespace {

namespace fs = std::filesystem;

bool IsWanted(std::string_view record, const std::vector<std::string>& names) {
  return names.empty() || std::find(names.begin(), names.end(), record) != names.end();
}

std::unique_ptr<RecordSink> Open(const std::string& place, const ExportOptions& options) {
  return options.format == ExportFormat::Csv ? OpenCsv(place, options) : OpenJsonLines(place);
}

Outcome ExportFile(const std::string& name, const std::string& place,
                   const ExportOptions& options) {
  try {
    InputFile const file(name);
    Translation translation(file);
    std::unique_ptr<RecordSink> const sink = Open(place, options);
    Progress progress(name);
    auto const add = [&] {
      const record_fields::RecordInfo* const info = translation.Info();
      if (info != nullptr && IsWanted(info->name, options.choice.records)) {
        const QvWalk& walk = translation.State();
        sink->Add({*info, translation.Record(), walk.Records, walk.Short != 0});
      }
      return !Interrupted();
    };
    WalkResult const walk = Walk(translation, file, {}, progress, add);
    if (walk.stopped || walk.outcome == Outcome::NothingReadable) return Outcome::NothingReadable;
    sink->Finish(translation, walk);
    return walk.outcome;
  } catch (const FileError& fault) {
    Report(name, fault.what(), fault.Code());
  } catch (const WriteError& fault) {
    Remark(name, fault.what());
  }
  return Outcome::NothingReadable;
}

}  // namespace

int RunExport(const ExportOptions& options) {
  HoldInterrupts();
  Outcome const outcome = ExportFile(options.sources.names.at(0), options.place, options);
  if (Interrupted()) EndInterrupted();
  return static_cast<int>(outcome);
}

}  // namespace host
