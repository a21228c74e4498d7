// Many files in one database.
#pragma once

#include <memory>
#include <string>

#include "export/record_sink.h"
#include "input_file.h"
#include "library_file.h"

namespace host {

class ExportDatabase {
 public:
  ExportDatabase() = default;
  // A database that was made for this and got no file is removed again.
  virtual ~ExportDatabase() = default;
  ExportDatabase(const ExportDatabase&) = delete;
  ExportDatabase& operator=(const ExportDatabase&) = delete;

  // Whether the file is there as it is now, from an export with the same choice of records.
  virtual bool Has(const InputFile& file) = 0;
  // Takes the file anew, in one transaction. Looks up what it needs: to be called before the walk.
  virtual std::unique_ptr<RecordSink> Open(const InputFile& file, Translation& translation) = 0;
};

// `choice` tells what was chosen of the files, in words of the program's own. Throws WriteError.
std::unique_ptr<ExportDatabase> OpenSqlite(const std::string& place, const std::string& choice);

}  // namespace host
