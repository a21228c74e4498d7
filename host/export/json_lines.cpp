// The records of a file as JSON, one object a line.
#include "export/record_sink.h"
#include "export/written_file.h"
#include "record_json.h"
#include "temporary.h"

namespace host {
namespace {

class JsonLines : public RecordSink {
 public:
  explicit JsonLines(const std::string& place)
      : file_(IsDevice(place) ? Temporary() : Temporary::FileBeside(place), place) {}

  void Add(const ExportedRecord& record) override {
    JsonMarks const marks = {.shortItem = record.shortItem, .cut = false, .file = {}};
    char* at = file_.Room(json_.Most(record.info, marks) + 1);
    at = json_.Put(at, record.info, record.bytes, marks);
    *at++ = '\n';
    file_.Used(at);
  }

  void Finish(const Translation&, const WalkResult&) override { file_.Keep(); }

 private:
  WrittenFile file_;
  RecordJson json_;
};

}  // namespace

std::unique_ptr<RecordSink> OpenJsonLines(const std::string& place) {
  return std::make_unique<JsonLines>(place);
}

}  // namespace host
