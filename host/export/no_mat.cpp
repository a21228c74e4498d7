// In place of the MAT files where libmatio is not there for the target.
#include "export/record_sink.h"
#include "export/written_file.h"

namespace host {

std::unique_ptr<RecordSink> OpenMat(const std::string&) {
  throw WriteError("this qvslm was built without libmatio: it writes no mat");
}

}  // namespace host
