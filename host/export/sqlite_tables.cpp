#include "export/sqlite_tables.h"

#include <cmath>

#include "latin1.h"
#include "qvslm_records.h"
#include "record_bytes.h"
#include "record_table.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

// One value of a row: a column of the field table, or an array of bytes.
struct TableColumn {
  std::string name;
  const char* type;
  Column column;
  std::size_t bytes;
};

// Long arrays of bytes that measure nothing are one value. With a column for each byte a block
// image would have more of them than SQLite allows.
bool IsOneValue(const FieldInfo& field) {
  constexpr std::size_t longArray = 16;
  return field.type == FieldType::U8 && field.kind == FieldKind::Plain && field.count >= longArray;
}

std::vector<TableColumn> TableColumnsOf(const RecordInfo& info) {
  std::vector<TableColumn> columns;
  for (const Column& column : ColumnsOf(info)) {
    const FieldInfo& field = *column.field;
    if (IsOneValue(field)) {
      if (column.offset != field.offset) continue;
      columns.push_back({std::string(field.name), "BLOB", column, FieldSize(field)});
    } else {
      const char* const type = column.clock || field.type == FieldType::Char ? "TEXT"
                               : field.type == FieldType::F32                ? "REAL"
                                                                             : "INTEGER";
      columns.push_back({column.name, type, column, 0});
    }
  }
  return columns;
}

constexpr const char* kKeys =
    "id INTEGER PRIMARY KEY, file INTEGER NOT NULL REFERENCES files(id), record INTEGER NOT NULL";

// In words: the unit stands beside it.
const char* KindInWords(FieldKind kind) {
  switch (kind) {
    case FieldKind::Level:
      return "level";
    case FieldKind::Decibels:
      return "decibels";
    case FieldKind::Time:
      return "time";
    case FieldKind::Seconds:
      return "seconds";
    case FieldKind::Percent:
      return "percent";
    case FieldKind::Text:
      return "text";
    case FieldKind::RawText:
      return "raw text";
    case FieldKind::Plain:
      break;
  }
  return "plain";
}

void MakeFilesTable(SqliteDatabase& database) {
  std::string text =
      "CREATE TABLE files(id INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE, "
      "size INTEGER NOT NULL, sha256 TEXT NOT NULL, choice TEXT NOT NULL, "
      "model INTEGER, serial TEXT, firmware TEXT, mode TEXT, "
      "title1 TEXT, title2 TEXT, title3 TEXT, "
      "whole INTEGER, records INTEGER, cut_offset INTEGER, why TEXT, census_status INTEGER";
  for (const FieldInfo& field : record_fields::kRecordCensusFields) {
    if (!field.reserved) text += ", " + QuotedName(field.name) + " INTEGER";
  }
  database.Execute(text + ')');
}

void FillFieldsTable(SqliteDatabase& database) {
  database.Execute(
      "CREATE TABLE fields(record TEXT NOT NULL, field TEXT NOT NULL, unit TEXT NOT NULL, "
      "kind TEXT NOT NULL, elements INTEGER NOT NULL, comment TEXT NOT NULL, "
      "PRIMARY KEY(record, field)) WITHOUT ROWID");
  SqliteStatement insert(database, "INSERT INTO fields VALUES(?, ?, ?, ?, ?, ?)");
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.code == 0) continue;
    for (const FieldInfo& field : record.fields) {
      if (field.reserved || field.offset == 0) continue;
      bool const text = field.type == FieldType::Char;
      insert.Bind(1, record.name);
      insert.Bind(2, field.name);
      insert.Bind(3, UnitOf(field));
      insert.Bind(4, std::string_view(KindInWords(field.kind)));
      insert.Bind(5, text ? std::int64_t{1}
                          : static_cast<std::int64_t>(FieldSize(field) / ElementSize(field.type)));
      insert.Bind(6, field.comment);
      insert.Run();
    }
  }
}

std::string Placeholders(std::size_t count) {
  std::string text = "?";
  for (std::size_t i = 1; i < count; ++i) text += ",?";
  return text;
}

}  // namespace

void MakeTables(SqliteDatabase& database) {
  if (database.Integer("SELECT count(*) FROM sqlite_schema WHERE name = 'files'") != 0) return;
  database.Execute("BEGIN IMMEDIATE");
  MakeFilesTable(database);
  FillFieldsTable(database);
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.code == 0) continue;
    std::string text =
        "CREATE TABLE " + QuotedName(record.name) + '(' + kKeys + ", short INTEGER NOT NULL";
    for (const TableColumn& column : TableColumnsOf(record)) {
      text += ", " + QuotedName(column.name) + ' ' + column.type;
    }
    database.Execute(text + ')');
  }
  std::string const times = std::string(kKeys) + ", Time REAL, TimeLocal TEXT, ";
  database.Execute("CREATE TABLE TimeHistorySamples(" + times +
                   "FirstLevel REAL, SecondLevel REAL)");
  database.Execute("CREATE TABLE TimeHistoryMarkers(" + times +
                   "EventCode INTEGER, EventDetail INTEGER)");
  database.Execute("COMMIT");
}

void RemoveRows(SqliteDatabase& database, std::int64_t file) {
  auto const remove = [&](std::string_view table) {
    database.Execute("DELETE FROM " + QuotedName(table) + " WHERE id BETWEEN " +
                     std::to_string(file * kIdsOfFile) + " AND " +
                     std::to_string((file + 1) * kIdsOfFile - 1));
  };
  for (const RecordInfo& record : record_fields::kRecords) {
    if (record.code != 0) remove(record.name);
  }
  remove("TimeHistorySamples");
  remove("TimeHistoryMarkers");
}

SqliteRows::SqliteRows(SqliteDatabase& database, std::int64_t file)
    : database_(database), file_(file), tables_(std::size(record_fields::kRecords)) {}

void SqliteRows::Prepare(Table& table, const RecordInfo& info) {
  for (const TableColumn& column : TableColumnsOf(info)) {
    table.steps.push_back(
        {column.column.field, column.column.offset, column.column.clock, column.bytes});
  }
  constexpr std::size_t keys = 4;
  table.insert.emplace(database_, "INSERT INTO " + QuotedName(info.name) + " VALUES(" +
                                      Placeholders(keys + table.steps.size()) + ')');
}

void SqliteRows::Add(const ExportedRecord& record) {
  Table& table = tables_[static_cast<std::size_t>(&record.info - record_fields::kRecords)];
  if (!table.insert) Prepare(table, record.info);
  auto const number = static_cast<std::int64_t>(record.number);
  SqliteStatement& insert = *table.insert;
  insert.Bind(1, file_ * kIdsOfFile + number);
  insert.Bind(2, file_);
  insert.Bind(3, number);
  insert.Bind(4, std::int64_t{record.shortItem ? 1 : 0});
  int parameter = 5;
  for (const Step& step : table.steps) BindStep(insert, parameter++, step, record.bytes);
  insert.Run();
  if (record.info.structName == "QvTimeHistory") AddSamples(record);
}

void SqliteRows::BindStep(SqliteStatement& insert, int parameter, const Step& step,
                          const std::uint8_t* record) {
  const std::uint8_t* const bytes = record + step.offset;
  const FieldInfo& field = *step.field;
  if (step.bytes != 0) {
    insert.BindBytes(parameter, bytes, step.bytes);
  } else if (step.clock) {
    BindClock(insert, parameter, ReadAs<std::int32_t>(bytes), false);
  } else if (field.type == FieldType::F32) {
    BindLevel(insert, parameter, ReadAs<float>(bytes), field.kind == FieldKind::Level);
  } else if (field.type == FieldType::Char) {
    insert.Bind(parameter, TextFromLatin1(reinterpret_cast<const char*>(bytes), field.count));
  } else {
    insert.Bind(parameter, ReadWhole(field.type, bytes));
  }
}

void SqliteRows::BindClock(SqliteStatement& insert, int parameter, double seconds,
                           bool milliseconds) {
  char text[ClockText::kMost];
  const char* const end = milliseconds ? clock_.PutWithMilliseconds(text, seconds)
                                       : clock_.Put(text, static_cast<std::int32_t>(seconds));
  if (end == text) return insert.BindNull(parameter);
  insert.Bind(parameter, std::string_view(text, static_cast<std::size_t>(end - text)));
}

void SqliteRows::BindLevel(SqliteStatement& insert, int parameter, float value, bool level) {
  if (!std::isfinite(value) || (level && value == QV_NO_LEVEL)) return insert.BindNull(parameter);
  insert.Bind(parameter, numbers_.Of(value));
}

void SqliteRows::AddSamples(const ExportedRecord& record) {
  auto const number = static_cast<std::int64_t>(record.number);
  auto const prepare = [&](std::optional<SqliteStatement>& insert, const char* table) {
    if (!insert)
      insert.emplace(database_,
                     std::string("INSERT INTO ") + table + " VALUES(" + Placeholders(7) + ')');
  };
  auto const bindKeys = [&](SqliteStatement& insert, std::int64_t id, double time) {
    insert.Bind(1, file_ * kIdsOfFile + id);
    insert.Bind(2, file_);
    insert.Bind(3, number);
    insert.Bind(4, time);
    BindClock(insert, 5, time, true);
  };
  series_.Take(record.bytes);
  prepare(sample_, "TimeHistorySamples");
  prepare(marker_, "TimeHistoryMarkers");
  for (const Sample& sample : series_.Samples()) {
    bindKeys(*sample_, ++samples_, sample.time);
    BindLevel(*sample_, 6, sample.first, false);
    BindLevel(*sample_, 7, sample.second, true);
    sample_->Run();
  }
  for (const Marker& marker : series_.Markers()) {
    bindKeys(*marker_, ++markers_, marker.time);
    marker_->Bind(6, std::int64_t{marker.code});
    marker_->Bind(7, std::int64_t{marker.detail});
    marker_->Run();
  }
}

}  // namespace host
