// Where the exports of files go.
#pragma once

#include <string>
#include <vector>

#include "export.h"

namespace host {

// The format that was asked for, or that the ending of the place tells: .jsonl, .sqlite, .db, .xlsx,
// .mat; csv for a place without an ending. Throws WrongUsage.
ExportFormat FormatOf(const ExportOptions& options);

// A place for each file. One file alone that is no folder's goes to the place itself, or into it
// where it is a folder of files; several go into it as a folder, each under its name. Files of the
// same name go into folders as they came from. Throws WrongUsage where two would go to one place.
std::vector<std::string> PlacesOf(const std::vector<std::string>& files,
                                  const ExportOptions& options, ExportFormat format);

// Makes the folders above a place. Throws WriteError.
void MakeFoldersFor(const std::string& place);

}  // namespace host
