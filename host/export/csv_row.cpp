#include "export/csv_row.h"

#include <algorithm>

#include "record_bytes.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;

constexpr std::string_view kLineEnd = "\r\n";

std::string WithUnit(const std::string& name, std::string_view unit) {
  return unit.empty() ? name : name + " (" + std::string(unit) + ')';
}

std::string ColumnHeading(const Column& column) {
  return WithUnit(column.name, column.clock ? "" : UnitOf(*column.field));
}

std::string Joined(const std::vector<std::string>& headings, const CsvValues& values) {
  std::string line;
  for (const std::string& heading : headings)
    line += values.Quoted(heading) + values.Style().separator;
  line.pop_back();
  return line.append(kLineEnd);
}

// The indices of an element, [2][1], as two columns.
std::string Indices(const Column& column, char separator) {
  std::string text = column.name;
  text.erase(0, std::min(text.find('['), text.size()));
  std::size_t const second = text.find("][");
  if (second != std::string::npos) text.replace(second, 2, 1, separator);
  bool const two = second != std::string::npos;
  std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
  if (!two) text += separator;
  return text;
}

// The closing separator gives way to the end of the line.
char* EndLine(char* at) {
  return std::copy(kLineEnd.begin(), kLineEnd.end(), at - 1);
}

}  // namespace

CsvRow::CsvRow(const record_fields::RecordInfo& info, bool longTables, CsvValues& values)
    : longTables_(longTables), values_(values), time_(TimeField(info)), columns_(ColumnsOf(info)) {
  for (const Column& column : columns_) AddStep(column);
  constexpr std::size_t keys = 4;
  most_ += keys * CsvValues::kMost;
}

void CsvRow::AddStep(const Column& column) {
  const FieldInfo& field = *column.field;
  bool const bytes = field.type == FieldType::U8 && field.count != 0 && !longTables_;
  if (bytes && !steps_.empty() && steps_.back().field == &field) {
    ++steps_.back().bytes;
  } else {
    Step step{&field, column.offset, bytes ? 1U : 0U, column.clock, field.kind == FieldKind::Level,
              ""};
    if (longTables_) {
      char const separator = values_.Style().separator;
      step.before.append(field.name).append(column.clock ? "Local" : "");
      step.before += separator + Indices(column, separator) + separator;
      step.before += values_.Quoted(column.clock ? "" : UnitOf(field));
      step.before += separator;
      constexpr std::size_t keys = 4;
      most_ += keys * CsvValues::kMost + step.before.size() + kLineEnd.size();
    }
    steps_.push_back(step);
  }
  constexpr std::size_t perCharacter = 7;
  most_ += CsvValues::kMost + (field.type == FieldType::Char ? perCharacter * field.count : 0);
}

std::string CsvRow::Heading() const {
  if (longTables_) {
    return Joined({"Record", "Short", "RecordTime (s since 1970 UTC)", "RecordTimeLocal", "Field",
                   "Index", "Index2", "Unit", "Value"},
                  values_);
  }
  std::vector<std::string> headings = {"Record", "Short"};
  for (const Column& column : columns_) headings.push_back(ColumnHeading(column));
  return Joined(headings, values_);
}

void CsvRow::Write(WrittenFile& file, const ExportedRecord& record) {
  char* at = file.Room(most_);
  const char* const keys = at;
  at = PutKeys(at, record);
  if (!longTables_) {
    for (const Step& step : steps_) at = PutStep(at, step, record.bytes);
    file.Used(EndLine(at));
    return;
  }
  char* const endOfKeys = at;
  bool first = true;
  for (const Step& step : steps_) {
    if (!first) at = std::copy(keys, static_cast<const char*>(endOfKeys), at);
    first = false;
    at = std::copy(step.before.begin(), step.before.end(), at);
    at = EndLine(PutStep(at, step, record.bytes));
  }
  file.Used(at);
}

// What stands at the head of each row.
char* CsvRow::PutKeys(char* at, const ExportedRecord& record) {
  at = values_.PutWhole(at, static_cast<std::int64_t>(record.number));
  at = values_.PutWhole(at, record.shortItem ? 1 : 0);
  if (!longTables_) return at;
  if (time_ == nullptr) {
    *at++ = values_.Style().separator;
    *at++ = values_.Style().separator;
    return at;
  }
  auto const seconds = ReadAs<std::int32_t>(record.bytes + time_->offset);
  return values_.PutClock(values_.PutWhole(at, seconds), seconds);
}

char* CsvRow::PutStep(char* at, const Step& step, const std::uint8_t* record) {
  const std::uint8_t* const bytes = record + step.offset;
  if (step.bytes != 0) return values_.PutBytes(at, bytes, step.bytes);
  if (step.clock) return values_.PutClock(at, ReadAs<std::int32_t>(bytes));
  switch (step.field->type) {
    case FieldType::F32:
      return values_.PutFloat(at, ReadAs<float>(bytes), step.level);
    case FieldType::Char:
      return values_.PutLatin1(at, bytes, step.field->count);
    default:
      return values_.PutWhole(at, ReadWhole(step.field->type, bytes));
  }
}

}  // namespace host
