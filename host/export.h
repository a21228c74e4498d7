// qvslm export: the records of many files as tables, a database, or sheets.
#pragma once

#include <string>

#include "record_choice.h"
#include "sources.h"

namespace host {

enum class ExportFormat { ByEnding, Csv, JsonLines, Sqlite, Xlsx, Mat };

struct ExportOptions {
  Sources sources;
  RecordChoice choice;
  std::string place;  // a folder or a file, by the format
  ExportFormat format = ExportFormat::ByEnding;
  bool longTables = false;  // one row an element of an array
  bool guard = true;        // no text can run as a formula
  char separator = ',';
  char decimal = '.';
};

// Gives the exit code. The zone of the sources is in force already.
int RunExport(const ExportOptions& options);

}  // namespace host
