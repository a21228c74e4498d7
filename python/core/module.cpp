// What Python sees of the library: qvslm._core. The package's own modules make of it what users see.
#include <nanobind/nanobind.h>
#include <nanobind/ndarray.h>
#include <nanobind/stl/string.h>
#include <nanobind/stl/string_view.h>
#include <nanobind/stl/tuple.h>
#include <nanobind/stl/vector.h>

#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "open_file.h"
#include "record_columns.h"
#include "record_table.h"
#include "sample_series.h"

namespace nb = nanobind;
using namespace nb::literals;

namespace {

using python::Choice;
using python::OpenFile;
using record_fields::FieldInfo;
using record_fields::FieldType;
using record_fields::RecordInfo;

using Bytes = nb::ndarray<nb::numpy, std::uint8_t, nb::ndim<1>>;
using ReadBytes = nb::ndarray<const std::uint8_t, nb::ndim<1>, nb::c_contig, nb::device::cpu>;

// As NumPy writes types: u2 of two bytes.
std::string NumpyType(FieldType type) {
  if (type == FieldType::Char) return "S";
  std::string name(record_fields::TypeName(type).substr(0, 1));
  return name += std::to_string(record_fields::ElementSize(type));
}

nb::list Records() {
  nb::list records;
  for (const RecordInfo& record : record_fields::kRecords) {
    nb::list fields;
    for (const FieldInfo& field : record.fields) {
      fields.append(nb::make_tuple(field.name, NumpyType(field.type), KindName(field.kind),
                                   field.offset, field.rows, field.count, field.reserved,
                                   field.comment));
    }
    records.append(nb::make_tuple(record.name, record.code, record.size, fields));
  }
  return records;
}

// An array of bytes that owns its memory.
template <class Owner>
Bytes Owned(Owner owner, std::uint8_t* bytes, std::size_t size) {
  auto* const kept = new Owner(std::move(owner));
  nb::capsule const end(kept, [](void* memory) noexcept { delete static_cast<Owner*>(memory); });
  return Bytes(bytes, {size}, end);
}

// The texts of the file's head are handed over as bytes, and so is the serial number.
template <std::size_t N>
nb::bytes Text(const char (&text)[N]) {
  return nb::bytes(text, strnlen(text, N));
}

nb::dict Header(const OpenFile& file) {
  const QvFileHeaderInfo& header = file.Header();
  const QvEnd& end = file.Found().end;
  nb::dict texts;
  texts["status"] = file.HeaderStatus();
  texts["model"] = Text(header.HeaderLine2);
  texts["firmware"] = Text(header.HeaderLine3);
  texts["mode"] = Text(header.HeaderLine6);
  texts["titles"] =
      nb::make_tuple(Text(header.TitleLine1), Text(header.TitleLine2), Text(header.TitleLine3));
  texts["end_titles"] = nb::make_tuple(Text(end.Title1), Text(end.Title2), Text(end.Title3));
  texts["serial"] = nb::bytes(file.Serial(), std::strlen(file.Serial()));
  texts["end_serial"] = Text(end.SerialText);
  texts["sites"] = file.SiteCount();
  texts["header_time"] = file.HeaderTime();
  texts["first_block_time"] = file.Found().firstBlockTime;
  texts["first_run_start"] = file.Found().firstRunStart;
  texts["stop_time"] = end.EndRecordStopTime;
  texts["latest_time"] = end.LatestRecordTime;
  return texts;
}

nb::dict Census(const OpenFile& file) {
  nb::dict counts;
  auto const* const bytes = reinterpret_cast<const std::uint8_t*>(&file.Census());
  for (const FieldInfo& field : record_fields::kRecordCensusFields) {
    if (field.reserved) continue;
    std::uint32_t count = 0;
    std::memcpy(&count, bytes + field.offset, sizeof count);
    counts[nb::str(field.name.data(), field.name.size())] = count;
  }
  return counts;
}

nb::dict Status(const OpenFile& file) {
  const QvWalk& walk = file.Walk();
  nb::dict status;
  status["whole"] = QvWalkWasWhole(&walk) != 0;
  status["goes_on"] = walk.End == QV_WALK_GOES_ON;
  status["started"] = walk.End != QV_WALK_NOT_STARTED;
  status["reason"] = QvWalkWhy(&walk);
  status["status"] = walk.Status;
  status["census_status"] = walk.CensusStatus;
  status["offset"] = walk.CutOffset >= 0 ? walk.CutOffset : walk.Offset;
  status["left_out"] = file.LeftOut();
  status["short_items"] = file.ShortItems();
  return status;
}

// The bytes of the records that came, by their places in records().
nb::dict Decode(OpenFile& file, const std::vector<std::size_t>& kinds, std::uint64_t most) {
  Choice choice{};
  for (std::size_t const kind : kinds) choice.at(kind) = true;
  python::RowsOfKinds rows;
  {
    nb::gil_scoped_release const released;
    file.Decode(choice, most, rows);
  }
  nb::dict arrays;
  for (std::size_t kind = 0; kind < python::kRecordCount; ++kind) {
    std::size_t const size = rows[kind].Bytes();
    if (size == 0) continue;
    python::RowMemory memory = rows[kind].Release();
    std::uint8_t* const bytes = memory.Bytes();
    arrays[nb::int_(kind)] = Owned(std::move(memory), bytes, size);
  }
  return arrays;
}

// By the names of the fields: the values' bytes, those of the bits that tell which are missing or None,
// and how many are.
nb::dict Columns(std::size_t kind, const ReadBytes& records) {
  if (kind >= python::kRecordCount) throw nb::index_error();
  const RecordInfo& record = record_fields::kRecords[kind];
  std::vector<python::Column> columns;
  {
    nb::gil_scoped_release const released;
    columns = python::ColumnsOf(record, records.data(), records.size() / record.size);
  }
  nb::dict fields;
  for (python::Column& column : columns) {
    std::uint8_t* const values = column.values.Bytes();
    std::uint8_t* const bits = column.bits.Bytes();
    nb::object missing = nb::none();
    if (column.missing > 0)
      missing = nb::cast(Owned(std::move(column.bits), bits, column.bitBytes));
    fields[nb::str(column.field->name.data(), column.field->name.size())] = nb::make_tuple(
        Owned(std::move(column.values), values, column.valueBytes), missing, column.missing);
  }
  return fields;
}

nb::tuple Series(const ReadBytes& records, double wouldGoOn) {
  python::Series series;
  {
    nb::gil_scoped_release const released;
    series = python::SeriesOf(records.data(), records.size() / sizeof(QvTimeHistory), wouldGoOn);
  }
  std::uint8_t* const bytes = series.entries.Bytes();
  std::size_t const size = series.count * sizeof(python::SeriesEntry);
  return nb::make_tuple(Owned(std::move(series.entries), bytes, size), wouldGoOn);
}

using Change = std::tuple<std::int64_t, std::int32_t, std::int32_t>;

void Open(OpenFile* place, const nb::bytes& path, const std::vector<Change>& changes) {
  std::string name(path.c_str(), path.size());
  std::vector<QvZoneChange> zone;
  zone.reserve(changes.size());
  for (const auto& [from, offset, daylight] : changes) zone.push_back({from, offset, daylight});
  nb::gil_scoped_release const released;
  new (place) OpenFile(std::move(name), std::move(zone));
}

}  // namespace

NB_MODULE(_core, module) {
  module.doc() = "The library behind qvslm.";
  module.attr("NO_LEVEL") = QV_NO_LEVEL;
  module.attr("OK") = static_cast<int>(QV_OK);
  module.attr("NO_TEXT_HEADER") = static_cast<int>(QV_NO_TEXT_HEADER);
  module.def("records", Records);
  module.def("columns", Columns, "kind"_a, "records"_a);
  module.def("series", Series, "records"_a, "would_go_on"_a);
  nb::class_<OpenFile>(module, "OpenFile")
      .def("__init__", Open, "path"_a, "zone"_a)
      .def("decode", Decode, "kinds"_a, "most"_a)
      .def("close", &OpenFile::Close, nb::call_guard<nb::gil_scoped_release>())
      .def("header", Header)
      .def("census", Census)
      .def("status", Status);
}
