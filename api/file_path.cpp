#include "api/file_path.h"

#include <cstring>
#include <string_view>

#include "api/context.h"
#include "api/path_letters.h"
#include "fields/number_text.h"

namespace qvslm {

void KeepFilePath(const char* path) {
  TranslateContext& context = *CurrentContext;
  std::string_view const text = path == nullptr ? std::string_view() : std::string_view(path);
  bool const fits = text.size() < sizeof context.FilePath;
  CopyText(context.FilePath, sizeof context.FilePath, fits ? text : std::string_view());
}

std::string_view FileNameIn(std::string_view path, bool (*leadsTwoBytes)(char)) {
  std::size_t name = 0;
  for (std::size_t at = 0; at < path.size(); ++at) {
    char const c = path[at];
    if (SeparatesFolders(c)) name = at + 1;
    if (EndsDrive(c)) name = at;
    if (leadsTwoBytes(c)) ++at;
  }
  return path.substr(name);
}

void KeepFileName(const char* path) {
  std::string_view const text = path == nullptr ? std::string_view() : std::string_view(path);
  QvEnd& end = CurrentContext->EndRecord;
  CopyText(end.FileName, sizeof end.FileName, FileNameIn(text, LeadsTwoBytes));
}

}  // namespace qvslm
