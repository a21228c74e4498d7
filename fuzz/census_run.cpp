#include "census_run.h"

#include <array>
#include <numeric>

#include "oracles.h"
#include "work_bound.h"

namespace fuzz {

namespace {

// Every count stands for a byte of the file at least, but for the three that an item of block
// images is good for.
void CheckSize(const QvRecordCensus& counts, std::size_t fileSize) {
  std::array<std::uint32_t, sizeof(QvRecordCensus) / 4> fields{};
  std::memcpy(fields.data(), &counts, sizeof counts);
  std::uint64_t const all = std::accumulate(fields.begin(), fields.end(), std::uint64_t{0});
  // A stream or list may go on for one block behind the file's end, over bytes read before.
  Expect(all <= fileSize + 500, "a census counts no more than the file can hold");
}

}  // namespace

Census RunCensus(const char* path, std::size_t fileSize) {
  static test::GuardedBuffer context(9984);
  static test::GuardedBuffer record(QV_OUTPUT_RECORD_SIZE);
  static test::GuardedBuffer counts(sizeof(QvRecordCensus));
  context.Fill(0);
  record.Fill(0xA5);
  counts.Fill(0xA5);

  Census census{};
  census.status = BoundedAndClosed(fileSize, Reads::WithEachItem, [&] {
    return QV_GetRecordCount(path, context.Data(), reinterpret_cast<QvRecordCensus*>(counts.Data()),
                             record.Data());
  });
  std::memcpy(&census.counts, counts.Data(), sizeof census.counts);
  Expect(IsOneOf(census.status, {QV_OK, QV_SEEK_FAILED, QV_BAD_LENGTH, QV_RECORD_TOO_SHORT}),
         "a status of the census");
  Expect(census.counts.Unused40 == 0, "one field of the census stays 0");
  CheckSize(census.counts, fileSize);
  return census;
}

}  // namespace fuzz
