// In place of the workbooks where libxlsxwriter is not there for the target.
#include "export/record_sink.h"
#include "export/written_file.h"

namespace host {

std::unique_ptr<RecordSink> OpenXlsx(const std::string&) {
  throw WriteError("this qvslm was built without libxlsxwriter: it writes no xlsx");
}

}  // namespace host
