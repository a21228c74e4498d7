// Where the records of one file go: tables, a database, sheets. Each format is one of these.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "export.h"
#include "record_info.h"
#include "walk.h"

namespace host {

// One record of the walk.
struct ExportedRecord {
  const record_fields::RecordInfo& info;
  const std::uint8_t* bytes;
  std::uint64_t number;  // 1 for the first record of the file
  bool shortItem;
};

class RecordSink {
 public:
  RecordSink() = default;
  // Without Finish nothing of the file stays.
  virtual ~RecordSink() = default;
  RecordSink(const RecordSink&) = delete;
  RecordSink& operator=(const RecordSink&) = delete;

  // Both throw WriteError, or FileError.
  virtual void Add(const ExportedRecord& record) = 0;
  // Behind the last record: what was written takes its place.
  virtual void Finish(const Translation& translation, const WalkResult& walk) = 0;
};

// The formats. `place` is a folder for csv, a file for all others. Those that rest on a library
// throw WriteError where this program was built without it.
std::unique_ptr<RecordSink> OpenCsv(const std::string& place, const ExportOptions& options);
std::unique_ptr<RecordSink> OpenJsonLines(const std::string& place);
std::unique_ptr<RecordSink> OpenXlsx(const std::string& place);
std::unique_ptr<RecordSink> OpenMat(const std::string& place);

}  // namespace host
