// The records of a file as a folder of CSV tables, one a record name.
#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <optional>
#include <system_error>

#include "export/csv_row.h"
#include "export/csv_values.h"
#include "export/record_sink.h"
#include "export/sample_table.h"
#include "export/written_file.h"
#include "file_paths.h"
#include "record_table.h"
#include "temporary.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using record_fields::RecordInfo;

constexpr std::string_view kSamples = "TimeHistorySamples";
constexpr std::string_view kMarkers = "TimeHistoryMarkers";

std::string FileName(std::string_view table) {
  return std::string(table) + ".csv";
}

// All tables that this program may have written into a folder before.
std::vector<std::string> FileNames() {
  std::vector<std::string> names = {FileName(kSamples), FileName(kMarkers)};
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.code != 0) names.push_back(FileName(record.name));
  }
  return names;
}

void Expect(const fs::path& path, const std::error_code& fault) {
  if (fault) throw WriteError(NameOf(path) + " cannot be written: " + fault.message());
}

// In a folder that has files already, tables take the place of earlier ones, and those that this
// file has nothing for go. Other files stay.
void ReplaceTables(const fs::path& from, const fs::path& place) {
  for (const std::string& name : FileNames()) {
    std::error_code fault;
    if (fs::exists(from / name)) {
      fs::rename(from / name, place / name, fault);
    } else {
      fs::remove(place / name, fault);
    }
    Expect(place / name, fault);
  }
}

Temporary FolderBeside(const std::string& place) {
  if (fs::exists(PathOf(place)) && !fs::is_directory(PathOf(place))) {
    throw WriteError(place + " cannot be written: it is no folder");
  }
  return Temporary::FolderBeside(place);
}

class CsvTables : public RecordSink {
 public:
  CsvTables(const std::string& place, const ExportOptions& options)
      : place_(place),
        folder_(FolderBeside(place)),
        longTables_(options.longTables),
        values_({options.separator, options.decimal, options.guard}) {}

  void Add(const ExportedRecord& record) override {
    Table& table = tables_[&record.info];
    if (!table.file) {
      table.row.emplace(record.info, longTables_, values_);
      table.file = OpenTable(record.info.name, table.row->Heading());
    }
    table.row->Write(*table.file, record);
    if (record.info.structName == "QvTimeHistory") AddSamples(record);
  }

  void Finish(const Translation&, const WalkResult&) override {
    for (auto& [info, table] : tables_) table.file->Close();
    if (samples_) samples_->Close();
    if (markers_) markers_->Close();
    if (fs::is_directory(PathOf(place_))) {
      ReplaceTables(PathOf(folder_.Path()), PathOf(place_));
    } else {
      folder_.MoveTo(place_);
    }
  }

 private:
  struct Table {
    std::optional<CsvRow> row;
    std::unique_ptr<WrittenFile> file;
  };

  std::unique_ptr<WrittenFile> OpenTable(std::string_view name, const std::string& heading) {
    std::string const fileName = FileName(name);
    // The file goes with the folder; it is noted by itself for a signal that ends the program.
    auto file =
        std::make_unique<WrittenFile>(Temporary::File(NameOf(PathOf(folder_.Path()) / fileName)),
                                      NameOf(PathOf(place_) / fileName));
    file->Write(heading);
    return file;
  }

  void AddSamples(const ExportedRecord& record) {
    series_.Take(record.bytes);
    auto const number = static_cast<std::int64_t>(record.number);
    if (!series_.Samples().empty() && !samples_) {
      samples_ = OpenTable(kSamples, Heading("FirstLevel (dB)", "SecondLevel (dB)"));
    }
    for (const Sample& sample : series_.Samples()) {
      char* at = PutTime(samples_->Room(kMostOfRow), number, sample.time);
      at = values_.PutFloat(at, sample.first, false);
      EndRow(*samples_, values_.PutFloat(at, sample.second, true));
    }
    if (!series_.Markers().empty() && !markers_) {
      markers_ = OpenTable(kMarkers, Heading("EventCode", "EventDetail"));
    }
    for (const Marker& marker : series_.Markers()) {
      char* at = PutTime(markers_->Room(kMostOfRow), number, marker.time);
      at = values_.PutWhole(at, marker.code);
      EndRow(*markers_, values_.PutWhole(at, marker.detail));
    }
  }

  std::string Heading(std::string_view first, std::string_view second) const {
    std::string line;
    for (std::string_view const name :
         {std::string_view("Record"), std::string_view("Time (s since 1970 UTC)"),
          std::string_view("TimeLocal"), first}) {
      line += values_.Quoted(name) + values_.Style().separator;
    }
    return line.append(values_.Quoted(second)).append("\r\n");
  }

  char* PutTime(char* at, std::int64_t number, double time) {
    at = values_.PutWhole(at, number);
    at = time == std::trunc(time) && time <= std::numeric_limits<std::int32_t>::max()
             ? values_.PutWhole(at, static_cast<std::int64_t>(time))
             : values_.PutDouble(at, time);
    return values_.PutClockWithMilliseconds(at, time);
  }

  static void EndRow(WrittenFile& file, char* at) {
    at[-1] = '\r';
    *at++ = '\n';
    file.Used(at);
  }

  static constexpr std::size_t kMostOfRow = 5 * CsvValues::kMost + 2;

  std::string place_;
  Temporary folder_;
  bool longTables_;
  CsvValues values_;
  std::map<const RecordInfo*, Table> tables_;
  SampleSeries series_;
  std::unique_ptr<WrittenFile> samples_;
  std::unique_ptr<WrittenFile> markers_;
};

}  // namespace

std::unique_ptr<RecordSink> OpenCsv(const std::string& place, const ExportOptions& options) {
  return std::make_unique<CsvTables>(place, options);
}

}  // namespace host
