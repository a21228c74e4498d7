#include "record_columns.h"

#include <algorithm>
#include <cstring>

#include "qvslm_records.h"

namespace python {

namespace {

using record_fields::ElementSize;
using record_fields::FieldInfo;
using record_fields::FieldKind;
using record_fields::FieldSize;
using record_fields::FieldType;

// So many records at a time stay in the processor's cache until all their fields are taken.
constexpr std::size_t kBlockBytes = 16384;

std::size_t ValuesOf(const FieldInfo& field) {
  return FieldSize(field) / ElementSize(field.type);
}

void NoteMissing(Column& column, std::size_t value, std::size_t allValues) {
  constexpr std::uint8_t all = 0xFF;
  if (column.missing == 0) {
    column.bitBytes = (allValues + 7) / 8;
    column.bits.Grow(column.bitBytes);
    std::memset(column.bits.Bytes(), all, column.bitBytes);
  }
  ++column.missing;
  std::uint8_t& byte = column.bits.Bytes()[value / 8];
  byte = static_cast<std::uint8_t>(byte & ~(1U << value % 8));
}

template <std::size_t kSize>
void CopyEach(std::uint8_t* out, const std::uint8_t* in, std::size_t stride, std::size_t count) {
  for (std::size_t row = 0; row < count; ++row) {
    std::memcpy(out + row * kSize, in + row * stride, kSize);
  }
}

void Copy(std::uint8_t* out, const std::uint8_t* in, std::size_t size, std::size_t stride,
          std::size_t count) {
  switch (size) {
    case 1:
      return CopyEach<1>(out, in, stride, count);
    case 2:
      return CopyEach<2>(out, in, stride, count);
    case 4:
      return CopyEach<4>(out, in, stride, count);
    default:
      for (std::size_t row = 0; row < count; ++row) {
        std::memcpy(out + row * size, in + row * stride, size);
      }
  }
}

class Taker {
 public:
  Taker(std::vector<Column>& columns, const std::uint8_t* rows, std::size_t size, std::size_t count)
      : columns_(columns), rows_(rows), size_(size), count_(count) {}

  void Take(std::size_t first, std::size_t count) {
    for (Column& column : columns_) {
      const std::uint8_t* const in = rows_ + first * size_ + column.field->offset;
      if (column.field->kind == FieldKind::Time) {
        TakeTimes(column, in, first, count);
        continue;
      }
      std::size_t const bytes = FieldSize(*column.field);
      Copy(column.values.Bytes() + first * bytes, in, bytes, size_, count);
      if (column.field->kind == FieldKind::Level) NoteLevels(column, first, count);
    }
  }

 private:
  void TakeTimes(Column& column, const std::uint8_t* in, std::size_t first, std::size_t count) {
    std::size_t const values = ValuesOf(*column.field);
    std::uint8_t* out = column.values.Bytes() + first * values * sizeof(std::int64_t);
    for (std::size_t row = 0; row < count; ++row) {
      for (std::size_t at = 0; at < values; ++at) {
        std::int32_t seconds = 0;
        std::memcpy(&seconds, in + row * size_ + at * sizeof seconds, sizeof seconds);
        std::int64_t const wide = seconds;
        std::memcpy(out, &wide, sizeof wide);
        out += sizeof wide;
        if (seconds <= 0) NoteMissing(column, (first + row) * values + at, count_ * values);
      }
    }
  }

  void NoteLevels(Column& column, std::size_t first, std::size_t count) {
    std::size_t const values = ValuesOf(*column.field);
    auto const* const levels = reinterpret_cast<const float*>(column.values.Bytes());
    for (std::size_t at = first * values; at < (first + count) * values; ++at) {
      if (levels[at] == QV_NO_LEVEL) NoteMissing(column, at, count_ * values);
    }
  }

  std::vector<Column>& columns_;
  const std::uint8_t* rows_;
  std::size_t size_;
  std::size_t count_;
};

}  // namespace

std::vector<Column> ColumnsOf(const record_fields::RecordInfo& record, const std::uint8_t* rows,
                              std::size_t count) {
  std::vector<Column> columns;
  columns.reserve(record.fields.size());
  for (const FieldInfo& field : record.fields) {
    if (field.reserved || field.type == FieldType::Char) continue;
    Column& column = columns.emplace_back();
    column.field = &field;
    std::size_t const wide = field.kind == FieldKind::Time ? 2 : 1;
    column.valueBytes = count * FieldSize(field) * wide;
    if (count > 0) column.values.Grow(column.valueBytes);
  }
  Taker taker(columns, rows, record.size, count);
  std::size_t const block = std::max<std::size_t>(1, kBlockBytes / record.size);
  for (std::size_t first = 0; first < count; first += block) {
    taker.Take(first, std::min(block, count - first));
  }
  return columns;
}

}  // namespace python
