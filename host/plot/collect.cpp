#include "plot/collect.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include "errors.h"
#include "export/sample_table.h"
#include "latin1.h"
#include "plain_words.h"
#include "plot/drawn_fields.h"
#include "record_bytes.h"
#include "record_filter.h"
#include "walk.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

using Visit = std::function<void(const Translation& translation, const RecordInfo& info)>;

// Walks through all files. The title of a picture of one file is that file's.
Outcome WalkFiles(const FileList& list, const Visit& visit, std::string& title) {
  Outcome all = list.outcome;
  RunProgress progress(list.files);
  for (std::size_t i = 0; i < list.files.size(); ++i) {
    try {
      InputFile const file(list.files[i]);
      Translation translation(file);
      Progress fileProgress(list.files[i]);
      auto const see = [&] {
        const RecordInfo* const info = translation.Info();
        if (info != nullptr) visit(translation, *info);
        if (translation.State().Code == QV_END) {
          auto const end = translation.As<QvEnd>();
          title = Trimmed(TextFromLatin1(end.Title1, sizeof end.Title1));
        }
        return true;
      };
      all = Worse(all, Walk(translation, file, {}, fileProgress, see).outcome);
    } catch (const FileError& fault) {
      Report(list.files[i], fault.what(), fault.Code());
      all = Outcome::NothingReadable;
    }
    progress.Ended(i);
  }
  if (list.files.size() > 1) {
    title = Counted(list.files.size(), "file", "files");
  } else {
    title = title.empty() ? list.files.front() : title + " (" + list.files.front() + ")";
  }
  return all;
}

// Empty for a level without a value and a number that is none.
std::optional<double> NumberOf(const FieldInfo& field, const std::uint8_t* bytes) {
  if (field.type != FieldType::F32) return static_cast<double>(ReadWhole(field.type, bytes));
  auto const value = ReadAs<float>(bytes);
  if (!std::isfinite(value) || (field.kind == FieldKind::Level && value == QV_NO_LEVEL)) return {};
  return value;
}

const FieldInfo* FieldNamed(const RecordInfo& info, std::string_view name) {
  auto const found = std::find_if(info.fields.begin(), info.fields.end(),
                                  [&](const FieldInfo& field) { return field.name == name; });
  return found == info.fields.end() ? nullptr : &*found;
}

std::int32_t TimeOf(const RecordInfo& info, const std::uint8_t* record) {
  auto const time =
      std::find_if(info.fields.begin(), info.fields.end(),
                   [](const FieldInfo& field) { return field.kind == FieldKind::Time; });
  return time == info.fields.end() ? 0 : ReadAs<std::int32_t>(record + time->offset);
}

double SecondsIn(const RecordInfo& info, const std::uint8_t* record, std::string_view name) {
  const FieldInfo* const field = FieldNamed(info, name);
  return field == nullptr ? 0 : NumberOf(*field, record + field->offset).value_or(0);
}

std::string UnitOfField(const FieldInfo& field) {
  switch (field.kind) {
    case FieldKind::Level:
    case FieldKind::Decibels:
      return "dB";
    case FieldKind::Percent:
      return "%";
    case FieldKind::Seconds:
      return "s";
    default:
      return "";
  }
}

// One curve of the picture and what of each record goes to it.
class LevelSource {
 public:
  LevelSource(const DrawnField& drawn, const RecordChoice& choice) : drawn_(drawn) {
    if (choice.since) since_ = static_cast<double>(SecondsOfLocal(*choice.since));
    if (choice.until) until_ = static_cast<double>(SecondsOfLocal(*choice.until));
  }

  void Add(const RecordInfo& info, const std::uint8_t* record, Curve& curve) {
    if (&info != drawn_.record) return;
    if (info.code == QV_TIME_HISTORY && drawn_.field->count > 0) {
      AddSamples(record, curve);
      return;
    }
    std::int32_t const time = TimeOf(info, record);
    std::optional<double> const value = NumberOf(*drawn_.field, record + drawn_.field->offset);
    // A marker among the entries of a field history is no level.
    bool const isMarker = info.code == QV_FIELD_HISTORY && value.value_or(0) < 0;
    if (time <= 0 || !value || isMarker) return;
    if (info.code == QV_LEVEL_MARK) {
      curve.AddMoment(time, *value);
    } else if (info.code == QV_FIELD_HISTORY) {
      AddEntry(time, SecondsIn(info, record, "StreamPeriod"), *value, curve);
    } else {
      curve.AddSpan(time, time + SecondsIn(info, record, "Duration"), *value);
    }
  }

 private:
  void AddSamples(const std::uint8_t* record, Curve& curve) {
    series_.Take(record);
    double const period = ReadAs<QvTimeHistory>(record).StreamPeriod;
    bool const isFirst = drawn_.field->name == "FirstLevels";
    for (const Sample& sample : series_.Samples()) {
      float const level = isFirst ? sample.first : sample.second;
      if (level != QV_NO_LEVEL) AddSample(sample.time, period, level, curve);
    }
  }

  // Entries tell their whole second alone.
  void AddEntry(std::int32_t time, double period, double value, Curve& curve) {
    double const next = lastEntry_ + period;
    lastEntry_ = std::floor(next) == time ? next : time;
    AddSample(lastEntry_, period, value, curve);
  }

  // A sample is drawn at its time, and a gap where the next does not follow.
  void AddSample(double time, double period, double value, Curve& curve) const {
    if (time >= since_ && time < until_) curve.AddSpan(time, time + period, value);
  }

  DrawnField drawn_;
  double since_ = 0;
  double until_ = std::numeric_limits<double>::max();
  SampleSeries series_;
  double lastEntry_ = 0;
};

CurveStyle StyleOf(const RecordInfo& info) {
  switch (info.code) {
    case QV_TIME_HISTORY:
    case QV_FIELD_HISTORY:
      return CurveStyle::Samples;
    case QV_LEVEL_MARK:
      return CurveStyle::Points;
    default:
      return CurveStyle::Line;
  }
}

void NoteRunMark(const Translation& translation, LevelPicture& picture) {
  constexpr int runStart = 64;
  constexpr int runEnd = 0;
  if (translation.State().Code != QV_EVENT) return;
  auto const event = translation.As<QvEvent>();
  bool const isMark = event.EventCode == runStart || event.EventCode == runEnd;
  if (isMark && event.RecordTime > 0) {
    picture.marks.push_back({static_cast<double>(event.RecordTime), event.EventCode == runStart});
  }
}

}  // namespace

Outcome CollectLevels(const FileList& list, const PlotOptions& options, LevelPicture& picture) {
  std::vector<LevelSource> sources;
  for (const DrawnField& drawn : LevelFields(options)) {
    sources.emplace_back(drawn, options.choice);
    picture.curves.push_back(
        {std::string(drawn.record->name) + ' ' + std::string(drawn.field->name),
         StyleOf(*drawn.record),
         {}});
    picture.unit = UnitOfField(*drawn.field);
  }
  RecordChoice times = options.choice;
  times.records.clear();
  RecordFilter const filter(times);
  auto const visit = [&](const Translation& translation, const RecordInfo& info) {
    if (!filter.Wants(info, translation.Record())) return;
    NoteRunMark(translation, picture);
    for (std::size_t i = 0; i < sources.size(); ++i) {
      sources[i].Add(info, translation.Record(), picture.curves[i].curve);
    }
  };
  Outcome const outcome = WalkFiles(list, visit, picture.title);
  std::erase_if(picture.curves, [](const NamedCurve& one) { return one.curve.Empty(); });
  return outcome;
}

Outcome CollectSpectrum(const FileList& list, const PlotOptions& options,
                        SpectrumPicture& picture) {
  std::vector<DrawnField> const fields = BandFields(options);
  RecordFilter const filter(options.choice);
  std::vector<SpectrumPicture> found(fields.size());
  auto const add = [](SpectrumPicture& spectrum, const FieldInfo& field,
                      const std::uint8_t* record) {
    ++spectrum.records;
    spectrum.bands.resize(field.count);
    for (std::size_t i = 0; i < field.count; ++i) {
      auto const value = NumberOf(field, record + field.offset + i * sizeof(float));
      // 0 stands where a spectrum has no such band.
      if (!value || *value == 0) continue;
      SpectrumPicture::Band& band = spectrum.bands[i];
      band.low = band.count == 0 ? *value : std::min(band.low, *value);
      band.high = band.count == 0 ? *value : std::max(band.high, *value);
      band.energy += std::pow(10, *value / 10);
      ++band.count;
    }
  };
  auto const visit = [&](const Translation& translation, const RecordInfo& info) {
    if (!filter.Wants(info, translation.Record())) return;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i].record == &info) add(found[i], *fields[i].field, translation.Record());
    }
  };
  std::string title;
  Outcome const outcome = WalkFiles(list, visit, title);
  // The kind of which there are most.
  auto const most = std::max_element(
      found.begin(), found.end(),
      [](const SpectrumPicture& a, const SpectrumPicture& b) { return a.records < b.records; });
  picture = *most;
  const DrawnField& drawn = fields[static_cast<std::size_t>(most - found.begin())];
  picture.name = std::string(drawn.record->name) + ' ' + std::string(drawn.field->name);
  picture.title = title;
  return outcome;
}

}  // namespace host
