#include "export.h"

#include <cstddef>
#include <map>
#include <memory>

#include "arguments.h"
#include "errors.h"
#include "export/export_database.h"
#include "export/export_places.h"
#include "export/record_sink.h"
#include "export/written_file.h"
#include "file_list.h"
#include "file_reports.h"
#include "input_file.h"
#include "jobs.h"
#include "outcome.h"
#include "platform.h"
#include "progress.h"
#include "record_filter.h"
#include "walk.h"

namespace host {
namespace {

// What became of a file.
enum class Fate { Failed, Written, Unchanged };

FileReport ReportOf(Outcome outcome, Fate fate) {
  return {outcome, static_cast<int>(fate)};
}

// Faults of a file and of its output are told, and stop no other file.
template <class Work>
FileReport Guarded(const std::string& name, Work work) {
  // A process of its own begins without.
  HoldInterrupts();
  try {
    return work();
  } catch (const FileError& fault) {
    Report(name, fault.what(), fault.Code());
  } catch (const WriteError& fault) {
    Remark(name, fault.what());
  } catch (const ReaderHasGone&) {
    return ReportOf(Outcome::Whole, Fate::Written);
  }
  return ReportOf(Outcome::NothingReadable, Fate::Failed);
}

FileReport WalkInto(RecordSink& sink, Translation& translation, const InputFile& file,
                    const ExportOptions& options) {
  Progress progress(file.Name());
  RecordFilter const filter(options.choice);
  const QvWalk& walk = translation.State();
  auto const add = [&] {
    const record_fields::RecordInfo* const info = translation.Info();
    if (info != nullptr && filter.Wants(*info, translation.Record())) {
      sink.Add({*info, translation.Record(), walk.Records, walk.Short != 0});
    }
    return !Interrupted();
  };
  WalkResult const result = Walk(translation, file, {}, progress, add);
  if (result.stopped || result.outcome == Outcome::NothingReadable) {
    return ReportOf(Outcome::NothingReadable, Fate::Failed);
  }
  sink.Finish(translation, result);
  return ReportOf(result.outcome, Fate::Written);
}

std::unique_ptr<RecordSink> OpenSink(ExportFormat format, const std::string& place,
                                     const ExportOptions& options) {
  switch (format) {
    case ExportFormat::JsonLines:
      return OpenJsonLines(place);
    case ExportFormat::Xlsx:
      return OpenXlsx(place);
    case ExportFormat::Mat:
      return OpenMat(place);
    default:
      return OpenCsv(place, options);
  }
}

// What decides on the rows of a file, beside its bytes.
std::string ChoiceText(const ExportOptions& options) {
  std::string text = "zone " + ZoneInForce();
  for (const std::string& record : options.choice.records) text += ' ' + record;
  if (options.choice.since) {
    text += " since " + std::to_string(SecondsOfLocal(*options.choice.since));
  }
  if (options.choice.until) {
    text += " until " + std::to_string(SecondsOfLocal(*options.choice.until));
  }
  return text;
}

class Totals {
 public:
  void Add(const FileReport& report) { ++counts_[report.facts.get<Fate>()]; }
  void Show(const std::string& place) {
    Remark(place, std::to_string(counts_[Fate::Written]) + " written, " +
                      std::to_string(counts_[Fate::Unchanged]) + " there unchanged, " +
                      std::to_string(counts_[Fate::Failed]) + " failed");
  }

 private:
  std::map<Fate, int> counts_;
};

Outcome ExportAll(const FileList& list, int jobs, const ExportOptions& options,
                  const std::function<FileReport(const std::string&)>& make) {
  Totals totals;
  auto const take = [&](const FileReport& report) {
    totals.Add(report);
    return !Interrupted();
  };
  Outcome const outcome = ReportFiles(list, jobs, {make, take});
  if (Interrupted()) throw InterruptedRun();
  if (list.files.size() > 1) totals.Show(options.place);
  return outcome;
}

Outcome ExportToDatabase(const FileList& list, const ExportOptions& options) {
  MakeFoldersFor(options.place);
  auto const database = OpenSqlite(options.place, ChoiceText(options));
  auto const make = [&](const std::string& name) {
    return Guarded(name, [&] {
      InputFile const file(name);
      if (database->Has(file)) return ReportOf(Outcome::Whole, Fate::Unchanged);
      Translation translation(file);
      auto const sink = database->Open(file, translation);
      return WalkInto(*sink, translation, file, options);
    });
  };
  // A database has one writer.
  return ExportAll(list, 1, options, make);
}

Outcome ExportToFiles(const FileList& list, ExportFormat format, const ExportOptions& options) {
  std::vector<std::string> const placeList = PlacesOf(list.files, options, format);
  std::map<std::string, std::string> places;
  for (std::size_t i = 0; i < placeList.size(); ++i) places[list.files[i]] = placeList[i];
  auto const make = [&](const std::string& name) {
    return Guarded(name, [&] {
      InputFile const file(name);
      Translation translation(file);
      MakeFoldersFor(places.at(name));
      auto const sink = OpenSink(format, places.at(name), options);
      return WalkInto(*sink, translation, file, options);
    });
  };
  return ExportAll(list, options.sources.jobs, options, make);
}

}  // namespace

int RunExport(const ExportOptions& options) {
  ExportFormat const format = FormatOf(options);
  if (options.separator == options.decimal) {
    throw WrongUsage("--separator and --decimal cannot be the same sign");
  }
  FileList const list = FilesOf(options.sources);
  if (list.files.empty()) return static_cast<int>(list.outcome);
  HoldInterrupts();
  try {
    Outcome const outcome = format == ExportFormat::Sqlite ? ExportToDatabase(list, options)
                                                           : ExportToFiles(list, format, options);
    return static_cast<int>(outcome);
  } catch (const WriteError& fault) {
    Complain(fault.what());
    return static_cast<int>(Outcome::NothingReadable);
  }
}

}  // namespace host
