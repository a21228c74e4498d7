// Files in a SQLite database, each in one transaction.
#include <cstring>
#include <filesystem>
#include <system_error>

#include "export/export_database.h"
#include "export/fingerprint.h"
#include "export/sqlite_database.h"
#include "export/sqlite_tables.h"
#include "export/written_file.h"
#include "file_paths.h"
#include "latin1.h"
#include "plain_text.h"
#include "record_bytes.h"
#include "record_table.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// How a file is known from run to run, wherever the runs start.
std::string KnownPath(const std::string& name) {
  std::error_code fault;
  fs::path const path = fs::weakly_canonical(PathOf(name), fault);
  return PlainText(name == "-" || fault ? name : NameOf(path));
}

std::string Told(const char* text, std::size_t size) {
  return Trimmed(TextFromLatin1(text, size));
}

template <std::size_t N>
std::string Told(const char (&field)[N]) {
  return Told(field, N);
}

struct FileEntry {
  std::string path;
  std::int64_t size = 0;
  std::string sha256;
};

class SqliteFile : public RecordSink {
 public:
  SqliteFile(SqliteDatabase& database, const FileEntry& entry, const std::string& choice)
      : database_(database),
        transaction_(database),
        file_(Enter(entry, choice)),
        rows_(database, file_) {}

  void Add(const ExportedRecord& record) override {
    if (record.info.structName == "QvEnd") end_ = ReadAs<QvEnd>(record.bytes);
    rows_.Add(record);
  }

  void Finish(const Translation& translation, const WalkResult& walk) override {
    NoteIdentity(translation);
    NoteEnd(translation, walk);
    NoteCensus(translation);
    transaction_.Commit();
  }

 private:
  // Takes back what was not committed.
  class Transaction {
   public:
    explicit Transaction(SqliteDatabase& database) : database_(database) {
      database.Execute("BEGIN IMMEDIATE");
    }
    ~Transaction() {
      if (!committed_) sqlite3_exec(database_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit() {
      database_.Execute("COMMIT");
      committed_ = true;
    }

   private:
    SqliteDatabase& database_;
    bool committed_ = false;
  };

  // The number of the file; what the database had of it goes.
  std::int64_t Enter(const FileEntry& entry, const std::string& choice) {
    SqliteStatement find(database_, "SELECT id FROM files WHERE path = ?");
    find.Bind(1, entry.path);
    if (find.Step()) {
      std::int64_t const old = find.Integer(0);
      RemoveRows(database_, old);
      SqliteStatement remove(database_, "DELETE FROM files WHERE id = ?");
      remove.Bind(1, old);
      remove.Run();
    }
    SqliteStatement insert(database_,
                           "INSERT INTO files(path, size, sha256, choice) VALUES(?, ?, ?, ?)");
    insert.Bind(1, entry.path);
    insert.Bind(2, entry.size);
    insert.Bind(3, entry.sha256);
    insert.Bind(4, choice);
    insert.Run();
    return sqlite3_last_insert_rowid(database_.Handle());
  }

  void NoteIdentity(const Translation& translation) {
    const QvFileHeaderInfo& header = translation.Header();
    auto const either = [](const std::string& a, const std::string& b) {
      return a.empty() ? b : a;
    };
    SqliteStatement update(database_,
                           "UPDATE files SET model = ?, serial = ?, firmware = ?, mode = ?, "
                           "title1 = ?, title2 = ?, title3 = ? WHERE id = ?");
    std::string const serial = Told(translation.Serial(), std::strlen(translation.Serial()));
    update.Bind(1, std::int64_t{translation.Model()});
    update.Bind(2, either(serial, Told(end_.SerialText)));
    update.Bind(3, Told(header.HeaderLine3));
    update.Bind(4, Told(header.HeaderLine6));
    update.Bind(5, either(Told(end_.Title1), Told(header.TitleLine1)));
    update.Bind(6, either(Told(end_.Title2), Told(header.TitleLine2)));
    update.Bind(7, either(Told(end_.Title3), Told(header.TitleLine3)));
    update.Bind(8, file_);
    update.Run();
  }

  void NoteEnd(const Translation& translation, const WalkResult& walk) {
    const QvWalk& state = translation.State();
    bool const whole = walk.outcome == Outcome::Whole;
    SqliteStatement update(database_,
                           "UPDATE files SET whole = ?, records = ?, cut_offset = ?, why = ?, "
                           "census_status = ? WHERE id = ?");
    update.Bind(1, std::int64_t{whole ? 1 : 0});
    update.Bind(2, static_cast<std::int64_t>(walk.records));
    if (whole) {
      update.BindNull(3);
      update.BindNull(4);
    } else {
      update.Bind(3, std::int64_t{state.CutOffset >= 0 ? state.CutOffset : state.Offset});
      update.Bind(4, std::string_view(QvWalkWhy(&state)));
    }
    update.Bind(5, std::int64_t{state.CensusStatus});
    update.Bind(6, file_);
    update.Run();
  }

  void NoteCensus(const Translation& translation) {
    QvRecordCensus const census = translation.Census();
    auto const* const bytes = reinterpret_cast<const std::uint8_t*>(&census);
    for (const record_fields::FieldInfo& field : record_fields::kRecordCensusFields) {
      if (field.reserved) continue;
      SqliteStatement update(database_,
                             "UPDATE files SET " + QuotedName(field.name) + " = ? WHERE id = ?");
      update.Bind(1, std::int64_t{ReadAs<std::uint32_t>(bytes + field.offset)});
      update.Bind(2, file_);
      update.Run();
    }
  }

  SqliteDatabase& database_;
  Transaction transaction_;
  std::int64_t file_;
  SqliteRows rows_;
  QvEnd end_{};
};

class SqliteExport : public ExportDatabase {
 public:
  SqliteExport(const std::string& place, const std::string& choice)
      : place_(place), choice_(choice), made_(!fs::exists(PathOf(place))), database_(place) {
    try {
      MakeTables(database_);
    } catch (...) {
      RemoveWhereEmpty();
      throw;
    }
    // What a file changes stays in memory up to here; the rest goes to the disk before its end.
    database_.Execute("PRAGMA cache_size = -65536");
  }
  ~SqliteExport() override { RemoveWhereEmpty(); }

  bool Has(const InputFile& file) override {
    entry_ = {KnownPath(file.Name()), static_cast<std::int64_t>(file.Size()),
              Sha256OfFile(file.Path())};
    SqliteStatement find(database_,
                         "SELECT 1 FROM files WHERE path = ? AND size = ? AND sha256 = ? AND "
                         "choice = ?");
    find.Bind(1, entry_.path);
    find.Bind(2, entry_.size);
    find.Bind(3, entry_.sha256);
    find.Bind(4, choice_);
    return find.Step();
  }

  std::unique_ptr<RecordSink> Open(const InputFile& file, Translation& translation) override {
    Has(file);
    translation.LookUpSerial();
    auto sink = std::make_unique<SqliteFile>(database_, entry_, choice_);
    return sink;
  }

 private:
  void RemoveWhereEmpty() noexcept {
    try {
      if (!made_ || database_.Integer("SELECT count(*) FROM files") != 0) return;
    } catch (const WriteError&) {
      // Without a table of files it is as empty.
    }
    std::error_code ignored;
    fs::remove(PathOf(place_), ignored);
  }

  std::string place_;
  std::string choice_;
  bool made_;
  SqliteDatabase database_;
  FileEntry entry_;
};

}  // namespace

std::unique_ptr<ExportDatabase> OpenSqlite(const std::string& place, const std::string& choice) {
  if (IsDevice(place)) throw WriteError(place + " cannot be written: it is no plain file");
  return std::make_unique<SqliteExport>(place, choice);
}

}  // namespace host
