// In place of the database where SQLite is not there for the target.
#include "export/export_database.h"
#include "export/written_file.h"

namespace host {

std::unique_ptr<ExportDatabase> OpenSqlite(const std::string&, const std::string&) {
  throw WriteError("this qvslm was built without SQLite: it writes no databases");
}

}  // namespace host
