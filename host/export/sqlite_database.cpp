#include "export/sqlite_database.h"

#include "export/written_file.h"

namespace host {

SqliteStatement::SqliteStatement(SqliteDatabase& database, std::string_view text)
    : database_(database) {
  sqlite3_stmt* statement = nullptr;
  int const status =
      sqlite3_prepare_v3(database.Handle(), text.data(), static_cast<int>(text.size()),
                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  statement_.reset(statement);
  Expect(status);
}

void SqliteStatement::Expect(int status) {
  if (status != SQLITE_OK) database_.Fail();
}

void SqliteStatement::Bind(int parameter, std::int64_t value) {
  Expect(sqlite3_bind_int64(statement_.get(), parameter, value));
}

void SqliteStatement::Bind(int parameter, double value) {
  Expect(sqlite3_bind_double(statement_.get(), parameter, value));
}

void SqliteStatement::Bind(int parameter, std::string_view text) {
  // No pointer would be NULL, not an empty text.
  const char* const begin = text.empty() ? "" : text.data();
  Expect(sqlite3_bind_text(statement_.get(), parameter, begin, static_cast<int>(text.size()),
                           SQLITE_TRANSIENT));
}

void SqliteStatement::BindBytes(int parameter, const void* bytes, std::size_t size) {
  Expect(sqlite3_bind_blob(statement_.get(), parameter, bytes, static_cast<int>(size),
                           SQLITE_TRANSIENT));
}

void SqliteStatement::BindNull(int parameter) {
  Expect(sqlite3_bind_null(statement_.get(), parameter));
}

bool SqliteStatement::Step() {
  int const status = sqlite3_step(statement_.get());
  if (status != SQLITE_ROW && status != SQLITE_DONE) database_.Fail();
  return status == SQLITE_ROW;
}

std::string SqliteStatement::Text(int column) {
  auto const* const text = sqlite3_column_text(statement_.get(), column);
  return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

void SqliteStatement::Run() {
  Step();
  Expect(sqlite3_reset(statement_.get()));
}

SqliteDatabase::SqliteDatabase(const std::string& path) : path_(path) {
  sqlite3* handle = nullptr;
  int const status =
      sqlite3_open_v2(path.c_str(), &handle,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(handle);
  if (status != SQLITE_OK) Fail();
}

void SqliteDatabase::Execute(const std::string& text) {
  if (sqlite3_exec(handle_.get(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

std::int64_t SqliteDatabase::Integer(std::string_view query) {
  SqliteStatement statement(*this, query);
  return statement.Step() ? statement.Integer(0) : 0;
}

void SqliteDatabase::Fail() const {
  throw WriteError(path_ + " cannot be written: " + sqlite3_errmsg(handle_.get()));
}

std::string QuotedName(std::string_view name) {
  return '"' + std::string(name) + '"';
}

}  // namespace host
