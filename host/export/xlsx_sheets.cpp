// The records of a file as an Excel workbook, a sheet a record name.
#include <xlsxwriter.h>

#include <cmath>
#include <optional>
#include <vector>

#include "clock_text.h"
#include "decimal_text.h"
#include "export/field_columns.h"
#include "export/record_sink.h"
#include "export/sample_table.h"
#include "export/written_file.h"
#include "latin1.h"
#include "qvslm_records.h"
#include "record_bytes.h"
#include "record_table.h"
#include "temporary.h"

namespace host {
namespace {

using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldType;

constexpr double kClockWidth = 20;
constexpr double kUsualWidth = 14;

// A sheet that is filled row by row.
struct Sheet {
  lxw_worksheet* sheet = nullptr;
  lxw_row_t row = 0;
};

class XlsxSheets : public RecordSink {
 public:
  explicit XlsxSheets(const std::string& place)
      : place_(place), part_(PlainFileBeside(place)), tables_(std::size(record_fields::kRecords)) {
    // A row goes to a file as soon as the next begins.
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    workbook_.reset(workbook_new_opt(part_.Path().c_str(), &options));
    heading_ = workbook_add_format(workbook_.get());
    format_set_bold(heading_);
    clock_ = workbook_add_format(workbook_.get());
    format_set_num_format(clock_, "yyyy-mm-dd hh:mm:ss");
    exactClock_ = workbook_add_format(workbook_.get());
    format_set_num_format(exactClock_, "yyyy-mm-dd hh:mm:ss.000");
  }

  void Add(const ExportedRecord& record) override {
    Table& table = tables_[static_cast<std::size_t>(&record.info - record_fields::kRecords)];
    if (table.sheet.sheet == nullptr) Begin(table, record.info);
    NextRow(table.sheet, record.info.name);
    PutNumber(table.sheet, 0, static_cast<double>(record.number));
    PutNumber(table.sheet, 1, record.shortItem ? 1 : 0);
    lxw_col_t at = 2;
    for (const Column& column : table.columns) PutColumn(table.sheet, at++, column, record.bytes);
    if (record.info.structName == "QvTimeHistory") AddSamples(record);
  }

  void Finish(const Translation&, const WalkResult&) override {
    // A workbook needs a sheet.
    if (sheets_.empty()) workbook_add_worksheet(workbook_.get(), nullptr);
    // The library does not tell when a row did not get into its temporary file.
    for (lxw_worksheet* const sheet : sheets_) {
      if (std::fflush(sheet->optimize_tmpfile) != 0 || std::ferror(sheet->optimize_tmpfile) != 0) {
        throw WriteError(place_ + " cannot be written: its temporary files do not fit");
      }
    }
    lxw_error const fault = workbook_close(workbook_.release());
    if (fault != LXW_NO_ERROR) {
      throw WriteError(place_ + " cannot be written: " + lxw_strerror(fault));
    }
    part_.MoveTo(place_);
  }

 private:
  struct Table {
    Sheet sheet;
    std::vector<Column> columns;
  };
  struct Freer {
    void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
  };

  void Begin(Table& table, const record_fields::RecordInfo& info) {
    table.columns = ColumnsOf(info);
    std::vector<std::string> headings = {"Record", "Short"};
    std::vector<lxw_col_t> clocks;
    for (const Column& column : table.columns) {
      if (column.clock) clocks.push_back(static_cast<lxw_col_t>(headings.size()));
      headings.push_back(HeadingOf(column));
    }
    table.sheet.sheet = NewSheet(std::string(info.name), headings, clocks);
  }

  static std::string HeadingOf(const Column& column) {
    std::string_view const unit = column.clock ? "" : UnitOf(*column.field);
    return unit.empty() ? column.name : column.name + " (" + std::string(unit) + ')';
  }

  lxw_worksheet* NewSheet(const std::string& name, const std::vector<std::string>& headings,
                          const std::vector<lxw_col_t>& clocks) {
    lxw_worksheet* const sheet = workbook_add_worksheet(workbook_.get(), name.c_str());
    sheets_.push_back(sheet);
    auto const last = static_cast<lxw_col_t>(headings.size() - 1);
    worksheet_set_column(sheet, 0, last, kUsualWidth, nullptr);
    for (lxw_col_t const column : clocks) {
      worksheet_set_column(sheet, column, column, kClockWidth, nullptr);
    }
    worksheet_freeze_panes(sheet, 1, 0);
    lxw_col_t column = 0;
    for (const std::string& heading : headings) {
      worksheet_write_string(sheet, 0, column++, heading.c_str(), heading_);
    }
    return sheet;
  }

  void NextRow(Sheet& sheet, std::string_view name) {
    if (++sheet.row < LXW_ROW_MAX) return;
    throw WriteError(place_ + ": a sheet takes " + std::to_string(LXW_ROW_MAX - 1) + " rows, and " +
                     std::string(name) +
                     " has more: export to csv or sqlite, or choose less of the file by "
                     "--records, --since and --until");
  }

  static void PutNumber(Sheet& sheet, lxw_col_t column, double value,
                        lxw_format* format = nullptr) {
    worksheet_write_number(sheet.sheet, sheet.row, column, value, format);
  }

  // A time of the clock as sheets count: days since the end of 1899.
  void PutClock(Sheet& sheet, lxw_col_t column, double seconds, lxw_format* format) {
    if (!(seconds > 0 && seconds <= std::numeric_limits<std::int32_t>::max())) return;
    auto const offset = clockText_.Offset(static_cast<std::int32_t>(seconds));
    constexpr double secondsOfDay = 86400;
    constexpr double dayOf1970 = 25569;
    if (offset) PutNumber(sheet, column, (seconds + *offset) / secondsOfDay + dayOf1970, format);
  }

  void PutLevel(Sheet& sheet, lxw_col_t column, float value, bool level) {
    if (!std::isfinite(value) || (level && value == QV_NO_LEVEL)) return;
    PutNumber(sheet, column, numbers_.Of(value));
  }

  // Texts are texts for a sheet: none of them runs as a formula.
  void PutColumn(Sheet& sheet, lxw_col_t at, const Column& column, const std::uint8_t* record) {
    const std::uint8_t* const bytes = record + column.offset;
    const FieldInfo& field = *column.field;
    if (column.clock) {
      PutClock(sheet, at, ReadAs<std::int32_t>(bytes), clock_);
    } else if (field.type == FieldType::F32) {
      PutLevel(sheet, at, ReadAs<float>(bytes), field.kind == FieldKind::Level);
    } else if (field.type == FieldType::Char) {
      std::string const text = TextFromLatin1(reinterpret_cast<const char*>(bytes), field.count);
      if (!text.empty()) worksheet_write_string(sheet.sheet, sheet.row, at, text.c_str(), nullptr);
    } else {
      PutNumber(sheet, at, static_cast<double>(ReadWhole(field.type, bytes)));
    }
  }

  void PutTime(Sheet& sheet, std::string_view name, std::uint64_t number, double time) {
    NextRow(sheet, name);
    PutNumber(sheet, 0, static_cast<double>(number));
    PutNumber(sheet, 1, time);
    PutClock(sheet, 2, time, exactClock_);
  }

  void AddSamples(const ExportedRecord& record) {
    series_.Take(record.bytes);
    std::vector<std::string> headings = {"Record", "Time (s since 1970 UTC)", "TimeLocal"};
    if (!series_.Samples().empty() && samples_.sheet == nullptr) {
      headings.insert(headings.end(), {"FirstLevel (dB)", "SecondLevel (dB)"});
      samples_.sheet = NewSheet("TimeHistorySamples", headings, {2});
    }
    headings.resize(3);
    if (!series_.Markers().empty() && markers_.sheet == nullptr) {
      headings.insert(headings.end(), {"EventCode", "EventDetail"});
      markers_.sheet = NewSheet("TimeHistoryMarkers", headings, {2});
    }
    for (const Sample& sample : series_.Samples()) {
      PutTime(samples_, "TimeHistorySamples", record.number, sample.time);
      PutLevel(samples_, 3, sample.first, false);
      PutLevel(samples_, 4, sample.second, true);
    }
    for (const Marker& marker : series_.Markers()) {
      PutTime(markers_, "TimeHistoryMarkers", record.number, marker.time);
      PutNumber(markers_, 3, marker.code);
      PutNumber(markers_, 4, marker.detail);
    }
  }

  std::string place_;
  Temporary part_;
  std::unique_ptr<lxw_workbook, Freer> workbook_;
  lxw_format* heading_ = nullptr;
  lxw_format* clock_ = nullptr;
  lxw_format* exactClock_ = nullptr;
  std::vector<lxw_worksheet*> sheets_;
  std::vector<Table> tables_;  // by the place of the record in the field table
  SampleSeries series_;
  Sheet samples_;
  Sheet markers_;
  DecimalNumbers numbers_;
  ClockText clockText_;
};

}  // namespace

std::unique_ptr<RecordSink> OpenXlsx(const std::string& place) {
  return std::make_unique<XlsxSheets>(place);
}

}  // namespace host
