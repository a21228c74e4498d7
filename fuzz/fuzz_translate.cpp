// A whole translation without a census before it.

#include "fuzzed_file.h"
#include "oracles.h"
#include "shifted_file.h"
#include "translation_run.h"
#include "walk_run.h"

namespace {

using fuzz::ContextUse;

fuzz::Translation Translate(fuzz::FuzzedFile& file, std::span<const std::uint8_t> bytes,
                            ContextUse use) {
  file.Hold(bytes);
  return fuzz::Translate(file.Path(), bytes.size(), use);
}

std::span<const std::uint8_t> BytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// The walk over the input, and over a cut of it.
void Walk(fuzz::FuzzedFile& file, std::span<const std::uint8_t> bytes) {
  file.Hold(bytes);
  fuzz::WalkedFile const whole = fuzz::WalkToEnd(file.Path(), bytes.size(), fuzz::Counting::None);
  std::size_t const cut = fuzz::CutOf(bytes);
  file.Hold(bytes.first(cut));
  fuzz::ExpectPrefix(whole, bytes, fuzz::WalkToEnd(file.Path(), cut, fuzz::Counting::None), cut);
}

bool AreEqual(const fuzz::Translation& one, const fuzz::Translation& other) {
  return one.startStatus == other.startStatus && one.log == other.log;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::FuzzedFile file;
  std::span<const std::uint8_t> const bytes(data, size);
  fuzz::Expect(AreEqual(Translate(file, bytes, ContextUse::Steady),
                        Translate(file, bytes, ContextUse::Moved)),
               "two translations of a file give the same records");
  Walk(file, bytes);
  if (auto const shifted = fuzz::Shift(bytes)) {
    fuzz::Expect(AreEqual(Translate(file, BytesOf(shifted->near), ContextUse::Steady),
                          Translate(file, BytesOf(shifted->far), ContextUse::Steady)),
                 "records do not depend on where in the file they stand");
  }
  return 0;
}
