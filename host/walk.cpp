#include "walk.h"

#include <string>

#include "errors.h"
#include "plain_words.h"

namespace host {
namespace {

// Where a walk that was not whole ended, and why.
void ReportEnd(const InputFile& file, const QvWalk& walk, std::uint64_t records) {
  std::string what = QvWalkWhy(&walk);
  if (walk.End != QV_WALK_NOT_STARTED) {
    std::int32_t const offset = walk.CutOffset >= 0 ? walk.CutOffset : walk.Offset;
    what = "at byte " + std::to_string(offset) + ": " + what;
    if (records > 0) what = "ended after " + Counted(records, "record", "records") + ' ' + what;
  }
  if (walk.Status < 0 && walk.Status != QV_END_OF_DATA) {
    Report(file.Name(), what, walk.Status);
  } else {
    Remark(file.Name(), what);
  }
}

void ReportLeftOut(const InputFile& file, std::uint64_t leftOut) {
  Remark(file.Name(), Counted(leftOut, "record that the file does not wholly hold is",
                              "records that the file does not wholly hold are") +
                          " left out");
}

void ReportShort(const InputFile& file, std::uint64_t items) {
  Report(file.Name(),
         Counted(items, "item was", "items were") +
             " shorter than the layout; fields behind their end are zero",
         QV_RECORD_TOO_SHORT);
}

}  // namespace

std::string StatusWords(int status) {
  QvWalk walk{};
  walk.End = QV_WALK_NOT_STARTED;
  walk.Status = status;
  return QvWalkWhy(&walk);
}

WalkResult Walk(Translation& translation, const InputFile& file, const WalkOptions& options,
                Progress& progress, const std::function<bool()>& visit) {
  WalkResult result;
  std::uint64_t leftOut = 0;
  std::uint64_t shortItems = 0;
  const QvWalk& walk = translation.State();
  result.header = translation.ReadHeader();
  if (options.census) progress.Counting();
  translation.Open(options.census);
  progress.SetTotal(file.Size());
  while (!result.stopped && translation.Next()) {
    progress.Show(translation.Offset());
    if (walk.Whole == 0 && !options.cut) {
      ++leftOut;
      continue;
    }
    if (walk.Short != 0) ++shortItems;
    ++result.records;
    result.stopped = !visit();
  }
  WipeProgress();
  if (!result.stopped && !QvWalkWasWhole(&walk)) {
    ReportEnd(file, walk, result.records);
    result.outcome = walk.Records == 0 ? Outcome::NothingReadable : Outcome::EndedEarly;
  }
  if (leftOut > 0) ReportLeftOut(file, leftOut);
  if (shortItems > 0) ReportShort(file, shortItems);
  return result;
}

}  // namespace host
