// The records of a file as variables for MATLAB and Octave: a struct array a record name.
#include <matio.h>

#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <vector>

#include "clock_text.h"
#include "decimal_text.h"
#include "export/field_columns.h"
#include "export/record_sink.h"
#include "export/sample_table.h"
#include "export/written_file.h"
#include "qvslm_records.h"
#include "record_bytes.h"
#include "record_table.h"
#include "temporary.h"

namespace host {
namespace {

using record_fields::ElementSize;
using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;
using record_fields::RecordInfo;

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kHeaderSize = 128;

// A struct array holds each value as a variable of its own: so many take about a gigabyte while
// they are written, and as much where they are read.
constexpr std::size_t kMostValues = 3000000;

struct Freer {
  void operator()(matvar_t* variable) const { Mat_VarFree(variable); }
};
using Variable = std::unique_ptr<matvar_t, Freer>;

struct Closer {
  void operator()(mat_t* file) const { Mat_Close(file); }
};

Variable NewMatrix(const char* name, std::size_t rows, std::size_t columns,
                   const std::vector<double>& values) {
  std::array<std::size_t, 2> dimensions = {rows, columns};
  return Variable(Mat_VarCreate(name, MAT_C_DOUBLE, MAT_T_DOUBLE, 2, dimensions.data(),
                                const_cast<double*>(values.data()), 0));
}

Variable NewBytes(const std::uint8_t* bytes, std::size_t count) {
  std::array<std::size_t, 2> dimensions = {1, count};
  return Variable(Mat_VarCreate(nullptr, MAT_C_UINT8, MAT_T_UINT8, 2, dimensions.data(),
                                const_cast<std::uint8_t*>(bytes), 0));
}

// Latin-1 is the beginning of Unicode.
Variable NewText(const std::uint8_t* text, std::size_t size) {
  std::vector<std::uint16_t> units;
  for (std::size_t i = 0; i < size && text[i] != 0; ++i) units.push_back(text[i]);
  std::array<std::size_t, 2> dimensions = {units.empty() ? 0U : 1U, units.size()};
  units.resize(units.size() + 1);  // an empty text has an address, too
  return Variable(
      Mat_VarCreate(nullptr, MAT_C_CHAR, MAT_T_UTF16, 2, dimensions.data(), units.data(), 0));
}

Variable NewText(std::string_view text) {
  return NewText(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

// A row of texts; it owns them.
Variable NewCells(const std::vector<matvar_t*>& texts) {
  std::array<std::size_t, 2> dimensions = {1, texts.size()};
  return Variable(Mat_VarCreate(nullptr, MAT_C_CELL, MAT_T_CELL, 2, dimensions.data(),
                                const_cast<matvar_t**>(texts.data()), 0));
}

Variable NewStruct(const char* name, std::size_t count, const std::vector<std::string>& fields) {
  std::vector<const char*> names;
  names.reserve(fields.size());
  for (const std::string& field : fields) names.push_back(field.c_str());
  std::array<std::size_t, 2> dimensions = {1, count};
  return Variable(Mat_VarCreateStruct(name, 2, dimensions.data(), names.data(),
                                      static_cast<unsigned>(names.size())));
}

// The struct owns the value from then on.
void Set(const Variable& record, std::size_t field, std::size_t index, Variable value) {
  Mat_VarSetStructFieldByIndex(record.get(), field, index, value.release());
}

bool IsRawBytes(const FieldInfo& field) {
  constexpr std::size_t longArray = 16;
  return field.type == FieldType::U8 && field.kind == FieldKind::Plain && field.count >= longArray;
}

// One member of the structs of a record.
struct Member {
  const FieldInfo* field;
  bool clock;
};

struct Kind {
  std::vector<std::uint8_t> bytes;  // of all its records
  std::vector<double> numbers;
  std::vector<double> shorts;
};

class MatStructs : public RecordSink {
 public:
  explicit MatStructs(const std::string& place)
      : place_(place), part_(PlainFileBeside(place)), kinds_(std::size(record_fields::kRecords)) {}

  void Add(const ExportedRecord& record) override {
    Kind& kind = kinds_[static_cast<std::size_t>(&record.info - record_fields::kRecords)];
    kind.bytes.insert(kind.bytes.end(), record.bytes, record.bytes + record.info.size);
    kind.numbers.push_back(static_cast<double>(record.number));
    kind.shorts.push_back(record.shortItem ? 1 : 0);
    if (kind.numbers.size() * record.info.fields.size() > kMostValues) {
      throw WriteError(place_ + ": there are more records of " + std::string(record.info.name) +
                       " than a struct array does for: export to csv or sqlite, or choose less "
                       "of the file by --records, --since and --until");
    }
    if (record.info.structName == "QvTimeHistory") AddSamples(record);
  }

  void Finish(const Translation&, const WalkResult&) override {
    file_.reset(
        Mat_CreateVer(part_.Path().c_str(), "MATLAB 5.0 MAT-file, written by qvslm", MAT_FT_MAT5));
    if (!file_) FailToWrite(place_);
    for (const RecordInfo& info : record_fields::kRecords) {
      Kind& kind = kinds_[static_cast<std::size_t>(&info - record_fields::kRecords)];
      if (kind.numbers.empty()) continue;
      WriteKind(info, kind);
      kind = {};
    }
    WriteSeries();
    WriteUnits();
    Mat_Close(file_.release());
    if (!IsWhole())
      throw WriteError(place_ + " cannot be written: the file system took only a part");
    part_.MoveTo(place_);
  }

 private:
  void AddSamples(const ExportedRecord& record) {
    series_.Take(record.bytes);
    for (const Sample& sample : series_.Samples()) {
      sampleTimes_.push_back(sample.time);
      firstLevels_.push_back(ValueOf(sample.first, false));
      secondLevels_.push_back(ValueOf(sample.second, true));
    }
    for (const Marker& marker : series_.Markers()) {
      markerTimes_.push_back(marker.time);
      markerCodes_.push_back(marker.code);
      markerDetails_.push_back(marker.detail);
    }
  }

  void Write(const Variable& variable) {
    if (Mat_VarWrite(file_.get(), variable.get(), MAT_COMPRESSION_ZLIB) != 0) {
      throw WriteError(place_ + " cannot be written: its variable " + variable->name + " failed");
    }
    ++variables_;
  }

  void WriteKind(const RecordInfo& info, const Kind& kind) {
    std::vector<Member> members;
    std::vector<std::string> names = {"Record", "Short"};
    for (const FieldInfo& field : info.fields) {
      if (field.reserved || field.offset == 0) continue;
      members.push_back({&field, false});
      names.emplace_back(field.name);
      if (field.kind != FieldKind::Time) continue;
      members.push_back({&field, true});
      names.push_back(std::string(field.name) + "Local");
    }
    std::size_t const count = kind.numbers.size();
    Variable const records = NewStruct(std::string(info.name).c_str(), count, names);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint8_t* const record = kind.bytes.data() + i * info.size;
      Set(records, 0, i, NewMatrix(nullptr, 1, 1, {kind.numbers[i]}));
      Set(records, 1, i, NewMatrix(nullptr, 1, 1, {kind.shorts[i]}));
      std::size_t at = 2;
      for (const Member& member : members) Set(records, at++, i, Value(member, record));
    }
    Write(records);
  }

  Variable Value(const Member& member, const std::uint8_t* record) {
    const FieldInfo& field = *member.field;
    const std::uint8_t* const bytes = record + field.offset;
    if (member.clock) return Clocks(field, bytes);
    if (field.type == FieldType::Char) return Texts(field, bytes);
    if (IsRawBytes(field)) return NewBytes(bytes, field.count);
    std::size_t const rows = field.rows == 0 ? 1 : field.rows;
    std::size_t const columns = field.count == 0 ? 1 : field.count;
    std::vector<double> values;
    // Matrices stand column by column.
    for (std::size_t column = 0; column < columns; ++column) {
      for (std::size_t row = 0; row < rows; ++row) {
        values.push_back(Number(field, bytes + (row * columns + column) * ElementSize(field.type)));
      }
    }
    return NewMatrix(nullptr, rows, columns, values);
  }

  Variable Clock(const std::uint8_t* bytes) {
    char text[ClockText::kMost];
    const char* const end = clock_.Put(text, ReadAs<std::int32_t>(bytes));
    return NewText(std::string_view(text, static_cast<std::size_t>(end - text)));
  }

  Variable Clocks(const FieldInfo& field, const std::uint8_t* bytes) {
    if (field.count == 0) return Clock(bytes);
    std::vector<matvar_t*> texts;
    for (std::size_t i = 0; i < field.count; ++i) {
      texts.push_back(Clock(bytes + i * ElementSize(field.type)).release());
    }
    return NewCells(texts);
  }

  static Variable Texts(const FieldInfo& field, const std::uint8_t* bytes) {
    if (field.rows == 0) return NewText(bytes, field.count);
    std::vector<matvar_t*> texts;
    for (std::size_t row = 0; row < field.rows; ++row) {
      texts.push_back(NewText(bytes + row * field.count, field.count).release());
    }
    return NewCells(texts);
  }

  double Number(const FieldInfo& field, const std::uint8_t* bytes) {
    if (field.type == FieldType::F32) {
      return ValueOf(ReadAs<float>(bytes), field.kind == FieldKind::Level);
    }
    return static_cast<double>(ReadWhole(field.type, bytes));
  }

  double ValueOf(float value, bool level) {
    if (!std::isfinite(value) || (level && value == QV_NO_LEVEL)) return kNoValue;
    return numbers_.Of(value);
  }

  // One struct whose members are columns.
  void WriteColumns(const char* name, const std::vector<std::string>& names,
                    const std::vector<const std::vector<double>*>& columns) {
    if (columns.front()->empty()) return;
    Variable const series = NewStruct(name, 1, names);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      Set(series, i, 0, NewMatrix(nullptr, columns[i]->size(), 1, *columns[i]));
    }
    Write(series);
  }

  void WriteSeries() {
    WriteColumns("TimeHistorySamples", {"Time", "FirstLevel", "SecondLevel"},
                 {&sampleTimes_, &firstLevels_, &secondLevels_});
    WriteColumns("TimeHistoryMarkers", {"Time", "EventCode", "EventDetail"},
                 {&markerTimes_, &markerCodes_, &markerDetails_});
  }

  // Units.Interval.LevelA is 'dB'; all records are there, whatever the file holds.
  void WriteUnits() {
    std::vector<std::string> recordNames;
    for (const RecordInfo& info : record_fields::kRecords) {
      if (info.code != 0) recordNames.emplace_back(info.name);
    }
    Variable const units = NewStruct("Units", 1, recordNames);
    std::size_t at = 0;
    for (const RecordInfo& info : record_fields::kRecords) {
      if (info.code == 0) continue;
      std::vector<const FieldInfo*> fields;
      std::vector<std::string> names;
      for (const FieldInfo& field : info.fields) {
        if (UnitOf(field).empty()) continue;
        fields.push_back(&field);
        names.emplace_back(field.name);
      }
      Variable record = NewStruct(nullptr, 1, names);
      for (std::size_t i = 0; i < fields.size(); ++i) {
        Set(record, i, 0, NewText(UnitOf(*fields[i])));
      }
      Set(units, at++, 0, std::move(record));
    }
    Write(units);
  }

  // The library does not tell of a disk that was full. Each variable begins with its size: they
  // end where the file does.
  bool IsWhole() const {
    std::ifstream file(part_.Path(), std::ios::binary | std::ios::ate);
    auto const size = static_cast<std::uint64_t>(file.tellg());
    std::uint64_t at = kHeaderSize;
    int found = 0;
    for (std::array<std::uint32_t, 2> head{}; at < size; ++found) {
      file.seekg(static_cast<std::streamoff>(at));
      if (!file.read(reinterpret_cast<char*>(head.data()), sizeof head)) return false;
      at += sizeof head + head[1];
    }
    return at == size && found == variables_;
  }

  std::string place_;
  Temporary part_;
  std::unique_ptr<mat_t, Closer> file_;
  int variables_ = 0;
  std::vector<Kind> kinds_;  // by the place of the record in the field table
  SampleSeries series_;
  std::vector<double> sampleTimes_;
  std::vector<double> firstLevels_;
  std::vector<double> secondLevels_;
  std::vector<double> markerTimes_;
  std::vector<double> markerCodes_;
  std::vector<double> markerDetails_;
  DecimalNumbers numbers_;
  ClockText clock_;
};

}  // namespace

std::unique_ptr<RecordSink> OpenMat(const std::string& place) {
  return std::make_unique<MatStructs>(place);
}

}  // namespace host
