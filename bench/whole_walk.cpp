#include "whole_walk.h"

#include <array>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "qvslmtranslate.h"
#include "record_table.h"

namespace bench {

namespace {

// The two buffers of a host.
struct Buffers {
  std::vector<std::uint64_t> context = std::vector<std::uint64_t>(QV_GetBufferSize() / 8);
  alignas(4) std::array<std::uint8_t, QV_OUTPUT_RECORD_SIZE> record{};
};
Buffers buffers;

[[noreturn]] void Fail(const char* call, const std::string& path, int status) {
  throw std::runtime_error(std::string(call) + " of " + path + " returned " +
                           std::to_string(status));
}

template <class OnRecord>
void Translate(const std::string& path, OnRecord onRecord) {
  void* const context = buffers.context.data();
  int status = QV_StartTranslate(path.c_str(), context);
  if (status != QV_OK) Fail("QV_StartTranslate", path, status);
  while ((status = QV_TranslateNextRec(buffers.record.data(), context)) >= 0) onRecord();
  if (status != QV_END_OF_DATA) Fail("QV_TranslateNextRec", path, status);
}

std::vector<std::int64_t> SizesByCode() {
  std::vector<std::int64_t> sizes(100);
  for (const record_fields::RecordInfo& record : record_fields::kRecords) {
    std::int64_t& size = sizes.at(static_cast<std::size_t>(record.code));
    // Of the two records of code 1 the smaller one counts.
    auto const own = static_cast<std::int64_t>(record.size);
    if (record.code != 0 && (size == 0 || own < size)) size = own;
  }
  return sizes;
}

}  // namespace

void CountRecords(const std::string& path) {
  QvRecordCensus census;
  int const status =
      QV_GetRecordCount(path.c_str(), buffers.context.data(), &census, buffers.record.data());
  if (status != QV_OK) Fail("QV_GetRecordCount", path, status);
}

void TranslateFile(const std::string& path) {
  Translate(path, [] {});
}

Delivered MeasureDelivered(const std::string& path) {
  static const std::vector<std::int64_t> sizes = SizesByCode();
  Delivered delivered;
  Translate(path, [&] {
    std::uint16_t code = 0;
    std::memcpy(&code, buffers.record.data(), sizeof code);
    if (code == QV_NO_RECORD) return;
    ++delivered.records;
    delivered.bytes += sizes.at(code);
  });
  return delivered;
}

}  // namespace bench
