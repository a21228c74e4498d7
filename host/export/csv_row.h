// A record as rows of a CSV table: one row with a column for each value, or one row a value.
#pragma once

#include <string>
#include <vector>

#include "export/csv_values.h"
#include "export/field_columns.h"
#include "export/record_sink.h"
#include "export/written_file.h"

namespace host {

class CsvRow {
 public:
  CsvRow(const record_fields::RecordInfo& info, bool longTables, CsvValues& values);

  std::string Heading() const;
  void Write(WrittenFile& file, const ExportedRecord& record);

 private:
  // One value, or all bytes of an array.
  struct Step {
    const record_fields::FieldInfo* field;
    std::size_t offset;
    std::size_t bytes;
    bool clock;
    bool level;
    std::string before;  // what stands before a value that has a row of its own
  };
  void AddStep(const Column& column);
  char* PutStep(char* at, const Step& step, const std::uint8_t* record);
  char* PutKeys(char* at, const ExportedRecord& record);

  bool longTables_;
  CsvValues& values_;
  const record_fields::FieldInfo* time_;
  std::vector<Column> columns_;
  std::vector<Step> steps_;
  std::size_t most_ = 0;
};

}  // namespace host
