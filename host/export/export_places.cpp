#include "export/export_places.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "arguments.h"
#include "export/written_file.h"
#include "file_paths.h"

namespace host {
namespace {

namespace fs = std::filesystem;

const char* EndingOf(ExportFormat format) {
  switch (format) {
    case ExportFormat::JsonLines:
      return ".jsonl";
    case ExportFormat::Sqlite:
      return ".sqlite";
    case ExportFormat::Xlsx:
      return ".xlsx";
    case ExportFormat::Mat:
      return ".mat";
    case ExportFormat::Csv:
    case ExportFormat::ByEnding:
      break;
  }
  return "";
}

// Without the slash of a folder's name.
fs::path Plain(const std::string& place) {
  fs::path const path = PathOf(place).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

fs::path Named(const std::string& file) {
  return file == "-" ? fs::path("stdin") : fs::absolute(PathOf(file)).lexically_normal();
}

// The folder that all files are in, however deep.
fs::path FolderOfAll(const std::vector<std::string>& files) {
  fs::path common = Named(files.front()).parent_path();
  for (const std::string& file : files) {
    fs::path const folder = Named(file).parent_path();
    auto const differ = std::mismatch(common.begin(), common.end(), folder.begin(), folder.end());
    fs::path shared;
    for (auto part = common.begin(); part != differ.first; ++part) shared /= *part;
    common = shared;
  }
  return common;
}

}  // namespace

ExportFormat FormatOf(const ExportOptions& options) {
  if (options.format != ExportFormat::ByEnding) return options.format;
  std::string const ending = NameOf(Plain(options.place).extension());
  if (ending.empty() || fs::is_directory(PathOf(options.place))) return ExportFormat::Csv;
  if (ending == ".jsonl") return ExportFormat::JsonLines;
  if (ending == ".sqlite" || ending == ".db") return ExportFormat::Sqlite;
  if (ending == ".xlsx") return ExportFormat::Xlsx;
  if (ending == ".mat") return ExportFormat::Mat;
  if (ending == ".csv") {
    throw WrongUsage("--to: csv makes a folder with a table for each kind of record: name one");
  }
  throw WrongUsage("--to: the ending " + ending + " tells no format; --format does");
}

std::vector<std::string> PlacesOf(const std::vector<std::string>& files,
                                  const ExportOptions& options, ExportFormat format) {
  fs::path const place = Plain(options.place);
  std::string const ending = EndingOf(format);
  const std::vector<std::string>& names = options.sources.names;
  bool const one = names.size() == 1 && !fs::is_directory(PathOf(names.front()));
  bool const intoFolder = !one || (format != ExportFormat::Csv && fs::is_directory(place));
  if (!intoFolder) return {NameOf(place)};
  if (!ending.empty() && place.extension() == ending) {
    throw WrongUsage("--to: several files make several " + ending +
                     ": name a folder, and --format");
  }

  fs::path const common = FolderOfAll(files);
  std::vector<std::string> places;
  std::map<std::string, int> alike;
  for (const std::string& file : files) {
    fs::path const inside = Named(file).lexically_relative(common);
    places.push_back(NameOf(place / inside));
    ++alike[NameOf((place / inside).replace_extension())];
  }
  std::map<std::string, std::string> taken;
  for (std::size_t i = 0; i < places.size(); ++i) {
    // Two files whose names differ by their endings alone keep them.
    std::string const shorter = NameOf(PathOf(places[i]).replace_extension());
    places[i] = (alike[shorter] == 1 ? shorter : places[i]) + ending;
    if (!taken.emplace(places[i], files[i]).second) {
      throw WrongUsage(files[i] + " is given twice");
    }
  }
  return places;
}

void MakeFoldersFor(const std::string& place) {
  std::error_code fault;
  fs::path const folder = PathOf(place).parent_path();
  if (!folder.empty()) fs::create_directories(folder, fault);
  if (fault) {
    throw WriteError(NameOf(folder) + " cannot be made: " + fault.message());
  }
}

}  // namespace host
