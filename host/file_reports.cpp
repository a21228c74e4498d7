#include "file_reports.h"

#include <cstdio>

#include "errors.h"
#include "jobs.h"
#include "progress.h"

namespace host {
namespace {

std::string Packed(const FileReport& report) {
  return FactsLine(Facts{{"outcome", static_cast<int>(report.outcome)}, {"facts", report.facts}});
}

FileReport Unpacked(const std::string& bytes) {
  Facts const packed = Facts::parse(bytes);
  return {static_cast<Outcome>(packed.at("outcome").get<int>()), packed.at("facts")};
}

}  // namespace

Outcome ReportFiles(const FileList& list, int jobs, const ReportCalls& calls) {
  Outcome all = list.outcome;
  RunProgress progress(list.files);
  auto const take = [&](std::size_t index, const JobResult& result) {
    WipeProgress();
    std::fputs(result.messages.c_str(), stderr);
    if (!result.finished) {
      Remark(list.files[index], "the process that read it ended before its work did");
      all = Outcome::NothingReadable;
      return true;
    }
    FileReport const report = Unpacked(result.bytes);
    all = Worse(all, report.outcome);
    return calls.show(report);
  };
  RunJobs(list.files.size(), jobs,
          {
              .work = [&](std::size_t index) { return Packed(calls.make(list.files[index])); },
              .take = take,
              .ended = [&](std::size_t index) { progress.Ended(index); },
          });
  return all;
}

}  // namespace host
