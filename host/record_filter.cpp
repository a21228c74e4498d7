#include "record_filter.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>

#include "platform.h"
#include "qvslm_records.h"
#include "qvslmtranslate.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::RecordInfo;

struct Span {
  std::int64_t first = 0;  // 0 where the record has no time
  std::int64_t last = 0;
};

Span SpanOf(const RecordInfo& info, const std::uint8_t* record) {
  auto const time =
      std::find_if(info.fields.begin(), info.fields.end(),
                   [](const FieldInfo& field) { return field.kind == FieldKind::Time; });
  if (time == info.fields.end()) return {};
  std::int32_t seconds;
  std::memcpy(&seconds, record + time->offset, sizeof seconds);
  if (info.code != QV_TIME_HISTORY) return {seconds, seconds};
  QvTimeHistory history;
  std::memcpy(&history, record, sizeof history);
  // Between two of so many seconds no sample is left out by the part of one.
  double const length = history.StreamPeriod * (history.EntryCount - 1);
  return {seconds, seconds + static_cast<std::int64_t>(std::max(0.0, std::floor(length)))};
}

}  // namespace

std::int64_t SecondsOfLocal(const std::tm& clock) {
  using namespace std::chrono;
  auto const day = sys_days(year(clock.tm_year + 1900) / (clock.tm_mon + 1) / clock.tm_mday);
  std::int64_t const local =
      (day + hours(clock.tm_hour) + minutes(clock.tm_min) + seconds(clock.tm_sec))
          .time_since_epoch()
          .count();
  // A day before, the zone has the offset from which it may change on that day.
  std::int64_t const before = local - UtcOffset(local - 86400);
  if (before + UtcOffset(before) == local) return before;
  return local - UtcOffset(before);
}

RecordFilter::RecordFilter(const RecordChoice& choice)
    : hasTimes_(choice.since.has_value() || choice.until.has_value()) {
  for (std::size_t i = 0; i < wanted_.size(); ++i) {
    const auto& names = choice.records;
    wanted_[i] = names.empty() || std::find(names.begin(), names.end(),
                                            record_fields::kRecords[i].name) != names.end();
  }
  if (choice.since) since_ = SecondsOfLocal(*choice.since);
  if (choice.until) until_ = SecondsOfLocal(*choice.until);
}

bool RecordFilter::Wants(const RecordInfo& info, const std::uint8_t* record) const {
  if (!wanted_[static_cast<std::size_t>(&info - record_fields::kRecords)]) return false;
  if (!hasTimes_) return true;
  Span const span = SpanOf(info, record);
  return span.first > 0 && span.last >= since_ && span.first < until_;
}

}  // namespace host
