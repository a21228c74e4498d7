#include "plot/drawn_fields.h"

#include <algorithm>
#include <string_view>

#include "arguments.h"
#include "record_table.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

struct Choice {
  std::string_view record;
  std::string_view field;
};
// Without a wish: the records that are levels over time, and the field of each, from back to front.
constexpr Choice usual[] = {
    {"TimeHistory", "FirstLevels"}, {"FieldHistory", "Level"}, {"Interval", "LevelA"},
    {"BandInterval", "Overall1"},   {"LevelMark", "Level"},
};

bool IsDecibels(const FieldInfo& field) {
  return field.kind == FieldKind::Level || field.kind == FieldKind::Decibels;
}

bool IsBands(const FieldInfo& field) {
  constexpr std::size_t fewest = 10;
  return field.type == FieldType::F32 && IsDecibels(field) && field.rows == 0 &&
         field.count >= fewest;
}

bool IsNumber(const FieldInfo& field) {
  return field.count == 0 && field.rows == 0 && field.type != FieldType::Char && !field.reserved;
}

bool IsLevelOverTime(const RecordInfo& record, const FieldInfo& field) {
  bool const isStream =
      record.name == "TimeHistory" && (field.name == "FirstLevels" || field.name == "SecondLevels");
  return isStream || IsNumber(field);
}

bool HasTime(const RecordInfo& record) {
  return std::any_of(record.fields.begin(), record.fields.end(),
                     [](const FieldInfo& field) { return field.kind == FieldKind::Time; });
}

bool IsChosen(const RecordInfo& record, const PlotOptions& options) {
  const auto& names = options.choice.records;
  return record.code != 0 &&
         (names.empty() || std::find(names.begin(), names.end(), record.name) != names.end());
}

std::size_t UsualPlace(const RecordInfo& record) {
  auto const found = std::find_if(std::begin(usual), std::end(usual),
                                  [&](const Choice& one) { return one.record == record.name; });
  return static_cast<std::size_t>(found - std::begin(usual));
}

// The field that tells most: the usual one, else the first of decibels.
const FieldInfo* UsualField(const RecordInfo& record) {
  std::size_t const place = UsualPlace(record);
  for (const FieldInfo& field : record.fields) {
    bool const isIt = place == std::size(usual) ? IsNumber(field) && IsDecibels(field)
                                                : field.name == usual[place].field;
    if (isIt) return &field;
  }
  return nullptr;
}

bool IsUsual(const RecordInfo& record) {
  return UsualPlace(record) < std::size(usual);
}

[[noreturn]] void Refuse(const PlotOptions& options, const std::string& what) {
  throw WrongUsage(
      options.field.empty()
          ? "--records: none of these records has " + what
          : "--field: \"" + options.field + "\" is not the name of " + what +
                (options.choice.records.empty() ? " in any record" : " in these records"));
}

}  // namespace

std::vector<DrawnField> LevelFields(const PlotOptions& options) {
  std::vector<DrawnField> drawn;
  for (const RecordInfo& record : record_fields::kRecords) {
    if (!IsChosen(record, options) || !HasTime(record)) continue;
    if (options.field.empty()) {
      if (options.choice.records.empty() && !IsUsual(record)) continue;
      const FieldInfo* const field = UsualField(record);
      if (field != nullptr) drawn.push_back({&record, field});
      continue;
    }
    for (const FieldInfo& field : record.fields) {
      if (field.name == options.field && IsLevelOverTime(record, field)) {
        drawn.push_back({&record, &field});
      }
    }
  }
  if (drawn.empty()) Refuse(options, "a number over time");
  // What is drawn first stays behind the rest.
  std::stable_sort(drawn.begin(), drawn.end(), [](const DrawnField& a, const DrawnField& b) {
    return UsualPlace(*a.record) < UsualPlace(*b.record);
  });
  return drawn;
}

std::vector<DrawnField> BandFields(const PlotOptions& options) {
  std::vector<DrawnField> drawn;
  for (const RecordInfo& record : record_fields::kRecords) {
    if (!IsChosen(record, options) || record.name == "TimeHistory") continue;
    for (const FieldInfo& field : record.fields) {
      bool const isWanted = options.field.empty() || field.name == options.field;
      if (isWanted && IsBands(field) && field.name.find("Octaves") == std::string_view::npos) {
        drawn.push_back({&record, &field});
        if (options.field.empty()) break;
      }
    }
  }
  if (drawn.empty()) Refuse(options, "bands");
  return drawn;
}

}  // namespace host
