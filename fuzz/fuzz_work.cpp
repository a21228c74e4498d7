// The work of a census and of a whole walk over files of up to 1 MiB, in which a few parts of the
// input stand again and again: what a search costs that each of them sets off shows in long files
// alone.

#include <algorithm>
#include <string>

#include "file_parts.h"
#include "fuzzed_file.h"
#include "oracles.h"
#include "part_mutations.h"
#include "work_bound.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kContextSize = 9984;
constexpr std::size_t kMostOfUnit = 5;
constexpr std::size_t kKiB = 1024;

unsigned SeedOf(std::string_view input) {
  unsigned seed = 2166136261U;
  for (char const byte : input) seed = (seed ^ static_cast<unsigned char>(byte)) * 16777619U;
  return seed;
}

// Some parts that follow one another, as often as the size takes.
std::string Repeated(const fuzz::Parts& parts, std::size_t size, fuzz::Chance& chance) {
  std::size_t const from = chance.Below(parts.size());
  std::size_t const count = 1 + chance.Below(std::min(kMostOfUnit, parts.size() - from));
  std::string unit;
  for (std::size_t at = from; at < from + count; ++at) unit += parts[at].bytes;
  std::string bytes;
  while (!unit.empty() && bytes.size() + unit.size() <= size) bytes += unit;
  return bytes;
}

// The head of the input, one or two stretches of repeated parts, and the rest of the input.
std::string Stretched(std::string_view input) {
  constexpr std::size_t kSizes[] = {64 * kKiB, 64 * kKiB, 128 * kKiB, 128 * kKiB,
                                    64 * kKiB, 64 * kKiB, 256 * kKiB, 1024 * kKiB};
  fuzz::Chance chance(SeedOf(input));
  fuzz::Parts const parts = fuzz::TakeApart(input);
  fuzz::HeaderPlace const header = fuzz::FindHeader(parts);
  auto const behind = static_cast<std::ptrdiff_t>(header.first + header.lines);
  fuzz::Parts const body(parts.begin() + behind, parts.end());
  std::string file = fuzz::PutTogether({parts.begin(), parts.begin() + behind});
  if (body.empty()) return file;
  std::size_t const size = chance.From(kSizes);
  std::size_t const first = chance.OneIn(2) ? size : size / 2;
  file += Repeated(body, first, chance);
  file += Repeated(body, size - first, chance);
  return file + fuzz::PutTogether(body);
}

void Census(const char* path, std::size_t size) {
  static test::GuardedBuffer context(kContextSize);
  static test::GuardedBuffer record(QV_OUTPUT_RECORD_SIZE);
  context.Fill(0);
  QvRecordCensus census{};
  fuzz::BoundedAndClosed(size, fuzz::Reads::WithEachItem, [&] {
    return QV_GetRecordCount(path, context.Data(), &census, record.Data());
  });
}

// A walk that stands still at a place of the file ends here after as many steps as the file has
// bytes.
void Walk(const char* path, std::size_t size) {
  static test::GuardedBuffer context(kContextSize);
  static test::GuardedBuffer record(QV_OUTPUT_RECORD_SIZE);
  context.Fill(0);
  fuzz::Bounded(size, fuzz::Reads::WithEachItem, [&] {
    std::int32_t status = QV_StartTranslate(path, context.Data());
    if (status == QV_NO_TEXT_HEADER) status = QV_OK;
    for (std::size_t step = 0; status >= 0 && step < size; ++step) {
      status = QV_TranslateNextRec(record.Data(), context.Data());
    }
    return status;
  });
  QV_StopTranslate();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::FuzzedFile file;
  std::string const bytes = Stretched({reinterpret_cast<const char*>(data), size});
  file.Hold({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  Census(file.Path(), bytes.size());
  Walk(file.Path(), bytes.size());
  return 0;
}
