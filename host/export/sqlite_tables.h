// The tables of the database, and the rows of records in them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clock_text.h"
#include "decimal_text.h"
#include "export/field_columns.h"
#include "export/record_sink.h"
#include "export/sample_table.h"
#include "export/sqlite_database.h"

namespace host {

// Makes what is not there yet.
void MakeTables(SqliteDatabase& database);

// Rows of a file have ids of its own: its number in `files`, times 2^32, and on from there.
inline constexpr std::int64_t kIdsOfFile = std::int64_t{1} << 32;

void RemoveRows(SqliteDatabase& database, std::int64_t file);

// Writes the records of one file.
class SqliteRows {
 public:
  SqliteRows(SqliteDatabase& database, std::int64_t file);
  void Add(const ExportedRecord& record);

 private:
  struct Step {
    const record_fields::FieldInfo* field;
    std::size_t offset;
    bool clock;
    std::size_t bytes;  // an array of raw bytes as one value; else 0
  };
  struct Table {
    std::vector<Step> steps;
    std::optional<SqliteStatement> insert;
  };
  void Prepare(Table& table, const record_fields::RecordInfo& info);
  void BindStep(SqliteStatement& insert, int parameter, const Step& step,
                const std::uint8_t* record);
  void BindClock(SqliteStatement& insert, int parameter, double seconds, bool milliseconds);
  void BindLevel(SqliteStatement& insert, int parameter, float value, bool level);
  void AddSamples(const ExportedRecord& record);

  SqliteDatabase& database_;
  std::int64_t file_;
  std::vector<Table> tables_;  // by the place of the record in the field table
  SampleSeries series_;
  std::optional<SqliteStatement> sample_;
  std::optional<SqliteStatement> marker_;
  std::int64_t samples_ = 0;
  std::int64_t markers_ = 0;
  DecimalNumbers numbers_;
  ClockText clock_;
};

}  // namespace host
