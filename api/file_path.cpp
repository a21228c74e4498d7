#include "api/file_path.h"

#include <cstring>
#include <string_view>

#include "api/context.h"
#include "api/platform.h"
#include "fields/number_text.h"

namespace qvslm {

void KeepFilePath(const char* path) {
  TranslateContext& context = *CurrentContext;
  std::string_view const text = path == nullptr ? std::string_view() : std::string_view(path);
  bool const fits = text.size() < sizeof context.FilePath;
  CopyText(context.FilePath, sizeof context.FilePath, fits ? text : std::string_view());
}

void KeepFileName(const char* path) {
  std::string_view name = path == nullptr ? std::string_view() : std::string_view(path);
  for (std::size_t at = name.size(); at > 0; --at) {
    char const c = name[at - 1];
    if (!SeparatesFolders(c) && !EndsDrive(c)) continue;
    name.remove_prefix(EndsDrive(c) ? at - 1 : at);
    break;
  }
  QvEnd& end = CurrentContext->EndRecord;
  CopyText(end.FileName, sizeof end.FileName, name);
}

}  // namespace qvslm
