// The records of a file as JSON, one object a line.
#include "export/new_file.h"
#include "export/record_sink.h"
#include "record_json.h"

namespace host {
namespace {

class JsonLines : public RecordSink {
 public:
  explicit JsonLines(const std::filesystem::path& place) : file_(place) {}

  void Add(const ExportedRecord& record) override {
    JsonMarks const marks = {.shortItem = record.shortItem, .cut = false, .file = {}};
    char* at = file_.Room(json_.Most(record.info, marks) + 1);
    at = json_.Put(at, record.info, record.bytes, marks);
    *at++ = '\n';
    file_.Used(at);
  }

  void Finish(const Translation&, const WalkResult&) override { file_.Keep(); }

 private:
  NewFile file_;
  RecordJson json_;
};

}  // namespace

std::unique_ptr<RecordSink> OpenJsonLines(const std::filesystem::path& place) {
  return std::make_unique<JsonLines>(place);
}

}  // namespace host
