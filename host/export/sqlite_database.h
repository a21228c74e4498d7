// SQLite as this program uses it: faults are WriteErrors that name the database.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace host {

class SqliteDatabase;

// A prepared statement. Parameters count from 1; texts and bytes are copied.
class SqliteStatement {
 public:
  SqliteStatement(SqliteDatabase& database, std::string_view text);

  void Bind(int parameter, std::int64_t value);
  void Bind(int parameter, double value);
  void Bind(int parameter, std::string_view text);
  void BindBytes(int parameter, const void* bytes, std::size_t size);
  void BindNull(int parameter);
  // True when there is a row; the columns count from 0.
  bool Step();
  std::int64_t Integer(int column) { return sqlite3_column_int64(statement_.get(), column); }
  std::string Text(int column);
  // Without a row, to be run again.
  void Run();

 private:
  struct Closer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  void Expect(int status);

  SqliteDatabase& database_;
  std::unique_ptr<sqlite3_stmt, Closer> statement_;
};

class SqliteDatabase {
 public:
  // Opens it, or makes it.
  explicit SqliteDatabase(const std::string& path);

  void Execute(const std::string& text);
  std::int64_t Integer(std::string_view query);
  sqlite3* Handle() const { return handle_.get(); }
  [[noreturn]] void Fail() const;

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::string path_;
  std::unique_ptr<sqlite3, Closer> handle_;
};

// A name as SQL wants it.
std::string QuotedName(std::string_view name);

}  // namespace host
