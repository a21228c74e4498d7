// A census, and then a whole translation, held against each other.

#include "census_agreement.h"
#include "census_run.h"
#include "fuzzed_file.h"
#include "oracles.h"
#include "translation_run.h"
#include "walk_run.h"

namespace {

// The walk over the input with a census, and over a cut of it. The cut goes without one first, by
// the daylight span of the input: the span that its own census finds may be another.
void Walk(fuzz::FuzzedFile& file, std::span<const std::uint8_t> bytes) {
  using fuzz::Counting;
  fuzz::WalkedFile const whole = fuzz::WalkToEnd(file.Path(), bytes.size(), Counting::CensusFirst);
  std::size_t const cut = fuzz::CutOf(bytes);
  file.Hold(bytes.first(cut));
  fuzz::ExpectPrefix(whole, bytes, fuzz::WalkToEnd(file.Path(), cut, Counting::None), cut);
  fuzz::WalkToEnd(file.Path(), cut, Counting::CensusFirst);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::FuzzedFile file;
  file.Hold({data, size});
  fuzz::Census const census = fuzz::RunCensus(file.Path(), size);
  // The mode of a file is that of all its intervals.
  std::size_t const interval =
      census.counts.Intervals > 0 ? sizeof(QvInterval) : sizeof(QvBandInterval);
  auto const first = fuzz::Translate(file.Path(), size, fuzz::ContextUse::Steady, interval);
  auto const second = fuzz::Translate(file.Path(), size, fuzz::ContextUse::Moved, interval);
  fuzz::Expect(first.startStatus == second.startStatus && first.log == second.log,
               "two translations of a file give the same records");
  fuzz::Expect(fuzz::RunCensus(file.Path(), size) == census,
               "a census behind a translation gives the same counts");
  fuzz::ExpectAgreement({data, size}, census, first.delivered);
  Walk(file, {data, size});
  return 0;
}
