#include "walk.h"

#include "errors.h"
#include "movement.h"

namespace host {
namespace {

// The census counts what a translation will deliver, up to where the file is cut. Not so on model
// 431, whose census reads on behind a results block in its own way.
bool IsCensusReliable(const Translation& translation, int status) {
  constexpr int model431 = 431;
  const QvRecordCensus& census = translation.Census();
  bool const results = census.ResultsBlocks + census.ResultsBlocksMode0 > 0;
  return (status == QV_OK || status == QV_BAD_LENGTH) &&
         !(translation.Model() == model431 && results);
}

void ReportEnd(const InputFile& file, const WalkResult& result, const std::string& what,
               int status) {
  std::string const count = std::to_string(result.records);
  Report(file.Name(),
         result.records == 0
             ? what
             : "ended after " + count + (result.records == 1 ? " record: " : " records: ") + what,
         status);
}

}  // namespace

WalkResult Walk(Translation& translation, const InputFile& file, const WalkOptions& options,
                Progress& progress, const std::function<bool(bool isShort)>& visit) {
  WalkResult result;
  Movement movement(file);
  result.header = translation.ReadHeader();
  if (options.census) {
    progress.Counting();
    result.census = translation.Count();
    progress.SetTotal(TotalCount(translation.Census()));
    if (IsCensusReliable(translation, result.census)) movement.TrustCensus(translation.Census());
  }

  auto const endEarly = [&](const std::string& what, int status) {
    progress.Wipe();
    ReportEnd(file, result, what, status);
    result.outcome = result.records == 0 ? Outcome::NothingReadable : Outcome::EndedEarly;
    return result;
  };

  int status = translation.Start();
  if (status != QV_OK && status != QV_NO_TEXT_HEADER) return endEarly(WhatStartMet(status), status);
  for (;;) {
    status = translation.Next();
    bool const atEnd = status == QV_END_OF_DATA;
    bool const isShort = status == QV_RECORD_TOO_SHORT;
    if (status < 0 && !atEnd && !isShort) return endEarly(WhatWalkMet(status), status);
    if (!atEnd && movement.HasStopped(translation.Record())) {
      return endEarly(
          "the file does not move forward any more: a list or stream without its end, or an item "
          "that its mode knows no record for",
          status);
    }
    if (isShort) ++result.shortItems;
    if (translation.Code() != QV_NO_RECORD) {
      ++result.records;
      progress.Advance(CountedAs(translation.Record()));
      if (!visit(isShort)) {
        result.stopped = true;
        break;
      }
    }
    if (atEnd) break;
  }
  progress.Wipe();
  if (result.shortItems > 0) {
    Report(file.Name(),
           std::to_string(result.shortItems) +
               (result.shortItems == 1 ? " item was" : " items were") +
               " shorter than the layout; fields behind their end are zero",
           QV_RECORD_TOO_SHORT);
  }
  return result;
}

}  // namespace host
