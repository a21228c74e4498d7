// The work of a census and of a whole walk grows with the file and no faster, also where each item
// sets off a search that goes on to the end of the file. What shows it is how often the file is
// read: the library holds four blocks of 32 KiB, so that a search over a file of 256 KiB reads it
// anew.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "robustness/faulty_calls.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace {

std::size_t looks = 0;

}  // namespace

// Each line is looked for by the one and each body taken by the other.
extern "C" {

void* __real_memchr(const void* bytes, int byte, std::size_t count);
void* __real_memcpy(void* target, const void* bytes, std::size_t count);

void* __wrap_memchr(const void* bytes, int byte, std::size_t count);
void* __wrap_memcpy(void* target, const void* bytes, std::size_t count);

void* __wrap_memchr(const void* bytes, int byte, std::size_t count) {
  ++looks;
  return __real_memchr(bytes, byte, count);
}

void* __wrap_memcpy(void* target, const void* bytes, std::size_t count) {
  ++looks;
  return __real_memcpy(target, bytes, count);
}

}  // extern "C"

namespace test {
namespace {

using samples::Body;
using samples::DataFile;

constexpr std::size_t kKiB = 1024;

struct Reads {
  int census = 0;
  int walk = 0;
};

Reads ReadsOf(const std::string& path, std::size_t mostSteps) {
  Session session;
  ArmFault();
  {
    InLibrary const within;
    session.Census(path);
  }
  Reads reads{CallsOf(CCall::Read), 0};
  QV_StopTranslate();
  EXPECT_EQ(session.Start(path), QV_OK);
  ArmFault();
  InLibrary const within;
  int status = QV_OK;
  for (std::size_t step = 0; status >= 0 && step < mostSteps; ++step) {
    status = QV_TranslateNextRec(session.Record(), session.Context());
  }
  reads.walk = CallsOf(CCall::Read);
  return reads;
}

std::size_t LooksOf(Session& session, std::size_t steps) {
  std::size_t const before = looks;
  for (std::size_t step = 0; step < steps; ++step) {
    QV_TranslateNextRec(session.Record(), session.Context());
  }
  return looks - before;
}

// A head, a unit that is repeated over the first half of the file, and a filler that is repeated
// over the second one.
struct Shape {
  const char* name;
  DataFile head;
  std::string unit;
  std::string between;
  std::string filler;
  std::string last;
};

// Bands whose owner is looked for from behind settings on, as far as it may be, and a line of
// results of which that search takes 80 characters and reads on behind them, where no step of the
// translation begins: there an item of the given length has the next settings and bands in its
// body.
std::string BandsAndItemOf(int length) {
  std::string const bands = DataFile().Item(129, Body().U16(65535)).Bytes();
  std::string const item = {8, static_cast<char>(length / 256), static_cast<char>(length % 256)};
  return "Q\n" + bands + "R" + std::string(80, ' ') + item + "\n";
}

// Lines of which none writes over all of the one before, far from one another.
std::string FallingLines() {
  std::string lines = "\n";
  for (std::size_t length = 318; length > 0; --length) {
    lines += std::string(length, ' ') + std::string(400, '\n');
  }
  return lines;
}

std::vector<Shape> Shapes() {
  std::string const reference = DataFile().Item('C', Body()).Bytes();
  std::string const bandsOf1 = DataFile().Item(129, Body().U16(1)).Bytes();
  std::string const interval = DataFile().Item(1, Body().Fill(40)).Bytes();
  std::string const emptyStream("\x06\0", 2);
  // From such an item the search comes to the like item in a later unit, from each of as many units
  // as lie between on a way of its own.
  auto const unit = static_cast<int>(BandsAndItemOf(0).size());
  int const toNext26th = 26 * unit - 3;
  int const toNext67th = 67 * unit - 3;
  return {
      {"ResultsWithoutABlockBehind", Model431("sSLM"), "R\n" + reference, "", "\n", ""},
      {"ReferencesWithoutResults", Model431("sSLM"), reference, "", "\n", ""},
      {"ReferencesWithoutLines", Model431("sSLM"), reference, "", reference, ""},
      {"ReferencesBeforeALongBlock", Model431("sSLM"), reference, "\n", "R   7,1\r\n", ""},
      {"ReferencesBeforeFallingLines", Model431("sSLM"), reference, FallingLines(), "\n", ""},
      {"BandsBeforeStreams", General(), BandsAndItemOf(toNext26th), "", emptyStream, ""},
      {"BandsOnManyWays", General(), BandsAndItemOf(toNext67th), "", BandsAndItemOf(toNext67th),
       ""},
      {"BandsBeforeALongStream", General(), BandsAndItemOf(toNext26th), "", "\x06", ""},
      {"BandsOfAnOwnerPassed", General().Raw("Q\n"), bandsOf1, interval, reference, interval},
  };
}

std::string Filled(const Shape& shape, std::size_t size) {
  std::string bytes = shape.head.Bytes();
  while (bytes.size() < size / 2) bytes += shape.unit;
  bytes += shape.between;
  while (bytes.size() < size) bytes += shape.filler;
  bytes += shape.last;
  return bytes + std::string(3000, '\n') + std::string(3, '\0');  // they end a stream of any form
}

void PrintTo(const Shape& shape, std::ostream* out) {
  *out << shape.name;
}

class WorkInProportion : public testing::TestWithParam<Shape> {};

INSTANTIATE_TEST_SUITE_P(Shapes, WorkInProportion, testing::ValuesIn(Shapes()),
                         [](const auto& shape) { return std::string(shape.param.name); });

TEST_P(WorkInProportion, ReadsGrowWithTheFile) {
  std::vector<Reads> reads;
  for (std::size_t const size : {256 * kKiB, 512 * kKiB, 1024 * kKiB}) {
    TempFile const file(Filled(GetParam(), size));
    reads.push_back(ReadsOf(file.Path(), size));
  }
  for (std::size_t at = 1; at < reads.size(); ++at) {
    EXPECT_LE(reads[at].census, reads[at - 1].census * 5 / 2 + 4);
    EXPECT_LE(reads[at].walk, reads[at - 1].walk * 5 / 2 + 4);
  }
}

TEST_P(WorkInProportion, LongCensusesLookOnceAtWhatTheyPass) {
  std::vector<std::size_t> counts;
  for (std::size_t const size : {1024 * kKiB, 4096 * kKiB}) {
    TempFile const file(Filled(GetParam(), size));
    Session session;
    std::size_t const before = looks;
    session.Census(file.Path());
    counts.push_back(looks - before);
  }
  EXPECT_LE(counts[1], counts[0] * 5);
}

// Behind the first searches, which find the way, a step costs as much in a long file as in a short
// one.
TEST_P(WorkInProportion, StepsOfLongFilesCostNoMore) {
  constexpr std::size_t kFirst = 4000;
  constexpr std::size_t kMore = 4000;
  std::vector<std::size_t> counts;
  for (std::size_t const size : {1024 * kKiB, 8192 * kKiB}) {
    TempFile const file(Filled(GetParam(), size));
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    LooksOf(session, kFirst);
    counts.push_back(LooksOf(session, kMore));
  }
  EXPECT_LE(counts[1], counts[0] * 3 / 2);
}

}  // namespace
}  // namespace test
